// SPDX-License-Identifier: MIT
/// @file Whether a legend value rose or fell.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/Numbers.h"
#include "host/WB/TextConversion.h"

namespace TC {

using namespace detail;

namespace {

constexpr int kNoArrow = 0, kUp = 1, kDown = 2;

bool isChangeOfPrice(const se::RPCFormulaMetaResult& meta, const CFormulaKey& key, int output)
{
    const std::string* name = elementAt(meta.outputNames, output);
    return name && key.formulaName == QStringLiteral("KLINE") && (*name == "涨跌" || *name == "涨跌百分比");
}

/// Against the close before, or the bar's own open on the first bar; the prices are the four columns of
/// the first output.
int arrowOfCloses(const se::RPCFormulaResult& result, const se::RPCFormulaMetaResult& meta, int bar)
{
    constexpr int open = 0, close = 3, prices = 4;
    const OutputView candles(meta, result, 0);
    if (candles.columnCount() != prices)
        return kNoArrow;
    const ColumnView closes = candles.column(close);
    const std::optional<double> before = bar < 1 ? candles.column(open).number(bar) : closes.number(bar - 1);
    const std::optional<double> now = closes.number(bar);
    if (!before || !now)
        return kNoArrow;
    const double fall = *before - *now;
    return fall > kTolerance ? kDown : fall < -kTolerance ? kUp : kNoArrow;
}

} // namespace

int CDrawStyle::getTitleArrow(const se::RPCFormulaResult& result, const se::RPCFormulaMetaResult& meta,
                              int index, CFormulaKey key, int output, int subLine)
{
    if (isChangeOfPrice(meta, key, output))
        return arrowOfCloses(result, meta, index);
    if (index < 1)
        return kNoArrow;
    const ColumnView values = OutputView(meta, result, output).column(subLine);
    const std::optional<double> before = values.number(index - 1), now = values.number(index);
    if (!before || !now)
        return kNoArrow;
    // Deliberate: exact, unlike the change of price: the smallest difference shows.
    return *before > *now ? kDown : *now > *before ? kUp : kNoArrow;
}

} // namespace TC
