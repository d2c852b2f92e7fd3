// SPDX-License-Identifier: MIT
#include "host/WB/CIntValidator.h"
#include "host/WB/CLineEdit.h"
#include "host/WB/CStandardTable.h"
#include "host/WB/TableEvents.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/Trace.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>

namespace {

/// A table of two columns that writes down its events.
class Table : public WB::CStandardTable
{
public:
    explicit Table(QFlags<WB::EBaseTableMenuFlag> menu = {})
        : CStandardTable(7, nullptr, menu)
    {
        setColumnCount(2);
        setColumnHeader(0, QStringLiteral("name"));
        setColumnHeader(1, QStringLiteral("number"));
    }

    QVector<int> fill(std::initializer_list<std::pair<const char*, double>> rows)
    {
        const QVector<int> ids = setRowCount(static_cast<int>(rows.size()));
        int place = 0;
        for (const auto& [text, number] : rows) {
            setCellText(ids[place], 0, QString::fromUtf8(text));
            setCellNumber(ids[place++], 1, number, 1, {});
        }
        return ids;
    }
    QString names() const
    {
        QStringList texts;
        for (int place = 0; place < rowCount(); ++place)
            texts << cellText(rowID(place), 0);
        return texts.join(QLatin1Char(' '));
    }
    bool handleEvent(int id, int row, int col, QString text, void*) override
    {
        events << QStringLiteral("%1 row %2 col %3 %4").arg(id).arg(row).arg(col).arg(text);
        return true;
    }
    QTableView* view() const { return findChild<QTableView*>(); }

    /// The open menu of the header; null when there is none.
    QMenu* headerMenu() const
    {
        const QList<QMenu*> menus = findChildren<QMenu*>();
        const auto open = std::find_if(menus.begin(), menus.end(), [&](const QMenu* menu) {
            return menu != contextMenu() && menu->isVisible();
        });
        return open == menus.end() ? nullptr : *open;
    }
    void closeHeaderMenu() const
    {
        headerMenu()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QStringList events;
};

void openHeaderMenu(const Table& table, int x)
{
    QWidget* header = table.view()->horizontalHeader()->viewport();
    QContextMenuEvent asked(QContextMenuEvent::Mouse, QPoint(x, 5), header->mapToGlobal(QPoint(x, 5)));
    QCoreApplication::sendEvent(header, &asked);
}

} // namespace

TEST(StandardTable, RowIdsAreNewAfterEachRefill)
{
    Table table;
    const QVector<int> first = table.fill({ { "a", 1 }, { "b", 2 } });
    const QVector<int> second = table.fill({ { "c", 3 } });
    ASSERT_EQ(first.size(), 2);
    EXPECT_FALSE(first.contains(second[0]));
    EXPECT_EQ(table.cellText(first[0], 0), QString());
    EXPECT_EQ(table.cellText(second[0], 0), QStringLiteral("c"));
}

TEST(StandardTable, UnknownRowsAndColumnsAnswerEmptyAndChangeNothing)
{
    Table table;
    const int row = table.fill({ { "a", 1 } })[0];
    for (const auto& [r, c] : { std::pair<int, int> { -1, 0 },
                                { row + 1, 0 },
                                { INT_MAX, 0 },
                                { INT_MIN, 0 },
                                { row, -1 },
                                { row, 2 } }) {
        table.setCellText(r, c, QStringLiteral("x"));
        table.setCellEditable(r, c, true);
        EXPECT_EQ(table.cellText(r, c), QString());
        EXPECT_FALSE(table.cellEditable(r, c));
    }
    for (const int column : { -1, 2 }) {
        table.setColumnHeader(column, QStringLiteral("x"));
        table.setColumnVisible(column, true);
        table.setColumnWidth(column, 10);
        table.setColumnEditable(column, true);
        EXPECT_EQ(table.columnHeader(column), QString());
        EXPECT_FALSE(table.columnVisible(column));
        EXPECT_EQ(table.columnID(column), -1);
    }
    EXPECT_EQ(table.rowID(-1), -1);
    EXPECT_EQ(table.rowID(1), -1);
    EXPECT_EQ(table.setRowCount(-3).size(), 0);
}

TEST(StandardTable, InvalidNumbersShowTheInvalidText)
{
    Table table;
    const int row = table.fill({ { "a", std::numeric_limits<double>::quiet_NaN() } })[0];
    EXPECT_EQ(table.cellText(row, 1), QStringLiteral("非法值"));
}

TEST(StandardTable, SortsNumbersBySizeWithInvalidOnesFirst)
{
    Table table;
    table.fill({ { "ten", 10 }, { "nine", 9 }, { "none", NAN }, { "minus", -1 } });
    table.sortByColumn(1, Qt::AscendingOrder);
    EXPECT_EQ(table.names(), QStringLiteral("none minus nine ten"));
    table.sortByColumn(0, Qt::AscendingOrder);
    EXPECT_EQ(table.names(), QStringLiteral("minus nine none ten"));
    table.sortByColumn(-1, Qt::AscendingOrder);
    EXPECT_EQ(table.names(), QStringLiteral("ten nine none minus"));
}

TEST(StandardTable, AHeaderClickSortsTurnsAndEndsTheSorting)
{
    Table table;
    table.show();
    table.fill({ { "b", 1 }, { "a", 2 } });
    const auto click = [&] {
        QTest::mouseClick(table.view()->horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
        return table.names();
    };
    EXPECT_EQ(click(), QStringLiteral("a b"));
    EXPECT_EQ(click(), QStringLiteral("b a"));
    EXPECT_EQ(table.getSortColumnID(), 0);
    EXPECT_EQ(table.getSortOrder(), Qt::DescendingOrder);
    click();
    EXPECT_EQ(table.getSortColumnID(), -1);
}

TEST(StandardTable, FiltersHideRowsByDefault)
{
    Table table;
    table.fill({ { "apple", 1 }, { "pear", 2 } });
    table.setColumnFilter(0, QStringLiteral("pp"));
    EXPECT_FALSE(table.view()->isRowHidden(0));
    EXPECT_TRUE(table.view()->isRowHidden(1));
    table.setColumnFilter(0, QString());
    EXPECT_FALSE(table.view()->isRowHidden(1));
    EXPECT_TRUE(table.columnFilters().isEmpty());
}

TEST(StandardTable, TheDeleteKeySendsAnEvent)
{
    Table table;
    table.fill({ { "a", 1 } });
    QTest::keyClick(&table, Qt::Key_Delete);
    QTest::keyClick(table.view(), Qt::Key_Delete);
    QTest::keyClick(&table, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(table.events,
              QStringList({ QStringLiteral("58 row -1 col -1 "), QStringLiteral("58 row -1 col -1 ") }));
}

TEST(StandardTable, TheDeleteEntryOfTheMenuIsOptional)
{
    Table plain, withDelete(WB::EBaseTableMenu_Delete);
    EXPECT_TRUE(plain.contextMenu()->isEmpty());
    withDelete.contextMenu()->actions().value(0)->trigger();
    EXPECT_EQ(withDelete.events, QStringList(QStringLiteral("58 row -1 col -1 ")));
}

TEST(StandardTable, ACommittedEditSendsItsTextAndAnIntegerEditorItsNumber)
{
    Table table;
    table.show();
    auto* editor = new WB::CLineEdit;
    editor->setValidator(new WB::CIntValidator(1, 99, editor));
    table.setColumnEditor(1, editor);
    table.setColumnEditable(0, true);
    table.setColumnEditable(1, true);
    const int row = table.fill({ { "a", 1 } })[0];
    for (int column = 0; column < 2; ++column) {
        table.view()->edit(table.view()->model()->index(0, column));
        auto* line = table.view()->viewport()->findChild<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly);
        ASSERT_TRUE(line);
        line->clear();
        QTest::keyClicks(line, QStringLiteral("42"));
        QTest::keyClick(line, Qt::Key_Return);
        QApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_EQ(table.events,
              QStringList({ QStringLiteral("52 row %1 col 0 42").arg(row),
                            QStringLiteral("88 row %1 col 1 42").arg(row) }));
    EXPECT_EQ(editor->parent(), &table); // back with its owner
}

TEST(StandardTable, AChangedCellDoesNotOverwriteWhatIsBeingTyped)
{
    Table table;
    table.show();
    table.setColumnEditable(0, true);
    const int row = table.fill({ { "a", 1 } })[0];
    table.view()->edit(table.view()->model()->index(0, 0));
    auto* line = table.view()->viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(line);
    QTest::keyClicks(line, QStringLiteral("new"));
    table.setCellText(row, 0, QStringLiteral("b"));
    QApplication::processEvents();
    EXPECT_EQ(line->text(), QStringLiteral("new"));
}

TEST(StandardTable, ARefillKeepsTheCursorInItsPlaceAndSelectsNothing)
{
    Table table;
    table.fill({ { "a", 1 }, { "b", 2 }, { "c", 3 } });
    table.view()->setCurrentIndex(table.view()->model()->index(2, 1));
    table.clearRows();
    table.fill({ { "a", 1 }, { "b", 2 } });
    EXPECT_EQ(table.view()->currentIndex(), table.view()->model()->index(1, 1));
    EXPECT_TRUE(table.selectedRows().empty());
}

TEST(StandardTable, SelectionsAreRowIds)
{
    Table table;
    const QVector<int> ids = table.fill({ { "b", 1 }, { "a", 2 } });
    table.sortByColumn(0, Qt::AscendingOrder);
    table.view()->selectRow(0); // shows "a"
    EXPECT_EQ(table.selectedRows(), std::set<int>({ ids[1] }));
    table.selectRows({ ids[0], 999999 });
    EXPECT_EQ(table.selectedRows(), std::set<int>({ ids[0] }));
}

TEST(StandardTable, TheStatusLineShowsTextsUnderTheirColumns)
{
    Table table;
    table.resize(300, 120);
    table.show();
    const QImage before = table.grab().toImage();
    table.setStatText(1, QStringLiteral("12.0"));
    EXPECT_EQ(table.statText(1), QStringLiteral("12.0"));
    EXPECT_EQ(table.statText(0), QString());
    const QImage after = table.grab().toImage();
    const QRect cell(table.view()->columnWidth(0), after.height() - 20, table.view()->columnWidth(1), 20);
    EXPECT_NE(before.copy(cell), after.copy(cell));
    EXPECT_EQ(before.copy(0, 0, after.width(), after.height() - 21),
              after.copy(0, 0, after.width(), after.height() - 21));
}

TEST(StandardTable, FollowsTheSkin)
{
    Table table;
    table.resize(300, 120);
    TC::embedded::setColor(QStringLiteral("ic_clr_graph_kline_bg"), QColor(10, 20, 30));
    EXPECT_EQ(table.grab().toImage().pixelColor(150, 60), QColor(10, 20, 30));
    TC::embedded::clearSkin(); // no key answers
    table.grab();
}

TEST(StandardTable, AFilterOfAnyColumnLeavesRowsThatHoldTheTextSomewhere)
{
    Table table;
    table.fill({ { "apple", 12 }, { "pear", 7 }, { "plum 12", 3 } });
    table.setColumnFilter(WB::CStandardTable::kAnyColumn, QStringLiteral("12"));
    EXPECT_FALSE(table.view()->isRowHidden(0)); // in its number
    EXPECT_TRUE(table.view()->isRowHidden(1));
    EXPECT_FALSE(table.view()->isRowHidden(2)); // in its name
}

TEST(StandardTable, TheHeadersMenuFiltersTheColumnUnderThePointerByWhatIsTyped)
{
    Table table(WB::EBaseTableMenu_Filter);
    table.resize(300, 120);
    table.show();
    table.fill({ { "apple", 12 }, { "pear", 7 } });
    const auto fieldOver = [&](int column) {
        openHeaderMenu(table, table.view()->horizontalHeader()->sectionViewportPosition(column) + 5);
        return table.headerMenu()->findChild<QLineEdit*>();
    };
    QTest::keyClicks(fieldOver(1), QStringLiteral("7"));
    EXPECT_TRUE(table.view()->isRowHidden(0));
    EXPECT_FALSE(table.view()->isRowHidden(1));
    EXPECT_EQ(table.columnFilters(), (QMap<int, QString> { { 1, QStringLiteral("7") } }));
    table.closeHeaderMenu();
    EXPECT_EQ(fieldOver(0)->text(), QString());
    table.closeHeaderMenu();
    QLineEdit* field = fieldOver(1);
    EXPECT_EQ(field->text(), QStringLiteral("7"));
    EXPECT_EQ(field->placeholderText(), QStringLiteral("筛选“number”"));
    field->clear();
    EXPECT_FALSE(table.view()->isRowHidden(0));
}

TEST(StandardTable, TheHeadersMenuHidesColumnsAndShowsThemAgain)
{
    Table table(WB::EBaseTableMenu_Columns);
    table.resize(300, 120);
    table.show();
    table.setColumnHeader(1, QStringLiteral("P&L"));
    table.setColumnVisible(0, false);
    openHeaderMenu(table, 5);
    const QList<QAction*> shown = table.headerMenu()->actions();
    ASSERT_EQ(shown.size(), 2);
    EXPECT_EQ(shown[1]->text(), QStringLiteral("P&&L")); // an ampersand, not a key
    EXPECT_FALSE(shown[0]->isChecked());
    EXPECT_TRUE(shown[1]->isChecked());
    shown[0]->trigger();
    shown[1]->trigger();
    EXPECT_TRUE(table.columnVisible(0));
    EXPECT_FALSE(table.columnVisible(1));
}

TEST(StandardTable, AHeaderWithoutChoicesOpensNoMenu)
{
    Table table, filtered(WB::EBaseTableMenu_Filter);
    table.resize(300, 120);
    table.show();
    openHeaderMenu(table, 5);
    EXPECT_FALSE(table.headerMenu());
    filtered.resize(1000, 120);
    filtered.show();
    openHeaderMenu(filtered, filtered.view()->horizontalHeader()->length() + 5); // beside the last column
    EXPECT_FALSE(filtered.headerMenu());
}

TEST(StandardTable, TheRowsMenuOpensUnderThePointer)
{
    Table table(WB::EBaseTableMenu_Delete);
    table.resize(300, 120);
    table.show();
    const QPoint place(40, 30);
    QContextMenuEvent asked(QContextMenuEvent::Mouse, place, table.view()->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(table.view()->viewport(), &asked);
    EXPECT_TRUE(table.contextMenu()->isVisible());
    EXPECT_EQ(table.contextMenu()->pos(), table.view()->viewport()->mapToGlobal(place));
    table.contextMenu()->close();
}
