// SPDX-License-Identifier: MIT
#include "stocklist/CParserStockExeclTable.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/System.h"
#include "tests/support/Trace.h"
#include "tests/support/Workbooks.h"

#include <QApplication>
#include <QClipboard>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>

using TC::CParserStockExeclTable;
using TC::ParserStockDetail;
using test::Rows;

namespace {

/// Opens the protected row reader.
struct Table : CParserStockExeclTable
{
    Table()
        : CParserStockExeclTable(1, nullptr, {})
    {
    }
    using CParserStockExeclTable::parserToStockDetail;
};

ttservice::CInstrumentDetail instrument(const char* market, const char* code, const char* kind)
{
    ttservice::CInstrumentDetail made;
    made.market = market;
    made.code = code;
    made.kind = kind;
    return made;
}

/// What a reader gave: keys, weights and shares as "SH600000 0.25 100", and the minimum.
class StockListParsing : public testing::Test
{
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    QStringList row(const QStringList& fields)
    {
        QList<QString> copy = fields;
        Table::parserToStockDetail(copy, m_out, m_minimum);
        return records();
    }
    QStringList csv(const char* text)
    {
        CParserStockExeclTable::parserCvs(test::writeFile(path("a.csv"), text), m_out, m_minimum);
        return records();
    }
    QStringList paste(const char* text)
    {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        Table().parserPaste(m_out, m_minimum);
        return records();
    }
    QStringList xlsx(const Rows& rows, int firstRow = 0, int firstColumn = 0)
    {
        CParserStockExeclTable::parserExcel(test::writeXlsx(path("a.xlsx"), rows, firstRow, firstColumn),
                                            m_out, m_minimum);
        return records();
    }
    QStringList records() const
    {
        QStringList texts;
        for (const ParserStockDetail& record : m_out)
            texts << QStringLiteral("%1 %2 %3")
                         .arg(record.key())
                         .arg(record.relativeWeight)
                         .arg(record.shareCount);
        return texts;
    }

    QTemporaryDir m_folder;
    QVector<ParserStockDetail> m_out;
    double m_minimum = 100.0;
};

QStringList texts(std::initializer_list<const char*> list)
{
    QStringList made;
    for (const char* text : list)
        made << QString::fromUtf8(text);
    return made;
}

const QVariant kEmpty;

QVariantList cells(const QVariant& code, const QVariant& weight, const QVariant& shares)
{
    return { code, QStringLiteral("name"), weight, QStringLiteral("33"), shares };
}

} // namespace

// Rows of text

TEST_F(StockListParsing, ARecognisedCodeEndsTheRow)
{
    EXPECT_EQ(row(texts({ "600000", "name", "5", "0.5", "300" })), texts({ "SH600000 0 0" }));
    EXPECT_EQ(m_out[0].absoluteWeight, 0.0);
    EXPECT_EQ(m_minimum, 100.0); // field 2 was not read either
}

TEST_F(StockListParsing, AnUnrecognisedRowLowersTheMinimumByAWholeNumber)
{
    EXPECT_EQ(row(texts({ "nothing", "name", "7", "0.5", "300" })), QStringList());
    EXPECT_EQ(m_minimum, 7.0);
    row(texts({ "nothing", "name", "8" }));
    EXPECT_EQ(m_minimum, 7.0);
    row(texts({ "nothing", "name", "0.5" }));
    EXPECT_EQ(m_minimum, 0.0);
}

TEST_F(StockListParsing, AnInstrumentOfAnotherClassIsARowWithoutAStock)
{
    EXPECT_EQ(row(texts({ "510050", "a fund", "9" })), QStringList());
    EXPECT_EQ(m_minimum, 9.0);
}

TEST_F(StockListParsing, ATextRowAsksForOneInstrumentAlone)
{
    // The code's key form names a fund, so the share of another market does not matter.
    TC::embedded::setInstruments({ instrument("SH", "77", "fund"), instrument("XX", "SH77", "stock") });
    EXPECT_EQ(row(texts({ "SH77" })), QStringList());
}

TEST_F(StockListParsing, TextCodesAreNeitherTrimmedNorPaddedNorUnquoted)
{
    for (const char* code : { " 600000", "600000 ", "600000\r", "\"600000\"", "1", "" })
        EXPECT_EQ(row(texts({ code })), QStringList()) << code;
    EXPECT_EQ(row(texts({ "SH600000" })), texts({ "SH600000 0 0" }));
}

TEST_F(StockListParsing, WholeNumbersMayHaveSpacesAroundThemAndNothingElse)
{
    const std::pair<const char*, double> cases[] = {
        { "5\r", 5 }, { " 6 ", 6 }, { "+3", 3 },  { "200.0", 0 },       { "1e3", 0 },
        { "x", 0 },   { "", 0 },    { "-4", -4 }, { "99999999999", 0 },
    };
    for (const auto& [text, expected] : cases) {
        m_minimum = 100.0;
        row(texts({ "nothing", "name", text }));
        EXPECT_EQ(m_minimum, expected) << text;
    }
}

TEST_F(StockListParsing, TheMinimumNeverRises)
{
    m_minimum = 1.0;
    row(texts({ "nothing", "name", "2" }));
    EXPECT_EQ(m_minimum, 1.0);
}

TEST_F(StockListParsing, AMinimumThatIsNoNumberBecomesTheFirstWeight)
{
    m_minimum = NAN;
    row(texts({ "nothing", "name", "2" }));
    EXPECT_EQ(m_minimum, 2.0);
    row(texts({ "nothing", "name", "3" }));
    EXPECT_EQ(m_minimum, 2.0);
}

TEST_F(StockListParsing, ARowWithoutFieldsGivesNothing)
{
    EXPECT_EQ(row({}), QStringList());
    EXPECT_EQ(m_minimum, 100.0);
}

// Text files

TEST_F(StockListParsing, AFileGivesOneRecordPerRecognisedRowInOrder)
{
    EXPECT_EQ(csv("600036,a,1\nnothing\n000001\n600036\n"),
              texts({ "SH600036 0 0", "SZ000001 0 0", "SH600036 0 0" })); // duplicates stay
}

TEST_F(StockListParsing, RecordsAreAppended)
{
    csv("600036\n");
    EXPECT_EQ(csv("000001\n"), texts({ "SH600036 0 0", "SZ000001 0 0" }));
}

TEST_F(StockListParsing, AHeaderLineIsARowThatLowersTheMinimumToZero)
{
    EXPECT_EQ(csv("代码,名称,相对权重,绝对权重(%),股数\n600036,招商银行,3,5,100\n"),
              texts({ "SH600036 0 0" }));
    EXPECT_EQ(m_minimum, 0.0);
}

TEST_F(StockListParsing, TheLineEndsOfAFileAreThoseOfAnyPlatform)
{
    EXPECT_EQ(csv("600036\r\n000001\r\n"), texts({ "SH600036 0 0", "SZ000001 0 0" }));
    m_out.clear();
    EXPECT_EQ(csv("600036\r000001\r"), texts({ "SH600036 0 0", "SZ000001 0 0" }));
}

TEST_F(StockListParsing, FieldsKeepTheirPlaceBehindEmptyOnes)
{
    csv("nothing,,4\n");
    EXPECT_EQ(m_minimum, 4.0);
    EXPECT_EQ(csv(",600036,4\n"), QStringList()); // the code is not the first field
}

TEST_F(StockListParsing, AFileThatCannotBeReadChangesNothing)
{
    CParserStockExeclTable::parserCvs(path("missing.csv"), m_out, m_minimum);
    CParserStockExeclTable::parserCvs(m_folder.path(), m_out, m_minimum);
    csv("");
    EXPECT_TRUE(m_out.isEmpty());
    EXPECT_EQ(m_minimum, 100.0);
}

// Clipboard

TEST_F(StockListParsing, PastedFieldsStandApartByTabs)
{
    EXPECT_EQ(paste("600036\t招商银行\t3\n000001,b\nnothing\tname\t6\n"), texts({ "SH600036 0 0" }));
    EXPECT_EQ(m_minimum, 6.0);
}

TEST_F(StockListParsing, APastedWindowsLineKeepsItsCarriageReturn)
{
    EXPECT_EQ(paste("600036\r\n000001\tname\r\n"), texts({ "SZ000001 0 0" })); // "600036\r" is no code
}

TEST_F(StockListParsing, AnEmptyClipboardGivesNothing)
{
    EXPECT_EQ(paste(""), QStringList());
    EXPECT_EQ(paste("\n\n"), QStringList());
    EXPECT_EQ(m_minimum, 100.0);
}

// Workbooks

TEST_F(StockListParsing, AWorkbookRowKeepsItsWeightAndShares)
{
    EXPECT_EQ(xlsx({ cells(QStringLiteral("600036"), 2.5, 300) }), texts({ "SH600036 2.5 300" }));
    EXPECT_EQ(m_out[0].absoluteWeight, 0.0); // the column is not read
    EXPECT_EQ(m_minimum, 2.5);
}

TEST_F(StockListParsing, ShortCodesOfAWorkbookArePaddedToSixCharacters)
{
    TC::embedded::setInstruments({ instrument("SZ", "000001", "stock"), instrument("SZ", "012345", "stock"),
                                   instrument("SZ", "1234567", "stock") });
    EXPECT_EQ(xlsx({ cells(1, 1, 0), cells(12345, 1, 0), cells(1234567, 1, 0), cells(kEmpty, 1, 0) }),
              texts({ "SZ000001 1 0", "SZ012345 1 0", "SZ1234567 1 0" }));
}

TEST_F(StockListParsing, AWorkbookCodeIsTriedOnEveryMarket)
{
    TC::embedded::setInstruments({ instrument("SH", "000007", "fund"), instrument("SZ", "000007", "stock"),
                                   instrument("BJ", "000007", "stock") });
    EXPECT_EQ(xlsx({ cells(7, 1, 0) }), texts({ "SZ000007 1 0" })); // the first share in order
}

TEST_F(StockListParsing, AWorkbookDoesNotKnowKeysOfInstruments)
{
    EXPECT_EQ(xlsx({ cells(QStringLiteral("SH600036"), 1, 0) }), QStringList());
}

TEST_F(StockListParsing, SharesAreRoundedDownToWholeLots)
{
    EXPECT_EQ(
        xlsx({ cells(600036, 1, 250), cells(600036, 1, 99), cells(600036, 1, 1999), cells(600036, 1, -300),
               cells(600036, 1, 100), cells(600036, 1, QStringLiteral("x")), cells(600036, 1, 250.5) }),
        texts({ "SH600036 1 200", "SH600036 1 0", "SH600036 1 1900", "SH600036 1 0", "SH600036 1 100",
                "SH600036 1 0", "SH600036 1 0" }));
}

TEST_F(StockListParsing, AWorkbookWeightNearZeroDoesNotCountForTheMinimum)
{
    m_minimum = 1.0;
    xlsx({ cells(600036, 0, 0), cells(600036, 1e-5, 0), cells(600036, kEmpty, 0),
           cells(600036, 1.000005, 0) });
    EXPECT_EQ(m_minimum, 1.0);
    xlsx({ cells(600036, 0.25, 0) });
    EXPECT_EQ(m_minimum, 0.25);
}

TEST_F(StockListParsing, AWorkbookRowWithoutAStockLowersTheMinimumAsWell)
{
    EXPECT_EQ(xlsx({ cells(QStringLiteral("nothing"), 0.5, 0) }), QStringList());
    EXPECT_EQ(m_minimum, 0.5);
}

TEST_F(StockListParsing, NumbersThatAreNoneDoNotCountForTheMinimumAndNegativeOnesDo)
{
    xlsx({ cells(600036, QStringLiteral("nan"), 0) });
    EXPECT_EQ(m_minimum, 100.0);
    EXPECT_TRUE(std::isnan(m_out[0].relativeWeight));
    xlsx({ cells(600036, -2.5, 0) });
    EXPECT_EQ(m_minimum, -2.5);
    xlsx({ cells(600036, QStringLiteral("-inf"), 0) });
    EXPECT_TRUE(std::isinf(m_minimum));
}

TEST_F(StockListParsing, ColumnsCountFromTheFirstOneInUse)
{
    EXPECT_EQ(xlsx({ cells(600036, 2, 300) }, 6, 3), texts({ "SH600036 2 300" })); // from D7 on
}

TEST_F(StockListParsing, AWorkbookNeedsNoMoreColumnsThanItHas)
{
    EXPECT_EQ(xlsx({ { 600036 } }), texts({ "SH600036 0 0" }));
    m_out.clear();
    EXPECT_EQ(xlsx({ { 600036, kEmpty, 3 } }), texts({ "SH600036 3 0" }));
}

TEST_F(StockListParsing, OnlyTheFirstSheetIsRead)
{
    EXPECT_EQ(xlsx({}), QStringList()); // the second sheet holds a code
}

TEST_F(StockListParsing, AnXlsGivesTheSameRecords)
{
    ON_UNIX_ALONE("a Python library makes the workbook");
    CParserStockExeclTable::parserExcel(
        test::writeXls(path("a.xls"), { cells(1, 0.25, 250), cells(QStringLiteral("600036"), 3, 99) }), m_out,
        m_minimum);
    EXPECT_EQ(records(), texts({ "SZ000001 0.25 200", "SH600036 3 0" }));
    EXPECT_EQ(m_minimum, 0.25);
}

TEST_F(StockListParsing, WithoutAWorkbookReaderNothingIsRead)
{
    TC::embedded::setExcelAvailable(false);
    EXPECT_EQ(xlsx({ cells(600036, 2, 300) }), QStringList());
    EXPECT_EQ(m_minimum, 100.0);
}

TEST_F(StockListParsing, TheWorkbookReaderIsReleasedLaterOnEveryWay)
{
    for (const bool available : { true, false }) {
        TC::embedded::setExcelAvailable(available);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const int before = TC::embedded::excelReaderCount();
        xlsx({ cells(600036, 2, 300) });
        EXPECT_EQ(TC::embedded::excelReaderCount(), before + 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(TC::embedded::excelReaderCount(), before);
    }
}
