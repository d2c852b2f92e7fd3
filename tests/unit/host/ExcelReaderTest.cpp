// SPDX-License-Identifier: MIT
#include "host/WB/CExcelReader.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/embedded/ReadingSetup.h"
#include "tests/support/System.h"
#include "tests/support/Trace.h"
#include "tests/support/Workbooks.h"
#include "host/utils/TextCodec.h"

#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using test::Rows;

namespace {

class ExcelReader : public testing::Test
{
protected:
    void SetUp() override { m_reader.init(false); }

    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    QString sheet() const { return test::sheetText(m_reader); }

    QTemporaryDir m_folder;
    WB::CExcelReader m_reader;
};

const Rows kRows { { QStringLiteral("代码"), QStringLiteral("名称"), QStringLiteral("权重") },
                   { QStringLiteral("600000"), QStringLiteral("浦发银行"), 0.25 },
                   { 1, QVariant(), 1e6 } };
const QString kSheet = QStringLiteral("代码|名称|权重/600000|浦发银行|0.25/1||1000000");

} // namespace

TEST_F(ExcelReader, ReadsTheFirstSheetOfAnXlsx)
{
    EXPECT_TRUE(m_reader.open(test::writeXlsx(path("a.xlsx"), kRows)));
    EXPECT_EQ(sheet(), kSheet);
}

TEST_F(ExcelReader, ReadsTheFirstSheetOfAnXls)
{
    ON_UNIX_ALONE("a Python library makes the workbook");
    EXPECT_TRUE(m_reader.open(test::writeXls(path("a.xls"), kRows)));
    EXPECT_EQ(sheet(), kSheet);
}

TEST_F(ExcelReader, ReadsTextsThatLieAcrossTheRecordsOfAnXls)
{
    ON_UNIX_ALONE("a Python library makes the workbook");
    Rows rows; // hundreds of records of 8 KB, in bytes and in pairs of them
    for (int row = 0; row < 100; ++row) {
        const QString letters = QStringLiteral("%1 letters ").arg(row).leftJustified(6'000, QLatin1Char('a'));
        const QString characters = QStringLiteral("%1 字").arg(row).leftJustified(1'000, QChar(0x5B57));
        rows << QVariantList { letters, characters };
    }
    ASSERT_TRUE(m_reader.open(test::writeXls(path("a.xls"), rows)));
    EXPECT_FALSE(TC::embedded::lastWorkbookReport().mayBeIncomplete);
    int different = 0;
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < 2; ++column)
            different +=
                m_reader.getData(1, row + 1, column + 1, true) == rows[row][column].toString() ? 0 : 1;
    }
    EXPECT_EQ(different, 0);
}

TEST_F(ExcelReader, CountsRowsAndColumnsFromTheFirstCellThatHoldsSomething)
{
    m_reader.open(test::writeXlsx(path("a.xlsx"), kRows, 4, 2)); // from C5 on
    EXPECT_EQ(m_reader.getSheetStartRow(1), 5);
    EXPECT_EQ(m_reader.getSheetStartCol(1), 3);
    EXPECT_EQ(sheet(), kSheet);
    EXPECT_EQ(m_reader.getData(1, 1, 1, true), QString());
}

TEST_F(ExcelReader, StartsAtTheLeftmostColumnOfAnyRow)
{
    m_reader.open(test::writeXlsx(path("a.xlsx"), { { QVariant(), 2 }, { 1, QVariant(), 3 } }));
    EXPECT_EQ(m_reader.getSheetStartCol(1), 1);
    EXPECT_EQ(sheet(), QStringLiteral("|2|/1||3"));
}

TEST_F(ExcelReader, KnowsSheetOneAlone)
{
    m_reader.open(test::writeXlsx(path("a.xlsx"), kRows));
    for (const int other : { 0, 2, -1 }) {
        EXPECT_EQ(m_reader.getSheetRowCount(other), 0);
        EXPECT_EQ(m_reader.getSheetColCount(other), 0);
        EXPECT_EQ(m_reader.getSheetStartRow(other), 1);
        EXPECT_EQ(m_reader.getData(other, 1, 1, true), QString());
    }
}

TEST_F(ExcelReader, WritesNumbersPlainly)
{
    m_reader.open(
        test::writeXlsx(path("a.xlsx"), { { 1.0, 0.5, -300.0, 0.1 + 0.2, 1e15, -0.0, 123456789012.0 } }));
    EXPECT_EQ(sheet(), QStringLiteral("1|0.5|-300|0.3|1e+15|0|123456789012"));
}

TEST_F(ExcelReader, GivesTheStoredResultOfAFormulaAndNothingForOneThatWasNeverComputed)
{
    ON_UNIX_ALONE("a Python library makes the workbook");
    m_reader.open(test::writeXlsx(path("a.xlsx"), { { 1, QStringLiteral("=A1+6"), 2 } }));
    EXPECT_EQ(sheet(), QStringLiteral("1|7|2"));
    m_reader.open(test::writeXls(path("a.xls"), { { 1, QStringLiteral("=A1+6"), 2 } }));
    EXPECT_EQ(sheet(), QStringLiteral("1||2"));
}

TEST_F(ExcelReader, ReadsAnXlsThatIsReallyText)
{
    const QString text = QStringLiteral("600000\t浦发银行\t1,5\r\n000001,平安银行,2\r\n");
    m_reader.open(test::writeFile(path("tabs.xls"), utils::encoded(text, "GB18030").value()));
    EXPECT_EQ(sheet(), QStringLiteral("600000|浦发银行|1,5/000001|平安银行|2"));
}

TEST_F(ExcelReader, GoesByTheContentAndNotByTheName)
{
    test::writeXlsx(path("a.xlsx"), kRows);
    QFile::rename(path("a.xlsx"), path("a.xls"));
    EXPECT_TRUE(m_reader.open(path("a.xls")));
    EXPECT_EQ(sheet(), kSheet);
}

TEST_F(ExcelReader, RefusesProtectedWorkbooks)
{
    ON_UNIX_ALONE("a Python library makes the workbook");
    EXPECT_FALSE(m_reader.open(test::writeXls(path("a.xls"), kRows, QStringLiteral("password"))));
    EXPECT_FALSE(m_reader.open(test::writeXls(path("a.xlsx"), kRows, QStringLiteral("encrypted"))));
    EXPECT_EQ(m_reader.getSheetRowCount(1), 0);
}

TEST_F(ExcelReader, RefusesWhatIsNoWorkbook)
{
    test::writeFile(path("empty.xlsx"), QByteArray());
    test::writeFile(path("binary.xls"),
                    QByteArray("\x7F"
                               "ELF\x02\x01\x01\x00\x00\x00",
                               10));
    test::writeFile(path("broken.xlsx"), "PK\x03\x04 and nothing behind it");
    for (const QString& file : { path("empty.xlsx"), path("binary.xls"), path("broken.xlsx"),
                                 path("missing.xlsx"), m_folder.path(), QStringLiteral("/dev/zero") }) {
        EXPECT_FALSE(m_reader.open(file)) << file.toStdString();
        EXPECT_EQ(sheet(), QString());
    }
}

TEST_F(ExcelReader, SaysSomethingElseOfEachReasonNotToRead)
{
    using TC::embedded::WorkbookOutcome;
    QSet<QString> texts;
    int outcomes = 0;
    for (int outcome = 0; outcome <= static_cast<int>(WorkbookOutcome::ProgramNotStarted);
         ++outcome, ++outcomes)
        texts << TC::embedded::textOf({ static_cast<WorkbookOutcome>(outcome), false, QString() });
    EXPECT_EQ(texts.size(), outcomes);
    EXPECT_EQ(TC::embedded::textOf({ WorkbookOutcome::Read, false, QString() }), QString());
    texts << TC::embedded::textOf({ WorkbookOutcome::Read, true, QString() }); // damaged, but read
    EXPECT_EQ(texts.size(), outcomes + 1);
    EXPECT_EQ(TC::embedded::textOf({ WorkbookOutcome::CannotOpen, true, QStringLiteral("no such file") }),
              QStringLiteral("文件打不开（no such file）"));
}

TEST_F(ExcelReader, ForgetsTheWorkbookBefore)
{
    m_reader.open(test::writeXlsx(path("a.xlsx"), kRows));
    m_reader.open(path("missing.xlsx"));
    EXPECT_EQ(sheet(), QString());
    m_reader.open(path("a.xlsx"));
    m_reader.close();
    EXPECT_EQ(sheet(), QString());
}

TEST_F(ExcelReader, IsValidBetweenInitAndExit)
{
    WB::CExcelReader reader;
    EXPECT_FALSE(reader.isValid());
    EXPECT_FALSE(reader.open(test::writeXlsx(path("a.xlsx"), kRows)));
    EXPECT_TRUE(reader.init(false));
    EXPECT_TRUE(reader.isValid());
    reader.exitExcel();
    EXPECT_FALSE(reader.isValid());
    TC::embedded::setExcelAvailable(false);
    EXPECT_FALSE(reader.init(false));
    EXPECT_FALSE(reader.isValid());
}

TEST_F(ExcelReader, LeavesOutCellsWhoseSharedTextDoesNotExist)
{
    const QByteArray part =
        "<?xml version=\"1.0\"?><worksheet "
        "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><sheetData>"
        "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>4000000</v></c><c r=\"B1\"><v>2</v></c></row>"
        "</sheetData></worksheet>";
    m_reader.open(test::replacePart(test::writeXlsx(path("a.xlsx"), kRows),
                                    QStringLiteral("xl/worksheets/sheet1.xml"), part));
    EXPECT_EQ(sheet(), QStringLiteral("2"));
    EXPECT_EQ(m_reader.getSheetStartCol(1), 2);
}

TEST_F(ExcelReader, LeavesOutCellsBeyondTheLargestSheet)
{
    const QByteArray part =
        "<?xml version=\"1.0\"?><worksheet "
        "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><sheetData>"
        "<row r=\"1\"><c r=\"A1\"><v>1</v></c><c r=\"XFE1\"><v>2</v></c><c "
        "r=\"ZZZZZZZZZZZZ1\"><v>3</v></c></row>"
        "<row r=\"1048577\"><c r=\"A1048577\"><v>4</v></c></row>"
        "<row r=\"99999999999\"><c r=\"A99999999999\"><v>5</v></c></row></sheetData></worksheet>";
    m_reader.open(test::replacePart(test::writeXlsx(path("a.xlsx"), kRows),
                                    QStringLiteral("xl/worksheets/sheet1.xml"), part));
    EXPECT_EQ(sheet(), QStringLiteral("1"));
}

TEST_F(ExcelReader, RefusesAnArchiveOfMoreThanAThousandEntries)
{
    const QString file = test::writeXlsx(path("a.xlsx"), kRows);
    EXPECT_TRUE(m_reader.open(test::addEmptyEntries(file, 900)));
    EXPECT_FALSE(m_reader.open(test::addEmptyEntries(file, 1'001)));
}
