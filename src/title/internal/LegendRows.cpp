// SPDX-License-Identifier: MIT
#include "title/internal/LegendRows.h"

#include "draw/CDrawStyle.h"
#include "draw/internal/Pens.h"
#include "host/TC/CFormulaOperateManager.h"
#include "host/TC/Instruments.h"

#include <algorithm>

namespace TC::detail {

boost::shared_ptr<CFormulaDetail> findFormula(const QString& name)
{
    const auto* manager = utils::CSingletonT<CFormulaOperateManager>::instance();
    const auto formula = manager->getFormula(name);
    return formula ? formula : manager->getFormulaByRealName(name);
}

Instrument findInstrument(const QList<Instrument>& instruments, const QString& key)
{
    const auto found =
        std::find_if(instruments.begin(), instruments.end(), [&](const Instrument& instrument) {
            return instrument && getDetailQsKey(instrument) == key;
        });
    return found == instruments.end() ? nullptr : *found;
}

namespace {

/// Candles or intraday prices: both names are the built-in one.
bool isPriceFormula(const boost::shared_ptr<CFormulaDetail>& formula)
{
    const auto isNamed = [&](const QString& name) {
        return formula->displayName == name && formula->realName == name;
    };
    return formula && (isNamed(QStringLiteral("KLINE")) || isNamed(QStringLiteral("REALTIME")));
}

bool hasNoHeading(const QString& formulaName, const boost::shared_ptr<CFormulaDetail>& formula)
{
    constexpr int mainChartKind = 2;
    return formulaName.contains(QStringLiteral("KLINE")) || formulaName == QStringLiteral("REALTIME")
        || formulaName == QStringLiteral("TICKDATA") || (formula && formula->kind == mainChartKind);
}

/// Without a heading only prices and trades have a legend.
bool showsWithoutHeading(const QString& formulaName, const boost::shared_ptr<CFormulaDetail>& formula)
{
    if (isPriceFormula(formula))
        return true;
    const bool isPriceLines = formula && formula->displayName == QStringLiteral("价位线");
    return !isPriceLines && formulaName == QStringLiteral("TICKDATA");
}

} // namespace

LegendRows composeLegend(const QMap<CFormulaKey, RPCFormulaResultCache>& data, int index, Instrument& stock,
                         QList<Instrument>& addStocks, bool mainChart,
                         const boost::shared_ptr<CKLineUiParam>& klineParam)
{
    LegendRows rows;
    for (auto entry = data.begin(); entry != data.end(); ++entry) {
        const CFormulaKey& key = entry.key();
        const boost::shared_ptr<CFormulaDetail> formula = findFormula(key.formulaName);
        CArrowColorSimpleText values =
            CDrawStyle::getTitleText(key, entry.value(), index, stock, addStocks, mainChart, klineParam);
        values.setGraphType(mainChart);

        if (isPriceFormula(formula) && findInstrument(addStocks, key.instrumentKey)) {
            rows.first.prepend(values);
        } else if (hasNoHeading(key.formulaName, formula)) {
            if (showsWithoutHeading(key.formulaName, formula))
                rows.first.append(values);
        } else if (key.formulaName == QStringLiteral("REALTIMEVOL")) {
            rows.first.append(values);
        } else {
            CArrowColorSimpleText heading(QString::fromLatin1(kTitleFont));
            heading.setGraphType(mainChart);
            QString text;
            CDrawStyle::getFormulaText(formula, text);
            heading.setTextColor(text, WB::skinColor(mainChart ? "clr_stock_code" : "clr_stock_index"), 0);
            // Deliberate: an unknown formula adds its two objects as well, empty: the gaps behind them stay.
            rows.second.append(heading);
            rows.second.append(values);
        }
    }
    return rows;
}

LegendOrigin legendOrigin(const QRect& rect, EIndexViewType viewType, int leftOffset, bool mainChart)
{
    const bool isGroup = viewType == EIndexView_Module || viewType == EIndexView_Replay;
    const int indented = saturatedSum(rect.left(), 1LL + leftOffset);
    LegendOrigin origin;
    origin.firstX = mainChart && isGroup ? indented : rect.left();
    // Deliberate: other views start the second row at the indent alone, whatever the rectangle's left edge.
    origin.secondX =
        mainChart && (isGroup || viewType == EIndexView_Quote) ? indented : saturatedSum(leftOffset, 1);
    // Deliberate: not below the rectangle's top; off the main chart both rows share y 0.
    origin.secondY = mainChart ? kLegendRowHeight : 0;
    origin.hasSummary = mainChart;
    return origin;
}

} // namespace TC::detail
