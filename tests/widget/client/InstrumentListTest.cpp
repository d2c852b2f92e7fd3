// SPDX-License-Identifier: MIT
/// @file From one instrument to another by keys, filter and search.

#include "apps/client/lists/InstrumentList.h"
#include "apps/client/lists/InstrumentSearch.h"
#include "tests/widget/client/ClientWindow.h"

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>

using test::ClientWindow;

namespace {

/// The folder holds DFM00, SFCU00, SH000001, SH510050, SH600030.
class InstrumentKeys : public ClientWindow
{
protected:
    InstrumentKeys() { openShare(); }

    client::InstrumentList* list() { return m_window->findChild<client::InstrumentList*>(); }
    QLineEdit* filter() { return list()->findChild<QLineEdit*>(); }
    QListWidget* rows() { return list()->findChild<QListWidget*>(); }
    client::InstrumentSearch* search() { return m_window->findChild<client::InstrumentSearch*>(); }
    QString shown() { return panes()[0]->getMarket() + panes()[0]->getStock(); }
};

} // namespace

TEST_F(InstrumentKeys, FilterAndCurrentRowSurviveOpening)
{
    filter()->setFocus(); // the chart's own keys are heard where the focus is
    filter()->setText(QStringLiteral("SH"));
    EXPECT_EQ(rows()->currentRow(), 4);
    QTest::keyClick(filter(), Qt::Key_Up);
    QTest::keyClick(filter(), Qt::Key_Return);
    EXPECT_EQ(shown(), QStringLiteral("SH510050"));
    EXPECT_EQ(filter()->text(), QStringLiteral("SH"));
    EXPECT_EQ(rows()->currentRow(), 3);
    EXPECT_TRUE(rows()->item(0)->isHidden());
}

TEST_F(InstrumentKeys, PageKeysOnTheChartStepThroughWhatTheFilterLeaves)
{
    filter()->setText(QStringLiteral("00")); // DFM00, SFCU00, SH000001, SH510050, SH600030
    filter()->setText(QStringLiteral("SH"));
    QTest::keyClick(chart(), Qt::Key_PageUp);
    EXPECT_EQ(shown(), QStringLiteral("SH510050"));
    QTest::keyClick(chart(), Qt::Key_PageUp);
    EXPECT_EQ(shown(), QStringLiteral("SH000001"));
    QTest::keyClick(chart(), Qt::Key_PageUp); // the filter leaves none before it
    EXPECT_EQ(shown(), QStringLiteral("SH000001"));
    QTest::keyClick(chart(), Qt::Key_PageDown);
    EXPECT_EQ(shown(), QStringLiteral("SH510050"));
}

TEST_F(InstrumentKeys, EnterInTheFilterOpensTheFirstMatch)
{
    filter()->setText(QStringLiteral("豆粕"));
    QTest::keyClick(filter(), Qt::Key_Return);
    EXPECT_EQ(shown(), QStringLiteral("DFM00"));
}

TEST_F(InstrumentKeys, TypingOnTheChartSearchesAllInstruments)
{
    filter()->setText(QStringLiteral("SH")); // the search looks at all of them
    QTest::keyClick(chart(), Qt::Key_D);
    ASSERT_TRUE(search()->isVisible());
    auto* field = search()->findChild<QLineEdit*>();
    EXPECT_EQ(field->text(), QStringLiteral("d"));
    QTest::keyClicks(field, QStringLiteral("fm"));
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_FALSE(search()->isVisible());
    EXPECT_EQ(shown(), QStringLiteral("DFM00"));
    EXPECT_TRUE(chart()->hasFocus());
}

TEST_F(InstrumentKeys, PinyinInitialsAndTheDigitsOfACodeFindAnInstrument)
{
    for (const auto& [typed, key] : { std::pair("zxzq", "SH600030"), std::pair("510", "SH510050") }) {
        QTest::keyClicks(chart(), QString::fromLatin1(typed).left(1));
        auto* field = search()->findChild<QLineEdit*>();
        QTest::keyClicks(field, QString::fromLatin1(typed).mid(1));
        QTest::keyClick(field, Qt::Key_Return);
        EXPECT_EQ(shown(), QLatin1String(key)) << typed;
    }
}

TEST_F(InstrumentKeys, EscapeClosesTheSearchAndChangesNothing)
{
    QTest::keyClicks(chart(), QStringLiteral("5"));
    QTest::keyClick(search()->findChild<QLineEdit*>(), Qt::Key_Escape);
    EXPECT_FALSE(search()->isVisible());
    EXPECT_EQ(shown(), QStringLiteral("SH600030"));
    EXPECT_TRUE(chart()->hasFocus());
}

TEST_F(InstrumentKeys, PageAndCursorKeysMoveTheCurrentRowOfTheFilter)
{
    filter()->setFocus();
    const auto rowAfter = [&](Qt::Key key) {
        QTest::keyClick(filter(), key);
        return rows()->currentRow();
    };
    EXPECT_EQ(rowAfter(Qt::Key_PageUp), 0); // a page is longer than the list
    EXPECT_EQ(rowAfter(Qt::Key_Up), 0);
    EXPECT_EQ(rowAfter(Qt::Key_Down), 1);
    EXPECT_EQ(rowAfter(Qt::Key_PageDown), 4);
    EXPECT_EQ(rowAfter(Qt::Key_Down), 4);
    EXPECT_EQ(shown(), QStringLiteral("SH600030")) << "nothing was opened";
}

TEST_F(InstrumentKeys, CursorKeysChooseAmongWhatTheSearchFinds)
{
    QTest::keyClick(chart(), Qt::Key_0);
    ASSERT_TRUE(search()->isVisible());
    auto* field = search()->findChild<QLineEdit*>();
    const auto* found = search()->findChild<QListWidget*>();
    const int count = found->count();
    ASSERT_GT(count, 2);
    QTest::keyClick(field, Qt::Key_Up);
    EXPECT_EQ(found->currentRow(), 0);
    QTest::keyClick(field, Qt::Key_Down);
    EXPECT_EQ(found->currentRow(), 1);
    for (int more = 0; more < count; ++more)
        QTest::keyClick(field, Qt::Key_Down);
    EXPECT_EQ(found->currentRow(), count - 1);
    const QString last = QFileInfo(found->currentItem()->data(Qt::UserRole).toString()).baseName();
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_FALSE(search()->isVisible());
    EXPECT_EQ(shown(), last);
}

TEST_F(InstrumentKeys, FavouritesAreChosenByTheListsMenu)
{
    const auto openMenu = [&](const QPoint& place) {
        QContextMenuEvent asked(QContextMenuEvent::Mouse, place, rows()->viewport()->mapToGlobal(place));
        QApplication::sendEvent(rows()->viewport(), &asked);
        return list()->findChild<QMenu*>();
    };
    const auto choose = [&](int row, const char* text) {
        QMenu* menu = openMenu(rows()->visualItemRect(rows()->item(row)).center());
        ASSERT_TRUE(menu);
        ASSERT_EQ(menu->actions().size(), 1);
        EXPECT_EQ(menu->actions().first()->text(), QString::fromUtf8(text));
        menu->actions().first()->trigger();
        delete menu;
    };
    choose(1, "加入自选");
    EXPECT_EQ(list()->favourites(), QStringList(QStringLiteral("SFCU00")));
    choose(1, "移出自选");
    EXPECT_EQ(list()->favourites(), QStringList());
    EXPECT_FALSE(openMenu(QPoint(5, 100'000))) << "no instrument stands there";
}
