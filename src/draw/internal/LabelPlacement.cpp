// SPDX-License-Identifier: MIT
#include "draw/internal/LabelPlacement.h"

#include "host/se/RecordCodes.h"

namespace TC::detail {

namespace {

using se::Position;

constexpr int kEdgeGap = 3; ///< pixels between a text and the pane's edge

} // namespace

std::optional<QPoint> textPoint(int code, const QRect& pane, QSize text, int x, std::optional<int> row)
{
    const int centred = saturatedSum(x, -text.width() / 2);
    switch (code) {
    // Deliberate: the middle counts from row 0, the top and the bottom from the pane's own edges.
    case Position::PaneMiddle: return QPoint(centred, pane.height() / 2 - text.height() / 2);
    case Position::PaneTop: return QPoint(centred, saturatedSum(pane.top(), kEdgeGap + text.height()));
    case Position::PaneBottom: return QPoint(centred, saturatedSum(pane.bottom(), -kEdgeGap));
    default: break;
    }
    if (!row)
        return std::nullopt;
    switch (code) {
    case Position::CentredOnPoint: return QPoint(centred, saturatedSum(*row, -text.height() / 2));
    case Position::AbovePoint: return QPoint(saturatedSum(x, -text.width()), *row);
    default: return QPoint(x, *row);
    }
}

std::optional<int> iconTop(int code, const QRect& pane, std::optional<int> row)
{
    switch (code) {
    case Position::CentredOnPoint: return row ? std::optional<int>(saturatedSum(*row, -kIconSize / 2)) : row;
    case Position::AtPoint: return row;
    case Position::AbovePoint: return row ? std::optional<int>(saturatedSum(*row, -kIconSize)) : row;
    // Deliberate: only the top counts from the pane's own edge, and its gap is wider than the bottom's.
    case Position::PaneMiddle: return pane.height() / 2 - kIconSize / 2;
    case Position::PaneTop: return saturatedSum(pane.top(), 5);
    case Position::PaneBottom: return pane.height() - 10;
    default: return 0;
    }
}

} // namespace TC::detail
