// SPDX-License-Identifier: MIT
#include "title/internal/LegendPaint.h"

#include "draw/internal/Numbers.h"
#include "draw/internal/Pens.h"
#include "title/internal/TradeSummary.h"

#include <QPainter>
#include <QTextOption>

namespace TC::detail {

namespace {

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
                 const QVector<ArrowColorTextData>& summary, const QRect* area)
{
    const auto paintAt = [=](int y) {
        return [=](const CArrowColorSimpleText& object, int x, int room) {
            if (area)
                object.drawWhole(painter, x, y, room, kLegendRowHeight, *area);
            else
                object.drawText(painter, x, y, room, kLegendRowHeight, Qt::AlignCenter, false, false);
        };
    };
    const int x = forEachObject(rows.first, origin.firstX, width, paintAt(0));
    if (origin.hasSummary)
        paintSummary(painter, x, summary);
    forEachObject(rows.second, origin.secondX, width, paintAt(origin.secondY), origin.hasSummary);
}

} // namespace TC::detail
