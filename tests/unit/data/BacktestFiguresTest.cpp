// SPDX-License-Identifier: MIT
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Pane.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

using test::FormulaBuilder;
using Figures = QMap<QString, double>;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// A pane whose call of the host is kept.
class BacktestFigures : public testing::Test
{
protected:
    BacktestFigures()
    {
        TC::embedded::setBacktestReceiver([this](const QVector<QString>& ids, const Figures& figures) {
            ++calls;
            receivedIds = ids;
            received = figures;
        });
    }

    void put(const char* formula, const TC::RPCFormulaResultCache& cache, const char* instrument = "SH600000")
    {
        pane.m_data[{ text(instrument), text(formula) }] = cache;
    }

    Figures figures()
    {
        pane.updateStrategyBacktestData({ text("id") });
        return received;
    }

    test::Pane pane;
    QVector<QString> receivedIds;
    Figures received;
    int calls = 0;
};

TC::RPCFormulaResultCache winRate(std::vector<double> values, int drawType = 0)
{
    return FormulaBuilder().output("胜率", drawType, { std::move(values) }).build();
}

} // namespace

TEST_F(BacktestFigures, AreTheFourNamedOutputsAtTheLastBar)
{
    put("STRATEGY",
        FormulaBuilder()
            .output("年化收益", 0, { { 0.1, 0.2 } })
            .output("MA5", 0, { { 7.0, 8.0 } })
            .output("基准年化收益", 0, { { 0.3, 0.4 } })
            .output("最大回撤率", 0, { { 0.5, 0.6 } })
            .output("胜率", 0, { { 0.7, 0.8 } })
            .build());
    EXPECT_EQ(figures(),
              (Figures { { text("年化收益"), 0.2 },
                         { text("基准年化收益"), 0.4 },
                         { text("最大回撤率"), 0.6 },
                         { text("胜率"), 0.8 } }));
}

TEST_F(BacktestFigures, GoToTheHostWithTheIdentifiersAsGiven)
{
    pane.updateStrategyBacktestData({ text("b"), text("a"), text("b"), QString() });
    EXPECT_EQ(receivedIds, (QVector<QString> { text("b"), text("a"), text("b"), QString() }));
}

TEST_F(BacktestFigures, GoToTheHostOnceEvenWhenThereAreNone)
{
    EXPECT_TRUE(figures().isEmpty());
    EXPECT_EQ(calls, 1);
    put("STRATEGY", winRate({ 0.5 }));
    put("OTHER", winRate({ 0.5 }));
    figures();
    EXPECT_EQ(calls, 2);
}

TEST_F(BacktestFigures, SkipResultsThatEndOnAnInvalidBar)
{
    TC::RPCFormulaResultCache cache = winRate({ 0.1, 0.2 });
    cache.result.barValid = { 1, 0 };
    put("STRATEGY", cache);
    EXPECT_TRUE(figures().isEmpty());
    EXPECT_EQ(calls, 1);
}

TEST_F(BacktestFigures, LookAtTheLastBarOnly)
{
    TC::RPCFormulaResultCache cache = winRate({ 0.1, 0.2 });
    cache.result.barValid = { 0, -1 };
    put("STRATEGY", cache);
    EXPECT_EQ(figures().value(text("胜率")), 0.2);
}

TEST_F(BacktestFigures, SkipResultsWithoutBarsAndWithShortValidityLists)
{
    TC::RPCFormulaResultCache cache = winRate({ 0.1, 0.2 });
    cache.result.barValid.clear();
    put("STRATEGY", cache);
    cache = winRate({ 0.1, 0.2 });
    cache.result.barTimes.clear();
    put("OTHER", cache);
    EXPECT_TRUE(figures().isEmpty());
}

TEST_F(BacktestFigures, SkipDrawTypesThatCombineColumns)
{
    for (const int drawType : { 12, 13, 19, 26, 28, 31, 34, 36 }) {
        put("STRATEGY", winRate({ 0.5 }, drawType));
        EXPECT_TRUE(figures().isEmpty()) << drawType;
    }
}

TEST_F(BacktestFigures, TakeEveryOtherDrawType)
{
    for (const int drawType : { INT_MIN, -1, 0, 1, 2, 3, 4, 10, 11, 27, 35, 37, 42, INT_MAX }) {
        put("STRATEGY", winRate({ 0.5 }, drawType));
        EXPECT_EQ(figures().size(), 1) << drawType;
    }
}

TEST_F(BacktestFigures, LookNeitherAtWidthNorAtColumnType)
{
    for (const int columnType : { 0, 1, 2, 3, 200, -5 }) {
        put("STRATEGY",
            FormulaBuilder()
                .output("胜率", 0, { { 0.5 } })
                .width(0)
                .columnType(columnType)
                .offAxis()
                .build());
        EXPECT_EQ(figures().value(text("胜率")), 0.5) << columnType;
    }
}

TEST_F(BacktestFigures, ReadTheSeriesOfATextColumnAmongTheNumbers)
{
    put("STRATEGY", FormulaBuilder().output("胜率", 0, {}).texts({ "0.9" }).series({ 0.25 }).build());
    EXPECT_EQ(figures().value(text("胜率")), 0.25);
}

TEST_F(BacktestFigures, PassMissingNumbersOn)
{
    put("STRATEGY", winRate({ DBL_MAX }));
    EXPECT_EQ(figures().value(text("胜率")), DBL_MAX);
    put("STRATEGY", winRate({ NAN }));
    EXPECT_TRUE(std::isnan(figures().value(text("胜率"))));
    put("STRATEGY", winRate({ -INFINITY }));
    EXPECT_EQ(figures().value(text("胜率")), -INFINITY);
}

TEST_F(BacktestFigures, MatchNamesWhole)
{
    put("STRATEGY",
        FormulaBuilder()
            .output("胜率 ", 0, { { 1.0 } })
            .output("年化", 0, { { 1.0 } })
            .output("基准年化收益|最大回撤率", 0, { { 1.0 } })
            .output("", 0, { { 1.0 } })
            .build());
    EXPECT_TRUE(figures().isEmpty());
}

TEST_F(BacktestFigures, TakeTheFirstColumn)
{
    put("STRATEGY", FormulaBuilder().output("胜率", 0, { { 0.5 }, { 0.7 } }).build());
    EXPECT_EQ(figures().value(text("胜率")), 0.5);
}

TEST_F(BacktestFigures, FollowTheColumnToItsSeries)
{
    TC::RPCFormulaResultCache cache = FormulaBuilder().series({ 0.1 }).output("胜率", 0, { { 0.5 } }).build();
    EXPECT_EQ(cache.result.columnSeries[0], 1);
    put("STRATEGY", cache);
    EXPECT_EQ(figures().value(text("胜率")), 0.5);
}

TEST_F(BacktestFigures, LaterEntriesInKeyOrderReplaceEarlierOnes)
{
    put("B", winRate({ 0.2 }));
    put("A", winRate({ 0.1 }));
    EXPECT_EQ(figures().value(text("胜率")), 0.2);
    put("A", winRate({ 0.3 }), "SZ000001");
    EXPECT_EQ(figures().value(text("胜率")), 0.3);
}

TEST_F(BacktestFigures, LaterOutputsOfOneNameReplaceEarlierOnes)
{
    put("STRATEGY", FormulaBuilder().output("胜率", 0, { { 0.1 } }).output("胜率", 0, { { 0.2 } }).build());
    EXPECT_EQ(figures().value(text("胜率")), 0.2);
}

TEST_F(BacktestFigures, StopAtTheOutputCount)
{
    TC::RPCFormulaResultCache cache = winRate({ 0.5 });
    cache.meta.outputCount = 0;
    put("STRATEGY", cache);
    EXPECT_TRUE(figures().isEmpty());
    cache.meta.outputCount = INT_MAX;
    put("STRATEGY", cache);
    EXPECT_EQ(figures().size(), 1);
}

TEST_F(BacktestFigures, SkipOutputsWithoutDrawTypeColumnOrName)
{
    TC::RPCFormulaResultCache cache = winRate({ 0.5 });
    cache.meta.drawType.clear();
    put("A", cache);
    cache = winRate({ 0.5 });
    cache.meta.outputColumns.clear();
    put("B", cache);
    cache = winRate({ 0.5 });
    cache.meta.outputColumns[0].clear();
    put("C", cache);
    cache = winRate({ 0.5 });
    cache.meta.outputNames.clear();
    put("D", cache);
    EXPECT_TRUE(figures().isEmpty());
}

TEST_F(BacktestFigures, SkipColumnsThatLeadNowhere)
{
    for (const int wild : { INT_MIN, -1, 1, INT_MAX }) {
        TC::RPCFormulaResultCache cache = winRate({ 0.5 });
        cache.meta.outputColumns[0][0] = wild;
        put("A", cache);
        cache = winRate({ 0.5 });
        cache.result.columnSeries[0] = wild;
        put("B", cache);
        EXPECT_TRUE(figures().isEmpty()) << wild;
    }
}

TEST_F(BacktestFigures, SkipSeriesThatAreMissingOrShort)
{
    TC::RPCFormulaResultCache cache = winRate({ 0.1, 0.5 });
    cache.result.numberSeries.clear();
    put("A", cache);
    cache = winRate({ 0.1, 0.5 });
    cache.result.numberSeries[0].resize(1);
    put("B", cache);
    EXPECT_TRUE(figures().isEmpty());
}

TEST_F(BacktestFigures, OneBadOutputDoesNotHideTheNext)
{
    TC::RPCFormulaResultCache cache =
        FormulaBuilder().output("年化收益", 0, { { 0.1 } }).output("胜率", 0, { { 0.2 } }).build();
    cache.meta.outputColumns[0].clear();
    put("STRATEGY", cache);
    EXPECT_EQ(figures(), (Figures { { text("胜率"), 0.2 } }));
}

TEST_F(BacktestFigures, ReachTheHostWithTheDataLockFree)
{
    bool free = false;
    TC::embedded::setBacktestReceiver(
        [&](const QVector<QString>&, const Figures&) { free = pane.isDataLockFree(); });
    pane.updateStrategyBacktestData({});
    EXPECT_TRUE(free);
}

TEST_F(BacktestFigures, AreDroppedWithoutAReceiver)
{
    TC::embedded::setBacktestReceiver(nullptr);
    pane.updateStrategyBacktestData({ text("id") });
    EXPECT_EQ(calls, 0);
}

TEST_F(BacktestFigures, AreDroppedAfterAReset)
{
    TC::embedded::reset();
    pane.updateStrategyBacktestData({ text("id") });
    EXPECT_EQ(calls, 0);
}
