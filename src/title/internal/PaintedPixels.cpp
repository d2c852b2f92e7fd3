// SPDX-License-Identifier: MIT
#include "title/internal/PaintedPixels.h"

#include <QImage>
#include <QPainter>

namespace TC::detail {

namespace {

QRect inkedPixels(const QImage& image)
{
    QRect inked;
    for (int y = 0; y < image.height(); ++y) {
        const auto* pixels = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        int left = 0, right = image.width();
        while (left < right && pixels[left] == 0)
            ++left;
        while (right > left && pixels[right - 1] == 0)
            --right;
        inked |= QRect(left, y, right - left, left < right ? 1 : 0);
    }
    return inked;
}

} // namespace

std::optional<QRect> paintedPixels(const QList<QGlyphRun>& runs, const QRectF& outlines)
{
    constexpr int margin = 3;                   // pixels; hinting and whole pixels widen an outline
    constexpr qreal lastFraction = 63.0 / 64.0; // of a pixel, as the engine rounds places
    const QRect shown = outlines.toAlignedRect().adjusted(-margin, -margin, margin, margin);
    QRect inked;
    // Ink moves to the right and down with its corner, so that the ends of a pixel tell of all between.
    for (const qreal fraction : { 0.0, lastFraction }) {
        QImage image(shown.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        for (const QGlyphRun& run : runs)
            painter.drawGlyphRun(QPointF(fraction, fraction) - shown.topLeft(), run);
        painter.end();
        inked |= inkedPixels(image);
    }
    const QRect inside = QRect(QPoint(), shown.size()).adjusted(1, 1, -1, -1);
    if (!inked.isEmpty() && !inside.contains(inked))
        return std::nullopt;
    return inked.translated(shown.topLeft());
}

} // namespace TC::detail
