// SPDX-License-Identifier: MIT
#include "title/internal/LegendPaint.h"

#include "draw/internal/Numbers.h"
#include "draw/internal/Pens.h"
#include "title/internal/TradeSummary.h"

#include <QPainter>
#include <QTextOption>

namespace TC::detail {

namespace {

/// Paints one row; answers the x behind it.
int paintRow(QPainter* painter, const QList<CArrowColorSimpleText>& row, int x, int y, int width,
             bool stopAtEdge)
{
    const auto paint = [&](const CArrowColorSimpleText& object, int left, int room) {
        object.drawText(painter, left, y, room, kLegendRowHeight, Qt::AlignCenter, false, false);
    };
    return forEachObject(row, x, width, paint, stopAtEdge);
}

void paintSummary(QPainter* painter, int x, const QVector<ArrowColorTextData>& texts)
{
    painter->setFont(WB::skinFont(kTitleFont));
    for (const ArrowColorTextData& text : texts) {
        const int width = summaryTextWidth(text.text);
        painter->setPen(text.color);
        painter->drawText(QRectF(x, kSummaryTop, width, kLegendRowHeight), text.text, QTextOption());
        x = saturatedSum(x, width);
    }
}

} // namespace

void paintLegend(QPainter* painter, const LegendRows& rows, const LegendOrigin& origin, int width,
                 const QVector<ArrowColorTextData>& summary)
{
    const int x = paintRow(painter, rows.first, origin.firstX, 0, width, false);
    if (origin.hasSummary)
        paintSummary(painter, x, summary);
    paintRow(painter, rows.second, origin.secondX, origin.secondY, width, origin.hasSummary);
}

} // namespace TC::detail
