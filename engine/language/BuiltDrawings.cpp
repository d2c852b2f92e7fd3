// SPDX-License-Identifier: MIT
#include "engine/language/BuiltDrawings.h"

namespace engine::language {

namespace {

constexpr double kWholeBar = 10.0; // width of a stick in tenths of a bar
constexpr double kThinStick = 1.0;
constexpr double kUsualDecimals = 2.0;
constexpr double kOfPane = 1.0; // mode of a fixed text: per mille of the pane
constexpr double kMostColor = 0xFFFFFF;

Output drawingOf(const Output& named, se::DrawType::Code drawType, std::vector<NodeId> columns)
{
    Output output = named;
    output.isDrawing = true;
    output.drawType = drawType;
    output.columns = std::move(columns);
    return output;
}

/// A colour that is written as one.
std::optional<int> colorOf(NodeId color, const NodeMaker& make)
{
    const std::optional<double> packed = make.written(color);
    return packed && *packed >= 0.0 && *packed <= kMostColor ? std::optional(static_cast<int>(*packed))
                                                             : std::nullopt;
}

/// Sticks as wide as their bars between two lines where a condition holds.
std::optional<Output> fill(const Output& named, NodeId condition, NodeId a, NodeId b, NodeId color,
                           const NodeMaker& make)
{
    const std::optional<int> packed = colorOf(color, make);
    if (!packed)
        return std::nullopt;
    Output output = drawingOf(named, se::DrawType::StickLine,
                              { condition, a, b, make.number(kWholeBar), make.number(0.0) });
    output.colors = { *packed };
    output.isHiddenInLegend = true;
    return output;
}

std::vector<Output> band(const Output& named, const std::vector<NodeId>& arguments, const NodeMaker& make)
{
    const NodeId a = arguments[0], b = arguments[2];
    const auto above = fill(named, make.call(operatorOf(">="), { a, b }), a, b, arguments[1], make);
    const auto below = fill(named, make.call(operatorOf("<"), { a, b }), a, b, arguments[3], make);
    if (!above || !below)
        return {};
    return { *above, *below };
}

std::vector<Output> regions(const Output& named, const std::vector<NodeId>& arguments, const NodeMaker& make)
{
    const NodeId a = arguments[0], b = arguments[1];
    if (arguments.size() == 2)
        return { drawingOf(named, se::DrawType::StickLine,
                           { make.number(1.0), a, b, make.number(kWholeBar), make.number(0.0) }) };
    std::vector<Output> outputs;
    for (std::size_t region = 2; region + 1 < arguments.size(); region += 2) {
        const auto output = fill(named, arguments[region], a, b, arguments[region + 1], make);
        if (!output)
            return {};
        outputs.push_back(*output);
    }
    return arguments.size() % 2 == 0 ? outputs : std::vector<Output>();
}

/// The first condition that holds chooses the colour of the step from the bar before.
std::vector<Output> parts(const Output& named, const std::vector<NodeId>& arguments, const NodeMaker& make)
{
    if (arguments.size() == 2) {
        Output output =
            drawingOf(named, se::DrawType::SegmentLine, { make.call(operatorOf("part"), arguments) });
        output.isHiddenInLegend = named.name.empty(); // a value that nobody has named is no news
        return { output };
    }
    std::vector<Output> outputs;
    NodeId earlier = make.number(0.0); // whether a condition before holds
    for (std::size_t part = 1; part + 1 < arguments.size(); part += 2) {
        const std::optional<int> color = colorOf(arguments[part + 1], make);
        if (!color)
            return {};
        // COUNT answers on every bar, also where the condition is missing.
        const NodeId holds = make.call(*findFunction("COUNT"), { arguments[part], make.number(1.0) });
        const NodeId isFirst = make.call(operatorOf(">"), { holds, earlier });
        earlier = make.call(operatorOf("OR"), { holds, earlier });
        for (const double line : { 0.0, 1.0 }) {
            const NodeId steps = make.call(operatorOf("steps"),
                                           { isFirst, arguments[0], make.number(line), make.number(1.0) });
            outputs.push_back(drawingOf(named, se::DrawType::SegmentLine, { steps }));
            outputs.back().colors = { *color };
            outputs.back().isHiddenInLegend = true;
        }
    }
    return arguments.size() % 2 == 1 ? outputs : std::vector<Output>();
}

} // namespace

std::vector<Output> builtOutputs(const Function& function, const Output& named,
                                 const std::vector<NodeId>& arguments, const NodeMaker& make)
{
    const std::string name = function.name;
    if (name == "DRAWBAND")
        return band(named, arguments, make);
    if (name == "FILLRGN")
        return regions(named, arguments, make);
    if (name == "PARTLINE")
        return parts(named, arguments, make);
    if (name == "DRAWTEXT_FIX") {
        const auto perMille = [&](NodeId share) {
            return make.call(operatorOf("*"), { share, make.number(1000.0) });
        };
        return { drawingOf(
            named, se::DrawType::FixedText,
            { arguments[0], make.number(kOfPane), perMille(arguments[1]), perMille(arguments[2]) }) };
    }
    std::vector<NodeId> columns = arguments; // of a number
    if (columns.size() == 3)
        columns.push_back(make.number(kUsualDecimals));
    return { drawingOf(named, se::DrawType::Number, columns) };
}

Output sticksOf(const Output& output, const NodeMaker& make)
{
    const NodeId value = output.columns.front();
    Output sticks = drawingOf(output, se::DrawType::StickLine,
                              { make.call(*findFunction("ISVALID"), { value }), make.number(0.0), value,
                                make.number(kThinStick), make.number(0.0) });
    sticks.isHiddenInLegend = true;
    sticks.isDrawn = true;
    sticks.hasSticks = false;
    return sticks;
}

} // namespace engine::language
