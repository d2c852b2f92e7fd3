// SPDX-License-Identifier: MIT
#include "stocklist/CParserStockExeclTable.h"

#include "host/TC/CStockManager.h"
#include "host/utils/CSingletonT.h"
#include "tests/support/ChildRun.h"
#include "tests/support/System.h"
#include "tests/support/Workbooks.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

using TC::CParserStockExeclTable;
using TC::ParserStockDetail;

namespace {

constexpr long kMostMiB = 512;
constexpr int kDamagedCopies = test::measuresMemory() ? 200 : 50; // each starts a program

/// Lists that no reader may stumble over; each is read in a child process with a time limit.
class BadStockList : public testing::Test
{
protected:
    void SetUp() override
    {
        // Loaded once here rather than in every child.
        utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(QStringLiteral("600000"));
    }

    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    /// Records of the list, at most 200; -1 after a crash, a hang, or too much memory.
    static int read(const QString& file, bool isText)
    {
        const test::ChildEnd end = test::runInChild(
            [&] {
                QVector<ParserStockDetail> out;
                double minimum = 1.0;
                if (isText)
                    CParserStockExeclTable::parserCvs(file, out, minimum);
                else
                    CParserStockExeclTable::parserExcel(file, out, minimum);
                return std::min<int>(out.size(), 200);
            },
            60);
        EXPECT_TRUE(end.finished) << file.toStdString();
        if (test::measuresMemory()) {
            EXPECT_LT(end.peakMiB, kMostMiB) << file.toStdString();
        }
        return end.answer;
    }

    QTemporaryDir m_folder;
};

test::Rows sampleRows(int count)
{
    test::Rows rows;
    for (int i = 0; i < count; ++i)
        rows << QVariantList { i % 2 ? QVariant(QStringLiteral("600036")) : QVariant(1),
                               QStringLiteral("招商银行"), 0.5, 0.25, 300 };
    return rows;
}

/// One fault: bits flipped, the end cut off, bytes left out, or a part's name changed.
QByteArray damaged(QByteArray bytes, std::mt19937& random)
{
    const auto below = [&](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
    switch (below(4)) {
    case 0: return bytes.left(below(bytes.size()));
    case 1: return bytes.remove(below(bytes.size()), 1 + below(200));
    case 2: {
        const int at = bytes.indexOf("xl/", below(bytes.size()));
        if (at >= 0)
            bytes[at + below(8)] = static_cast<char>(below(256));
        return bytes;
    }
    default:
        for (int flips = 1 + below(30); flips > 0; --flips) {
            const int at = below(bytes.size());
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
        }
        return bytes;
    }
}

/// Reads `count` damaged copies, one after the other, in one child.
void expectSurvivesDamage(const QByteArray& sound, const QString& file, int count)
{
    const test::ChildEnd end = test::runInChild(
        [&] {
            std::mt19937 random(20240601);
            for (int i = 0; i < count; ++i) {
                test::writeFile(file, damaged(sound, random));
                QVector<ParserStockDetail> out;
                double minimum = 1.0;
                CParserStockExeclTable::parserExcel(file, out, minimum);
                if (out.size() > 200)
                    return 1;
            }
            return 0;
        },
        100);
    EXPECT_TRUE(end.finished);
    EXPECT_EQ(end.answer, 0);
    if (test::measuresMemory()) {
        EXPECT_LT(end.peakMiB, kMostMiB);
    }
}

} // namespace

TEST_F(BadStockList, DamagedXlsxFilesAreSurvived)
{
    const QString sound = test::writeXlsx(path("sound.xlsx"), sampleRows(200));
    ASSERT_EQ(read(sound, false), 200);
    expectSurvivesDamage(test::bytesOf(sound), path("damaged.xlsx"), kDamagedCopies);
}

TEST_F(BadStockList, DamagedXlsFilesAreSurvived)
{
    ON_UNIX_ALONE("a Python library makes the workbook");
    const QString sound = test::writeXls(path("sound.xls"), sampleRows(200));
    ASSERT_EQ(read(sound, false), 200);
    expectSurvivesDamage(test::bytesOf(sound), path("damaged.xls"), kDamagedCopies);
}

TEST_F(BadStockList, DamagedSheetTextGivesTheRowsBeforeTheDamage)
{
    const QByteArray part =
        "<?xml version=\"1.0\"?><worksheet "
        "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><sheetData>"
        "<row r=\"1\"><c r=\"A1\"><v>600036</v></c></row><row r=\"2\"><c r=\"A2\"><v>1</v";
    const QString file = test::replacePart(test::writeXlsx(path("a.xlsx"), sampleRows(5)),
                                           QStringLiteral("xl/worksheets/sheet1.xml"), part);
    EXPECT_EQ(read(file, false), 1);
}

TEST_F(BadStockList, AnArchiveThatStatesAWrongPackedSizeIsRefused)
{
    // Room for the stated size would be made before the entry is read: 0x20000000 bytes are 512 MiB.
    QByteArray bytes = test::bytesOf(test::writeXlsx(path("a.xlsx"), sampleRows(5)));
    const int entry = bytes.indexOf("PK\x01\x02"); // the first entry of the directory
    bytes[entry + 23] = '\x20';                    // the highest byte of its packed size
    EXPECT_EQ(read(test::writeFile(path("b.xlsx"), bytes), false), 0);
}

TEST_F(BadStockList, AnArchiveThatUnpacksTooLargeIsRefused)
{
    EXPECT_EQ(read(test::writeZipBomb(path("bomb.xlsx"), 300), false), 0);
}

TEST_F(BadStockList, AWorkbookOfMoreThanTwoMillionCellsIsRefused)
{
    const auto workbookOf = [&](int rows) {
        QByteArray part = "<?xml version=\"1.0\"?><worksheet "
                          "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><sheetData>";
        for (int row = 1; row <= rows; ++row)
            part += "<row><c><v>600036</v></c><c><v>1</v></c><c><v>1</v></c><c><v>1</v></c><c><v>1</v></c>"
                    "<c><v>1</v></c><c><v>1</v></c><c><v>1</v></c><c><v>1</v></c><c><v>1</v></c></row>";
        part += "</sheetData></worksheet>";
        return test::replacePart(test::writeXlsx(path("a.xlsx"), sampleRows(5)),
                                 QStringLiteral("xl/worksheets/sheet1.xml"), part);
    };
    EXPECT_EQ(read(workbookOf(150), false), 150);
    EXPECT_EQ(read(workbookOf(200'000), false), 200); // as many as the reader counts here
    EXPECT_EQ(read(workbookOf(200'001), false), 0);
}

TEST_F(BadStockList, ProtectedWorkbooksAreRefused)
{
    ON_UNIX_ALONE("a Python library makes the workbook");
    EXPECT_EQ(read(test::writeXls(path("a.xls"), sampleRows(5), QStringLiteral("password")), false), 0);
    EXPECT_EQ(read(test::writeXls(path("a.xlsx"), sampleRows(5), QStringLiteral("encrypted")), false), 0);
}

TEST_F(BadStockList, EmptyFilesFoldersAndMissingFilesGiveNothing)
{
    const QString empty = test::writeFile(path("empty"), QByteArray());
    for (const QString& file : { empty, m_folder.path(), path("missing") }) {
        EXPECT_EQ(read(file, true), 0);
        EXPECT_EQ(read(file, false), 0);
    }
}

TEST_F(BadStockList, ALineOfAMillionCharactersIsJustALine)
{
    QByteArray bytes(1'000'000, 'x');
    EXPECT_EQ(read(test::writeFile(path("long.csv"), bytes + "\n600036\n"), true), 1);
    bytes.fill(',');
    EXPECT_EQ(read(test::writeFile(path("commas.csv"), bytes + "\n600036\n"), true), 1);
    EXPECT_EQ(read(test::writeFile(path("commas.xls"), bytes + "\n600036\n"), false), 1);
}

TEST_F(BadStockList, AMillionLinesAreRead)
{
    QByteArray bytes;
    for (int i = 0; i < 1'000'000; ++i)
        bytes += "600036,招商银行,1,0.5,100\n";
    EXPECT_EQ(read(test::writeFile(path("million.csv"), bytes), true), 200);
}

TEST_F(BadStockList, SixtyMegabytesOfGbkStayWithinTheMemory)
{
    QByteArray bytes;
    while (bytes.size() < 60'000'000)
        bytes += "600036,\xD5\xD0\xC9\xCC\xD2\xF8\xD0\xD0,1,0.5,1000000000\r\n";
    EXPECT_EQ(read(test::writeFile(path("gbk.csv"), bytes), true), 200);
}

TEST_F(BadStockList, AnXlsOfOneEndlessLineStaysWithinTheMemory)
{
    QByteArray bytes(54'000'000, 'x');
    EXPECT_EQ(read(test::writeFile(path("letters.xls"), bytes), false), 0);
    bytes.fill(',');
    EXPECT_EQ(read(test::writeFile(path("commas.xls"), bytes + "\n600036\n"), false), 1);
    for (int i = 0; i < bytes.size(); i += 2)
        bytes[i] = '1';
    EXPECT_EQ(read(test::writeFile(path("fields.xls"), bytes), false), 1); // 1 is looked up as 000001
}
