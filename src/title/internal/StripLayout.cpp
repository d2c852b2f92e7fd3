// SPDX-License-Identifier: MIT
#include "title/internal/StripLayout.h"

#include "draw/internal/Numbers.h"

#include <algorithm>

namespace TC::detail {

namespace {

constexpr int kColumnPadding = 10; ///< pixels that a heading column is wider than its text
constexpr int kTextInset = 4;      ///< of them before the text
constexpr int kIconColumn = 21;    ///< pixels by which an icon moves what stands behind it
constexpr int kLeastName = 24;     ///< pixels below which no shortened name is shown

/// Pixels kept free at the right end.
int rightReserve(const StripContent& content)
{
    if (content.hasButton)
        return 70;
    return content.viewType == EIndexView_Quote ? 71 : 50;
}

/// The module group's heading is as high as the strip; in other views it stands in the first row.
bool isTallHeading(const StripContent& content)
{
    return content.subViewType == EIndexView_Module;
}

/// Lays the heading columns out from `x` up to `rightEdge`; answers the x behind them.
int layOutHeading(const StripContent& content, int x, int rightEdge, StripLayout& layout)
{
    const int height =
        isTallHeading(content) ? content.size.height() : std::min(content.rowHeight, content.size.height());
    const auto separate = [&] { layout.separators.append(QLine(x - 1, 0, x - 1, height - 1)); };

    const int nameColumn = std::min(headingColumnWidth(content.nameWidth), rightEdge - x);
    const bool isShortened = nameColumn < headingColumnWidth(content.nameWidth);
    if (content.nameWidth <= 0 || (isShortened && nameColumn < kLeastName + kColumnPadding))
        return x;
    layout.name = QRect(x + kTextInset, 0, nameColumn - kColumnPadding, height);
    x += nameColumn;

    if (!content.icon.isEmpty() && !isShortened && x + kIconColumn <= rightEdge) {
        const int top = std::max(0, (height - content.icon.height()) / 2);
        const int width = std::min(content.icon.width(), kIconColumn - kLegendGap);
        // In the room behind the name's padding, so that it stands closer to the name than to the line.
        layout.icon = QRect(x - kColumnPadding + kTextInset + kLegendGap, top, width,
                            std::min(content.icon.height(), height - top));
        x += kIconColumn;
    }
    separate();

    const int periodColumn = headingColumnWidth(content.periodWidth);
    const bool hasPeriod = isTallHeading(content) && content.periodWidth > 0;
    if (hasPeriod && !isShortened && x + periodColumn <= rightEdge) {
        const int row = content.rowHeight;
        layout.period = QRect(x + kTextInset, 0, content.periodWidth, std::min(row, height));
        if (height >= 2 * row)
            layout.adjustment = QRect(x + kTextInset, row, content.periodWidth, row);
        x += periodColumn;
        separate();
    }
    return x;
}

/// Chooses the arguments of drawTitle so that its rows begin behind the heading, at each view's own rule.
void placeLegend(const StripContent& content, int x, int rightEdge, StripLayout& layout)
{
    const bool mainChart = content.displayType == EIndexDisplay_Heading;
    const int indent = std::max(0, stripIndent(content.subViewType, content.leftOffset));
    const bool hasOwnIndent = content.viewType == EIndexView_Module || content.viewType == EIndexView_Quote
        || content.viewType == EIndexView_Replay;
    if (mainChart && !hasOwnIndent)
        layout.rowsOffset = isTallHeading(content) ? x : indent;
    else if (!mainChart) // both rows share y 0: the second begins behind the first
        layout.rowsOffset = saturatedSum(x, content.firstRowWidth);

    const LegendOrigin origin =
        legendOrigin(QRect(x, 0, 1, 1), content.viewType, layout.rowsOffset, mainChart);
    const int left = std::min(origin.firstX, origin.secondX);
    const bool leavesRoom = origin.secondX < rightEdge && origin.firstX + content.firstRowWidth <= rightEdge;
    const int start = mainChart || !leavesRoom ? left : origin.secondX;
    layout.rowsRect = QRect(x, 0, std::max(0, rightEdge - start), content.size.height());
    layout.legend = QRect(QPoint(std::max(0, left), 0), QPoint(rightEdge - 1, content.size.height() - 1));
    if (layout.legend.isEmpty())
        layout.legend = QRect();
}

} // namespace

int stripIndent(EIndexViewType subViewType, int leftOffset)
{
    return subViewType == EIndexView_Indented ? leftOffset : 0;
}

int headingColumnWidth(int textWidth)
{
    return saturatedSum(textWidth, kColumnPadding);
}

QRect closeButtonRect(int stripWidth)
{
    constexpr int side = 12, fromRight = 17;
    return QRect(stripWidth - fromRight, 0, side, side);
}

StripLayout layOutStrip(const StripContent& content)
{
    StripLayout layout;
    if (content.size.isEmpty())
        return layout;
    if (content.hasButton)
        layout.button = closeButtonRect(content.size.width());
    const int rightEdge = content.size.width() - rightReserve(content);
    int x = std::clamp(stripIndent(content.subViewType, content.leftOffset), 0, content.size.width());
    if (content.displayType == EIndexDisplay_Heading) {
        // Without a legend beside it the heading may use the whole strip: one with a heading has no button.
        x = layOutHeading(content, x, content.size.width(), layout);
        if (!layout.separators.isEmpty())
            x += kLegendGap;
    } else {
        ++x; // the ink of a first letter may begin left of it
    }
    placeLegend(content, x, rightEdge, layout);
    return layout;
}

} // namespace TC::detail
