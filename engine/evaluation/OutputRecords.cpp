// SPDX-License-Identifier: MIT
#include "engine/evaluation/OutputRecords.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace engine::language {

namespace {

constexpr const char* kNoName = "__noname"; // the legend shows the value alone
constexpr const char* kNoShow = "__noshow"; // the legend leaves the output out
constexpr const char* kHidden = "output"; // before the number of one that is left out: kNoName would undo it

/// Bytes of a text that all bars carry; what is longer would fill the memory with copies.
constexpr std::size_t kLongestRepeated = 64;

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

/// Asks for the memory of entries [from, to) as far as there is room for them.
template <class Value>
void fetchRoom(const std::vector<Value>& column, std::size_t from, std::size_t to)
{
    constexpr std::size_t kLine = 64; // bytes that memory hands out at a time
    if (to > column.capacity())
        return;
    const auto* const begin = reinterpret_cast<const char*>(column.data() + from);
    for (std::size_t offset = 0; offset < (to - from) * sizeof(Value); offset += kLine)
        __builtin_prefetch(begin + offset, 1);
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
        addText(condition, output.text.size() > kLongestRepeated ? TextAt::Last : TextAt::All, output.text);
        return;
    case se::DrawType::Text:
    case se::DrawType::Number:
    case se::DrawType::Icon:
        addColumn(condition, WhenMissing::Zero, Axis::No);
        addPlace(1);
        addAll(2, Axis::No);
        if (output.drawType == se::DrawType::Text)
            addText(condition, TextAt::Held, output.text);
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

void OutputRecords::addText(StepId condition, TextAt bars, const std::string& text)
{
    const int series = m_builder.texts({});
    m_texts.push_back({ condition, bars, text, static_cast<std::size_t>(series) });
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
    return std::max(from - std::min(from, ahead), m_first);
}

void OutputRecords::begin(std::size_t first, std::size_t count)
{
    m_first = first;
    m_expected = count;
    m_textBytes = 0;
    m_records.result.barTimes.clear();
    m_records.result.barValid.clear();
    for (Series& series : m_records.result.numberSeries)
        series.clear();
    for (std::vector<std::string>& texts : m_records.result.textSeries)
        texts.clear();
}

bool OutputRecords::fill(const BarSeries& bars, std::size_t from, std::size_t to, const Columns& columns)
{
    if (!takesTexts(from, to, columns))
        return false;
    fillBars(bars, from, to);
    fillTexts(from, to, columns);
    fillLegendTexts(from, to, columns);
    for (const NumberLink& link : m_numbers)
        fillNumbers(link, from, to, columns);
    return true;
}

void OutputRecords::fetch(std::size_t from, std::size_t to) const
{
    if (from < m_first)
        return;
    fetchRoom(m_records.result.barTimes, from - m_first, to - m_first);
    fetchRoom(m_records.result.barValid, from - m_first, to - m_first);
    for (const Series& series : m_records.result.numberSeries)
        fetchRoom(series, from - m_first, to - m_first);
}

void OutputRecords::fillBars(const BarSeries& bars, std::size_t from, std::size_t to)
{
    se::RPCFormulaResult& result = m_records.result;
    reserveFor(result.barTimes, to - m_first, m_expected);
    reserveFor(result.barValid, to - m_first, m_expected);
    result.barTimes.resize(to - m_first);
    se::RPCBarTime* const times = result.barTimes.data() + (from - m_first);
    for (std::size_t bar = from; bar < to; ++bar)
        times[bar - from].msecs = bars.timeMs[bar];
    result.barValid.resize(from - m_first);
    result.barValid.resize(to - m_first, 1);
    if (to <= bars.close.size() && areNumbers(bars.close.data() + from, to - from))
        return;
    const auto hasPrice = [](const std::vector<double>& prices, std::size_t bar) {
        return bar < prices.size() && !isMissing(valueOrMissing(prices[bar]));
    };
    int* const valid = result.barValid.data() + (from - m_first);
    for (std::size_t bar = from; bar < to; ++bar)
        valid[bar - from] = hasPrice(bars.close, bar) || hasPrice(bars.open, bar) || hasPrice(bars.high, bar)
            || hasPrice(bars.low, bar);
}

void OutputRecords::fillNumbers(const NumberLink& link, std::size_t from, std::size_t to,
                                const Columns& columns)
{
    Series& series = m_records.result.numberSeries[link.series];
    const Operand values = columns.operand(link.step);
    std::size_t first = firstChanged(link.step, from);
    if (link.condition != kAlways)
        first = std::min(first, firstChanged(link.condition, from));
    reserveFor(series, to - m_first, m_expected);
    series.resize(first - m_first);
    if (values.isConstant)
        series.resize(to - m_first, *values.values);
    else
        series.insert(series.end(), values.from(first), values.from(to));
    double* const added = series.data() + (first - m_first);
    if (link.condition != kAlways) {
        const Operand condition = columns.operand(link.condition);
        for (std::size_t bar = first; bar < to; ++bar)
            added[bar - first] = isTrue(condition[bar]) ? added[bar - first] : kMissing;
    }
    if (link.whenMissing == WhenMissing::Missing)
        return;
    const double instead = link.whenMissing == WhenMissing::Marker ? kMissingMarker : 0.0;
    for (std::size_t index = 0; index < to - first; ++index)
        added[index] = isMissing(added[index]) ? instead : added[index];
}

/// Counts what the texts of the bars [from, to) will take. @return false when that is too much.
bool OutputRecords::takesTexts(std::size_t from, std::size_t to, const Columns& columns)
{
    for (const TextLink& link : m_texts) {
        const std::vector<std::string>& texts = m_records.result.textSeries[link.series];
        if (link.bars == TextAt::Last) {
            m_textBytes += texts.empty() ? link.text.size() : 0;
            continue;
        }
        const Operand condition = columns.operand(link.condition);
        const std::size_t first = firstChanged(link.condition, from);
        for (std::size_t index = first - m_first; index < texts.size(); ++index)
            m_textBytes -= texts[index].size();
        for (std::size_t bar = first; bar < to; ++bar)
            m_textBytes += link.bars == TextAt::All || isTrue(condition[bar]) ? link.text.size() : 0;
    }
    return m_textBytes <= FormulaLimits::kMaxTextBytes;
}

/// A record has a text of its own for every bar; a long one is stored where it is read.
void OutputRecords::fillTexts(std::size_t from, std::size_t to, const Columns& columns)
{
    for (const TextLink& link : m_texts) {
        std::vector<std::string>& texts = m_records.result.textSeries[link.series];
        if (link.bars == TextAt::Last) {
            std::string text = texts.empty() ? link.text : std::exchange(texts.back(), std::string());
            texts.resize(to - m_first);
            if (!texts.empty())
                texts.back() = std::move(text);
            continue;
        }
        texts.resize(to - m_first);
        const Operand condition = columns.operand(link.condition);
        for (std::size_t bar = firstChanged(link.condition, from); bar < to; ++bar)
            texts[bar - m_first] =
                link.bars == TextAt::All || isTrue(condition[bar]) ? link.text : std::string();
    }
}

void OutputRecords::fillLegendTexts(std::size_t from, std::size_t to, const Columns& columns)
{
    for (const DecimalsLink& link : m_decimals) {
        const Operand values = columns.operand(link.values);
        std::vector<std::string>& texts = m_records.result.textSeries[link.series];
        texts.resize(to - m_first);
        for (std::size_t bar = firstChanged(link.values, from); bar < to; ++bar)
            texts[bar - m_first] = decimalText(values[bar], link.decimals);
    }
}

} // namespace engine::language
