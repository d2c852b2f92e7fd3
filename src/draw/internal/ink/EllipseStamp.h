// SPDX-License-Identifier: MIT
#pragma once
/// @file The outline of a small ellipse as pixels, which it takes wherever it stands.

#include "draw/internal/ink/Surface.h"

#include <QPen>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <vector>

namespace TC::detail {

/// The pixels of an ellipse that is not filled, learnt from the engine's own.
class EllipseStamp
{
public:
    /// @param size  of the rectangle around the ellipse, as for drawEllipse; a few pixels a side.
    /// @param pen  opaque, solid, one pixel wide.
    EllipseStamp(const QSize& size, const QPen& pen);

    bool isOf(const QSize& size) const { return size == m_size; }
    /// Whether every pixel lies on the device.
    bool fits(const Surface& surface, const QPoint& corner) const;
    /// @param corner  the rectangle's top left one, painter coordinates.
    void store(const Surface& surface, const QPoint& corner, quint32 word) const;

private:
    QSize m_size;
    QRect m_bounds;
    std::vector<QPoint> m_pixels; ///< from the corner
};

} // namespace TC::detail
