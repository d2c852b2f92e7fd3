// SPDX-License-Identifier: MIT
#include "apps/client/chart/FocusFrame.h"

#include <QPainter>
#include <QWidget>

namespace client {

void paintFrame(QPainter& painter, const QRect& rect, const QColor& color)
{
    painter.fillRect(rect.left(), rect.top(), rect.width(), 1, color);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, color);
    painter.fillRect(rect.left(), rect.top(), 1, rect.height(), color);
    painter.fillRect(rect.right(), rect.top(), 1, rect.height(), color);
}

void paintFocusFrame(QWidget* widget)
{
    if (!widget->hasFocus())
        return;
    QPainter painter(widget);
    paintFrame(painter, widget->rect(), widget->palette().color(QPalette::Highlight));
}

} // namespace client
