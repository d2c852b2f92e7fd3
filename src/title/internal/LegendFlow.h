// SPDX-License-Identifier: MIT
#pragma once
/// @file A legend that is too long for one row, flowing over the rows of its strip.

#include "title/internal/LegendRows.h"

#include <QPoint>

namespace TC::detail {

/// One piece and where it stands.
struct FlowPiece
{
    CArrowColorSimpleText text; ///< holds the one piece
    QPoint position;            ///< top left corner of its row
};

/// Width of all objects of both rows side by side.
int legendWidth(const LegendRows& rows);

/// Lets the pieces of both rows flow from the area's left edge to its right edge, row by row from its top.
/// A heading is not parted from its first value; a piece that no row can hold and everything below the
/// area's last whole row is left out.
QVector<FlowPiece> flowPieces(const LegendRows& rows, const QRect& area);

} // namespace TC::detail
