#include "draw/internal/LabelPlacement.h"

namespace TC::detail {

namespace {

enum PositionCode {
    CentredOnPoint = 0,
    AtPoint = 1,
    BesideOrAbovePoint = 2,
    Middle = 3,
    Top = 4,
    Bottom = 5
};

constexpr int kEdgeGap = 3; ///< pixels between a text and the pane's edge

} // namespace

std::optional<QPoint> textPoint(int code, const QRect& pane, QSize text, int x, std::optional<int> row)
{
    const int centred = saturatedSum(x, -text.width() / 2);
    switch (code) {
    // Deliberate: the middle counts from row 0, the top and the bottom from the pane's own edges.
    case Middle: return QPoint(centred, pane.height() / 2 - text.height() / 2);
    case Top: return QPoint(centred, saturatedSum(pane.top(), kEdgeGap + text.height()));
    case Bottom: return QPoint(centred, saturatedSum(pane.bottom(), -kEdgeGap));
    default: break;
    }
    if (!row)
        return std::nullopt;
    switch (code) {
    case CentredOnPoint: return QPoint(centred, saturatedSum(*row, -text.height() / 2));
    case BesideOrAbovePoint: return QPoint(saturatedSum(x, -text.width()), *row);
    default: return QPoint(x, *row);
    }
}

std::optional<int> iconTop(int code, const QRect& pane, std::optional<int> row)
{
    switch (code) {
    case CentredOnPoint: return row ? std::optional<int>(saturatedSum(*row, -kIconSize / 2)) : row;
    case AtPoint: return row;
    case BesideOrAbovePoint: return row ? std::optional<int>(saturatedSum(*row, -kIconSize)) : row;
    // Deliberate: only the top counts from the pane's own edge, and its gap is wider than the bottom's.
    case Middle: return pane.height() / 2 - kIconSize / 2;
    case Top: return saturatedSum(pane.top(), 5);
    case Bottom: return pane.height() - 10;
    default: return 0;
    }
}

} // namespace TC::detail
