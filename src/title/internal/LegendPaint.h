// SPDX-License-Identifier: MIT
#pragma once
/// @file Painting of a legend whose rows are composed.

#include "title/internal/LegendRows.h"

#include <QVector>

class QPainter;

namespace TC::detail {

/// Paints both rows, and the summary behind the first one where the origin has one.
/// @param width  of each row, in pixels: what ends past it is not painted.
/// @param summary  texts of the trade summary; not read where the origin has none.
/// @param area  null for all; else only the pieces of the rows that lie inside it altogether.
void paintLegend(QPainter* painter, const LegendRows& rows, const LegendOrigin& origin, int width,
                 const QVector<ArrowColorTextData>& summary, const QRect* area = nullptr);

} // namespace TC::detail
