// SPDX-License-Identifier: MIT
#pragma once
/// @file Checked reading of a formula's records. What does not exist reads as empty, so that nobody who
/// reads them tests an index.

#include "data/RPCFormulaResultCache.h"
#include "data/internal/ElementAt.h"
#include "data/internal/MissingNumbers.h"
#include "host/se/RecordCodes.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace TC::detail {

/// Number of bars of a result.
inline int barTotal(const se::RPCFormulaResult& result)
{
    return static_cast<int>(std::min<std::size_t>(result.barTimes.size(), INT_MAX));
}

/// Whether the bar exists and carries data.
inline bool isValidBar(const se::RPCFormulaResult& result, int bar)
{
    const int* flag = elementAt(result.barValid, bar);
    return flag && *flag != 0 && bar < barTotal(result);
}

/// Bars of the window in order: stops at the result's end, leaves out invalid bars.
template <class Visit>
void forEachValidBar(const se::RPCFormulaResult& result, int first, int last, Visit visit)
{
    const int end = last < barTotal(result) ? last + 1 : barTotal(result);
    for (int bar = std::max(first, 0); bar < end; ++bar) {
        if (isValidBar(result, bar))
            visit(bar);
    }
}

/// Draw types that show in the pane only: neither the legend nor the back-test figures read their value.
inline bool hasLegendValue(int drawType)
{
    switch (drawType) {
    case se::DrawType::Candle:
    case se::DrawType::Text:
    case se::DrawType::Icon:
    case se::DrawType::Number:
    case se::DrawType::StickLine:
    case se::DrawType::FixedText:
    case se::DrawType::VertLine:
    case se::DrawType::Reserved: return false;
    default: return true;
    }
}

/// Read-only view of one column; the result must outlive it. A column names one series index: its numbers
/// and its texts are the number series and the text series of that index, whatever the column's type says.
class ColumnView
{
public:
    ColumnView() = default;
    ColumnView(const se::RPCFormulaResult& result, int column)
    {
        const int* series = elementAt(result.columnSeries, column);
        const int* type = elementAt(result.columnType, column);
        m_values = series ? elementAt(result.numberSeries, *series) : nullptr;
        m_texts = series ? elementAt(result.textSeries, *series) : nullptr;
        if (type)
            m_type = *type;
    }

    /// The column has numbers.
    bool exists() const { return m_values != nullptr; }
    /// The whole number series; null when the column has none.
    const std::vector<double>* values() const { return m_values; }
    /// The whole text series; null when the column has none.
    const std::vector<std::string>* texts() const { return m_texts; }
    /// Type code of the column; empty when the records state none.
    std::optional<int> type() const { return m_type; }
    int size() const
    {
        return m_values ? static_cast<int>(std::min<std::size_t>(m_values->size(), INT_MAX)) : 0;
    }

    /// Numbers of an ordinary type.
    bool isPlainNumber() const { return m_values && m_type && isNumberType(*m_type); }
    /// Integers: the largest int is their missing number.
    bool isInteger() const { return m_type == se::ColumnType::Integer; }
    bool isFlag() const { return m_values && m_type == se::ColumnType::Flag; }
    bool isText() const { return m_type == se::ColumnType::Text; }

    /// The stored number of a bar, whatever it is; empty past the end of the series.
    std::optional<double> raw(int bar) const
    {
        const double* value = place(bar);
        return value ? std::optional<double>(*value) : std::nullopt;
    }

    /// The stored number of a bar, unless the column's values are texts.
    std::optional<double> number(int bar) const { return isText() ? std::nullopt : raw(bar); }

    /// The stored text of a bar; null past the end of the series.
    const std::string* text(int bar) const { return m_texts ? elementAt(*m_texts, bar) : nullptr; }

    /// The stored number where it is finite; the missing marker DBL_MAX is finite.
    std::optional<double> finite(int bar) const
    {
        const double* value = place(bar);
        return value && std::isfinite(*value) ? std::optional<double>(*value) : std::nullopt;
    }

    /// The number computed for a bar; empty when the engine left it out (not finite, DBL_MAX, or the
    /// largest int in an integer column).
    std::optional<double> at(int bar) const
    {
        const double* value = place(bar);
        if (!value || isMissing(*value)
            || (m_type == se::ColumnType::Integer && *value >= INT_MAX && *value < INT_MAX + 1.0))
            return std::nullopt;
        return *value;
    }

private:
    /// Null past the end of the series.
    const double* place(int bar) const { return m_values ? elementAt(*m_values, bar) : nullptr; }

    static bool isNumberType(int type)
    {
        return type < se::ColumnType::Flag || type == se::ColumnType::Plain;
    }

    const std::vector<double>* m_values = nullptr;
    const std::vector<std::string>* m_texts = nullptr;
    std::optional<int> m_type;
};

/// Read-only view of one output of a formula; the records must outlive it.
class OutputView
{
public:
    OutputView(const se::RPCFormulaMetaResult& meta, const se::RPCFormulaResult& result, int output)
        : m_meta(&meta)
        , m_result(&result)
        , m_output(output)
    {
        if (output >= 0 && output < meta.outputCount)
            m_columns = elementAt(meta.outputColumns, output);
    }
    OutputView(const RPCFormulaResultCache& cache, int output)
        : OutputView(cache.meta, cache.result, output)
    {
    }

    /// The output is counted and has a column list.
    bool exists() const { return m_columns != nullptr; }
    int index() const { return m_output; }
    int columnCount() const { return m_columns ? static_cast<int>(m_columns->size()) : 0; }

    /// The k-th column of the output.
    ColumnView column(int k) const
    {
        const int* column = m_columns ? elementAt(*m_columns, k) : nullptr;
        return column ? ColumnView(*m_result, *column) : ColumnView();
    }

    /// One of the per-output vectors at this output; empty when it is too short.
    std::optional<int> entry(std::vector<int> se::RPCFormulaMetaResult::*member) const
    {
        const int* value = elementAt(m_meta->*member, m_output);
        return value ? std::optional<int>(*value) : std::nullopt;
    }

    /// Pen width in pixels; 0 when the output is not to be drawn or the width is not stated.
    int lineWidth() const { return entry(&se::RPCFormulaMetaResult::lineWidth).value_or(0); }

private:
    const se::RPCFormulaMetaResult* m_meta;
    const se::RPCFormulaResult* m_result;
    int m_output;
    const std::vector<int>* m_columns = nullptr;
};

} // namespace TC::detail
