// SPDX-License-Identifier: MIT
#pragma once
/// @file The ink of sticks, bodies and outlines: the plain primitives, stored directly where that is the
/// same.

#include "draw/internal/ink/DeviceClip.h"
#include "draw/internal/ink/EllipseStamp.h"
#include "draw/internal/ink/Surface.h"
#include "draw/internal/ink/UprightRuns.h"

#include <QPen>
#include <QRect>

#include <optional>

class QPainter;

namespace TC::detail {

/// Paints upright lines, level lines, points, outlines, small ellipses and filled rectangles.
///
/// Where the painter has a Surface, opaque ink of width 1 is stored into it, at once and in order; otherwise
/// each call is the painter's primitive of that name. Either way the painter is left with the pen used last.
class Ink
{
public:
    explicit Ink(QPainter* painter);
    ~Ink();
    Ink(const Ink&) = delete;
    Ink& operator=(const Ink&) = delete;

    void setPen(const QPen& pen);
    void setPen(const QColor& color);

    /// A line on one column, both rows included; a point where the rows are the same.
    void upright(int x, int row1, int row2);
    /// A line on one row, both columns included, which differ.
    void level(int row, int x1, int x2);
    void point(int x, int row);
    /// An outline, a pixel wider and higher than the rectangle; filled with the painter's brush if it has
    /// one.
    void outline(const QRect& rect);
    /// An ellipse of a few pixels, filled as an outline is; far from the limits of int.
    void ellipse(const QRect& rect);
    void fill(const QRect& rect, const QColor& color);

    /// The painter itself with the pen in use, for everything else.
    QPainter* painter();

    /// Whether ink of the pen in use is stored directly, so that covered ink may as well be left out.
    bool isStored() const { return m_surface && m_isThin; }

    /// Whether that goes for ellipses as well: nothing fills them.
    bool isEllipseStored() const { return isStored() && m_isHollow; }

    /// Whether the outline of a rectangle is stored as an upright line on its column.
    bool isRun(const QRect& rect) const;

private:
    const QPen& pen();
    /// The surface with everything stored that was held back.
    const Surface& surface();

    QPainter* m_painter;
    std::optional<Surface> m_surface;
    std::optional<UprightRuns> m_runs;   ///< held back; where there is a surface
    std::optional<EllipseStamp> m_stamp; ///< of the ellipse painted last
    std::optional<DeviceClip> m_clip;    ///< around primitives of the painter
    QColor m_color;                      ///< of the pen
    std::optional<QPen> m_pen;           ///< made of the colour only where the painter has to have it
    bool m_isPenChosen = false;
    bool m_isPenSent = false; ///< the painter has it
    bool m_isThin = false;    ///< solid, opaque, one pixel
    bool m_isHollow = false;  ///< outlines are not filled
    quint32 m_word = 0;       ///< of the pen
};

} // namespace TC::detail
