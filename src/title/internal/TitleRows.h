#pragma once
/// @file A pane's legend before it is painted: what stands in which row, and where.

#include "data/CFormulaKey.h"
#include "data/RPCFormulaResultCache.h"
#include "draw/internal/Numbers.h"
#include "host/TC/CFormulaDetail.h"
#include "host/TC/Periods.h"
#include "host/TC/UiParams.h"
#include "title/CArrowColorSimpleText.h"

#include <boost/shared_ptr.hpp>

#include <QList>
#include <QMap>
#include <QRect>

#include <memory>

namespace ttservice {
class CInstrumentDetail;
}

namespace TC::detail {

constexpr int kTitleRowHeight = 16; ///< pixels
constexpr int kTitleGap = 3;        ///< pixels behind each object of a row, and added to summary texts

constexpr int kSummaryTop = 2; ///< y of the summary's texts in the first row

using Instrument = std::shared_ptr<ttservice::CInstrumentDetail>;

/// The formula of a display name, or else of a real name; null when unknown.
boost::shared_ptr<CFormulaDetail> findFormula(const QString& name);

/// The first overlaid instrument of a key; null when there is none.
Instrument findInstrument(const QList<Instrument>& instruments, const QString& key);

/// The two rows of a legend, object by object.
struct TitleRows
{
    QList<CArrowColorSimpleText> first;  ///< price legends and special lines
    QList<CArrowColorSimpleText> second; ///< headings and values of all other formulas
};

/// Composes the rows of a pane; arguments as for CDrawStyle::drawTitle.
TitleRows composeTitleRows(const QMap<CFormulaKey, RPCFormulaResultCache>& data, int index, Instrument& stock,
                           QList<Instrument>& addStocks, bool mainChart,
                           const boost::shared_ptr<CKLineUiParam>& klineParam);

/// The user's own trading as a legend shows it.
struct TitleTrading
{
    QList<QString> accounts;
    QList<int> positions;     ///< by account; may be shorter
    QList<int> positionFlags; ///< by account; not 0: rise colour; may be shorter
    double totalBuyAmount = 0.0, totalSellAmount = 0.0, netBuyAmount = 0.0, profitLoss = 0.0,
           balanceAmount = 0.0;
    int buyVolume = 0, sellVolume = 0;
    double buyAvgPrice = 0.0, sellAvgPrice = 0.0;
};

/// The texts of the trade summary and the accounts in order; nothing traded gives none.
/// @param priceTick  of the pane's instrument.
QVector<ArrowColorTextData> summaryTexts(const TitleTrading& trading, double priceTick);

/// Width of one of those texts in the legend's font.
int summaryTextWidth(const QString& text);

/// Where the rows of a legend begin.
struct TitleOrigin
{
    int firstX = 0;
    int secondX = 0;
    int secondY = 0;
};

TitleOrigin titleOrigin(const QRect& rect, EIndexViewType viewType, int leftOffset, bool mainChart);

/// Calls visit(object, x, width) for each object of a row: its x, and the width left for it.
/// @return the x behind the last object.
template <class Visit>
int forEachObject(const QList<CArrowColorSimpleText>& row, int x, int width, Visit visit)
{
    int used = 0;
    for (const CArrowColorSimpleText& object : row) {
        visit(object, x, saturatedSum(width, -static_cast<long long>(used)));
        const int step = saturatedSum(object.getWidth(), kTitleGap);
        x = saturatedSum(x, step);
        used = saturatedSum(used, step);
    }
    return x;
}

} // namespace TC::detail
