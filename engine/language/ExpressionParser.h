#pragma once
/// @file Reads expressions.

#include "engine/language/Scope.h"
#include "engine/language/TokenReader.h"

namespace engine::language {

/// Precedence climbing. From weak to strong: OR; AND; NOT; comparisons, which do not chain; + -; * /; the
/// minus sign.
class ExpressionParser
{
public:
    ExpressionParser(TokenReader& reader, const Scope& scope, Syntax& syntax)
        : m_reader(reader)
        , m_scope(scope)
        , m_syntax(syntax)
    {
    }

    /// Reads an expression that has a number. @return kBroken after a fault.
    NodeId read();

    /// Whether a drawing statement stands at the reader.
    bool atDrawing() const;
    /// Reads a drawing statement into the output.
    void readDrawing(Output& output);

private:
    NodeId readLevel(int level);
    NodeId readPrefixed();
    NodeId readPrimary();
    NodeId readName();
    NodeId readCall(const Token& name);
    std::vector<NodeId> readArguments(std::vector<Token>& starts);
    bool isNumberOfArgumentsRight(const Token& name, const Function& function,
                                  const std::vector<Token>& starts);
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
    int m_depth = 0;
};

} // namespace engine::language
