// SPDX-License-Identifier: MIT
#include "apps/client/chart/FocusFrame.h"

#include <QPainter>
#include <QWidget>

namespace client {

void paintFocusFrame(QWidget* widget)
{
    if (!widget->hasFocus())
        return;
    QPainter painter(widget);
    painter.setPen(widget->palette().color(QPalette::Highlight));
    painter.drawRect(widget->rect().adjusted(0, 0, -1, -1));
}

} // namespace client
