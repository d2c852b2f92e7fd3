// SPDX-License-Identifier: MIT
#include "draw/internal/ink/Polyline.h"

#include "draw/internal/ink/DeviceClip.h"
#include "draw/internal/ink/Surface.h"
#include "draw/internal/ink/ThinLine.h"

namespace TC::detail {

QPainterPath Polyline::path() const
{
    QPainterPath path;
    path.reserve(static_cast<int>(m_points.size()));
    forEachPiece([&path](const QPoint* points, int count) {
        for (int i = 0; i < count; ++i)
            i == 0 ? path.moveTo(points[i]) : path.lineTo(points[i]);
    });
    return path;
}

KeptPoints keptPoints(QPainter& painter, const QPen& pen)
{
    const QTransform toDevice = painter.deviceTransform();
    if (!isRaster(painter) || isAntialiased(painter) || pen.style() != Qt::SolidLine
        || toDevice.type() > QTransform::TxScale || pen.widthF() < 1.0)
        return KeptPoints::All;
    const double narrowest = pen.widthF() * std::min(std::abs(toDevice.m11()), std::abs(toDevice.m22()));
    if (narrowest > 1.0) // one filled outline: every pixel is painted once, however often the line passes
        return pen.widthF() == 2.0 && isOnWholePixels(painter) ? KeptPoints::Reach : KeptPoints::Turns;
    const bool hides = isOnWholePixels(painter) && isOpaque(pen.color()) && hidesBeneath(painter);
    return hides ? KeptPoints::Turns : KeptPoints::All;
}

void strokeLine(QPainter* painter, const Polyline& line, const QPen& pen)
{
    if (coversWhole(pen)) {
        if (const std::optional<Surface> surface = Surface::of(*painter)) {
            ThinLine ink(*surface, Surface::word(pen.color()));
            line.forEachPiece([&ink](const QPoint* points, int count) { ink.draw(points, count); });
            return;
        }
    }
    std::optional<DeviceClip> clip;
    if (pen.widthF() <= 1.0) // wider lines are filled outlines, which it does not speed up
        clip.emplace(painter);
    painter->strokePath(line.path(), pen);
}

} // namespace TC::detail
