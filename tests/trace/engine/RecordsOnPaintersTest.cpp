// SPDX-License-Identifier: MIT
/// @file What the engine computes, in the hands of the painters, the range and the legend that read it.

#include "draw/CDrawStyle.h"
#include "engine/files/TickFile.h"
#include "engine/TickFormulas.h"
#include "host/TC/UiParams.h"
#include "tests/support/EngineBars.h"
#include "tests/support/Legend.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

using TC::CDrawStyle;
using test::traceOf;

namespace {

const QString kRise = QStringLiteral("#ff0000"), kFall = QStringLiteral("#0000ff");

TC::RPCFormulaResultCache cacheOf(engine::FormulaRecords records)
{
    TC::RPCFormulaResultCache cache;
    cache.meta = std::move(records.meta);
    cache.result = std::move(records.result);
    return cache;
}

class EngineRecords : public testing::Test
{
protected:
    void SetUp() override
    {
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_rise"), kRise);
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_fall"), kFall);
    }

    /// "+" or "-" for every `step`-th call of a trace.
    static QString directions(const QStringList& calls, int step)
    {
        QString text;
        for (int call = 0; call < calls.size(); call += step)
            text += calls[call].contains(kRise) ? QLatin1Char('+') : QLatin1Char('-');
        return text;
    }

    /// Sticks of all trades, one line each.
    QString sticks(const engine::TickSeries& ticks, bool byBook)
    {
        auto cache = cacheOf(engine::computeTicks(ticks).volumes);
        const int last = static_cast<int>(ticks.size()) - 1;
        return directions(traceOf([&](QPainter& painter) {
                              const auto draw =
                                  byBook ? &CDrawStyle::drawTickVolStickNew : &CDrawStyle::drawTickVolStick;
                              (CDrawStyle().*draw)(&painter, pane, cache, { 1000.0, 0.0 }, 0, 0, last, 0,
                                                   true, true, last + 1, 0.0);
                          }),
                          1);
    }

    QRect pane { 0, 0, 600, 100 };
};

/// Trades at a bid of 10.00 and an ask of 10.01, with five levels of 100 lots on either side.
engine::TickSeries tradesAt(const std::vector<double>& prices)
{
    engine::TickSeries ticks;
    ticks.price = prices;
    ticks.timeMs.assign(prices.size(), 0);
    ticks.volume.assign(prices.size(), 10.0);
    for (std::size_t level = 0; level < engine::kBookLevels; ++level) {
        ticks.bid.price[level].assign(prices.size(), 10.0 - 0.01 * static_cast<double>(level));
        ticks.ask.price[level].assign(prices.size(), 10.01 + 0.01 * static_cast<double>(level));
        ticks.bid.volume[level].assign(prices.size(), 100.0);
        ticks.ask.volume[level].assign(prices.size(), 100.0);
    }
    return ticks;
}

TEST_F(EngineRecords, OfTradesCrossInTheDirectionOfTheirQuotes)
{
    auto cache = cacheOf(engine::computeTicks(tradesAt({ 10.0, 10.01, 10.01, 10.0, 10.0 })).prices);
    const QStringList crosses = traceOf([&](QPainter& painter) {
        CDrawStyle().drawTick(&painter, pane, { 11.0, 9.0 }, cache, 0, 4, 0, 6, 0.0, 0.0, true, 5);
    });
    // The first at the bid, up, again at the ask, down, again at the bid; two lines a cross.
    EXPECT_EQ(directions(crosses, 2), QStringLiteral("-++--"));
}

TEST_F(EngineRecords, OfTradesStandAsSticksInTheDirectionOfTheirQuotes)
{
    EXPECT_EQ(sticks(tradesAt({ 10.0, 10.01, 10.01, 10.0, 10.0 }), false), QStringLiteral("-++--"));
}

TEST_F(EngineRecords, OfTradesLetABigChangeOfTheAskSideRise)
{
    auto ticks = tradesAt({ 10.0, 10.0 });
    // 800 lots leave the third ask level, and the trade is of 600: 1.5 * 600 >= 800 > 6 * 0, and 800 >= 500.
    ticks.ask.volume[2] = { 900.0, 100.0 };
    ticks.volume[1] = 600.0;
    EXPECT_EQ(sticks(ticks, false), QStringLiteral("--"));
    EXPECT_EQ(sticks(ticks, true), QStringLiteral("-+"));
}

TEST_F(EngineRecords, OfTradesLetABigChangeOfTheBidSideFall)
{
    auto ticks = tradesAt({ 10.0, 10.01 });
    ticks.bid.volume[2] = { 900.0, 100.0 };
    ticks.volume[1] = 600.0;
    EXPECT_EQ(sticks(ticks, false), QStringLiteral("-+"));
    EXPECT_EQ(sticks(ticks, true), QStringLiteral("--"));
}

TEST_F(EngineRecords, OfTheSyntheticDayShowBothRulesDisagree)
{
    std::string failure;
    const auto ticks = engine::readTicks(SAMPLES_DIR "/ticks/SYNTHETIC-five-levels.csv", failure);
    ASSERT_TRUE(ticks) << failure;
    const QString plain = sticks(*ticks, false), byBook = sticks(*ticks, true);
    ASSERT_EQ(plain.size(), byBook.size());
    int different = 0;
    for (int trade = 0; trade < plain.size(); ++trade)
        different += plain[trade] != byBook[trade];
    EXPECT_GT(different, 0) << "the sample has something to show for the book";
    EXPECT_LT(different, plain.size() / 4);
}

TEST_F(EngineRecords, OfCandlesSpanFromTheLowestLowToTheHighestHigh)
{
    auto bars = test::barsOf({ 10, 12, 11 });
    bars.high = { 11, 15, 13 };
    bars.low = { 9, 10, 8 };
    auto cache = cacheOf(test::computed("KLINE", bars));
    double max = 0.0, min = 0.0;
    EXPECT_TRUE(CDrawStyle::calcMaxMin(max, min, 0, 2, cache, pane, false, false, 1.0f));
    EXPECT_EQ(max, 15.0);
    EXPECT_EQ(min, 8.0);
}

TEST_F(EngineRecords, OfVolumesTakeNoPriceIntoTheirRange)
{
    auto cache = cacheOf(test::computed("VOL", test::barsOf({ 10, 12, 11 })));
    double max = 0.0, min = 0.0;
    EXPECT_TRUE(CDrawStyle::calcMaxMin(max, min, 0, 2, cache, pane, false, false, 1.0f));
    EXPECT_EQ(max, 100.0);
    EXPECT_EQ(min, 100.0);
}

TEST_F(EngineRecords, OfSignalsWidenTheRangeOnlyByTheMarksInView)
{
    // MA1 passes MA2 upward on bar 2; 买 stands 1.4 heights of 5 below the low of 1.
    auto bars = test::barsOf({ 4, 2, 6, 7 });
    bars.high = { 5, 5, 7, 8 };
    bars.low = { 3, 1, 1, 6 };
    auto cache = cacheOf(test::computed("CROSSSIGNAL", bars, { 1, 2 }));
    double max = 0.0, min = 0.0;
    EXPECT_FALSE(CDrawStyle::calcMaxMin(max, min, 0, 1, cache, pane, false, false, 1.0f));
    EXPECT_TRUE(CDrawStyle::calcMaxMin(max, min, 0, 3, cache, pane, false, false, 1.0f));
    EXPECT_EQ(min, -6.0);
    EXPECT_EQ(max, -1.0);
}

TEST_F(EngineRecords, OfSignalsWriteTheirText)
{
    auto bars = test::barsOf({ 4, 2, 6, 7 });
    bars.high = { 5, 5, 7, 8 };
    bars.low = { 3, 1, 1, 6 };
    auto cache = cacheOf(test::computed("CROSSSIGNAL", bars, { 1, 2 }));
    const QStringList calls = traceOf([&](QPainter& painter) {
        CDrawStyle().drawText(&painter, pane, cache, { 10.0, -10.0 }, 0, 0, 3, 0, 4);
        CDrawStyle().drawText(&painter, pane, cache, { 10.0, -10.0 }, 1, 0, 3, 0, 4);
    });
    ASSERT_EQ(calls.size(), 1);
    EXPECT_TRUE(calls[0].contains(QStringLiteral("买"))) << calls[0].toStdString();
}

TEST_F(EngineRecords, OfRisingDaysWriteTheirNumber)
{
    auto cache = cacheOf(test::computed("RISINGDAYS", test::barsOf({ 1, 2, 3, 4, 5, 4 })));
    const QStringList calls = traceOf([&](QPainter& painter) {
        CDrawStyle().drawNumber(&painter, pane, { 10.0, 0.0 }, cache, 0, 5, 0, 0, true, 6);
    });
    ASSERT_EQ(calls.size(), 2);
    EXPECT_TRUE(calls[0].contains(QStringLiteral("\"3\""))) << calls[0].toStdString();
    EXPECT_TRUE(calls[1].contains(QStringLiteral("\"4\""))) << calls[1].toStdString();
}

TEST_F(EngineRecords, OfANoteWriteItsText)
{
    auto cache = cacheOf(test::computed("NOTE", test::barsOf({ 1, 2 })));
    const QStringList calls = traceOf([&](QPainter& painter) {
        CDrawStyle().drawTextEx(&painter, pane, cache, { 10.0, 0.0 }, 0, 0, 1);
    });
    // The font of the tests has some of the glyphs, so the text arrives in runs.
    QString text;
    for (const QString& call : calls)
        text += call.section(QLatin1Char('"'), 1, 1);
    EXPECT_EQ(text, QStringLiteral("信号仅供参考"));
}

TEST_F(EngineRecords, OfCandlesGiveTheLegendItsFigures)
{
    auto bars = test::barsOf({ 10, 12 });
    bars.open = { 10, 11 };
    bars.high = { 11, 13 };
    bars.low = { 9, 10 };
    bars.volume = { 100, 25000 };
    auto stock = test::instrument("SH", "600000", "浦发银行", 0.01);
    QList<std::shared_ptr<ttservice::CInstrumentDetail>> added;
    const auto pieces =
        CDrawStyle::getTitleTextData({ QStringLiteral("SH600000"), QStringLiteral("KLINE") },
                                     cacheOf(test::computed("KLINE", bars)), 1, stock, added, true, nullptr);
    EXPECT_EQ(
        test::textsOf(pieces).join(QLatin1Char('|')),
        QStringLiteral(
            "开: 11.00 |高: 13.00 |低: 10.00 |收: 12.00 |成交量: 2.5万 |涨(2.00)|20.00% |振幅:30.00% "));
}

} // namespace
