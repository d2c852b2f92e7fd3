// SPDX-License-Identifier: MIT
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

constexpr int kLegendRowHeight = 16; ///< pixels
constexpr int kLegendGap = 3;        ///< pixels behind each object of a row, and added to summary texts

using Instrument = std::shared_ptr<ttservice::CInstrumentDetail>;

/// The formula of a display name, or else of a real name; null when unknown.
boost::shared_ptr<CFormulaDetail> findFormula(const QString& name);

/// The first overlaid instrument of a key; null when there is none.
Instrument findInstrument(const QList<Instrument>& instruments, const QString& key);

/// The two rows of a legend, object by object.
struct LegendRows
{
    QList<CArrowColorSimpleText> first;  ///< price legends and special lines
    QList<CArrowColorSimpleText> second; ///< headings and values of all other formulas
};

/// Composes the rows of a pane; arguments as for CDrawStyle::drawTitle.
LegendRows composeLegend(const QMap<CFormulaKey, RPCFormulaResultCache>& data, int index, Instrument& stock,
                         QList<Instrument>& addStocks, bool mainChart,
                         const boost::shared_ptr<CKLineUiParam>& klineParam);

/// Where the rows of a legend begin.
struct LegendOrigin
{
    int firstX = 0;
    int secondX = 0;
    int secondY = 0;
    bool hasSummary = false; ///< main chart: the trade summary follows the first row, rows stop at the edge
};

LegendOrigin legendOrigin(const QRect& rect, EIndexViewType viewType, int leftOffset, bool mainChart);

/// Calls visit(object, x, width) for each object of a row: its x, and the width left for it.
/// @param stopAtEdge  ends with the last object that has any width left: the others are not even measured,
///        and the answer is of no use.
/// @return the x behind the last object.
template <class Visit>
int forEachObject(const QList<CArrowColorSimpleText>& row, int x, int width, Visit visit,
                  bool stopAtEdge = false)
{
    int used = 0;
    for (const CArrowColorSimpleText& object : row) {
        const int room = saturatedSum(width, -static_cast<long long>(used));
        if (stopAtEdge && room <= 0)
            break;
        visit(object, x, room);
        const int step = saturatedSum(object.getWidth(), kLegendGap);
        x = saturatedSum(x, step);
        used = saturatedSum(used, step);
    }
    return x;
}

} // namespace TC::detail
