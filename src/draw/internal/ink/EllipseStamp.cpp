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
            const int left = x;
            while (x + 1 < image.width() && image.pixel(x + 1, y) != 0)
                ++x;
            m_runs.push_back({ y - margin, left - margin, x - margin });
            m_bounds |= QRect(left - margin, y - margin, x - left + 1, 1);
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
    for (const Run& run : m_runs)
        surface.fill(corner.x() + run.left, corner.y() + run.row, corner.x() + run.right,
                     corner.y() + run.row, word);
}

} // namespace TC::detail
