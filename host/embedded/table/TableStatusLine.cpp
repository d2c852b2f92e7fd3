// SPDX-License-Identifier: MIT
#include "host/embedded/table/TableStatusLine.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

namespace TC::embedded {

TableStatusLine::TableStatusLine(QHeaderView* header, QWidget* parent)
    : QWidget(parent)
    , m_header(header)
{
    setFixedHeight(21);
    const auto repaint = [this] { update(); };
    connect(header, &QHeaderView::sectionResized, this, repaint);
    connect(header, &QHeaderView::sectionMoved, this, repaint);
}

void TableStatusLine::setText(int column, const QString& text)
{
    m_texts[column] = text;
    update();
}

void TableStatusLine::setColors(const QColor& background, const QColor& text, const QColor& border)
{
    m_background = background;
    m_text = text;
    m_border = border;
    update();
}

void TableStatusLine::paintEvent(QPaintEvent*)
{
    constexpr int margin = 4;
    QPainter painter(this);
    painter.fillRect(rect(), m_background);
    painter.setPen(m_border);
    painter.drawLine(0, 0, width() - 1, 0);
    painter.setPen(m_text);
    for (auto entry = m_texts.cbegin(); entry != m_texts.cend(); ++entry) {
        if (entry.key() < 0 || entry.key() >= m_header->count() || m_header->isSectionHidden(entry.key()))
            continue;
        const QRect place(m_header->x() + m_header->sectionViewportPosition(entry.key()), 1,
                          m_header->sectionSize(entry.key()) - margin, height() - 1);
        painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip, entry.value());
    }
}

} // namespace TC::embedded
