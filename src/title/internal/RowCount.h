// SPDX-License-Identifier: MIT
#pragma once
/// @file How many rows a legend needs.

#include "title/internal/LegendRows.h"

namespace TC::detail {

/// What a piece takes beside its text, in pixels.
struct PieceSteps
{
    int gap = 0;       ///< of every piece
    int upArrow = 0;   ///< of a piece that rose
    int downArrow = 0; ///< of a piece that fell
};

/// Rows that the pieces take when they flow from the rectangle's left edge; 1 at least.
int countRows(const LegendRows& rows, const QRect& rect, const PieceSteps& steps);

} // namespace TC::detail
