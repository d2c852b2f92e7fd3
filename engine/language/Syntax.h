// SPDX-License-Identifier: MIT
#pragma once
/// @file What a formula's text says, checked.

#include "engine/language/Formula.h"
#include "engine/language/FunctionTable.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace engine::language {

using NodeId = int;
constexpr NodeId kBroken = -1;   ///< an expression whose fault has been reported
constexpr NodeId kNoNumber = -2; ///< a drawing, which has no value to read

/// A part of an expression. Arguments always stand before the node that takes them.
struct Node
{
    enum class Kind { Number, Parameter, Call, Text };

    Kind kind = Kind::Number;
    double number = 0.0;
    int parameter = 0;                  ///< position among the parameters
    const Function* function = nullptr; ///< of a Call
    std::vector<NodeId> arguments;
    std::string text;
    bool isConstant = true; ///< depends on numbers and parameters alone
};

/// One output as the text asks for it.
struct Output
{
    std::string name;                 ///< as written; empty for an output without a name
    std::optional<int> nameParameter; ///< whose value follows the name: MA#N is MA5
    se::DrawType::Code drawType = se::DrawType::Line;
    bool isDrawing = false;               ///< a drawing statement, not a value
    bool isDrawn = true;                  ///< false: in the legend alone
    std::vector<NodeId> columns;          ///< one, or the arguments of the drawing without its text
    std::vector<std::string> columnNames; ///< of stacked columns
    std::string text;
    std::vector<int> colors; ///< 0x00BBGGRR; more than one only for stacked columns
    int lineStyle = se::LineStyle::Solid;
    int lineWidth = 1;
    std::optional<int> decimals;
    std::optional<int> position;
    bool isHiddenInLegend = false;
    bool hasSticks = false; ///< also drawn as sticks from zero
};

/// The name of an output with the whole part of its parameter: MA#N is MA5.
/// @param parameters  one for each that the formula takes.
std::string shownName(const Output& output, const std::vector<double>& parameters);

/// A whole formula.
struct Syntax
{
    std::vector<Parameter> parameters;
    std::vector<Node> nodes;
    std::vector<Output> outputs;
    std::optional<int> kind; ///< when the text says which pane it wants
    /// What the functions of nodes live in that belong to no table: values on another period.
    std::vector<std::shared_ptr<const void>> held;
    std::size_t stepsElsewhere = 0; ///< of the formulas on other periods, each call counted

    const Node& operator[](NodeId id) const { return nodes[static_cast<std::size_t>(id)]; }
};

} // namespace engine::language
