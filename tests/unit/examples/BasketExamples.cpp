// SPDX-License-Identifier: MIT
/// @file The examples of the reference: a basket of stocks, tables and workbooks.

#include "host/TC/CStockManager.h"
#include "host/WB/CExcelReader.h"
#include "host/WB/CIntValidator.h"
#include "host/WB/CLineEdit.h"
#include "host/WB/TableEvents.h"
#include "host/embedded/InstrumentSetup.h"
#include "host/embedded/ReadingSetup.h"
#include "host/embedded/TableSetup.h"
#include "host/utils/CSingletonT.h"
#include "stocklist/CParserStockExeclTable.h"
#include "tests/support/Workbooks.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

//! [CEventDeliverer]
/// What stands around a table: it hears of edits and deletions, last in the chain.
class Page : public WB::CEventDeliverer
{
public:
    bool handleDeliveredEvent(int id, const QString&, void* data) override
    {
        if (id != WB::ETableEvent_CellEdited)
            return false; // on to whoever stands around the page
        m_edited = static_cast<const WB::TableCellEdit*>(data)->column;
        return true;
    }
    int editedColumn() const { return m_edited; }

private:
    int m_edited = -1;
};
//! [CEventDeliverer]

} // namespace

TEST(BasketExamples, ABasketIsReadWeightedAndAsked)
{
    QTemporaryDir folder;
    const QString path = test::writeXlsx(
        folder.filePath(QStringLiteral("basket.xlsx")),
        { { QStringLiteral("600000"), QVariant(), 1 }, { QStringLiteral("600030"), QVariant(), 3 } });
    //! [CParserStockExeclTable]
    QVector<TC::ParserStockDetail> stocks;
    double smallest = 1e9; // lowered to the smallest weight that is met
    TC::CParserStockExeclTable::parserExcel(path, stocks, smallest);

    TC::CParserStockExeclTable basket(1, nullptr, WB::EBaseTableMenu_Delete);
    basket.addData(stocks, smallest);
    QVector<float> relative, absolute; // as entered, and as fractions of 1
    basket.getWeightValue(relative, absolute);
    //! [CParserStockExeclTable]
    EXPECT_EQ(basket.getAllStock(),
              (QVector<QString> { QStringLiteral("SH600000"), QStringLiteral("SH600030") }));
    EXPECT_EQ(absolute, (QVector<float> { 0.25f, 0.75f }));

    //! [SaveDialogRequest]
    TC::embedded::setSaveDialogAnswer(folder.filePath(QStringLiteral("basket.txt"))); // instead of asking
    basket.slotExportData();
    const TC::embedded::SaveDialogRequest asked = TC::embedded::lastSaveDialogRequest();
    //! [SaveDialogRequest]
    EXPECT_TRUE(QFile::exists(asked.answer));
}

TEST(BasketExamples, ARecordNamesItsStock)
{
    //! [ParserStockDetail]
    TC::ParserStockDetail stock;
    stock.instrument =
        utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(QStringLiteral("SH600000"));
    stock.relativeWeight = 2.5;
    stock.shareCount = 300;
    const QString key = stock.key(); // "SH600000"
    //! [ParserStockDetail]
    EXPECT_EQ(key, QStringLiteral("SH600000"));
}

TEST(BasketExamples, ATableIsFilledFilteredAndSorted)
{
    //! [CStandardTable]
    WB::CStandardTable table(7, nullptr, WB::EBaseTableMenu_Filter);
    table.setColumnCount(2); // ids 0 and 1
    table.setColumnHeader(0, QStringLiteral("Name"));
    table.setColumnHeader(1, QStringLiteral("Weight"));
    const QVector<int> rows = table.setRowCount(2);
    table.setCellText(rows[0], 0, QStringLiteral("B"));
    table.setCellNumber(rows[0], 1, 12.5, 1, {});
    table.setCellText(rows[1], 0, QStringLiteral("A"));
    table.sortByColumn(0, Qt::AscendingOrder);
    const QString first = table.cellText(table.rowID(0), 0); // "A"; ids stay with their rows
    //! [CStandardTable]
    EXPECT_EQ(first, QStringLiteral("A"));
    EXPECT_EQ(table.cellText(rows[0], 1), QStringLiteral("12.5"));

    //! [IBaseTable]
    WB::IBaseTable& any = table;
    any.selectRows({ rows[1] });
    const std::set<int> selected = any.selectedRows();
    //! [IBaseTable]
    EXPECT_EQ(selected, std::set<int> { rows[1] });

    //! [CBaseNormalTable]
    WB::CBaseNormalTable& normal = table;
    normal.setRowHeight(20);
    normal.moveColumn(1, 0);                // the ids stay
    const int leading = normal.columnID(0); // 1
    //! [CBaseNormalTable]
    EXPECT_EQ(leading, 1);
}

TEST(BasketExamples, AnEditReachesThePageAroundTheTable)
{
    Page page;
    //! [TableCellEdit]
    WB::CBaseNormalTable table(1, nullptr, {});
    table.setParentDeliverer(&page);
    WB::TableCellEdit edit { 4, QStringLiteral("25") };
    table.handleEvent(WB::ETableEvent_CellEdited, 0, edit.column, edit.text, &edit);
    //! [TableCellEdit]
    EXPECT_EQ(page.editedColumn(), 4);
    table.setParentDeliverer(nullptr);
}

TEST(BasketExamples, AnEditorTakesWholeNumbersAlone)
{
    //! [CLineEdit]
    WB::CLineEdit editor;
    editor.setValidator(new WB::CIntValidator(1, 10000, &editor));
    editor.setText(QStringLiteral("250"));
    const bool isWhole = editor.hasAcceptableInput();
    //! [CLineEdit]
    EXPECT_TRUE(isWhole);
    editor.setText(QStringLiteral("2.5"));
    EXPECT_FALSE(editor.hasAcceptableInput());
}

TEST(BasketExamples, AWorkbookIsReadCellByCell)
{
    QTemporaryDir folder;
    const QString path = test::writeXlsx(folder.filePath(QStringLiteral("a.xlsx")),
                                         { { QStringLiteral("600000"), QVariant(), 0.25 } });
    QString code, failure;
    //! [CExcelReader]
    WB::CExcelReader reader;
    if (reader.init(false) && reader.open(path)) {
        code = reader.getData(1, 1, 1, true); // sheet, row and column count from 1: "600000"
    } else {
        //! [WorkbookReport]
        const TC::embedded::WorkbookReport report = TC::embedded::lastWorkbookReport();
        failure = TC::embedded::textOf(report); // for the user
        //! [WorkbookReport]
    }
    //! [CExcelReader]
    EXPECT_EQ(code, QStringLiteral("600000"));
    EXPECT_EQ(failure, QString());
}
