#pragma once
/// @file Strokes that keep their size at any device pixel ratio.

#include <QPainter>

namespace TC::detail {

/// A line on one pixel column, both rows included. One that begins where it ends is a point: Qt gives a line
/// without length a cap at either end, several device pixels wide where a pixel is more than one of them.
inline void drawUpright(QPainter* painter, int x, int row1, int row2)
{
    if (row1 == row2)
        painter->drawPoint(x, row1);
    else
        painter->drawLine(x, row1, x, row2);
}

} // namespace TC::detail
