// SPDX-License-Identifier: MIT
/// @file The legend of a pane from its results: composed and painted.

#include "draw/CDrawStyle.h"
#include "host/TC/Instruments.h"
#include "title/internal/LegendPaint.h"
#include "title/internal/TradeSummary.h"

namespace TC {

using namespace detail;

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
    const LegendRows rows = composeLegend(data, index, stock, addStocks, mainChart, klineParam);
    const TradeSummary trading { accounts,        positions,    positionFlags, totalBuyAmount,
                                 totalSellAmount, netBuyAmount, profitLoss,    balanceAmount,
                                 buyVolume,       sellVolume,   buyAvgPrice,   sellAvgPrice };
    const LegendOrigin origin = legendOrigin(rect, viewType, leftOffset, mainChart);
    const auto summary =
        origin.hasSummary ? summaryTexts(trading, getDetailPriceTick(stock)) : QVector<ArrowColorTextData>();
    paintLegend(painter, rows, origin, rect.width(), summary);
}

} // namespace TC
