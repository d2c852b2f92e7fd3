// SPDX-License-Identifier: MIT
#include "engine/evaluation/OutputRecords.h"

#include <algorithm>
#include <cstdio>

namespace engine::language {

namespace {

constexpr const char* kNoName = "__noname"; // the legend shows the value alone
constexpr const char* kNoShow = "__noshow"; // the legend leaves the output out
constexpr const char* kHidden = "output"; // before the number of one that is left out: kNoName would undo it

constexpr int kDefaultStackColors[] = { 0x0000FF, 0x00FF00, 0xFF0000, 0x00FFFF,
                                        0xFFFF54, 0xFF00FF, 0x808080, 0x004080 };

std::string joined(const std::vector<std::string>& parts)
{
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "" : ",") + part;
    return text;
}

/// A value with a fixed number of decimals; the legend's word for a missing one.
std::string decimalText(double value, int decimals)
{
    if (isMissing(value))
        return "非法值";
    std::string text(static_cast<std::size_t>(std::snprintf(nullptr, 0, "%.*f", decimals, value)), '\0');
    std::snprintf(text.data(), text.size() + 1, "%.*f", decimals, value);
    return text;
}

double inRecord(double value, WhenMissing whenMissing)
{
    if (!isMissing(value))
        return value;
    switch (whenMissing) {
    case WhenMissing::Marker: return kMissingMarker;
    case WhenMissing::Zero: return 0.0;
    case WhenMissing::Missing: break;
    }
    return value;
}

/// The name that the records give to an output.
/// @param index  position among the outputs of the text.
std::string recordName(const Output& output, std::size_t index, const std::vector<double>& parameters)
{
    const char* const noName = output.isHiddenInLegend ? kHidden : kNoName;
    std::string name =
        output.name.empty() ? noName + std::to_string(index + 1) : shownName(output, parameters);
    if (output.drawType == se::DrawType::StackedVolume)
        name = joined(output.columnNames); // one legend piece each
    return output.isHiddenInLegend ? name + kNoShow : name;
}

} // namespace

OutputRecords::OutputRecords(const Syntax& syntax, const Plan& plan, const std::vector<double>& parameters,
                             const BarSeries& bars)
    : m_plan(plan)
{
    for (std::size_t index = 0; index < syntax.outputs.size(); ++index) {
        const Output& output = syntax.outputs[index];
        const std::vector<StepId>& columns = plan.outputColumns[index];
        if (isAbsent(output, columns, bars))
            continue;
        m_described.push_back(&output);
        const std::string name = recordName(output, index, parameters);
        m_builder.output(name, output.drawType);
        const bool isLine =
            output.drawType == se::DrawType::Line || output.drawType == se::DrawType::SegmentLine;
        if (output.isDrawing && !isLine)
            describeDrawing(output, columns);
        else
            describeLine(output, columns);
        m_builder.width(output.isDrawn ? output.lineWidth : 0).style(output.lineStyle);
        if (!output.colors.empty())
            m_builder.color(output.colors.front());
        m_builder.position(output.position.value_or(se::Position::CentredOnPoint));
    }
    m_records = m_builder.take();
    placeTexts();
    if (!m_described.empty() && m_described.back()->drawType == se::DrawType::StackedVolume)
        addStackedColors(*m_described.back());
}

bool OutputRecords::isAbsent(const Output& output, const std::vector<StepId>& columns,
                             const BarSeries& bars) const
{
    const Step& step = m_plan.steps[static_cast<std::size_t>(columns.front())];
    if (output.isDrawing || step.isConstant)
        return false;
    const auto needed = step.function->neededColumn;
    return needed && (bars.*needed).empty();
}

void OutputRecords::describeLine(const Output& output, const std::vector<StepId>& columns)
{
    const StepId values = columns.front();
    const Step& step = m_plan.steps[static_cast<std::size_t>(values)];
    if (!output.isDrawn && output.decimals.value_or(0) > 0) {
        addLegendText(values, *output.decimals);
        return;
    }
    const bool isLine = output.drawType == se::DrawType::Line || output.drawType == se::DrawType::SegmentLine;
    addColumn(values, isLine && output.isDrawn ? WhenMissing::Marker : WhenMissing::Missing,
              output.isDrawn ? Axis::Yes : Axis::No);
    if (output.drawType == se::DrawType::BoolLine)
        m_builder.flags();
    if (output.drawType == se::DrawType::Volume) {
        addColumn(columns[1], WhenMissing::Missing, Axis::No);
        addColumn(columns[2], WhenMissing::Missing, Axis::No);
    }
    const bool isLogical = !step.isConstant && step.function->isLogical;
    if (output.decimals == 0)
        m_builder.valueKind(se::ValueKind::Integer);
    else if (isLogical && !output.decimals)
        m_builder.valueKind(se::ValueKind::Signal);
}

void OutputRecords::describeDrawing(const Output& output, const std::vector<StepId>& columns)
{
    const auto addAll = [&](std::size_t from, Axis axis) {
        for (std::size_t column = from; column < columns.size(); ++column)
            addColumn(columns[column], WhenMissing::Missing, axis);
    };
    const StepId condition = columns.front();
    // Places where nothing is drawn must not widen the value axis.
    const auto addPlace = [&](std::size_t column) {
        addColumn(columns[column], WhenMissing::Missing, Axis::Yes, condition);
    };
    switch (output.drawType) {
    case se::DrawType::Candle:
    case se::DrawType::StackedVolume: addAll(0, Axis::Yes); return;
    case se::DrawType::VertLine:
        addColumn(condition, WhenMissing::Zero, Axis::No);
        for (std::size_t column = 1; column < columns.size(); ++column)
            addPlace(column);
        return;
    case se::DrawType::StickLine:
        addColumn(condition, WhenMissing::Zero, Axis::No);
        addPlace(1);
        addPlace(2);
        addAll(3, Axis::No);
        return;
    case se::DrawType::FixedText:
        addColumn(condition, WhenMissing::Zero, Axis::No);
        addAll(1, Axis::No);
        addText(condition, true, output.text);
        return;
    case se::DrawType::Text:
    case se::DrawType::Number:
    case se::DrawType::Icon:
        addColumn(condition, WhenMissing::Zero, Axis::No);
        addPlace(1);
        addAll(2, Axis::No);
        if (output.drawType == se::DrawType::Text)
            addText(condition, false, output.text);
        return;
    default: return; // the others are values
    }
}

void OutputRecords::addColumn(StepId step, WhenMissing whenMissing, Axis axis, StepId condition)
{
    const auto [known, isNew] = m_known.emplace(std::make_tuple(step, whenMissing, condition), 0);
    if (isNew) {
        known->second = m_builder.series({});
        m_numbers.push_back({ step, whenMissing, condition, static_cast<std::size_t>(known->second) });
    }
    m_builder.column(known->second, axis);
}

void OutputRecords::addText(StepId condition, bool isEverywhere, const std::string& text)
{
    const int series = m_builder.texts({});
    m_texts.push_back({ condition, isEverywhere, text, static_cast<std::size_t>(series) });
    m_builder.textColumn(series);
}

void OutputRecords::addLegendText(StepId values, int decimals)
{
    const int series = m_builder.texts({});
    m_decimals.push_back({ values, decimals, static_cast<std::size_t>(series) });
    m_builder.textColumn(series).valueKind(se::ValueKind::Text);
}

/// The painters of texts and numbers read the placement of the first output, whatever output they paint.
void OutputRecords::placeTexts()
{
    for (std::size_t output = 1; output < m_described.size(); ++output) {
        const int drawType = m_described[output]->drawType;
        if ((drawType == se::DrawType::Text || drawType == se::DrawType::Number)
            && m_described[output]->position)
            m_records.meta.position[0] = *m_described[output]->position;
    }
}

/// The painter of stacked bars takes the colour of its second part from the place behind its output's, and so
/// on; the output is the last one, so that nobody else reads those.
void OutputRecords::addStackedColors(const Output& output)
{
    std::vector<int>& colors = m_records.meta.color;
    const std::size_t first = m_described.size() - 1, parts = output.columns.size();
    colors.resize(first + parts);
    for (std::size_t part = 0; part < parts; ++part)
        colors[first + part] = part < output.colors.size()
            ? output.colors[part]
            : kDefaultStackColors[part % std::size(kDefaultStackColors)];
}

std::size_t OutputRecords::firstChanged(StepId step, std::size_t from) const
{
    const std::size_t ahead = m_plan.steps[static_cast<std::size_t>(step)].lookAhead;
    return from - std::min(from, ahead);
}

void OutputRecords::fill(const BarSeries& bars, std::size_t from, const Columns& columns)
{
    fillBars(bars, from);
    fillTexts(bars.size(), from, columns);
    for (const NumberLink& link : m_numbers)
        fillNumbers(link, bars.size(), from, columns);
}

void OutputRecords::fillOnce(const BarSeries& bars, Columns& columns)
{
    fillBars(bars, 0);
    fillTexts(bars.size(), 0, columns);
    std::map<StepId, int> readers;
    for (const NumberLink& link : m_numbers) {
        ++readers[link.step];
        ++readers[link.condition];
    }
    for (const NumberLink& link : m_numbers) {
        Series& series = m_records.result.numberSeries[link.series];
        if (readers[link.step] > 1 || link.condition != kAlways || columns[link.step].empty()) {
            fillNumbers(link, bars.size(), 0, columns);
            continue;
        }
        series = std::move(columns[link.step]);
        if (link.whenMissing != WhenMissing::Missing)
            std::transform(series.begin(), series.end(), series.begin(),
                           [&](double value) { return inRecord(value, link.whenMissing); });
    }
}

void OutputRecords::fillBars(const BarSeries& bars, std::size_t from)
{
    se::RPCFormulaResult& result = m_records.result;
    const auto hasPrice = [](const std::vector<double>& prices, std::size_t bar) {
        return bar < prices.size() && !isMissing(valueOrMissing(prices[bar]));
    };
    result.barTimes.resize(bars.size());
    result.barValid.resize(bars.size());
    for (std::size_t bar = from; bar < bars.size(); ++bar) {
        result.barTimes[bar].msecs = bars.timeMs[bar];
        result.barValid[bar] = hasPrice(bars.close, bar) || hasPrice(bars.open, bar)
            || hasPrice(bars.high, bar) || hasPrice(bars.low, bar);
    }
}

void OutputRecords::fillNumbers(const NumberLink& link, std::size_t count, std::size_t from,
                                const Columns& columns)
{
    Series& series = m_records.result.numberSeries[link.series];
    makeRoom(series, count);
    const Operand values = columns.operand(link.step);
    if (link.condition == kAlways) {
        for (std::size_t bar = firstChanged(link.step, from); bar < count; ++bar)
            series[bar] = inRecord(values[bar], link.whenMissing);
        return;
    }
    const Operand condition = columns.operand(link.condition);
    const std::size_t first = std::min(firstChanged(link.step, from), firstChanged(link.condition, from));
    for (std::size_t bar = first; bar < count; ++bar)
        series[bar] = inRecord(isTrue(condition[bar]) ? values[bar] : kMissing, link.whenMissing);
}

void OutputRecords::fillTexts(std::size_t count, std::size_t from, const Columns& columns)
{
    for (const TextLink& link : m_texts) {
        const Operand condition = columns.operand(link.condition);
        std::vector<std::string>& texts = m_records.result.textSeries[link.series];
        texts.resize(count);
        for (std::size_t bar = firstChanged(link.condition, from); bar < count; ++bar)
            texts[bar] = link.isEverywhere || isTrue(condition[bar]) ? link.text : std::string();
    }
    for (const DecimalsLink& link : m_decimals) {
        const Operand values = columns.operand(link.values);
        std::vector<std::string>& texts = m_records.result.textSeries[link.series];
        texts.resize(count);
        for (std::size_t bar = firstChanged(link.values, from); bar < count; ++bar)
            texts[bar] = decimalText(values[bar], link.decimals);
    }
}

void makeRoom(Series& series, std::size_t count)
{
    if (series.empty())
        series.reserve(count);
    else if (series.capacity() < count)
        series.reserve(count + count / 4);
    series.resize(count);
}

} // namespace engine::language
