// SPDX-License-Identifier: MIT
/// @file The toolbar, and the sheet of all keys.

#include "apps/client/help/ShortcutSheet.h"
#include "apps/client/language/Language.h"
#include "apps/client/session/SessionKeeper.h"
#include "apps/client/tools/ActionTexts.h"
#include "apps/client/tools/ToolIcon.h"
#include "tests/widget/client/ClientWindow.h"

#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

#include <set>

using test::ClientWindow;

namespace {

QToolBar* toolBarOf(client::MainWindow& window)
{
    return window.findChild<QToolBar*>(QStringLiteral("mainTools"));
}

/// The shown lines of the sheet, without the names of menus.
QStringList linesOf(const client::ShortcutSheet& sheet)
{
    const auto* tree = sheet.findChild<QTreeWidget*>();
    QStringList lines;
    for (int menu = 0; menu < tree->topLevelItemCount(); ++menu) {
        const QTreeWidgetItem* group = tree->topLevelItem(menu);
        for (int line = 0; line < group->childCount(); ++line) {
            const QTreeWidgetItem* item = group->child(line);
            if (!group->isHidden() && !item->isHidden())
                lines << item->text(0) + QLatin1Char('\t') + item->text(1);
        }
    }
    return lines;
}

bool hasInk(const QIcon& icon, const QColor& color)
{
    const QImage image = icon.pixmap(20, 20).toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                return true;
        }
    }
    return false;
}

} // namespace

TEST_F(ClientWindow, HasAToolbarWhoseTipsNameTheKeys)
{
    const QToolBar* bar = toolBarOf(*m_window);
    ASSERT_NE(bar, nullptr);
    int icons = 0;
    for (const QAction* action : bar->actions()) {
        if (action->isSeparator() || action->icon().isNull())
            continue;
        ++icons;
        EXPECT_FALSE(action->icon().pixmap(20, 20).isNull());
        if (!action->shortcut().isEmpty()) {
            EXPECT_TRUE(action->toolTip().contains(action->shortcut().toString(QKeySequence::NativeText)))
                << action->toolTip().toStdString();
        }
    }
    EXPECT_EQ(icons, 14);
    entry(QStringLiteral("English"))->trigger();
    EXPECT_EQ(m_window->findChild<QAction*>(QStringLiteral("goToDate"))->toolTip(),
              QStringLiteral("Go to date (Ctrl+G)"));
}

TEST_F(ClientWindow, HidesTheToolbarFromTheViewMenuAndKeepsItSoForTheNextRun)
{
    QAction* shown = entry(QStringLiteral("工具栏"));
    ASSERT_NE(shown, nullptr);
    const auto* view = qobject_cast<QMenu*>(shown->associatedWidgets().last());
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->title(), QStringLiteral("视图(&V)"));
    EXPECT_TRUE(shown->isChecked());
    EXPECT_TRUE(toolBarOf(*m_window)->isVisible());
    shown->trigger();
    EXPECT_FALSE(toolBarOf(*m_window)->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([] { return !client::SessionKeeper::last().hasTools; }, 30'000));
    client::MainWindow next;
    next.resize(1400, 860);
    showSettled(next);
    EXPECT_FALSE(toolBarOf(next)->isVisible());
    auto* again = next.findChild<QAction*>(QStringLiteral("showTools"));
    EXPECT_FALSE(again->isChecked());
    again->trigger();
    EXPECT_TRUE(toolBarOf(next)->isVisible());
}

TEST_F(ClientWindow, ShowsTheChosenPeriodOnTheToolbar)
{
    openShare();
    const auto* button = toolBarOf(*m_window)->findChild<QToolButton*>(QStringLiteral("choosePeriod"));
    ASSERT_NE(button, nullptr);
    chart()->state()->setPeriod(QStringLiteral("WEEK"));
    EXPECT_EQ(button->text().trimmed(), QStringLiteral("周线"));
    entry(QStringLiteral("English"))->trigger();
    EXPECT_EQ(button->text().trimmed(), QStringLiteral("Week"));
}

TEST_F(ClientWindow, DrawsItsIconsInTheColourOfTheSkinsTexts)
{
    const QStringList skins = TC::embedded::skinNames();
    for (const QString& skin : skins) {
        m_window->chooseSkin(skin);
        EXPECT_TRUE(hasInk(client::toolIcon("print"), QApplication::palette().color(QPalette::ButtonText)))
            << skin.toStdString();
    }
    m_window->chooseSkin(skins.front());
}

TEST_F(ClientWindow, TellsEveryKeyOnF1)
{
    m_window->activateWindow();
    entry(QStringLiteral("快捷键…"))->trigger();
    auto* sheet = m_window->findChild<client::ShortcutSheet*>();
    ASSERT_NE(sheet, nullptr);
    const QStringList lines = linesOf(*sheet);
    int withKeys = 0;
    for (const QAction* action : m_window->findChildren<QAction*>()) {
        // Those that stand in no menu are the library's, which keep to their own widget, or the tick page's.
        if (action->shortcuts().isEmpty() || action->associatedWidgets().isEmpty()
            || !qobject_cast<QMenu*>(action->associatedWidgets().last()))
            continue;
        ++withKeys;
        EXPECT_TRUE(
            lines.contains(client::plainText(*action) + QLatin1Char('\t') + client::keysText(*action)))
            << action->text().toStdString();
    }
    EXPECT_GT(withKeys, 20);
    EXPECT_TRUE(lines.contains(QStringLiteral("跳转到日期\tCtrl+G")));
    EXPECT_EQ(entry(QStringLiteral("快捷键…"))->shortcut(), QKeySequence(Qt::Key_F1));
}

TEST_F(ClientWindow, SearchesTheKeysByActionAndByKey)
{
    entry(QStringLiteral("快捷键…"))->trigger();
    const auto* sheet = m_window->findChild<client::ShortcutSheet*>();
    auto* field = sheet->findChild<QLineEdit*>();
    field->setText(QStringLiteral("日期"));
    EXPECT_EQ(linesOf(*sheet), QStringList { QStringLiteral("跳转到日期\tCtrl+G") });
    field->setText(QStringLiteral("ctrl+g"));
    EXPECT_EQ(linesOf(*sheet), QStringList { QStringLiteral("跳转到日期\tCtrl+G") });
    field->setText(QStringLiteral("nothing like it"));
    EXPECT_TRUE(linesOf(*sheet).isEmpty());
    field->clear();
    EXPECT_GT(linesOf(*sheet).size(), 30);
}

TEST_F(ClientWindow, GivesNoKeyToTwoActions)
{
    std::set<QString> seen;
    for (const QAction* action : m_window->findChildren<QAction*>()) {
        if (action->shortcutContext() != Qt::WindowShortcut)
            continue;
        for (const QKeySequence& key : action->shortcuts())
            EXPECT_TRUE(seen.insert(key.toString()).second)
                << key.toString().toStdString() << " of " << action->text().toStdString();
    }
}
