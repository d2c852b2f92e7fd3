// SPDX-License-Identifier: MIT
/// @file Files that grow while they are read.

#include "engine/files/BarFile.h"
#include "engine/files/TickFile.h"
#include "engine/series/SeriesHead.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class Followers : public testing::Test
{
protected:
    void append(const char* bytes)
    {
        QFile file(m_path);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(bytes);
    }

    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(QStringLiteral("a.csv"));
    const std::string m_name = m_path.toStdString();
};

} // namespace

TEST_F(Followers, TakeWholeLinesAloneHoweverTheyAreWritten)
{
    append("date,open,high,low,close,volume\n2024-01-02,1,2,1,2,5\n2024-01");
    engine::BarFollower bars(m_name);
    EXPECT_EQ(bars.read(), 1u);
    EXPECT_EQ(bars.read(), 0u);
    append("-03,2,3,2,");
    EXPECT_EQ(bars.read(), 0u);
    append("3,6\r\n\n2024-01-04,3,4,3,4,7\n");
    EXPECT_EQ(bars.read(), 2u);
    EXPECT_EQ(bars.bars().close, (std::vector<double> { 2, 3, 4 }));
    EXPECT_EQ(bars.failure(), "");
}

TEST_F(Followers, LetARowOfTheSameTimeReplaceTheLastBarInEveryColumn)
{
    append("date,open,high,low,close,volume,amount,open_interest\n2024-01-02,1,2,1,2,5,50,7\n"
           "2024-01-03,1,2,1,2,5,50,7\n2024-01-03,2,9,1,8,6,60,8\n");
    engine::BarFollower bars(m_name);
    EXPECT_EQ(bars.read(), 3u);
    EXPECT_EQ(bars.bars().size(), 2u);
    EXPECT_EQ(bars.bars().open, (std::vector<double> { 1, 2 }));
    EXPECT_EQ(bars.bars().high, (std::vector<double> { 2, 9 }));
    EXPECT_EQ(bars.bars().low, (std::vector<double> { 1, 1 }));
    EXPECT_EQ(bars.bars().close, (std::vector<double> { 2, 8 }));
    EXPECT_EQ(bars.bars().volume, (std::vector<double> { 5, 6 }));
    EXPECT_EQ(bars.bars().amount, (std::vector<double> { 50, 60 }));
    EXPECT_EQ(bars.bars().openInterest, (std::vector<double> { 7, 8 }));
}

TEST_F(Followers, StopAtAWrongRowWithTheSoundOnesBeforeIt)
{
    append("date,open,high,low,close,volume\n2024-01-02,1,2,1,2,5\n2024-01-02,1,2,1,x,5\n2024-01-04,1,2,1,2,"
           "5\n");
    engine::BarFollower bars(m_name);
    EXPECT_EQ(bars.read(), 1u);
    EXPECT_EQ(bars.bars().close, std::vector<double> { 2 });
    EXPECT_EQ(bars.bars().timeMs.size(), 1u);
    EXPECT_NE(bars.failure().find("a.csv:3: close \"x\""), std::string::npos) << bars.failure();
    EXPECT_EQ(bars.read(), 0u);
}

TEST_F(Followers, RefuseAHeaderOfAnotherKind)
{
    append("time_utc,price,volume,bid1,ask1\n");
    EXPECT_NE(engine::BarFollower(m_name).failure(), "");
    EXPECT_EQ(engine::TickFollower(m_name).failure(), "");
}

TEST_F(Followers, TakeTradesWithTheirBook)
{
    append("time_utc,price,volume,bid1,ask1\n2024-01-02T01:30:00,10,1,9,11\n");
    engine::TickFollower ticks(m_name);
    EXPECT_EQ(ticks.read(), 1u);
    append("2024-01-02T01:30:00,11,2,,12\n2024-01-02T01:29:00,11,2,,12\n");
    EXPECT_EQ(ticks.read(), 1u);
    EXPECT_EQ(ticks.ticks().price, (std::vector<double> { 10, 11 }));
    EXPECT_EQ(ticks.ticks().ask.price[0], (std::vector<double> { 11, 12 }));
    EXPECT_EQ(ticks.ticks().bid.price[0].size(), 2u);
    EXPECT_NE(ticks.failure(), ""); // the third is before the one before
}

TEST_F(Followers, AreTheSameAsTheFilesReadWhole)
{
    append("date,open,high,low,close,volume\n2024-01-02,1,2,1,2,5\n2024-01-03,2,3,2,3,6\n");
    engine::BarFollower bars(m_name);
    bars.read();
    std::string failure;
    const auto whole = engine::readBars(m_name, failure);
    ASSERT_TRUE(whole) << failure;
    EXPECT_EQ(bars.bars().timeMs, whole->timeMs);
    EXPECT_EQ(bars.bars().volume, whole->volume);
    EXPECT_EQ(engine::headOf(*whole, 1).close, std::vector<double> { 2 });
    EXPECT_EQ(engine::headOf(*whole, 9).close.size(), 2u);
}
