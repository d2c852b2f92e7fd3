// SPDX-License-Identifier: MIT
#pragma once
/// @file Turns the columns of a formula into the records that panes read.

#include "engine/series/BarSeries.h"
#include "engine/records/FormulaRecords.h"
#include "engine/records/RecordBuilder.h"
#include "engine/evaluation/Columns.h"

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace engine::language {

/// What stands in a record where a column has no value.
enum class WhenMissing {
    Marker,  ///< kMissingMarker, which lines know
    Missing, ///< kMissing, which nothing draws
    Zero     ///< for conditions: not true
};

/// Describes the outputs once and then copies columns, a stretch of bars after the other.
class OutputRecords
{
public:
    /// @param bars  only which of its optional columns exist is read: an output that is nothing but AMOUNT or
    ///        OPENINT is left out when the bars do not carry it.
    OutputRecords(const Syntax& syntax, const Plan& plan, const std::vector<double>& parameters,
                  const BarSeries& bars);

    /// Lets the records hold the bars from one on, as yet none of them.
    /// @param count  how many are to come soon.
    void begin(std::size_t first, std::size_t count);
    /// Fills in the bars [from, to); those before must stand.
    /// @return false when the texts would take more than FormulaLimits::kMaxTextBytes.
    bool fill(const BarSeries& bars, std::size_t from, std::size_t to, const Columns& columns);

    /// Asks for the memory that fill() will write for the bars [from, to), so that it comes while something
    /// else is computed.
    void fetch(std::size_t from, std::size_t to) const;

    const FormulaRecords& records() const { return m_records; }
    FormulaRecords take() { return std::move(m_records); }

private:
    struct NumberLink
    {
        StepId step;
        WhenMissing whenMissing;
        StepId condition; ///< where it does not hold there is no value; kAlways: it always holds
        std::size_t series;
    };

    static constexpr StepId kAlways = -1;

    /// The bars that carry a text.
    enum class TextAt {
        Held, ///< where a condition holds
        All,  ///< whatever it says
        Last  ///< behind the last bar alone, where the painter of texts of the pane reads
    };

    struct TextLink
    {
        StepId condition;
        TextAt bars;
        std::string text;
        std::size_t series;
    };

    /// Values as the legend is to show them.
    struct DecimalsLink
    {
        StepId values;
        int decimals;
        std::size_t series;
    };

    void describeLine(const Output& output, const std::vector<StepId>& columns);
    void describeDrawing(const Output& output, const std::vector<StepId>& columns);
    void addColumn(StepId step, WhenMissing whenMissing, Axis axis, StepId condition = kAlways);
    void addText(StepId condition, TextAt bars, const std::string& text);
    void addLegendText(StepId values, int decimals);
    void addStackedColors(const Output& output);
    void placeTexts();

    bool isAbsent(const Output& output, const std::vector<StepId>& columns, const BarSeries& bars) const;
    std::size_t firstChanged(StepId step, std::size_t from) const;

    void fillBars(const BarSeries& bars, std::size_t from, std::size_t to);
    void fillNumbers(const NumberLink& link, std::size_t from, std::size_t to, const Columns& columns);
    void fillTexts(std::size_t from, std::size_t to, const Columns& columns);
    void fillLegendTexts(std::size_t from, std::size_t to, const Columns& columns);
    bool takesTexts(std::size_t from, std::size_t to, const Columns& columns);

    const Plan& m_plan;
    RecordBuilder m_builder;
    FormulaRecords m_records;
    std::size_t m_first = 0;    ///< bar of the first entry
    std::size_t m_expected = 0; ///< entries that are to come soon
    std::vector<NumberLink> m_numbers;
    std::vector<TextLink> m_texts;
    std::vector<DecimalsLink> m_decimals;
    std::size_t m_textBytes = 0; ///< of the texts that are stored
    std::map<std::tuple<StepId, WhenMissing, StepId>, int> m_known;
    std::vector<const Output*> m_described; ///< by output of the records
};

} // namespace engine::language
