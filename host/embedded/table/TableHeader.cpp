// SPDX-License-Identifier: MIT
#include "host/embedded/table/TableHeader.h"

#include <QPaintEvent>
#include <QPainter>

namespace TC::embedded {

namespace {

/// A small triangle at the top of a section, pointing the way in which values grow.
void paintSortMark(QPainter& painter, const QRect& section, Qt::SortOrder order, const QColor& color)
{
    constexpr int halfWidth = 4, height = 3;
    const int middle = section.center().x(), top = section.top() + 1;
    const int base = order == Qt::AscendingOrder ? top + height : top;
    const int tip = order == Qt::AscendingOrder ? top : top + height;
    const QPoint corners[] = { { middle - halfWidth, base }, { middle + halfWidth, base }, { middle, tip } };
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(corners, 3);
}

} // namespace

TableHeader::TableHeader(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent)
    , m_colors(palette())
{
}

void TableHeader::setColors(const TableColors& colors)
{
    m_colors = colors;
    viewport()->update();
}

void TableHeader::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), m_colors.header);
    painter.setPen(m_colors.border);
    painter.drawLine(viewport()->rect().bottomLeft(), viewport()->rect().bottomRight());
    painter.end();
    // The sections alone: QHeaderView would paint the room behind them in the style's colour.
    const int end = length() - offset();
    const QRegion sections = event->region() & QRect(0, 0, end, height());
    if (!sections.isEmpty()) {
        QPaintEvent partial(sections);
        QHeaderView::paintEvent(&partial);
    }
}

void TableHeader::paintSection(QPainter* painter, const QRect& rect, int section) const
{
    constexpr int margin = 3;
    painter->save();
    painter->setClipRect(rect);
    painter->fillRect(rect, m_colors.header);
    painter->setPen(m_colors.border);
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    painter->setPen(m_colors.grid);
    painter->drawLine(rect.topRight(), rect.bottomRight() - QPoint(0, 1));

    const QVariant own = model()->headerData(section, orientation(), Qt::ForegroundRole);
    painter->setPen(own.isValid() ? own.value<QColor>() : m_colors.mutedText);
    const QRect room = rect.adjusted(margin, 2, -margin, -1);
    const QString text = model()->headerData(section, orientation(), Qt::DisplayRole).toString();
    painter->drawText(room, Qt::AlignCenter,
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
    if (isSortIndicatorShown() && sortIndicatorSection() == section)
        paintSortMark(*painter, rect, sortIndicatorOrder(), m_colors.mark);
    painter->restore();
}

} // namespace TC::embedded
