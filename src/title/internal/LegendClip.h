#pragma once
/// @file Which part of a strip shows a legend without cutting a piece in two.

#include "title/internal/LegendRows.h"

#include <QRegion>
#include <QVector>

namespace TC::detail {

/// The part of `area` that shows whole pieces only: each text with the arrow behind it either lies inside
/// `area` altogether or is left out. The other arguments as for paintLegend.
QRegion wholePieces(const QRect& area, const LegendRows& rows, const LegendOrigin& origin, int width,
                    const QVector<ArrowColorTextData>& summary);

} // namespace TC::detail
