// SPDX-License-Identifier: MIT
#include "engine/files/TickFile.h"
#include "engine/TickFormulas.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

namespace {

using Series = std::vector<double>;

const std::string kPlain = "time_utc,price,volume,bid1,ask1\n";
const std::string kDeep =
    "time_utc,price,volume,bid1,ask1,bid2,ask2,bid3,ask3,bid4,ask4,bid5,ask5,bidvol1,askvol1,"
    "bidvol2,askvol2,bidvol3,askvol3,bidvol4,askvol4,bidvol5,askvol5\n";

/// Reads a text as trades; the failure line names the file "ticks.csv".
struct TickText
{
    explicit TickText(const std::string& text)
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("ticks.csv")));
        file.open(QIODevice::WriteOnly);
        file.write(text.data(), static_cast<qint64>(text.size()));
        file.close();
        ticks = engine::readTicks(file.fileName().toStdString(), failure);
        const std::string prefix = folder.path().toStdString() + "/";
        if (failure.compare(0, prefix.size(), prefix) == 0)
            failure.erase(0, prefix.size());
    }

    std::optional<engine::TickSeries> ticks;
    std::string failure;
};

std::string failureOf(const std::string& text)
{
    const TickText read(text);
    EXPECT_FALSE(read.ticks.has_value());
    return read.failure;
}

engine::TickSeries sampleTicks(const char* name)
{
    std::string failure;
    const auto ticks = engine::readTicks(std::string(SAMPLES_DIR "/ticks/") + name, failure);
    EXPECT_TRUE(ticks) << failure;
    return ticks.value_or(engine::TickSeries());
}

/// Two trades; the numbers of the book say side, level and trade.
engine::TickSeries deepTicks()
{
    return TickText(kDeep
                    + "2024-01-02T01:30:00.5,10.01,12,1.0,2.0,1.1,2.1,1.2,2.2,1.3,2.3,1.4,2.4,"
                      "30,40,31,41,32,42,33,43,34,44\n"
                      "2024-01-02T01:30:00.5,10.02,13,,2.05,1.1,2.1,1.2,2.2,1.3,2.3,1.4,2.4,"
                      ",40,31,41,32,42,33,43,34,44\n")
        .ticks.value();
}

TEST(TickFile, ReadsTheBundledDay)
{
    const auto ticks = sampleTicks("VALE3-2025-04-07.csv");
    EXPECT_EQ(ticks.size(), 7478u);
    EXPECT_FALSE(ticks.hasDepth());
    // 2025-04-07 is day 20185; 13:08:42.034.
    EXPECT_EQ(ticks.timeMs.at(0), 20185LL * 86'400'000 + ((13 * 60 + 8) * 60 + 42) * 1000LL + 34);
    EXPECT_EQ(ticks.bid.price[0].at(1), 51.71);
    EXPECT_EQ(ticks.ask.price[0].at(1), 51.74);
}

TEST(TickFile, ReadsTheSyntheticDayWithItsFiveLevels)
{
    const auto ticks = sampleTicks("SYNTHETIC-five-levels.csv");
    ASSERT_EQ(ticks.size(), 6000u);
    ASSERT_TRUE(ticks.hasDepth());
    for (std::size_t trade = 0; trade < ticks.size(); ++trade) {
        ASSERT_LT(ticks.bid.price[0][trade], ticks.ask.price[0][trade]) << trade;
        for (std::size_t level = 0; level < engine::kBookLevels; ++level) {
            ASSERT_GE(ticks.bid.volume[level][trade], 1.0) << trade;
            ASSERT_GE(ticks.ask.volume[level][trade], 1.0) << trade;
            if (level > 0) {
                ASSERT_LT(ticks.bid.price[level][trade], ticks.bid.price[level - 1][trade]) << trade;
                ASSERT_GT(ticks.ask.price[level][trade], ticks.ask.price[level - 1][trade]) << trade;
            }
        }
    }
}

TEST(TickFile, KeepsFiveLevelsApart)
{
    const auto ticks = deepTicks();
    EXPECT_EQ(ticks.bid.price[4], (Series { 1.4, 1.4 }));
    EXPECT_EQ(ticks.ask.price[2], (Series { 2.2, 2.2 }));
    EXPECT_EQ(ticks.bid.volume[3], (Series { 33, 33 }));
    EXPECT_EQ(ticks.ask.volume[0], (Series { 40, 40 }));
}

TEST(TickFile, AnEmptyQuoteIsMissingAndAnEmptyQueueIsNothing)
{
    const auto ticks = deepTicks();
    EXPECT_EQ(ticks.bid.price[0][1], DBL_MAX);
    EXPECT_EQ(ticks.bid.volume[0][1], 0.0);
}

TEST(TickFile, AcceptsTheUsualFormsOfATime)
{
    const auto ticks = TickText(kPlain
                                + "1970-01-01T00:00:01,1,1,1,1\n1970-01-01 00:00:01.25Z,1,1,1,1\n"
                                  "1970-01-01T00:00:02.123456789,1,1,1,1\n")
                           .ticks.value();
    EXPECT_EQ(ticks.timeMs, (std::vector<std::int64_t> { 1000, 1250, 2123 }));
}

TEST(TickFile, TradesMayShareATimeButNotGoBack)
{
    EXPECT_TRUE(TickText(kPlain + "2025-04-07T13:00:00,1,1,1,1\n2025-04-07T13:00:00,1,1,1,1\n").ticks);
    EXPECT_EQ(failureOf(kPlain + "2025-04-07T13:00:00,1,1,1,1\n2025-04-07T12:59:59.999,1,1,1,1\n"),
              "ticks.csv:3: the time is before the one before");
}

TEST(TickFile, NamesWhatIsWrongInALine)
{
    EXPECT_EQ(failureOf(kPlain + "2025-04-07,1,1,1,1\n"), "ticks.csv:2: \"2025-04-07\" is not a time");
    EXPECT_EQ(failureOf(kPlain + "2025-04-07T13:00:00.,1,1,1,1\n"),
              "ticks.csv:2: \"2025-04-07T13:00:00.\" is not a time");
    EXPECT_EQ(failureOf(kPlain + "2025-04-07T13:00:00,,1,1,1\n"), "ticks.csv:2: price \"\" is not a number");
    EXPECT_EQ(failureOf(kPlain + "2025-04-07T13:00:00,1,1,x,1\n"), "ticks.csv:2: bid1 \"x\" is not a number");
    EXPECT_EQ(failureOf(kPlain + "2025-04-07T13:00:00,1,1\n"),
              "ticks.csv:2: the row has 3 fields instead of 5");
    EXPECT_EQ(failureOf(kPlain), "ticks.csv:1: the file has a header and no trades");
    EXPECT_EQ(failureOf(""), "ticks.csv:1: the file is empty");
    EXPECT_EQ(failureOf("time_utc,price,volume,bid1\n"), "ticks.csv:1: the header has no column \"ask1\"");
}

TEST(TickFile, AnIncompleteBookNamesTheColumnThatIsMissing)
{
    EXPECT_EQ(failureOf("time_utc,price,volume,bid1,ask1,askvol3\n2025-04-07T13:00:00,1,1,1,1,1\n"),
              "ticks.csv:1: the header has no column \"bidvol1\"");
}

TEST(ComputeTicks, PutsQuotesWhereTheCrossesLookForThem)
{
    const auto prices = engine::computeTicks(deepTicks()).prices;
    EXPECT_EQ(prices.meta.drawType[0], 3);
    EXPECT_EQ(prices.meta.outputColumns[0], std::vector<int> { 0 });
    EXPECT_EQ(prices.result.columnSeries[0], 0);
    EXPECT_EQ(prices.result.numberSeries.at(0), (Series { 10.01, 10.02 }));
    EXPECT_EQ(prices.result.numberSeries.at(2), (Series { 1.0, DBL_MAX })) << "lower reference: best bid";
    EXPECT_EQ(prices.result.numberSeries.at(3), (Series { 2.0, 2.05 })) << "upper reference: best ask";
    EXPECT_EQ(prices.meta.lineWidth, (std::vector<int> { 1, 0, 0, 0 }));
    EXPECT_EQ(prices.result.barTimes.size(), 2u);
}

TEST(ComputeTicks, GivesVolumeTurnoverAndPriceToTheSticks)
{
    const auto volumes = engine::computeTicks(deepTicks()).volumes;
    EXPECT_EQ(volumes.meta.drawType, std::vector<int> { 4 });
    ASSERT_EQ(volumes.meta.outputColumns[0].size(), 3u);
    const auto column = [&](std::size_t k) {
        return volumes.result.numberSeries.at(static_cast<std::size_t>(
            volumes.result.columnSeries.at(static_cast<std::size_t>(volumes.meta.outputColumns[0][k]))));
    };
    EXPECT_EQ(column(0), (Series { 12, 13 }));
    EXPECT_DOUBLE_EQ(column(1)[0], 120.12);
    EXPECT_EQ(column(2), (Series { 10.01, 10.02 }));
    EXPECT_EQ(volumes.result.columnNeedsAxis, (std::vector<int> { 1, 0, 0 }));
}

TEST(ComputeTicks, PutsTheBookWhereTheSticksLookForIt)
{
    const auto series = engine::computeTicks(deepTicks()).volumes.result.numberSeries;
    ASSERT_EQ(series.size(), 23u);
    const std::size_t askPrice[] = { 1, 7, 11, 15, 19 }, askVolume[] = { 5, 9, 13, 17, 21 };
    const std::size_t bidPrice[] = { 0, 8, 12, 16, 20 }, bidVolume[] = { 6, 10, 14, 18, 22 };
    for (std::size_t level = 0; level < 5; ++level) {
        EXPECT_DOUBLE_EQ(series[askPrice[level]][0], 2.0 + 0.1 * static_cast<double>(level));
        EXPECT_DOUBLE_EQ(series[bidPrice[level]][0], 1.0 + 0.1 * static_cast<double>(level));
        EXPECT_DOUBLE_EQ(series[askVolume[level]][0], 40.0 + static_cast<double>(level));
        EXPECT_DOUBLE_EQ(series[bidVolume[level]][0], 30.0 + static_cast<double>(level));
    }
}

TEST(ComputeTicks, WithoutDepthHasOnlyTheBestQuotes)
{
    const auto series = engine::computeTicks(sampleTicks("VALE3-2025-04-07.csv")).volumes.result.numberSeries;
    ASSERT_EQ(series.size(), 5u);
    EXPECT_EQ(series[0][1], 51.71);
    EXPECT_EQ(series[1][1], 51.74);
}

TEST(ComputeTicks, ATradeWithoutAPriceCarriesNothing)
{
    auto ticks = deepTicks();
    ticks.price[1] = NAN;
    EXPECT_EQ(engine::computeTicks(ticks).prices.result.barValid, (std::vector<int> { 1, 0 }));
    EXPECT_EQ(engine::computeTicks(ticks).volumes.result.barValid, (std::vector<int> { 1, 0 }));
}

TEST(ComputeTicks, ShortVectorsReadAsMissing)
{
    auto ticks = deepTicks();
    ticks.price.resize(1);
    ticks.volume.clear();
    ticks.ask.price[4].clear();
    ticks.ask.volume[4].clear();
    const auto records = engine::computeTicks(ticks);
    EXPECT_EQ(records.prices.result.barValid, (std::vector<int> { 1, 0 }));
    EXPECT_EQ(records.volumes.result.numberSeries[2], (Series { DBL_MAX, DBL_MAX }));
    EXPECT_EQ(records.volumes.result.numberSeries[19], (Series { DBL_MAX, DBL_MAX }));
    EXPECT_EQ(records.volumes.result.numberSeries[21], (Series { 0, 0 }));
}

TEST(ComputeTicks, OfNoTradesIsEmptyButWhole)
{
    const auto records = engine::computeTicks(engine::TickSeries());
    EXPECT_EQ(records.prices.meta.outputCount, 4);
    EXPECT_TRUE(records.volumes.result.barTimes.empty());
}

} // namespace
