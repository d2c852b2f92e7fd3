#pragma once
/// @file Checked reading of a formula's records. What does not exist reads as empty, so that painters
/// never test an index.

#include "data/RPCFormulaResultCache.h"
#include "draw/internal/Numbers.h"

#include <optional>

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

/// Read-only view of one number column; the result must outlive it.
class ColumnView
{
public:
    ColumnView() = default;
    ColumnView(const se::RPCFormulaResult& result, int column)
    {
        const int* series = elementAt(result.columnSeries, column);
        const int* type = elementAt(result.columnType, column);
        m_values = series ? elementAt(result.numberSeries, *series) : nullptr;
        m_type = type ? *type : kNoType;
    }

    bool exists() const { return m_values != nullptr; }
    /// The whole series; null when the column does not exist.
    const std::vector<double>* values() const { return m_values; }
    int size() const
    {
        return m_values ? static_cast<int>(std::min<std::size_t>(m_values->size(), INT_MAX)) : 0;
    }

    /// Types of ordinary numbers: below 2, and 200.
    bool isPlainNumber() const { return m_values && m_type != kNoType && (m_type < 2 || m_type == 200); }
    /// Integers: the largest int is their missing number.
    bool isInteger() const { return m_type == 1; }
    bool isFlag() const { return m_values && m_type == 2; }

    /// The stored number of a bar, whatever it is; empty past the end of the series.
    std::optional<double> raw(int bar) const
    {
        const double* value = m_values ? elementAt(*m_values, bar) : nullptr;
        return value ? std::optional<double>(*value) : std::nullopt;
    }

    /// The stored number where it is finite; the missing marker DBL_MAX is finite.
    std::optional<double> finite(int bar) const
    {
        const std::optional<double> value = raw(bar);
        return value && std::isfinite(*value) ? value : std::nullopt;
    }

    /// The number computed for a bar; empty when the engine left it out (not finite, DBL_MAX, or the
    /// largest int in an integer column).
    std::optional<double> at(int bar) const
    {
        const std::optional<double> value = raw(bar);
        if (!value || isMissing(*value)
            || (m_type == 1 && toPixel(*value) == INT_MAX && *value < INT_MAX + 1.0))
            return std::nullopt;
        return value;
    }

private:
    static constexpr int kNoType = INT_MIN;

    const std::vector<double>* m_values = nullptr;
    int m_type = kNoType;
};

/// Read-only view of one output of a formula; the cache must outlive it.
class OutputView
{
public:
    OutputView(const RPCFormulaResultCache& cache, int output)
        : m_cache(&cache)
        , m_output(output)
    {
        if (output >= 0 && output < cache.meta.outputCount)
            m_columns = elementAt(cache.meta.outputColumns, output);
    }

    /// The output is counted and has a column list.
    bool exists() const { return m_columns != nullptr; }
    int index() const { return m_output; }
    int columnCount() const { return m_columns ? static_cast<int>(m_columns->size()) : 0; }

    /// The k-th column of the output.
    ColumnView column(int k) const
    {
        const int* column = m_columns ? elementAt(*m_columns, k) : nullptr;
        return column ? ColumnView(m_cache->result, *column) : ColumnView();
    }

    /// The k-th column's texts; null when it has none.
    const std::vector<std::string>* texts(int k) const
    {
        const int* column = m_columns ? elementAt(*m_columns, k) : nullptr;
        const int* series = column ? elementAt(m_cache->result.columnSeries, *column) : nullptr;
        return series ? elementAt(m_cache->result.textSeries, *series) : nullptr;
    }

    /// One of the per-output vectors at this output; empty when it is too short.
    std::optional<int> entry(std::vector<int> se::RPCFormulaMetaResult::*member) const
    {
        const int* value = elementAt(m_cache->meta.*member, m_output);
        return value ? std::optional<int>(*value) : std::nullopt;
    }

    /// Pen width in pixels; 0 when the output is not to be drawn or the width is not stated.
    int lineWidth() const { return entry(&se::RPCFormulaMetaResult::lineWidth).value_or(0); }

private:
    const RPCFormulaResultCache* m_cache;
    int m_output;
    const std::vector<int>* m_columns = nullptr;
};

} // namespace TC::detail
