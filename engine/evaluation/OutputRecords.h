// SPDX-License-Identifier: MIT
#pragma once
/// @file Turns the columns of a formula into the records that panes read.

#include "engine/series/BarSeries.h"
#include "engine/records/FormulaRecords.h"
#include "engine/records/RecordBuilder.h"
#include "engine/evaluation/Plan.h"

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

/// The computed steps of a formula.
class Columns
{
public:
    explicit Columns(const Plan& plan)
        : m_plan(plan)
        , m_columns(plan.steps.size())
    {
    }

    Series& operator[](StepId step) { return m_columns[static_cast<std::size_t>(step)]; }

    /// What a step gave: a column, or a number for all bars.
    Operand operand(StepId step) const
    {
        const Step& asked = m_plan.steps[static_cast<std::size_t>(step)];
        return asked.isConstant ? Operand { &asked.number, true }
                                : Operand { m_columns[static_cast<std::size_t>(step)].data(), false };
    }

private:
    const Plan& m_plan;
    std::vector<Series> m_columns; ///< empty for numbers
};

/// Describes the outputs once and then copies columns, from any bar on.
class OutputRecords
{
public:
    /// @param bars  only which of its optional columns exist is read: an output that is nothing but AMOUNT or
    ///        OPENINT is left out when the bars do not carry it.
    OutputRecords(const Syntax& syntax, const Plan& plan, const std::vector<double>& parameters,
                  const BarSeries& bars);

    /// Fills the records from a bar on.
    void fill(const BarSeries& bars, std::size_t from, const Columns& columns);
    /// Fills the records for good; columns may be emptied.
    void fillOnce(const BarSeries& bars, Columns& columns);

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

    /// A text where a condition holds.
    struct TextLink
    {
        StepId condition;
        bool isEverywhere; ///< whatever the condition says
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
    void addText(StepId condition, bool isEverywhere, const std::string& text);
    void addLegendText(StepId values, int decimals);
    void addStackedColors(const Output& output);
    void placeTexts();

    bool isAbsent(const Output& output, const std::vector<StepId>& columns, const BarSeries& bars) const;
    std::size_t firstChanged(StepId step, std::size_t from) const;

    void fillBars(const BarSeries& bars, std::size_t from);
    void fillNumbers(const NumberLink& link, std::size_t count, std::size_t from, const Columns& columns);
    void fillTexts(std::size_t count, std::size_t from, const Columns& columns);

    const Plan& m_plan;
    RecordBuilder m_builder;
    FormulaRecords m_records;
    std::vector<NumberLink> m_numbers;
    std::vector<TextLink> m_texts;
    std::vector<DecimalsLink> m_decimals;
    std::map<std::tuple<StepId, WhenMissing, StepId>, int> m_known;
    std::vector<const Output*> m_described; ///< by output of the records
};

/// Lengthens a column, with room for later bars when it has grown before.
void makeRoom(Series& series, std::size_t count);

} // namespace engine::language
