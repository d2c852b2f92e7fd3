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

bool hidesInnerPoints(QPainter& painter, const QPen& pen)
{
    const QTransform toDevice = painter.deviceTransform();
    if (!isRaster(painter) || isAntialiased(painter) || pen.style() != Qt::SolidLine
        || toDevice.type() > QTransform::TxScale || pen.widthF() < 1.0)
        return false;
    const double narrowest = pen.widthF() * std::min(std::abs(toDevice.m11()), std::abs(toDevice.m22()));
    if (narrowest > 1.0)
        return true; // one filled outline: every pixel is painted once, however often the line passes
    return isOnWholePixels(painter) && isOpaque(pen.color()) && hidesBeneath(painter);
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
    const DeviceClip clip(painter);
    painter->strokePath(line.path(), pen);
}

} // namespace TC::detail
