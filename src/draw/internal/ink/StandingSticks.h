// SPDX-License-Identifier: MIT
#pragma once
/// @file Upright lines that stand on one row, many of which fall onto one pixel column.

#include "draw/internal/ink/Ink.h"

#include <vector>

namespace TC::detail {

/// Where ink hides what lies beneath, a line that a later line of its column covers is left out: no pixel
/// changes, and a million lines cost what the pane can show. Everywhere else each line is painted at once.
class StandingSticks
{
public:
    /// @param ink  outlives the object.
    /// @param leavesOut  ink hides what lies beneath.
    StandingSticks(Ink& ink, int baseRow, bool leavesOut)
        : m_ink(ink)
        , m_baseRow(baseRow)
        , m_leavesOut(leavesOut)
    {
    }

    /// A line from `row` to the base row, or from there.
    /// @param pen  outlives the object.
    void add(int x, int row, const QPen& pen, bool startsOnBase = false)
    {
        const Stick stick { row, &pen, startsOnBase };
        if (!m_leavesOut) {
            paint(x, stick);
            return;
        }
        if (x != m_x)
            finish();
        m_x = x;
        while (!m_column.empty() && covers(row, m_column.back().row))
            m_column.pop_back();
        m_column.push_back(stick);
    }

    /// Paints what is held back; call it behind the last line.
    void finish()
    {
        for (const Stick& stick : m_column)
            paint(m_x, stick);
        m_column.clear();
    }

private:
    struct Stick
    {
        int row;
        const QPen* pen;
        bool startsOnBase;
    };

    bool covers(int row, int otherRow) const
    {
        return row <= m_baseRow ? row <= otherRow && otherRow <= m_baseRow
                                : row >= otherRow && otherRow >= m_baseRow;
    }
    void paint(int x, const Stick& stick)
    {
        if (m_pen != stick.pen)
            m_ink.setPen(*stick.pen);
        m_pen = stick.pen;
        m_ink.upright(x, stick.startsOnBase ? m_baseRow : stick.row,
                      stick.startsOnBase ? stick.row : m_baseRow);
    }

    Ink& m_ink;
    int m_baseRow;
    bool m_leavesOut;
    int m_x = 0;                 ///< pixel column of `m_column`
    std::vector<Stick> m_column; ///< held back; none is covered by the next
    const QPen* m_pen = nullptr; ///< in use
};

} // namespace TC::detail
