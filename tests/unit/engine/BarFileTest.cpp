// SPDX-License-Identifier: MIT
#include "engine/files/BarFile.h"

#include "engine/files/CsvReader.h"
#include "tests/support/TimeZone.h"
#include "host/utils/TextCodec.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>

namespace {

constexpr const char* kHeader = "date,open,high,low,close,volume\n";

/// Reads a text as bars; the failure line names the file "bars.csv".
class BarText
{
public:
    explicit BarText(const std::string& text)
    {
        QFile file(m_folder.filePath(QStringLiteral("bars.csv")));
        file.open(QIODevice::WriteOnly);
        file.write(text.data(), static_cast<qint64>(text.size()));
        file.close();
        bars = engine::readBars(file.fileName().toStdString(), failure);
        const std::string folder = m_folder.path().toStdString() + "/";
        if (failure.compare(0, folder.size(), folder) == 0)
            failure.erase(0, folder.size());
    }

    std::optional<engine::BarSeries> bars;
    std::string failure;

private:
    QTemporaryDir m_folder;
};

std::string failureOf(const std::string& rows)
{
    const BarText text(kHeader + rows);
    EXPECT_FALSE(text.bars.has_value());
    return text.failure;
}

TEST(BarFile, ReadsEveryBundledFileToItsLastRow)
{
    const std::pair<const char*, std::size_t> files[] = { { "SH000001", 8709 },
                                                          { "SH600030", 5639 },
                                                          { "SH510050", 5226 },
                                                          { "SFCU00", 5263 },
                                                          { "DFM00", 5266 } };
    for (const auto& [name, rows] : files) {
        std::string failure;
        const auto bars = engine::readBars(std::string(SAMPLES_DIR "/bars/") + name + ".csv", failure);
        ASSERT_TRUE(bars) << failure;
        EXPECT_EQ(bars->size(), rows) << name;
        EXPECT_EQ(bars->close.size(), rows);
        EXPECT_EQ(bars->openInterest.empty(), name[0] == 'S' && name[1] == 'H');
    }
}

TEST(BarFile, DatesAreLocalMidnights)
{
    const BarText text(std::string(kHeader) + "1970-01-02,1,2,1,2,5\n1986-05-05,1,2,1,2,5\n");
    ASSERT_TRUE(text.bars) << text.failure;
    EXPECT_EQ(text.bars->timeMs[0], 16LL * 3'600'000) << "Shanghai is eight hours ahead";
    // 5968 days later by the calendar; summer time had begun the day before.
    EXPECT_EQ(text.bars->timeMs[1], 5968LL * 86'400'000 - 9LL * 3'600'000);
}

TEST(BarFile, TakesTheTimeFromItsOwnColumnOrFromTheDate)
{
    const BarText own(
        "date,time,open,high,low,close,volume\n2024/03/05,09:30,1,1,1,1,0\n2024/03/05,09:31:30,1,1,1,1,0\n");
    ASSERT_TRUE(own.bars) << own.failure;
    EXPECT_EQ(own.bars->timeMs[1] - own.bars->timeMs[0], 90'000);

    const BarText joined(std::string(kHeader) + "2024-03-05 09:30,1,1,1,1,0\n");
    ASSERT_TRUE(joined.bars) << joined.failure;
    EXPECT_EQ(joined.bars->timeMs[0], own.bars->timeMs[0]);
}

TEST(BarFile, FindsColumnsByNameInAnyOrderAndCase)
{
    const BarText text("Volume,CLOSE,low,high,open,Date,amount,open_interest\n9,4,1,5,2,2024-03-05,77,8\n");
    ASSERT_TRUE(text.bars) << text.failure;
    EXPECT_EQ(text.bars->open.at(0), 2);
    EXPECT_EQ(text.bars->close.at(0), 4);
    EXPECT_EQ(text.bars->amount.at(0), 77);
    EXPECT_EQ(text.bars->openInterest.at(0), 8);
}

TEST(BarFile, AcceptsByteOrderMarkAndWindowsLineEndsAndBlankLines)
{
    const BarText text("\xEF\xBB\xBF"
                       "date,open,high,low,close,volume\r\n2024-03-05, 1 ,2,1,2,5\r\n\r\n");
    ASSERT_TRUE(text.bars) << text.failure;
    EXPECT_EQ(text.bars->size(), 1u);
    EXPECT_EQ(text.bars->volume.at(0), 5);
}

TEST(BarFile, KeepsOpensAndClosesOutsideHighAndLowAsPublished)
{
    const BarText text(std::string(kHeader) + "2024-03-05,65500,65070,64830,64970,5\n");
    ASSERT_TRUE(text.bars) << text.failure;
    EXPECT_EQ(text.bars->open.at(0), 65500);
}

TEST(BarFile, NamesAMissingFile)
{
    std::string failure;
    EXPECT_FALSE(engine::readBars("/nowhere/bars.csv", failure));
    EXPECT_EQ(failure, "/nowhere/bars.csv:1: the file cannot be read: No such file or directory");
}

TEST(BarFile, RefusesAFolder)
{
    std::string failure;
    EXPECT_FALSE(engine::readBars(SAMPLES_DIR, failure));
    EXPECT_EQ(failure, std::string(SAMPLES_DIR) + ":1: the file cannot be read: Is a directory");
}

TEST(BarFile, RefusesWhatIsNoOrdinaryFileWithoutAWait)
{
    ON_UNIX_ALONE("there are no pipes in folders");
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    ASSERT_TRUE(test::makePipe(pipe));
    for (const std::string& path : { pipe.toStdString(), std::string("/dev/zero") }) {
        std::string failure;
        EXPECT_FALSE(engine::readBars(path, failure));
        EXPECT_EQ(failure, path + ":1: the file cannot be read: not an ordinary file");
    }
}

TEST(BarFile, RefusesAFileThatIsTooLargeBeforeItReadsIt)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("large.csv")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    if (!file.resize(engine::CsvLimits::kLargestFile + 1))
        GTEST_SKIP() << "this file system has no room for a file with nothing in it";
    std::string failure;
    EXPECT_FALSE(engine::readBars(file.fileName().toStdString(), failure));
    EXPECT_EQ(failure, file.fileName().toStdString() + ":1: the file is larger than 4 GiB");
}

TEST(BarFile, RefusesALineThatIsTooLongAndReadsOneThatIsNot)
{
    const std::string row = "2024-03-05,1,2,1,2,5";
    const auto padded = [&](std::size_t length) {
        return row + "," + std::string(length - row.size() - 1, 'x');
    };
    const std::size_t longest = engine::CsvLimits::kLongestLine;
    EXPECT_TRUE(BarText(kHeader + padded(longest) + "\n").bars);
    EXPECT_TRUE(BarText(kHeader + padded(longest)).bars);
    EXPECT_EQ(failureOf(padded(longest + 1) + "\n"), "bars.csv:2: the line is longer than 65536 bytes");
    EXPECT_EQ(failureOf(padded(longest + 1)), "bars.csv:2: the line is longer than 65536 bytes");
    EXPECT_EQ(failureOf(row + "\n" + std::string(1 << 20, ',')),
              "bars.csv:3: the line is longer than 65536 bytes");
    EXPECT_EQ(BarText(std::string(1 << 20, ',')).failure, "bars.csv:1: the line is longer than 65536 bytes");
}

TEST(BarFile, RefusesALineOfTooManyFields)
{
    EXPECT_EQ(BarText("date,open,high,low,close,volume" + std::string(994, ',') + "\n2024-03-05,1,2,1,2,5\n")
                  .failure,
              "bars.csv:2: the row has 6 fields instead of 1000");
    EXPECT_EQ(BarText("date,open,high,low,close,volume" + std::string(995, ',') + "\n").failure,
              "bars.csv:1: the line has more than 1000 fields");
    EXPECT_EQ(failureOf("2024-03-05,1,2,1,2,5" + std::string(995, ',')),
              "bars.csv:2: the line has more than 1000 fields");
}

/// Rows that lie across the borders of what is read at once, with every kind of line end there.
TEST(BarFile, ReadsAFileOfAnyLengthToItsLastRow)
{
    for (const char* end : { "\n", "\r\n", "\n\n", " \n" }) {
        std::string rows;
        for (int minute = 0; minute < 60'000; ++minute) {
            char row[64];
            std::snprintf(row, sizeof row, "20%02d-%02d-%02d %02d:%02d,1,2,1,2,%d", minute / 17'280,
                          minute / 1440 % 12 + 1, 1, minute / 60 % 24, minute % 60, minute);
            rows += row + std::string(end);
        }
        const BarText text(kHeader + rows.substr(0, rows.size() - 1)); // the last line has no end
        ASSERT_TRUE(text.bars) << text.failure;
        ASSERT_EQ(text.bars->size(), 60'000u);
        for (std::size_t bar = 0; bar < 60'000; ++bar)
            ASSERT_EQ(text.bars->volume[bar], static_cast<double>(bar));
    }
}

TEST(BarFile, NamesAnEmptyFile)
{
    EXPECT_EQ(BarText("").failure, "bars.csv:1: the file is empty");
    EXPECT_EQ(BarText("\r\n\r\n").failure, "bars.csv:1: the file is empty");
}

TEST(BarFile, NamesAFileWithoutBars)
{
    EXPECT_EQ(failureOf(""), "bars.csv:1: the file has a header and no bars");
}

TEST(BarFile, NamesAMissingHeader)
{
    EXPECT_EQ(BarText("2024-03-05,1,2,1,2,5\n").failure,
              "bars.csv:1: the first line is no header: it names no column \"date\"");
}

TEST(BarFile, NamesAMissingColumn)
{
    EXPECT_EQ(BarText("date,open,high,low,volume\n2024-03-05,1,2,1,5\n").failure,
              "bars.csv:1: the header has no column \"close\"");
}

TEST(BarFile, NamesARowWithTooFewFields)
{
    EXPECT_EQ(failureOf("2024-03-05,1,2,1,2,5\n2024-03-06,1,2\n"),
              "bars.csv:3: the row has 3 fields instead of 6");
}

TEST(BarFile, CountsBlankLinesInTheLineNumber)
{
    EXPECT_EQ(failureOf("\n\n2024-03-06,1,2\n"), "bars.csv:4: the row has 3 fields instead of 6");
}

TEST(BarFile, NamesANumberThatDoesNotParse)
{
    EXPECT_EQ(failureOf("2024-03-05,1,2,1,2x,5\n"), "bars.csv:2: close \"2x\" is not a number");
    EXPECT_EQ(failureOf("2024-03-05,1,2,,2,5\n"), "bars.csv:2: low \"\" is not a number");
    EXPECT_EQ(failureOf("2024-03-05,nan,2,1,2,5\n"), "bars.csv:2: open \"nan\" is not a number");
    EXPECT_EQ(failureOf("2024-03-05,1,2,1,2,1e999\n"), "bars.csv:2: volume \"1e999\" is not a number");
}

TEST(BarFile, NamesAHighBelowTheLow)
{
    EXPECT_EQ(failureOf("2024-03-05,1,0.5,1,1,5\n"), "bars.csv:2: the high 0.5 is below the low 1");
}

TEST(BarFile, NamesDatesOutOfOrderAndEqualOnes)
{
    EXPECT_EQ(failureOf("2024-03-05,1,2,1,2,5\n2024-03-04,1,2,1,2,5\n"),
              "bars.csv:3: the date is not after the one before");
    EXPECT_EQ(failureOf("2024-03-05,1,2,1,2,5\n2024-03-05,1,2,1,2,5\n"),
              "bars.csv:3: the date is not after the one before");
}

TEST(BarFile, TakesATimeThatTheClockLeavesOutAsIfItHadNotBeenPutForward)
{
    const test::TimeZone zone("America/New_York");
    // Two o'clock is seven o'clock UTC before, and six after; the hour from two to three is left out.
    const BarText text(std::string(kHeader)
                       + "2024-03-10 01:59,1,2,1,2,5\n2024-03-10 02:00,1,2,1,2,5\n"
                         "2024-03-10 02:30,1,2,1,2,5\n2024-03-10 03:00,1,2,1,2,5\n");
    ASSERT_TRUE(text.bars) << text.failure;
    const std::int64_t start = text.bars->timeMs[0];
    EXPECT_EQ(start, 1'710'053'940'000); // 06:59 UTC
    EXPECT_EQ(text.bars->timeMs[1] - start, 60'000);
    EXPECT_EQ(text.bars->timeMs[2] - start, 31 * 60'000);
    EXPECT_EQ(text.bars->timeMs[3] - start, 60'000) << "three o'clock is the same moment as two";
}

TEST(BarFile, TakesATimeThatTheClockShowsTwiceAsTheFirst)
{
    const test::TimeZone zone("Europe/London");
    const BarText text(std::string(kHeader) + "2024-10-27 01:30,1,2,1,2,5\n2024-10-27 02:00,1,2,1,2,5\n");
    ASSERT_TRUE(text.bars) << text.failure;
    EXPECT_EQ(text.bars->timeMs[0], 1'729'989'000'000); // 00:30 UTC
    EXPECT_EQ(text.bars->timeMs[1] - text.bars->timeMs[0], 90 * 60'000);
}

TEST(BarFile, NamesDatesAndTimesThatDoNotExist)
{
    for (const char* date : { "2023-02-29", "2024-13-01", "2024-00-01", "2024-01-32", "20241305", "2024-1/5",
                              "-024-01-05", "2024-01-05x", "" })
        EXPECT_EQ(failureOf(std::string(date) + ",1,2,1,2,5\n"),
                  "bars.csv:2: \"" + std::string(date) + "\" is not a date");
    for (const char* time : { "24:00", "12:60", "12", "12:3", "12:30:61", "12:30x" })
        EXPECT_EQ(failureOf("2024-01-05 " + std::string(time) + ",1,2,1,2,5\n"),
                  "bars.csv:2: \"" + std::string(time) + "\" is not a time");
}

TEST(BarFile, ReadsDatesInTheFormsOfDataServices)
{
    const auto first = [](const char* column, const char* date) {
        const BarText text(std::string(column) + ",open,high,low,close,volume\n" + date + ",1,2,1,2,5\n");
        EXPECT_TRUE(text.bars) << date << ": " << text.failure;
        return text.bars ? text.bars->timeMs[0] : 0;
    };
    const std::int64_t day = first("date", "2024-01-02"), opening = first("date", "2024-01-02 09:30");
    EXPECT_EQ(first("date", "20240102"), day);
    EXPECT_EQ(first("date", "20240102 09:30"), opening);
    EXPECT_EQ(first("date", "2024-01-02T09:30"), opening);
    EXPECT_EQ(first("datetime", "2024-01-02T09:30:00.000"), opening);
    EXPECT_EQ(first("date", std::to_string(opening / 1000).c_str()), opening);
    EXPECT_EQ(first("date", std::to_string(opening).c_str()), opening);
    EXPECT_EQ(failureOf("2024-01-02T,1,2,1,2,5\n2024-01-02T25:00,1,2,1,2,5\n"),
              "bars.csv:3: \"25:00\" is not a time");
}

TEST(BarFile, FindsChineseColumnsInUtf8AndGbk)
{
    const QString header = QStringLiteral("日期,时间,开盘价,最高价,最低价,收盘价,成交量,成交额");
    for (const char* codec : { "UTF-8", "GBK" }) {
        const BarText text(utils::encoded(header, codec).value().toStdString()
                           + "\r\n20240102,09:31,2,4,1,3,50,99\r\n");
        ASSERT_TRUE(text.bars) << codec << text.failure;
        EXPECT_EQ(text.bars->open[0], 2);
        EXPECT_EQ(text.bars->high[0], 4);
        EXPECT_EQ(text.bars->low[0], 1);
        EXPECT_EQ(text.bars->close[0], 3);
        EXPECT_EQ(text.bars->volume[0], 50);
        EXPECT_EQ(text.bars->amount[0], 99);
    }
}

TEST(BarFile, TakesAMissingVolumeForNone)
{
    const BarText without("date,open,high,low,close\n2024-03-05,1,2,1,2\n");
    ASSERT_TRUE(without.bars) << without.failure;
    EXPECT_EQ(without.bars->volume, std::vector<double> { 0.0 });
    const BarText gaps(std::string(kHeader) + "2024-03-05,1,2,1,2,\n2024-03-06,1,2,1,2,7\n");
    ASSERT_TRUE(gaps.bars) << gaps.failure;
    EXPECT_EQ(gaps.bars->volume, (std::vector<double> { 0.0, 7.0 }));
}

TEST(BarFile, TellsHowFarItIsAndEndsWithoutAFailureWhereItIsToldTo)
{
    const std::string path = SAMPLES_DIR "/bars/SH000001.csv";
    std::vector<double> shares;
    std::string failure;
    ASSERT_TRUE(engine::readBars(path, failure, [&](double share) {
        shares.push_back(share);
        return true;
    }));
    ASSERT_EQ(shares.size(), 3u); // 8,709 rows
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_GT(shares.front(), 0.0);
    EXPECT_LE(shares.back(), 1.0);
    int asked = 0;
    EXPECT_FALSE(engine::readBars(path, failure, [&](double) { return ++asked < 2; }));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(failure, "");
}

TEST(BarFile, ReadsTheLeapDayOfACentury)
{
    const BarText text(std::string(kHeader) + "2000-02-29,1,2,1,2,5\n2000-03-01,1,2,1,2,5\n");
    ASSERT_TRUE(text.bars) << text.failure;
    EXPECT_EQ(text.bars->timeMs[1] - text.bars->timeMs[0], 86'400'000);
}

} // namespace
