// SPDX-License-Identifier: MIT
#pragma once
/// @file Which part of a strip shows a legend without cutting a piece in two.

#include "title/internal/LegendRows.h"

#include <QRect>
#include <QRegion>
#include <QVector>

namespace TC::detail {

/// The whole pieces of a strip.
struct LegendClip
{
    QVector<QRect> pieces; ///< what shows: each text with its arrow and the room around it that ink may take
    bool isNeeded = false; ///< false: painted alone, they leave no ink outside their rooms, so need no clip
    QRegion region() const;
};

/// The pieces of a legend that `area` shows: each text with the arrow behind it either lies inside `area`
/// altogether or is left out. The other arguments as for paintLegend.
LegendClip wholePieces(const QPainter& painter, const QRect& area, const LegendRows& rows,
                       const LegendOrigin& origin, int width, const QVector<ArrowColorTextData>& summary);

} // namespace TC::detail
