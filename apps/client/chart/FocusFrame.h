// SPDX-License-Identifier: MIT
#pragma once
/// @file Where keys go.

class QColor;
class QPainter;
class QRect;
class QWidget;

namespace client {

/// A frame of one pixel inside the rectangle, whole at any scale of the screen, where a line may lose an
/// edge.
void paintFrame(QPainter& painter, const QRect& rect, const QColor& color);

/// From a paint event: a frame at the widget's edge while it has the focus, else nothing.
void paintFocusFrame(QWidget* widget);

} // namespace client
