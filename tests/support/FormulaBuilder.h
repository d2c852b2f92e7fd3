// SPDX-License-Identifier: MIT
#pragma once
/// @file Formula records for tests, with only the values that matter in the test.

#include "data/RPCFormulaResultCache.h"

#include <QColor>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace test {

/// Builds a sound record: every vector has its full length unless the test shortens it afterwards. Outputs
/// are of draw type 0, width 1, solid, black and of their own colour; columns of type 0 and on the axis;
/// all bars valid. Setters act on the output, or on the column, that was added last.
class FormulaBuilder
{
public:
    using Values = std::vector<double>;

    /// An output with one number column.
    FormulaBuilder& line(Values values) { return output("line", 0, { std::move(values) }); }

    /// An output drawn from several number columns.
    FormulaBuilder& output(const std::string& name, int drawType, std::vector<Values> columns)
    {
        se::RPCFormulaMetaResult& meta = m_cache.meta;
        ++meta.outputCount;
        meta.outputNames.push_back(name);
        meta.outputColumns.emplace_back();
        meta.drawType.push_back(drawType);
        meta.color.push_back(0);
        meta.colorSet.push_back(1);
        meta.lineStyle.push_back(0);
        meta.lineWidth.push_back(1);
        meta.position.push_back(0);
        meta.valueKind.push_back(0);
        for (Values& values : columns)
            column(std::move(values));
        return *this;
    }

    /// One more number column for the last output.
    FormulaBuilder& column(Values values)
    {
        se::RPCFormulaResult& result = m_cache.result;
        addColumn(static_cast<int>(result.numberSeries.size()), 0, values.size());
        result.numberSeries.push_back(std::move(values));
        return *this;
    }

    /// One more text column for the last output.
    FormulaBuilder& texts(std::vector<std::string> values)
    {
        se::RPCFormulaResult& result = m_cache.result;
        addColumn(static_cast<int>(result.textSeries.size()), 3, values.size());
        result.textSeries.push_back(std::move(values));
        return *this;
    }

    /// A number series that no column names.
    FormulaBuilder& series(Values values)
    {
        m_longest = std::max(m_longest, values.size());
        m_cache.result.numberSeries.push_back(std::move(values));
        return *this;
    }

    FormulaBuilder& color(const QColor& c)
    {
        m_cache.meta.color.back() = c.red() | c.green() << 8 | c.blue() << 16;
        return *this;
    }
    FormulaBuilder& paletteColor()
    {
        m_cache.meta.colorSet.back() = 0;
        return *this;
    }
    FormulaBuilder& width(int pixels)
    {
        m_cache.meta.lineWidth.back() = pixels;
        return *this;
    }
    FormulaBuilder& style(int code)
    {
        m_cache.meta.lineStyle.back() = code;
        return *this;
    }
    FormulaBuilder& position(int code)
    {
        m_cache.meta.position.back() = code;
        return *this;
    }
    FormulaBuilder& valueKind(int kind)
    {
        m_cache.meta.valueKind.back() = kind;
        return *this;
    }
    FormulaBuilder& columnType(int type)
    {
        m_cache.result.columnType.back() = type;
        return *this;
    }
    FormulaBuilder& offAxis()
    {
        m_cache.result.columnNeedsAxis.back() = 0;
        return *this;
    }
    FormulaBuilder& valid(std::vector<int> flags)
    {
        m_valid = std::move(flags);
        return *this;
    }
    FormulaBuilder& bars(std::size_t count)
    {
        m_longest = count;
        return *this;
    }
    /// Times of the bars in milliseconds since 1970; by default one a day from 0 on.
    FormulaBuilder& times(std::vector<std::int64_t> msecs)
    {
        m_times = std::move(msecs);
        return *this;
    }

    TC::RPCFormulaResultCache build();

private:
    void addColumn(int series, int type, std::size_t length)
    {
        se::RPCFormulaResult& result = m_cache.result;
        m_longest = std::max(m_longest, length);
        m_cache.meta.outputColumns.back().push_back(static_cast<int>(result.columnSeries.size()));
        result.columnSeries.push_back(series);
        result.columnType.push_back(type);
        result.columnNeedsAxis.push_back(1);
    }

    TC::RPCFormulaResultCache m_cache;
    std::size_t m_longest = 0;
    std::vector<int> m_valid;
    std::vector<std::int64_t> m_times;
};

inline TC::RPCFormulaResultCache FormulaBuilder::build()
{
    constexpr std::int64_t day = 86'400'000;
    const std::size_t count = m_times.empty() ? m_longest : m_times.size();
    se::RPCFormulaResult& result = m_cache.result;
    result.barTimes.resize(count);
    for (std::size_t bar = 0; bar < count; ++bar)
        result.barTimes[bar].msecs = m_times.empty() ? static_cast<std::int64_t>(bar) * day : m_times[bar];
    result.barValid = m_valid.empty() ? std::vector<int>(count, 1) : m_valid;
    return m_cache;
}

} // namespace test
