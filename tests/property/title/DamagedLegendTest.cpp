// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/DamagedFormula.h"
#include "tests/support/Legend.h"
#include "tests/support/Seeds.h"
#include "tests/support/Trace.h"

#include "host/TC/UiParams.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

using TC::CDrawStyle;
using TC::CFormulaKey;

TEST(DamagedLegend, IsNeverReadPastAVector)
{
    static const char* const names[] = { "涨跌", "涨跌百分比", "成交额", "成交量",
                                         "收",   "振幅",       "持仓量", "%1,b" };
    test::knowFormula(QStringLiteral("KLINE"));
    test::knowFormula(QStringLiteral("MA"));
    for (const unsigned seed : test::seedsFor("damaged_legend", 4000)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        const int drawTypes[] = { 0, 12, 42, 1 };
        test::DamagedFormula formula(seed, drawTypes[seed % 4], 1 + static_cast<int>(seed % 5));
        TC::RPCFormulaResultCache& cache = formula.cache();
        for (std::string& name : cache.meta.outputNames)
            name = names[formula.pick(0, 7)];
        for (int& kind : cache.meta.valueKind)
            kind = formula.flag() ? kind : formula.pick(-1, 4);

        test::Instrument stock = formula.flag() ? test::instrument("SH", "1", "s", 0.01) : nullptr;
        QList<test::Instrument> added { nullptr, test::instrument("SZ", "2", "t", 0.0) };
        auto kline = formula.flag() ? boost::make_shared<TC::CKLineUiParam>() : nullptr;
        if (kline)
            kline->barCount = formula.start();
        const CFormulaKey key(formula.flag() ? QStringLiteral("SH1") : QStringLiteral("SZ2"),
                              formula.flag() ? QStringLiteral("KLINE") : QStringLiteral("MA"));
        const bool mainChart = formula.flag();
        for (const auto& piece :
             CDrawStyle::getTitleTextData(key, cache, formula.end(), stock, added, mainChart, kline))
            EXPECT_FALSE(piece.second.text.isEmpty());
        for (int subLine = -1; subLine < 4; ++subLine)
            CDrawStyle::getTitleArrow(cache.result, cache.meta, formula.start(), key, formula.output(),
                                      subLine);

        QMap<CFormulaKey, TC::RPCFormulaResultCache> data { { key, cache } };
        QRect pane = formula.pane();
        test::traceOf([&](QPainter& painter) {
            CDrawStyle::drawTitle(&painter, pane, data, formula.end(), stock, added,
                                  static_cast<TC::EIndexViewType>(formula.pick(0, 7)), formula.xOffset(),
                                  mainChart, { QStringLiteral("a") }, { formula.xOffset() }, { 1 },
                                  formula.range().first, 0.0, formula.range().second, 0.0, 0.0,
                                  formula.barCount(), 1, formula.range().first, 0.0, kline);
        });
    }
}
