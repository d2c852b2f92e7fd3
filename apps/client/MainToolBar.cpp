// SPDX-License-Identifier: MIT
/// @file The toolbar of the client's window, and its help.

#include "apps/client/MainWindow.h"
#include "apps/client/PanelIds.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/help/ShortcutSheet.h"
#include "apps/client/language/Language.h"
#include "apps/client/lists/FormulaList.h"
#include "apps/client/tools/ActionTexts.h"
#include "apps/client/tools/ToolIcon.h"

#include <QApplication>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace client {

namespace {

constexpr int kIconSize = 20; // pixels

/// What stands on the toolbar: an action of the menus by its object's name, and its drawing. A null name
/// parts groups.
constexpr std::pair<const char*, const char*> kTools[] = {
    { "openBars", "open" },       { "searchInstrument", "search" }, { nullptr, nullptr },
    { "choosePeriod", nullptr },  { "goToDate", "date" },           { "zoomIn", "zoomin" },
    { "zoomOut", "zoomout" },     { "showNewest", "newest" },       { "magnet", "magnet" },
    { nullptr, nullptr },         { "showFormulas", "formula" },    { "formulaEditor", "editor" },
    { nullptr, nullptr },         { "replayBars", "replay" },       { nullptr, nullptr },
    { "savePicture", "picture" }, { "copyPicture", "copy" },        { "print", "print" },
    { nullptr, nullptr },         { "shortcuts", "help" },
};

/// A button that shows a menu of choices and, as its text, the one that is made.
QToolButton* choiceButton(QMenu* menu)
{
    auto* button = new QToolButton;
    button->setObjectName(QStringLiteral("choosePeriod"));
    button->setMenu(menu);
    button->setPopupMode(QToolButton::InstantPopup);
    const auto follow = [button, menu] {
        const QList<QAction*> choices = menu->actions();
        for (const QAction* action : choices) {
            if (action->isChecked())
                button->setText(action->text() + QStringLiteral("    ")); // room for the mark
        }
        button->setToolTip(plainText(*menu->menuAction()));
        button->setAccessibleName(button->toolTip());
    };
    const QList<QAction*> choices = menu->actions();
    for (QAction* action : choices)
        QObject::connect(action, &QAction::changed, button, follow);
    followLanguage(button, follow);
    return button;
}

} // namespace

void MainWindow::buildToolBar(QMenu* periods)
{
    auto* bar = new QToolBar(this);
    bar->setObjectName(QStringLiteral("mainTools"));
    bar->setMovable(false);
    bar->setIconSize(QSize(kIconSize, kIconSize));
    followLanguage(bar, [bar] { bar->setWindowTitle(tr("工具栏")); });
    for (const auto& [name, drawing] : kTools) {
        if (!name)
            bar->addSeparator();
        else if (!drawing)
            bar->addWidget(choiceButton(periods));
        else if (auto* action = findChild<QAction*>(QLatin1String(name))) {
            action->setIcon(toolIcon(drawing));
            action->setIconVisibleInMenu(false);
            followLanguage(action, [action] { action->setToolTip(toolTipText(*action)); });
            bar->addAction(action);
        }
    }
    addToolBar(Qt::TopToolBarArea, bar);
    bar->toggleViewAction()->setObjectName(QStringLiteral("showTools"));
    m_viewMenu->insertAction(findChild<QAction*>(QStringLiteral("greenUp")), bar->toggleViewAction());
}

void MainWindow::buildHelpMenu()
{
    QMenu* menu = titled(menuBar()->addMenu(QString()), [] { return tr("帮助(&H)"); });
    QAction* sheet =
        worded(menu->addAction(QString(), this, &MainWindow::showShortcuts, QKeySequence::HelpContents),
               [] { return tr("快捷键…"); });
    sheet->setObjectName(QStringLiteral("shortcuts"));
}

void MainWindow::showShortcuts()
{
    if (!m_shortcuts) {
        m_shortcuts = new ShortcutSheet(menuBar(), this);
        m_shortcuts->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_shortcuts->show();
    m_shortcuts->raise();
    m_shortcuts->activateWindow();
}

/// The panel behind the one that has the focus, among those that are open, comes to the front and takes it.
void MainWindow::goToPanel(int step)
{
    QList<ads::CDockWidget*> open;
    for (const QString& id : panelIds()) {
        ads::CDockWidget* dock = m_docks.dock(id);
        if (dock && !dock->isClosed())
            open << dock;
    }
    if (open.isEmpty())
        return;
    const auto holdsFocus = [](const ads::CDockWidget* dock) {
        const QWidget* focus = QApplication::focusWidget();
        return focus && dock->isAncestorOf(focus);
    };
    const auto now = std::find_if(open.begin(), open.end(), holdsFocus);
    const int place = now == open.end() ? (step > 0 ? -1 : 0) : static_cast<int>(now - open.begin());
    ads::CDockWidget* next = open.at((place + step + open.size()) % open.size());
    next->setAsCurrentTab();
    if (QWidget* panel = m_docks.panel(next->objectName()))
        panel->setFocus(Qt::ShortcutFocusReason);
}

void MainWindow::buildPanelKeys(QMenu* menu)
{
    menu->addSeparator();
    worded(menu->addAction(
               QString(), this, [this] { goToPanel(1); }, Qt::Key_F6),
           [] { return tr("下一面板"); });
    worded(menu->addAction(
               QString(), this, [this] { goToPanel(-1); }, QKeySequence(QStringLiteral("Shift+F6"))),
           [] { return tr("上一面板"); });
}

} // namespace client
