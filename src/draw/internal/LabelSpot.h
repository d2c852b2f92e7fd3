// SPDX-License-Identifier: MIT
#pragma once
/// @file Where the labels of the highest and the lowest price stand.

#include "draw/internal/Numbers.h"

#include <QPoint>
#include <QRect>
#include <QSize>

namespace TC::detail {

/// A price label: a leader line that touches the candle, and the text at its outer end.
struct LabelSpot
{
    QPoint leaderFrom, leaderTo; ///< left end, right end
    QPoint text;                 ///< start of the baseline
};

/// A point whose coordinates saturate at the int limits.
inline QPoint pointAt(long long x, long long y)
{
    return QPoint(saturatedSum(0, x), saturatedSum(0, y));
}

/// Label of the highest price: to the right of its candle when it fits, else mirrored to the left.
/// @param mark  centre of the candle, on the row of its high.
/// @param text  size of the text in pixels.
///
/// Deliberate: the text is held against row 0, not against the top of the pane.
inline LabelSpot highLabelSpot(const QPoint& mark, const QSize& text, const QRect& pane)
{
    constexpr int leader = 8, gap = 9, lift = 2;
    const long long x = mark.x(), y = mark.y();
    const bool cut = y - text.height() < 0;
    const long long outerRow = cut ? y : y - lift;
    const long long baseline = cut ? text.height() : y - lift;

    if (x + gap <= static_cast<long long>(pane.right()) - text.width())
        return { mark, pointAt(x + leader, outerRow), pointAt(x + gap, baseline) };
    return { pointAt(x - leader, outerRow), mark, pointAt(x - gap - text.width(), baseline) };
}

/// Label of the lowest price: to the left of its candle when there is room, else to the right. The two
/// labels prefer opposite sides, so that they keep apart.
/// @param mark  centre of the candle, on the row of its low.
/// @param text  size of the text in pixels.
///
/// Deliberate: the room is counted from column 0 and the text is held at the row of the pane's height, not
/// from the pane's left edge and at its bottom.
inline LabelSpot lowLabelSpot(const QPoint& mark, const QSize& text, const QRect& pane)
{
    constexpr int gap = 10, drop = 3, slope = 2;
    const long long x = mark.x(), y = mark.y();
    const bool cut = y + drop > pane.height();
    const long long outerRow = cut ? y - slope : y;
    const long long baseline = cut ? pane.height() : y + drop;

    if (x - text.width() - gap >= 0)
        return { pointAt(x - gap, outerRow), mark, pointAt(x - gap - text.width(), baseline) };
    return { mark, pointAt(x + gap - 1, outerRow), pointAt(x + gap, baseline) };
}

} // namespace TC::detail
