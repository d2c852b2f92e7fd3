/// @file Whether a legend value rose or fell.

#include "draw/CDrawStyle.h"
#include "host/WB/TextConversion.h"
#include "title/internal/LegendSeries.h"

namespace TC {

namespace {

constexpr int kNoArrow = 0, kUp = 1, kDown = 2;

bool isChangeOfPrice(const se::RPCFormulaMetaResult& meta, const CFormulaKey& key, int output)
{
    const std::string* name = detail::elementAt(meta.outputNames, output);
    return name && key.formulaName == QStringLiteral("KLINE") && (*name == "涨跌" || *name == "涨跌百分比");
}

const double* numberAt(const std::vector<double>* series, int bar)
{
    return series ? detail::elementAt(*series, bar) : nullptr;
}

/// Against the close before, or the bar's own open on the first bar; the prices are the four columns of
/// the first output.
int arrowOfCloses(const se::RPCFormulaResult& result, const se::RPCFormulaMetaResult& meta, int bar)
{
    constexpr int open = 0, close = 3;
    constexpr std::size_t prices = 4;
    const std::vector<int>* columns = detail::elementAt(meta.outputColumns, 0);
    if (!columns || columns->size() != prices)
        return kNoArrow;
    const std::vector<double>* closes = detail::numberSeriesOf(result, meta, 0, close);
    const double* before =
        bar < 1 ? numberAt(detail::numberSeriesOf(result, meta, 0, open), bar) : numberAt(closes, bar - 1);
    const double* now = numberAt(closes, bar);
    if (!before || !now)
        return kNoArrow;
    const double fall = *before - *now;
    return fall > detail::kTolerance ? kDown : fall < -detail::kTolerance ? kUp : kNoArrow;
}

} // namespace

int CDrawStyle::getTitleArrow(const se::RPCFormulaResult& result, const se::RPCFormulaMetaResult& meta,
                              int index, CFormulaKey key, int output, int subLine)
{
    if (isChangeOfPrice(meta, key, output))
        return arrowOfCloses(result, meta, index);
    if (index < 1)
        return kNoArrow;
    const std::vector<double>* series = detail::numberSeriesOf(result, meta, output, subLine);
    const double* before = numberAt(series, index - 1);
    const double* now = numberAt(series, index);
    if (!before || !now)
        return kNoArrow;
    // Deliberate: exact, unlike the change of price: the smallest difference shows.
    return *before > *now ? kDown : *now > *before ? kUp : kNoArrow;
}

} // namespace TC
