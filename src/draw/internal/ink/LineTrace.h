// SPDX-License-Identifier: MIT
#pragma once
/// @file From a column of numbers to the points of a line.

#include "data/internal/RecordViews.h"
#include "draw/internal/ink/Extremes.h"
#include "draw/internal/ink/PixelColumns.h"
#include "draw/internal/ink/Polyline.h"

#include <optional>

namespace TC::detail {

/// What a line is traced from.
/// Rows: `double at(double value)`, monotone in the value, NaN when it has no row; `bool isMonotone()`.
template <class Rows>
struct LineSource
{
    const se::RPCFormulaResult& result;
    ColumnView values;
    BarWindow bars;
    SlotLayout layout;
    int rightmost; ///< columns further right are held here
    Rows rows;
    double factor;     ///< put on every value that is not missing
    bool breaksAtGaps; ///< false: the line joins across missing numbers
};

/// Walks over the bars and gathers the line's points.
template <class Rows>
class LineTrace
{
public:
    explicit LineTrace(const LineSource<Rows>& source)
        : m_source(source)
        , m_end(endOf(source))
        , m_columns(source.layout, source.layout.width, source.rightmost, m_end)
    {
    }

    /// @param kept  of points that share a pixel column.
    Polyline trace(KeptPoints kept)
    {
        const bool byColumn = kept != KeptPoints::All && m_columns.areDense() && m_source.rows.isMonotone()
            && std::isfinite(m_source.factor) && m_source.factor != 0.0;
        for (int bar = std::max(m_source.bars.first, 0); bar < m_end;) {
            const int next = byColumn ? m_columns.endOf(bar) : m_end;
            if (!byColumn || hidesValues(bar, next))
                addBars(bar, next);
            else if (kept == KeptPoints::Turns)
                addTurns(bar, next);
            else
                addEnds(bar, next);
            bar = next;
        }
        return std::move(m_line);
    }

private:
    static int endOf(const LineSource<Rows>& source)
    {
        const int flags = static_cast<int>(std::min<std::size_t>(source.result.barValid.size(), INT_MAX));
        const int total = std::min(barTotal(source.result), flags);
        // Bars past the end of the column are gaps, and behind the last number a gap shows nothing.
        const int end = std::min(total, source.values.size());
        return source.bars.last < end ? source.bars.last + 1 : end;
    }

    bool isValid(int bar) const { return m_source.result.barValid[static_cast<std::size_t>(bar)] != 0; }
    const double* valueAt(int bar) const { return m_source.values.values()->data() + bar; }

    /// Whether the run holds numbers that only a look at each one tells apart.
    bool hidesValues(int first, int end) const
    {
        if (!m_source.breaksAtGaps && !m_source.values.isInteger())
            return false;
        const Extremes all = scan(first, end);
        return (m_source.breaksAtGaps && all.hasGaps)
            || (m_source.values.isInteger() && all.highest >= INT_MAX);
    }

    Extremes scan(int first, int end) const
    {
        return extremesOf(valueAt(first), m_source.result.barValid.data() + first,
                          static_cast<std::size_t>(end - first));
    }

    void addBars(int first, int end)
    {
        for (int bar = first; bar < end; ++bar) {
            if (!isValid(bar))
                continue;
            if (const std::optional<double> value = m_source.values.at(bar))
                add(m_columns.at(bar), m_source.rows.at(*value * m_source.factor));
            else if (m_source.breaksAtGaps)
                m_line.lift();
        }
    }

    void add(double x, double row)
    {
        if (hasPixel(x) && hasPixel(row))
            m_line.to(QPoint(toPixel(x), toPixel(row)));
    }

    /// Row of a bar; empty where it is not valid or holds no number.
    std::optional<int> rowAt(int bar) const
    {
        const std::optional<double> value = isValid(bar) ? m_source.values.at(bar) : std::nullopt;
        return value ? std::optional<int>(toPixel(m_source.rows.at(*value * m_source.factor))) : std::nullopt;
    }

    /// The points of one column that show: how the line comes in, how far it reaches, how it leaves.
    void addTurns(int first, int end)
    {
        const int x = m_columns.x(first);
        int bar = first, rows[3] = {}, count = 0;
        for (int last = 0; bar < end && count < 2; ++bar) {
            const std::optional<int> row = rowAt(bar);
            if (!row || (count > 0 && *row == last))
                continue;
            last = *row;
            ++count;
            m_line.to(QPoint(x, last));
        }
        // Most is read before the end is looked at: memory is fetched ahead of a walk from left to right
        // only.
        constexpr int mostTail = 32; // bars; the last three rows are seldom spread over more
        const int middle = std::max(bar, end - mostTail);
        const Extremes inner = scan(bar, middle);
        int tail = end;
        for (count = 0; tail > bar && count < 3; --tail) {
            const std::optional<int> row = rowAt(tail - 1);
            if (row && (count == 0 || *row != rows[count - 1]))
                rows[count++] = *row;
        }
        if (tail > bar)
            addReach(x, tail < middle ? scan(bar, tail) : joined(inner, scan(middle, tail)));
        while (count > 0)
            m_line.to(QPoint(x, rows[--count]));
    }

    void addEnds(int first, int end)
    {
        const int x = m_columns.x(first);
        std::optional<int> row;
        while (first < end && !(row = rowAt(first)))
            ++first;
        if (!row)
            return;
        m_line.to(QPoint(x, *row));
        addReach(x, scan(first, end));
        while (!(row = rowAt(end - 1)))
            --end;
        m_line.to(QPoint(x, *row));
    }

    static Extremes joined(const Extremes& a, const Extremes& b)
    {
        return { std::min(a.lowest, b.lowest), std::max(a.highest, b.highest), a.hasGaps || b.hasGaps };
    }

    void addReach(int x, const Extremes& reach)
    {
        if (!reach.exist())
            return;
        m_line.to(QPoint(x, toPixel(m_source.rows.at(reach.lowest * m_source.factor))));
        m_line.to(QPoint(x, toPixel(m_source.rows.at(reach.highest * m_source.factor))));
    }

    const LineSource<Rows>& m_source;
    int m_end; ///< first bar past the walk
    PixelColumns<SlotLayout> m_columns;
    Polyline m_line;
};

} // namespace TC::detail
