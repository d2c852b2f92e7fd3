// SPDX-License-Identifier: MIT
#include "draw/internal/ink/EllipseStamp.h"

#include <QImage>
#include <QPainter>

namespace TC::detail {

EllipseStamp::EllipseStamp(const QSize& size, const QPen& pen)
    : m_size(size)
{
    constexpr int margin = 2; // pixels; an outline stands out of its rectangle by one
    QImage image(size + QSize(2 * margin, 2 * margin), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setPen(pen);
    painter.drawEllipse(QRect(QPoint(margin, margin), size));
    painter.end();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == 0)
                continue;
            m_pixels.emplace_back(x - margin, y - margin);
            m_bounds |= QRect(m_pixels.back(), QSize(1, 1));
        }
    }
}

bool EllipseStamp::fits(const Surface& surface, const QPoint& corner) const
{
    const QRect taken = m_bounds.translated(corner);
    return surface.holds(taken.left(), taken.top(), taken.right(), taken.bottom());
}

void EllipseStamp::store(const Surface& surface, const QPoint& corner, quint32 word) const
{
    const QRect taken = m_bounds.translated(corner);
    const bool isOpen = surface.isOpen(taken.left(), taken.top(), taken.right(), taken.bottom());
    for (const QPoint& pixel : m_pixels) {
        const QPoint place = corner + pixel;
        if (isOpen)
            surface.set(place.x(), place.y(), word);
        else
            surface.fill(place.x(), place.y(), place.x(), place.y(), word);
    }
}

} // namespace TC::detail
