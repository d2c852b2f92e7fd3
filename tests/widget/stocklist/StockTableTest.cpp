// SPDX-License-Identifier: MIT
#include "tests/widget/stocklist/BasketTable.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/TestFont.h"
#include "tests/support/Trace.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QValidator>

#include <gtest/gtest.h>

#include <cmath>

using test::BasketTable;
using test::stock;

namespace {

/// 600000 浦发银行, 600036 招商银行 and 000001 平安银行, in the order of their keys.
QVector<TC::ParserStockDetail> threeStocks()
{
    return { stock("600036", 3.0, 0.0, 300), stock("000001", 2.0, 0.0, 200), stock("600000", 1.0, 0.0, 100) };
}

QString factorFor(double minimum)
{
    BasketTable table;
    QVector<TC::ParserStockDetail> details { stock("600000", 1.0) };
    table.fillDetail(details, minimum);
    return table.columnText(3);
}

} // namespace

TEST(StockTable, HasSixColumns)
{
    const BasketTable table;
    const QStringList headers { QStringLiteral("市场"),        QStringLiteral("代码"),
                                QStringLiteral("名称"),        QStringLiteral("相对权重"),
                                QStringLiteral("绝对权重(%)"), QStringLiteral("股数") };
    const int widths[] = { 45, 70, 80, 65, 70, 70 };
    ASSERT_EQ(table.columnCount(), 6);
    for (int id = 0; id < 6; ++id) {
        EXPECT_EQ(table.columnID(id), id);
        EXPECT_EQ(table.columnHeader(id), headers[id]);
        EXPECT_EQ(table.view()->columnWidth(id), widths[id]);
        EXPECT_TRUE(table.columnVisible(id));
    }
}

TEST(StockTable, HasItsSizesAndTheSkinsAxisFont)
{
    TC::embedded::setFont(QStringLiteral("fnt_graph_axis_text"), test::font(17));
    const BasketTable table;
    EXPECT_EQ(table.minimumSize(), QSize(450, 120));
    EXPECT_EQ(table.view()->horizontalHeader()->height(), 21);
    EXPECT_EQ(table.view()->verticalHeader()->defaultSectionSize(), 20);
    EXPECT_EQ(table.font().pixelSize(), 17);
    TC::embedded::setFont(QStringLiteral("fnt_graph_axis_text"), test::font(14));
    EXPECT_EQ(table.font().pixelSize(), 14);
}

TEST(StockTable, StartsEmptyAsEnteredWithRelativeWeightsUpTo10000)
{
    const BasketTable table;
    EXPECT_EQ(table.getWeightType(), 1);
    EXPECT_EQ(table.getSpinMaxValue(), 10000);
    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_TRUE(table.getAllStock().isEmpty());
}

TEST(StockTable, AddsThreeEntriesToTheContextMenuInOrder)
{
    BasketTable table(WB::EBaseTableMenu_Delete);
    QStringList names;
    for (const QAction* action : table.contextMenu()->actions())
        names << action->text();
    EXPECT_EQ(names,
              QStringList({ QStringLiteral("删除"), QStringLiteral("导出数据"), QStringLiteral("复制数据"),
                            QStringLiteral("粘贴") }));
    QSignalSpy pasted(&table, SIGNAL(sigPasteTable(bool)));
    table.contextMenu()->actions().last()->trigger();
    ASSERT_EQ(pasted.size(), 1);
    EXPECT_EQ(pasted[0][0].toBool(), false); // as the action's triggered(bool) has it
}

// Adding

TEST(StockTable, ShowsTheStocksInTheOrderOfTheirKeys)
{
    BasketTable table;
    table.add(threeStocks());
    EXPECT_EQ(table.getAllStock(),
              QVector<QString>(
                  { QStringLiteral("SH600000"), QStringLiteral("SH600036"), QStringLiteral("SZ000001") }));
    EXPECT_EQ(table.rowText(0), QStringLiteral("SH 600000 浦发银行 1 17 100")); // 1 / 6 = 16.67 %
    EXPECT_EQ(table.rowText(1), QStringLiteral("SH 600036 招商银行 3 50 300"));
    EXPECT_EQ(table.shares(), QStringLiteral("100 300 200"));
}

TEST(StockTable, OfRecordsWithTheSameKeyTheFirstCounts)
{
    BasketTable table;
    table.add({ stock("600000", 1.0, 0.0, 100), stock("600000", 5.0, 0.0, 500) });
    EXPECT_EQ(table.rowText(0), QStringLiteral("SH 600000 浦发银行 1 100 100"));
}

TEST(StockTable, ImportingAgainKeepsWhatTheUserEdited)
{
    BasketTable table;
    table.add(threeStocks());
    table.edit(table.rowID(0), 5, "700");
    table.editInteger(table.rowID(0), 9);
    table.add(threeStocks());
    EXPECT_EQ(table.rowCount(), 3);
    EXPECT_EQ(table.columnText(3), QStringLiteral("9 3 2"));
    EXPECT_EQ(table.columnText(5), QStringLiteral("700 300 200"));
}

TEST(StockTable, AddingEmitsNothingAndLeavesTheCallersRecordsAlone)
{
    BasketTable table;
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    QVector<TC::ParserStockDetail> details { stock("600000", 0.25) };
    table.addData(details, 0.25);
    EXPECT_EQ(changed.size(), 0);
    EXPECT_EQ(details[0].relativeWeight, 0.25);
}

TEST(StockTable, ScalesWhatItShowsAfterAddingAndNotWhatItStores)
{
    BasketTable table;
    table.add({ stock("600000", 0.05), stock("600036", 0.15) }, 0.05);
    EXPECT_EQ(table.columnText(3), QStringLiteral("5 15")); // times 100
    EXPECT_EQ(table.weights(), QStringLiteral("0.05 0.15 | 0.25 0.75"));
    EXPECT_EQ(table.statText(3), QStringLiteral("0.2")); // the sum of the stored weights
    table.reCalc();
    EXPECT_EQ(table.columnText(3), QStringLiteral("0 0")); // no decimals
}

TEST(StockTable, ScalesTheWeightsThatTheRuleHasJustWritten)
{
    BasketTable table;
    table.setWeightType(0);
    table.add({ stock("600000", 0.05), stock("600036", 0.15) }, 0.05);
    EXPECT_EQ(table.columnText(3), QStringLiteral("100 100")); // equal weights of 1, times 100
}

TEST(StockTable, ShowsAllStocksAfterAddingUnfilteredAndUnsorted)
{
    BasketTable table;
    table.setColumnFilter(2, QStringLiteral("招商"));
    table.setSorting(3, Qt::DescendingOrder);
    table.add(threeStocks());
    EXPECT_EQ(table.columnText(1), QStringLiteral("600000 600036 000001"));
    table.reCalc();
    EXPECT_EQ(table.columnText(1), QStringLiteral("600036"));
}

// Filling

TEST(StockTable, AFilterOfItsOwnColumnLooksAtNoOther)
{
    BasketTable table;
    table.add({ stock("600000", 1) });
    for (const int column : { 0, 2 }) { // market and name; the text stands in the code
        table.setColumnFilter(column, QStringLiteral("600"));
        EXPECT_EQ(table.rowCount(), 0) << column;
        table.setColumnFilter(column, QString());
        EXPECT_EQ(table.rowCount(), 1) << column;
    }
}

TEST(StockTable, FillingScalesTheCallersRecords)
{
    BasketTable table;
    QVector<TC::ParserStockDetail> details { stock("600000", 0.5), stock("600036", 2.0) };
    table.fillDetail(details, 0.5);
    EXPECT_EQ(details[0].relativeWeight, 5.0);
    EXPECT_EQ(details[1].relativeWeight, 20.0);
    EXPECT_TRUE(table.getAllStock().isEmpty()); // rows alone
}

TEST(StockTable, TheFactorBringsTheMinimumToOneOrMore)
{
    EXPECT_EQ(factorFor(0.25), QStringLiteral("10")); // 2.5 ends the loop
    EXPECT_EQ(factorFor(1.5), QStringLiteral("1"));
    EXPECT_EQ(factorFor(0.05), QStringLiteral("100"));
    EXPECT_EQ(factorFor(0.1), QStringLiteral("10"));
    EXPECT_EQ(factorFor(0.001), QStringLiteral("1000"));
    EXPECT_EQ(factorFor(0.999991), QStringLiteral("1")); // within the tolerance of 1
    EXPECT_EQ(factorFor(0.99998), QStringLiteral("10"));
    EXPECT_EQ(factorFor(1.0), QStringLiteral("1"));
    EXPECT_EQ(factorFor(42.0), QStringLiteral("1"));
}

TEST(StockTable, AMinimumThatCannotReachOneScalesNothing)
{
    for (const double minimum :
         { 0.0, 1e-5, -0.25, -1e300, double(NAN), double(INFINITY), -double(INFINITY) })
        EXPECT_EQ(factorFor(minimum), QStringLiteral("1")) << minimum;
}

TEST(StockTable, NumbersHaveNoDecimals)
{
    BasketTable table;
    table.add({ stock("600000", 0.25), stock("600036", 1.75) });
    EXPECT_EQ(table.columnText(3), QStringLiteral("0 2"));
    EXPECT_EQ(table.columnText(4), QStringLiteral("13 88")); // 12.5 and 87.5
}

// Removing

TEST(StockTable, RemovesTheStocksOfTheGivenRowIds)
{
    BasketTable table;
    table.add(threeStocks());
    table.setSorting(5, Qt::DescendingOrder); // 300 200 100: ids are no positions
    EXPECT_EQ(table.columnText(1), QStringLiteral("600036 000001 600000"));
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    table.removeSelectRows({ table.rowID(0), table.rowID(2) });
    EXPECT_EQ(table.getAllStock(), QVector<QString>({ QStringLiteral("SZ000001") }));
    EXPECT_EQ(table.columnText(1), QStringLiteral("000001"));
    EXPECT_EQ(table.statText(3), QStringLiteral("2.0"));
    EXPECT_EQ(changed.size(), 0);
}

TEST(StockTable, LeavesRowsWhoseInstrumentIsUnknown)
{
    BasketTable table;
    table.add(threeStocks());
    const std::set<int> rows { table.rowID(0), table.rowID(1) };
    ttservice::CInstrumentDetail other;
    other.market = "SH";
    other.code = "600036";
    TC::embedded::setInstruments({ other }); // 600000 is delisted
    table.removeSelectRows(rows);
    EXPECT_EQ(table.columnText(1), QStringLiteral("600000 000001"));
    table.removeSelectRows({ -1, 999999 });
    EXPECT_EQ(table.rowCount(), 2);
}

TEST(StockTable, ClearingLeavesTheStatusLineAndEmitsNothing)
{
    BasketTable table;
    table.add(threeStocks());
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    table.clearAll();
    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_TRUE(table.getAllStock().isEmpty());
    EXPECT_EQ(table.statText(3), QStringLiteral("6.0"));
    EXPECT_EQ(changed.size(), 0);
    table.filterColumn();
    EXPECT_EQ(table.rowCount(), 0);
}

// Editability

TEST(StockTable, RelativeWeightsAndSharesCanBeEdited)
{
    BasketTable table;
    table.add(threeStocks());
    const bool expected[] = { false, false, false, true, false, true };
    for (int id = 0; id < 6; ++id)
        EXPECT_EQ(table.cellEditable(table.rowID(0), id), expected[id]) << id;
}

TEST(StockTable, ReadOnlyLocksSharesAtOnceAndRelativeWeightsAtTheNextRefill)
{
    BasketTable table;
    table.add(threeStocks());
    table.setReadOnly(true);
    EXPECT_FALSE(table.cellEditable(table.rowID(0), 5));
    EXPECT_TRUE(table.cellEditable(table.rowID(0), 3));
    table.reCalc();
    EXPECT_FALSE(table.cellEditable(table.rowID(0), 3));
    table.setReadOnly(false);
    EXPECT_TRUE(table.cellEditable(table.rowID(0), 5));
    EXPECT_FALSE(table.cellEditable(table.rowID(0), 3));
}

TEST(StockTable, AbsoluteWeightsCanBeEditedUnderTypeFourAlone)
{
    BasketTable table;
    table.add(threeStocks());
    for (const int type : { 4, 0, 1, 2, 3, 5, 4 }) {
        table.setWeightType(type);
        EXPECT_EQ(table.cellEditable(table.rowID(0), 4), type == 4) << type;
    }
}

// Events

TEST(StockTable, AnEditedPercentageIsStoredAsItStands)
{
    BasketTable table;
    table.setWeightType(4);
    table.add(threeStocks());
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    EXPECT_TRUE(table.edit(table.rowID(0), 4, "25"));
    EXPECT_EQ(table.columnText(4), QStringLiteral("2500 0 0")); // shown times 100
    EXPECT_EQ(table.statText(4), QStringLiteral("2500.0%"));
    EXPECT_EQ(changed.size(), 1);
}

TEST(StockTable, EditedSharesAreAWholeNumber)
{
    BasketTable table;
    table.setWeightType(5);
    table.add(threeStocks());
    table.edit(table.rowID(0), 5, "700");
    EXPECT_EQ(table.shares(), QStringLiteral("700 300 200"));
    EXPECT_EQ(table.columnText(4), QStringLiteral("58 25 17"));
    table.edit(table.rowID(0), 5, "1e3");
    EXPECT_EQ(table.shares(), QStringLiteral("0 300 200"));
}

TEST(StockTable, AnEditOfAnotherColumnStoresNothingButCounts)
{
    BasketTable table;
    table.add(threeStocks());
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    table.setWeightType(0);
    EXPECT_TRUE(table.edit(table.rowID(0), 2, "renamed"));
    EXPECT_EQ(table.columnText(4), QStringLiteral("33 33 33")); // recalculated
    EXPECT_EQ(table.cellText(table.rowID(0), 2), QStringLiteral("浦发银行"));
    EXPECT_EQ(changed.size(), 1);
}

TEST(StockTable, AnEditOfAnUnknownRowIsHandledAndChangesNothing)
{
    BasketTable table;
    table.add(threeStocks());
    const int old = table.rowID(0);
    table.setWeightType(0);
    table.reCalc(); // gives new row ids
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    table.setWeightType(1);
    for (const int row : { old, -1, 999999 }) {
        EXPECT_TRUE(table.edit(row, 5, "700"));
        EXPECT_TRUE(table.editInteger(row, 7));
    }
    EXPECT_EQ(table.shares(), QStringLiteral("100 300 200"));
    EXPECT_EQ(table.columnText(3), QStringLiteral("1 1 1")); // not recalculated either
    EXPECT_EQ(changed.size(), 0);
}

TEST(StockTable, AnEditOfAStockThatIsGoneIsIgnored)
{
    BasketTable table;
    QVector<TC::ParserStockDetail> details { stock("600000", 1.0) };
    table.fillDetail(details, 1.0); // a row whose stock is not in the basket
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    EXPECT_TRUE(table.edit(table.rowID(0), 5, "700"));
    EXPECT_EQ(changed.size(), 0);
    EXPECT_EQ(table.rowCount(), 1);
}

TEST(StockTable, AnIntegerEditSetsTheRelativeWeight)
{
    BasketTable table;
    table.add(threeStocks());
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    EXPECT_TRUE(table.editInteger(table.rowID(0), 5));
    EXPECT_EQ(table.columnText(3), QStringLiteral("5 3 2"));
    EXPECT_EQ(table.columnText(4), QStringLiteral("50 30 20"));
    EXPECT_EQ(changed.size(), 1);
}

TEST(StockTable, AnIntegerEditWhileImportingIsSwallowed)
{
    BasketTable table;
    table.add(threeStocks());
    table.setImportBool(true);
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    EXPECT_TRUE(table.editInteger(table.rowID(0), 5));
    EXPECT_EQ(table.columnText(3), QStringLiteral("1 3 2"));
    EXPECT_EQ(changed.size(), 0);
    EXPECT_TRUE(table.edit(table.rowID(0), 5, "700")); // other edits go on
    EXPECT_EQ(changed.size(), 1);
}

TEST(StockTable, EventsWithoutADataBlockAreHandledAndChangeNothing)
{
    BasketTable table;
    table.add(threeStocks());
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    EXPECT_TRUE(table.handleEvent(52, table.rowID(0), 5, QStringLiteral("7"), nullptr));
    EXPECT_TRUE(table.handleEvent(88, table.rowID(0), 3, QStringLiteral("7"), nullptr));
    EXPECT_EQ(changed.size(), 0);
}

TEST(StockTable, DeletionRemovesTheSelectedRows)
{
    BasketTable table;
    table.add(threeStocks());
    table.selectRows({ table.rowID(1) });
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    EXPECT_TRUE(table.handleEvent(58, -1, -1, QString(), nullptr));
    EXPECT_EQ(table.columnText(1), QStringLiteral("600000 000001"));
    EXPECT_EQ(changed.size(), 1);
}

TEST(StockTable, OtherEventsGoUpTheChain)
{
    struct Parent : WB::CEventDeliverer
    {
        bool handleDeliveredEvent(int id, const QString& text, void*) override
        {
            seen << QStringLiteral("%1 %2").arg(id).arg(text);
            return id == 1;
        }
        QStringList seen;
    } parent;
    BasketTable table;
    table.setParentDeliverer(&parent);
    EXPECT_TRUE(table.handleEvent(1, 0, 0, QStringLiteral("text"), nullptr));
    EXPECT_FALSE(table.handleEvent(2, 0, 0, QString(), nullptr));
    table.handleEvent(52, 0, 0, QString(), nullptr);
    EXPECT_EQ(parent.seen, QStringList({ QStringLiteral("1 text"), QStringLiteral("2 ") }));
}

// Filtering and sorting

TEST(StockTable, FiltersByTextOrByInitials)
{
    BasketTable table;
    table.add(threeStocks());
    const std::pair<const char*, const char*> cases[] = { { "银行", "600000 600036 000001" },
                                                          { "pfyh", "600000" },
                                                          { "PFYX", "600000" },
                                                          { "zs", "600036" },
                                                          { "平安", "000001" },
                                                          { "none", "" } };
    for (const auto& [text, expected] : cases) {
        table.setColumnFilter(2, QString::fromUtf8(text));
        EXPECT_EQ(table.columnText(1), QString::fromUtf8(expected)) << text;
    }
    table.setColumnFilter(2, QString());
    EXPECT_EQ(table.rowCount(), 3);
}

TEST(StockTable, AFilterOfAColumnLooksAtThatColumn)
{
    BasketTable table;
    table.add(threeStocks());
    table.setColumnFilter(1, QStringLiteral("600"));
    EXPECT_EQ(table.columnText(1), QStringLiteral("600000 600036"));
    table.setColumnFilter(0, QStringLiteral("SZ")); // both must pass
    EXPECT_EQ(table.rowCount(), 0);
    table.setColumnFilter(0, QString());
    table.setColumnFilter(1, QStringLiteral("银行")); // stands in the names
    EXPECT_EQ(table.rowCount(), 0);
}

TEST(StockTable, AFilterOfAnyColumnLooksAtMarketCodeAndName)
{
    BasketTable table;
    table.add(threeStocks());
    const std::pair<const char*, const char*> cases[] = {
        { "SZ", "000001" }, { "6000", "600000 600036" }, { "zsyh", "600036" }, { "300", "" }
    };
    for (const auto& [text, expected] : cases) {
        table.setColumnFilter(WB::CStandardTable::kAnyColumn, QString::fromUtf8(text));
        EXPECT_EQ(table.columnText(1), QString::fromUtf8(expected)) << text;
    }
}

TEST(StockTable, FilteringShowsUnscaledWeights)
{
    BasketTable table;
    table.add({ stock("600000", 0.5), stock("600036", 3.0) }, 0.5);
    EXPECT_EQ(table.columnText(3), QStringLiteral("5 30"));
    table.setColumnFilter(2, QStringLiteral("招"));
    EXPECT_EQ(table.columnText(3), QStringLiteral("3"));
}

TEST(StockTable, SortsByTheShownValueAndKeepsKeyOrderAmongEquals)
{
    BasketTable table;
    table.add({ stock("600000", 0.2), stock("600036", 0.1), stock("000001", 10.0), stock("000002", 9.0) });
    table.setSorting(3, Qt::AscendingOrder); // 0.2 and 0.1 both show 0; 9 comes before 10
    EXPECT_EQ(table.columnText(1), QStringLiteral("600000 600036 000002 000001"));
    table.setSorting(3, Qt::DescendingOrder);
    EXPECT_EQ(table.columnText(1), QStringLiteral("000001 000002 600000 600036"));
    table.setSorting(-1, Qt::AscendingOrder);
    EXPECT_EQ(table.columnText(1), QStringLiteral("600000 600036 000001 000002"));
}

TEST(StockTable, StaysSortedThroughEdits)
{
    BasketTable table;
    table.add(threeStocks());
    table.setSorting(3, Qt::DescendingOrder);
    EXPECT_EQ(table.columnText(3), QStringLiteral("3 2 1"));
    table.editInteger(table.rowID(2), 9);
    EXPECT_EQ(table.columnText(1), QStringLiteral("600000 600036 000001"));
}

// Keys

TEST(StockTable, ControlVAloneAsksForAPaste)
{
    BasketTable table;
    QSignalSpy pasted(&table, SIGNAL(sigPasteTable(bool)));
    QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(pasted.size(), 1);
    EXPECT_TRUE(pasted[0][0].toBool());
    QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&table, Qt::Key_V);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(pasted.size(), 1);
}

TEST(StockTable, KeysOfTheInnerViewArriveOnce)
{
    BasketTable table;
    table.add(threeStocks());
    QSignalSpy pasted(&table, SIGNAL(sigPasteTable(bool)));
    QTest::keyClick(table.view(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(pasted.size(), 1);
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    table.selectRows({ table.rowID(0) });
    QTest::keyClick(table.view(), Qt::Key_Delete);
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(changed.size(), 1);
}

TEST(StockTable, EveryKeyReachesTheBaseTable)
{
    BasketTable table;
    table.add(threeStocks());
    table.show();
    table.view()->setCurrentIndex(table.view()->model()->index(0, 1));
    QTest::keyClick(&table, Qt::Key_Down);
    EXPECT_EQ(table.view()->currentIndex().row(), 1);
}

// The editor of relative weights

TEST(StockTable, RelativeWeightsAreEditedAsWholeNumbersInRange)
{
    BasketTable table;
    table.add(threeStocks());
    table.show();
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    QTableView* view = table.view();
    const auto enter = [&](const char* text) {
        view->setCurrentIndex(view->model()->index(0, 3));
        view->edit(view->currentIndex());
        auto* editor = view->viewport()->findChild<QLineEdit*>();
        ASSERT_TRUE(editor);
        editor->clear();
        QTest::keyClicks(editor, QString::fromUtf8(text));
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents(); // the commit waits for the editor to finish with the key
        if (editor->isVisible())       // an editor that refuses its text stays open
            QTest::keyClick(editor, Qt::Key_Escape);
    };
    enter("10000");
    EXPECT_EQ(table.columnText(3), QStringLiteral("10000 3 2"));
    enter("0");
    enter("10001");
    enter("x");
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(table.columnText(3), QStringLiteral("10000 3 2"));
}

TEST(StockTable, AnEditThatChangesNothingSendsNothing)
{
    BasketTable table;
    table.add({ stock("600000", 0.25, 0.0, 100) });
    table.show();
    QSignalSpy changed(&table, SIGNAL(sigChange()));
    QTableView* view = table.view();
    view->edit(view->model()->index(0, 5));
    auto* editor = view->viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(changed.size(), 0);
    EXPECT_EQ(table.shares(), QStringLiteral("100"));
}
