// SPDX-License-Identifier: MIT
#pragma once
/// @file Upright runs of pixels on neighbouring columns, stored row by row.

#include "draw/internal/ink/Surface.h"

#include <array>
#include <vector>

namespace TC::detail {

/// Holds runs back while each stands on the column of the one before or one right of it, and stores the rows
/// that all columns share in one sweep each: going down a column touches a line of the cache for every pixel.
/// Of runs that later ones cover in part only what stays in sight is stored.
class UprightRuns
{
public:
    explicit UprightRuns(const Surface& surface)
        : m_surface(surface)
    {
    }

    /// A run of painter coordinates, both rows included, `top` not below `bottom`.
    void add(int x, int top, int bottom, quint32 word)
    {
        const qint64 next = qint64 { m_left } + m_count; // columns may stand at the limits of int
        if (m_count > 0 && x == next - 1 && top <= lastBottom()) {
            if (bottom >= lastBottom()) {
                addBehind(top, bottom, word);
                return;
            }
            if (top >= m_steps.back().row && word == m_steps.back().word)
                return; // nothing new
        }
        if (m_count == kMost || (m_count > 0 && x != next))
            store();
        if (m_count == 0)
            m_left = x;
        m_steps.push_back({ top, m_count, word });
        m_bottoms[static_cast<std::size_t>(m_count++)] = bottom;
    }

    /// Stores what is held back; call it before anything else is painted, and at the end.
    void store();

private:
    static constexpr int kMost = 32; ///< columns

    /// From a row down, to the column's next step or its bottom, pixels hold a word.
    struct Step
    {
        int row, column; ///< the column counts from `m_left`
        quint32 word;
    };
    /// Rows, both included; none where they run backward.
    struct Rows
    {
        int top, bottom;
    };

    int lastBottom() const { return m_bottoms[static_cast<std::size_t>(m_count - 1)]; }
    /// A run over the lower part of the last column, and beyond.
    void addBehind(int top, int bottom, quint32 word);
    Rows sharedRows() const;
    void storeColumns(const Rows& swept) const;
    void sweep(const Rows& rows);

    Surface m_surface;
    int m_count = 0;           ///< columns
    int m_left = 0;            ///< the first of them
    std::vector<Step> m_steps; ///< column by column, downward
    std::array<int, kMost> m_bottoms {};
};

} // namespace TC::detail
