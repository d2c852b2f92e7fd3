// SPDX-License-Identifier: MIT
#include "tests/widget/stocklist/BasketTable.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/Trace.h"
#include "tests/support/Workbooks.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include <gtest/gtest.h>

using test::BasketTable;
using test::stock;

namespace {

class StockExport : public testing::Test
{
protected:
    void SetUp() override { m_table.add({ stock("600000", 1.0, 0.0, 100), stock("600036", 3.0, 0.0, 300) }); }

    QString copied()
    {
        m_table.copyData();
        return QApplication::clipboard()->text();
    }

    /// Exports to a file of this name. @return the file's bytes; null when there is none.
    QByteArray exported(const char* name)
    {
        const QString path = m_folder.filePath(QString::fromUtf8(name));
        TC::embedded::setSaveDialogAnswer(path);
        EXPECT_TRUE(m_table.exportData());
        return QFileInfo::exists(path) ? test::bytesOf(path) : QByteArray();
    }

    QTemporaryDir m_folder;
    BasketTable m_table;
};

/// The bytes that a text stream with its default encoding makes of a text.
QByteArray streamed(const char* text)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QTextStream stream(&buffer);
    stream << QString::fromUtf8(text);
    stream.flush();
    return buffer.data();
}

} // namespace

TEST_F(StockExport, ACopyLeavesTheMarketOutOfTheHeaderAlone)
{
    EXPECT_EQ(copied(),
              QStringLiteral("代码\t名称\t相对权重\t绝对权重(%)\t股数\n"
                             "SH\t600000\t浦发银行\t1\t25\t100\n"
                             "SH\t600036\t招商银行\t3\t75\t300\n"));
}

TEST_F(StockExport, ACsvHasTheSameGridWithCommas)
{
    EXPECT_EQ(exported("a.csv"),
              streamed("代码,名称,相对权重,绝对权重(%),股数\n"
                       "SH,600000,浦发银行,1,25,100\n"
                       "SH,600036,招商银行,3,75,300\n"));
}

TEST_F(StockExport, ACsvFollowsTheColumnsWhereTheyStand)
{
    m_table.moveColumn(0, 2); // ids 1 2 0 3 4 5
    EXPECT_EQ(exported("a.csv").split('\n')[1], streamed("600000,浦发银行,SH,1,25,100"));
}

TEST_F(StockExport, ReplacesAFileThatIsThere)
{
    const QByteArray first = exported("a.csv");
    EXPECT_EQ(exported("a.csv"), first);
}

TEST_F(StockExport, ATxtRunsItsCellsTogether)
{
    EXPECT_EQ(exported("a.txt"),
              streamed("代码\t名称\t相对权重\t绝对权重(%)\t股数\n"
                       "SH600000浦发银行125100\n"
                       "SH600036招商银行375300\n"));
}

TEST_F(StockExport, ATxtHasTabsBeforeTheColumnWithIdZero)
{
    m_table.moveColumn(0, 2); // ids 1 2 0 3 4 5
    EXPECT_EQ(exported("a.txt"),
              streamed("名称\t市场\t相对权重\t绝对权重(%)\t股数\n"
                       "600000\t浦发银行SH125100\n"
                       "600036\t招商银行SH375300\n"));
}

TEST_F(StockExport, ATxtCellBehindAHiddenFirstColumnHasATab)
{
    m_table.moveColumn(0, 5); // ids 1 2 3 4 5 0
    m_table.setColumnVisible(1, false);
    m_table.setColumnVisible(4, false);
    EXPECT_EQ(exported("a.txt"),
              streamed("名称\t相对权重\t股数\t市场\n"
                       "\t浦发银行\t1\t100SH\n"
                       "\t招商银行\t3\t300SH\n"));
}

TEST_F(StockExport, ATxtRunsTogetherFromAHiddenColumnWithIdZeroToo)
{
    m_table.moveColumn(0, 1); // ids 1 0 2 3 4 5
    m_table.setColumnVisible(0, false);
    EXPECT_EQ(exported("a.txt").split('\n')[1], streamed("600000浦发银行125100"));
}

TEST_F(StockExport, HiddenColumnsAreLeftOutOfHeaderAndRows)
{
    m_table.setColumnVisible(1, false);
    m_table.setColumnVisible(4, false);
    EXPECT_EQ(copied(),
              QStringLiteral("名称\t相对权重\t股数\n"
                             "SH\t浦发银行\t1\t100\n"
                             "SH\t招商银行\t3\t300\n"));
    m_table.setColumnVisible(0, false);
    EXPECT_EQ(copied().split(QLatin1Char('\n'))[1], QStringLiteral("浦发银行\t1\t100"));
}

TEST_F(StockExport, TheHeaderLeavesOutTheFirstPositionWhateverStandsThere)
{
    m_table.moveColumn(5, 0); // ids 5 0 1 2 3 4
    EXPECT_EQ(copied().split(QLatin1Char('\n'))[0],
              QStringLiteral("市场\t代码\t名称\t相对权重\t绝对权重(%)"));
}

TEST_F(StockExport, WritesTheRowsAsShown)
{
    m_table.setSorting(3, Qt::DescendingOrder);
    m_table.setColumnFilter(2, QStringLiteral("银行"));
    EXPECT_EQ(copied().split(QLatin1Char('\n'))[1], QStringLiteral("SH\t600036\t招商银行\t3\t75\t300"));
}

TEST_F(StockExport, AnEmptyTableGivesTheHeaderAlone)
{
    m_table.clearAll();
    EXPECT_EQ(copied(), QStringLiteral("代码\t名称\t相对权重\t绝对权重(%)\t股数\n"));
    EXPECT_EQ(exported("a.csv"), streamed("代码,名称,相对权重,绝对权重(%),股数\n"));
}

TEST_F(StockExport, CellsWithACommaAreNotQuoted)
{
    ttservice::CInstrumentDetail comma;
    comma.market = "SH";
    comma.code = "600000";
    comma.name = "a,\"b\"";
    comma.kind = "stock";
    TC::embedded::setInstruments({ comma });
    m_table.clearAll();
    m_table.add({ stock("600000", 1.0) });
    EXPECT_EQ(exported("a.csv").split('\n')[1], QByteArray("SH,600000,a,\"b\",1,100,0"));
}

TEST_F(StockExport, OtherSuffixesWriteNothingAndReportSuccess)
{
    for (const char* name : { "a.TXT", "a.CSV", "a.Csv", "a.xls", "a", "txt", "a.txt.bak" })
        EXPECT_TRUE(exported(name).isNull()) << name;
}

TEST_F(StockExport, OnlyTheLastFourCharactersCount)
{
    EXPECT_FALSE(exported(".csv").isNull());
    EXPECT_FALSE(exported("a.csv.txt").isNull());
    // What follows the last U+2F2F counts: here ".cs", which is no suffix.
    EXPECT_TRUE(exported("a.csv\xE2\xBC\xAF.cs").isNull());
    EXPECT_FALSE(exported("a\xE2\xBC\xAF.csv").isNull());
    EXPECT_TRUE(exported("a.c\xE2\xBC\xAFsv").isNull());
}

TEST_F(StockExport, OnlyACancelledDialogReportsFailure)
{
    TC::embedded::setSaveDialogAnswer(QString());
    EXPECT_FALSE(m_table.exportData());
    TC::embedded::setSaveDialogAnswer(m_folder.filePath(QStringLiteral("no/such/folder/a.csv")));
    EXPECT_TRUE(m_table.exportData());
}

TEST_F(StockExport, AsksForTheFileWithItsTitleFolderAndFilter)
{
    TC::embedded::setSaveDialogAnswer(QString());
    m_table.slotExportData();
    const auto request = TC::embedded::lastSaveDialogRequest();
    EXPECT_EQ(request.title, QStringLiteral("导出数据"));
    EXPECT_EQ(request.folder, QStringLiteral("."));
    EXPECT_EQ(request.filter, QStringLiteral("Text files (*.txt);;Excel Files(*.csv)"));
}

TEST_F(StockExport, AnExportedCsvReadBackAddsNothing)
{
    exported("a.csv");
    QVector<TC::ParserStockDetail> out;
    double minimum = 1.0;
    TC::CParserStockExeclTable::parserCvs(m_folder.filePath(QStringLiteral("a.csv")), out, minimum);
    EXPECT_TRUE(out.isEmpty()); // rows begin with the market
}

TEST_F(StockExport, TheSlotCopiesThroughTheVirtualOperation)
{
    struct Copying : BasketTable
    {
        void copyData() override { ++copies; }
        int copies = 0;
    } table;
    table.slotCopyData();
    EXPECT_EQ(table.copies, 1);
}
