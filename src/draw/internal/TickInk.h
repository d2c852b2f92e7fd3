// SPDX-License-Identifier: MIT
#pragma once
/// @file Ink of tick panes: the crosses of a day's trades, many of which fall onto one pixel column.
///
/// Where ink hides what lies beneath pixel by pixel (see hidesBeneath), a cross that a later cross of its
/// column covers entirely is left out: no pixel changes, and a million trades cost what the pane can show.
/// Everywhere else every cross is painted at once, in the order of the trades.

#include "draw/internal/ink/DeviceClip.h"
#include "draw/internal/ink/Surface.h"

#include <QColor>
#include <QPen>
#include <QRect>

#include <optional>
#include <vector>

class QPainter;

namespace TC::detail {

/// The pens of the two directions, looked up once.
class DirectionPens
{
public:
    DirectionPens();

    const QPen& of(bool rise) const { return rise ? m_rise : m_fall; }
    QColor fallColor() const { return m_fall.color(); }
    bool areOpaque() const { return isOpaque(m_rise.color()) && isOpaque(m_fall.color()); }

private:
    QPen m_rise, m_fall;
};

/// Crosses; one covers another on the same point.
class CrossInk
{
public:
    /// @param half  half a cross in pixels.
    CrossInk(QPainter* painter, const QRect& pane, int half);

    void add(int x, int row, bool rise);
    /// Paints what is held back; call it behind the last cross.
    void finish();

private:
    struct Cross
    {
        int row;
        bool rise;
    };

    void paint(int x, const Cross& cross);
    /// Number of the column's last cross on a row; null for rows that are not followed.
    std::size_t* lastOnRow(int row);

    QPainter* m_painter;
    DeviceClip m_clip;
    DirectionPens m_pens;
    std::optional<bool> m_penInUse;
    int m_half;
    bool m_leavesOut;
    int m_x = 0;                          ///< pixel column of `m_column`
    std::vector<Cross> m_column;          ///< held back
    int m_firstRow;                       ///< row of the first entry of `m_lastOnRow`
    std::vector<std::size_t> m_lastOnRow; ///< per row of the pane
};

} // namespace TC::detail
