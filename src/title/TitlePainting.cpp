/// @file Painting of a pane's legend.

#include "draw/CDrawStyle.h"
#include "draw/internal/Pens.h"
#include "host/TC/Instruments.h"
#include "title/internal/TitleRows.h"

#include <QPainter>
#include <QTextOption>

namespace TC {

namespace {

/// Paints one row; answers the x behind it.
int paintRow(QPainter* painter, const QList<CArrowColorSimpleText>& row, int x, int y, int width)
{
    return detail::forEachObject(row, x, width, [&](const CArrowColorSimpleText& object, int left, int room) {
        object.drawText(painter, left, y, room, detail::kTitleRowHeight, Qt::AlignCenter, false, false);
    });
}

void paintSummary(QPainter* painter, int x, const QVector<ArrowColorTextData>& texts)
{
    const QFont* font =
        utils::CSingletonT<WB::CUiResource>::instance()->getFont(QString::fromLatin1(detail::kTitleFont));
    painter->setFont(font ? *font : QFont());
    for (const ArrowColorTextData& text : texts) {
        const int width = detail::summaryTextWidth(text.text);
        painter->setPen(text.color);
        painter->drawText(QRectF(x, detail::kSummaryTop, width, detail::kTitleRowHeight), text.text,
                          QTextOption());
        x = detail::saturatedSum(x, width);
    }
}

} // namespace

void CDrawStyle::drawTitle(QPainter* painter, QRect& rect,
                           const QMap<CFormulaKey, RPCFormulaResultCache>& data, int index,
                           std::shared_ptr<ttservice::CInstrumentDetail>& stock,
                           QList<std::shared_ptr<ttservice::CInstrumentDetail>>& addStocks,
                           EIndexViewType viewType, int leftOffset, bool mainChart, QList<QString> accounts,
                           QList<int> positions, QList<int> positionFlags, double totalBuyAmount,
                           double totalSellAmount, double netBuyAmount, double profitLoss,
                           double balanceAmount, int buyVolume, int sellVolume, double buyAvgPrice,
                           double sellAvgPrice, boost::shared_ptr<CKLineUiParam> klineParam)
{
    const detail::TitleRows rows =
        detail::composeTitleRows(data, index, stock, addStocks, mainChart, klineParam);
    const detail::TitleOrigin origin = detail::titleOrigin(rect, viewType, leftOffset, mainChart);

    const int x = paintRow(painter, rows.first, origin.firstX, 0, rect.width());
    if (mainChart) {
        const detail::TitleTrading trading { accounts,        positions,    positionFlags, totalBuyAmount,
                                             totalSellAmount, netBuyAmount, profitLoss,    balanceAmount,
                                             buyVolume,       sellVolume,   buyAvgPrice,   sellAvgPrice };
        paintSummary(painter, x, detail::summaryTexts(trading, getDetailPriceTick(stock)));
    }
    paintRow(painter, rows.second, origin.secondX, origin.secondY, rect.width());
}

} // namespace TC
