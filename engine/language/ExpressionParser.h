// SPDX-License-Identifier: MIT
#pragma once
/// @file Reads expressions.

#include "engine/language/BuiltDrawings.h"
#include "engine/language/Scope.h"
#include "engine/language/TokenReader.h"

namespace engine::language {

/// Precedence climbing. From weak to strong: OR; AND; NOT; comparisons, which do not chain; + -; * /; the
/// minus sign.
class ExpressionParser
{
public:
    /// @param lookup  finds the formulas that the text calls.
    ExpressionParser(TokenReader& reader, const Scope& scope, Syntax& syntax, const FormulaLookup& lookup)
        : m_reader(reader)
        , m_scope(scope)
        , m_syntax(syntax)
        , m_lookup(lookup)
    {
    }

    /// Reads an expression that has a number. @return kBroken after a fault.
    NodeId read();

    /// Whether a drawing statement stands at the reader.
    bool atDrawing() const;
    /// Reads a drawing statement into outputs that carry the name; at least one.
    std::vector<Output> readDrawing(const Output& named);
    /// The sticks that an output asks for.
    Output readSticks(const Output& output);

private:
    NodeId readLevel(int level);
    NodeId readPrefixed();
    NodeId readPrimary();
    NodeId readName();
    NodeId readCall(const Token& name);
    std::vector<NodeId> readArguments(std::vector<Token>& starts);
    NodeId readFormulaCall(const Token& place, const std::string& formula, const std::string& output);
    NodeId onOtherPeriod(const Token& place, const std::shared_ptr<const Formula>& formula, NodeId value,
                         const std::vector<NodeId>& parameters);
    bool takeStepsElsewhere(const Token& place, std::size_t steps);
    NodeId inlined(const Syntax& called, NodeId value, const std::vector<NodeId>& parameters);
    std::vector<NodeId> formulaParameters(const Syntax& called, const std::vector<NodeId>& given,
                                          const std::vector<Token>& starts);
    NodeMaker nodeMaker();
    NodeId colorNode(const Token& name, const std::vector<NodeId>& parts);
    bool isNumberOfArgumentsRight(const Token& name, const Function& function,
                                  const std::vector<Token>& starts);
    bool areSeriesInOtherOrder(const std::string& names, const std::vector<NodeId>& arguments) const;
    bool isConditionMisplaced(const std::string& names, const std::vector<NodeId>& arguments) const;
    static bool isBarSeries(const Node& node);
    void hintAtOrder(const Function& function, const std::vector<NodeId>& arguments,
                     const std::vector<Token>& starts);
    void hintAtWindow(const Function& function, const std::vector<NodeId>& arguments,
                      const std::vector<Token>& starts);
    std::optional<double> writtenNumber(NodeId node) const;
    bool reportForeign(const Token& name);
    bool fits(const Token& name, const Function& function, const std::vector<NodeId>& arguments,
              const std::vector<Token>& starts);

    NodeId numberNode(double number);
    NodeId callNode(const Function& function, const std::vector<NodeId>& arguments);
    NodeId add(Node node);

    TokenReader& m_reader;
    const Scope& m_scope;
    Syntax& m_syntax;
    const FormulaLookup& m_lookup;
    int m_depth = 0;
};

} // namespace engine::language
