// SPDX-License-Identifier: MIT
/// @file The menus of the client's window.

#include "apps/client/MainWindow.h"
#include "apps/client/PanelIds.h"
#include "apps/client/basket/BasketPanel.h"
#include "apps/client/language/Language.h"
#include "apps/client/lists/FormulaList.h"
#include "apps/client/lists/InstrumentList.h"
#include "apps/client/lists/InstrumentSearch.h"
#include "host/embedded/EmbeddedHost.h"

#include <QActionGroup>
#include <QFileDialog>
#include <QInputDialog>
#include <QMenuBar>
#include <QRegularExpression>

namespace client {

namespace {

QString chooseFile(QWidget* parent, const QString& title)
{
    return QFileDialog::getOpenFileName(parent, title, QString(), QStringLiteral("CSV (*.csv)"));
}

/// The titles of the shipped skins, for the catalogue.
[[maybe_unused]] const char* const kSkinTitles[] = {
    QT_TRANSLATE_NOOP("client::MainWindow", "深色（红涨绿跌）"),
    QT_TRANSLATE_NOOP("client::MainWindow", "浅色（红涨绿跌）"),
    QT_TRANSLATE_NOOP("client::MainWindow", "色觉友好（橙涨蓝跌）"),
};

} // namespace

void MainWindow::buildFileMenu()
{
    QMenu* menu = titled(menuBar()->addMenu(QString()), [] { return tr("文件(&F)"); });
    const auto add = [this, menu](auto what, const QKeySequence& keys = {}) {
        return menu->addAction(QString(), this, what, keys);
    };
    worded(add(&MainWindow::chooseBars, QKeySequence::Open), [] {
        return tr("打开K线…");
    })->setObjectName(QStringLiteral("openBars"));
    worded(add(&MainWindow::chooseTicks), [] { return tr("打开分笔…"); });
    worded(add([this] {
               const QString path = QFileDialog::getOpenFileName(this, tr("导入股票"), QString(),
                                                                 tr("股票列表 (*.csv *.txt *.xlsx *.xls)"));
               if (!path.isEmpty())
                   m_basket->importFile(path);
           }),
           [] { return tr("导入股票列表…"); });
    worded(add(&MainWindow::pasteIntoRaised, QKeySequence::Paste), [] { return tr("粘贴股票列表"); });
    worded(add([this] { m_search->open(m_instruments->instruments(), QString()); }, QKeySequence::Find), [] {
        return tr("搜索品种…");
    })->setObjectName(QStringLiteral("searchInstrument"));
    menu->addSeparator();
    buildOutputMenu(menu);
    menu->addSeparator();
    worded(add(&QWidget::close, QKeySequence::Quit), [] { return tr("退出"); });
}

void MainWindow::pasteIntoRaised()
{
    if (!m_basket->visibleRegion().isEmpty()) // a covered dock of Qt's own counts as visible
        m_basket->slotPaste();
    else
        slotShowMessage(tr("先把“篮子管理”面板放到前面，再粘贴股票列表"));
}

/// The title of a skin; what it says of the colours of rise and fall is left out where they are exchanged.
QString MainWindow::skinWords(const QString& name) const
{
    static const QRegularExpression colors(QStringLiteral("\\s*[(（].*[)）]"));
    QString title = tr(TC::embedded::skinTitle(name).toUtf8());
    return menuText(m_isGreenUp ? title.remove(colors) : title);
}

void MainWindow::buildViewMenu()
{
    QMenu* menu = titled(menuBar()->addMenu(QString()), [] { return tr("视图(&V)"); });
    m_viewMenu = menu;
    auto* skins = new QActionGroup(this);
    QMenu* skinMenu = titled(menu->addMenu(QString()), [] { return tr("皮肤"); });
    const QStringList names = TC::embedded::skinNames();
    for (const QString& name : names) {
        QAction* action = worded(skinMenu->addAction(QString(), this, [this, name] { chooseSkin(name); }),
                                 [this, name] { return skinWords(name); });
        action->setCheckable(true);
        action->setChecked(name == TC::embedded::currentSkin());
        skins->addAction(action);
    }
    worded(skinMenu->addAction(QString(), this,
                               [this] {
                                   const QString path = QFileDialog::getOpenFileName(
                                       this, tr("皮肤"), QString(), QStringLiteral("JSON (*.json)"));
                                   if (!path.isEmpty())
                                       chooseSkin(path);
                               }),
           [] { return tr("打开皮肤文件…"); });
    connect(skinMenu, &QMenu::aboutToShow, this, [this, skins, names] {
        for (int skin = 0; skin < names.size(); ++skin) {
            skins->actions().at(skin)->setText(skinWords(names.at(skin)));
            skins->actions().at(skin)->setChecked(names.at(skin) == TC::embedded::currentSkin());
        }
    });

    QAction* greenUp = worded(menu->addAction(QString()), [] { return tr("涨绿跌红"); });
    greenUp->setObjectName(QStringLiteral("greenUp"));
    greenUp->setCheckable(true);
    connect(greenUp, &QAction::toggled, this, &MainWindow::setGreenUp);
    addLanguages(menu);

    QMenu* panels = titled(menu->addMenu(QString()), [] { return tr("面板"); });
    for (const QString& id : panelIds()) {
        if (ads::CDockWidget* dock = m_docks.dock(id))
            panels->addAction(dock->toggleViewAction());
    }
    buildPanelKeys(panels);
    QMenu* arrangements = titled(menu->addMenu(QString()), [] { return tr("布局"); });
    connect(arrangements, &QMenu::aboutToShow, this, [this, arrangements] {
        arrangements->clear();
        arrangements->addAction(tr("默认布局"), this, [this] { m_docks.applyDefault(); });
        arrangements->addAction(tr("保存为…"), this, [this] {
            const QString name = QInputDialog::getText(this, tr("保存布局"), tr("名称"));
            if (!name.isEmpty())
                tell(m_docks.store(name).reason());
        });
        arrangements->addSeparator();
        const QStringList stored = m_docks.names();
        for (const QString& name : stored) {
            arrangements->addAction(menuText(name), this,
                                    [this, name] { tell(m_docks.apply(name).reason()); });
        }
    });
}

void MainWindow::addLanguages(QMenu* menu)
{
    // Its title is in the other language as well: whoever looks for it may not read this one.
    QMenu* languages = titled(menu->addMenu(QString()), [] { return tr("语言 / Language"); });
    auto* group = new QActionGroup(languages);
    for (const OfferedLanguage& language : offeredLanguages()) {
        QAction* action = languages->addAction(language.title);
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [key = language.key] { chooseLanguage(key); });
        followLanguage(action, [action, key = language.key] { action->setChecked(chosenLanguage() == key); });
    }
}

void MainWindow::buildOverlayMenu()
{
    QMenu* menu = titled(menuBar()->addMenu(QString()), [] { return tr("叠加(&O)"); });
    worded(menu->addAction(QString(), this,
                           [this] {
                               const QString path = chooseFile(this, tr("叠加品种"));
                               if (!path.isEmpty())
                                   static_cast<void>(overlayBars(path));
                           }),
           [] { return tr("叠加品种…"); });
    worded(menu->addAction(QString(), this, &MainWindow::clearOverlays), [] { return tr("清除叠加"); });
    menu->addSeparator();
    worded(menu->addAction(QString(), this,
                           [this] {
                               const QString path = chooseFile(this, tr("对照指数"));
                               if (!path.isEmpty())
                                   static_cast<void>(compareWith(path));
                           }),
           [] { return tr("对照指数…"); });
    worded(menu->addAction(QString(), this, &MainWindow::compareWithNothing),
           [] { return tr("取消对照指数"); });
}

void MainWindow::buildToolsMenu()
{
    QMenu* menu = titled(menuBar()->addMenu(QString()), [] { return tr("工具(&T)"); });
    QAction* demo = worded(menu->addAction(QString()), [] { return tr("演示账户（虚构数据）"); });
    demo->setCheckable(true);
    connect(demo, &QAction::toggled, this, &MainWindow::setDemoAccount);
    menu->addSeparator();
    const auto add = [this, menu](auto what, const QKeySequence& keys = {}) {
        return menu->addAction(QString(), this, what, keys);
    };
    worded(add([this] { raisePanel(kFormulaPanel, m_formulas); }, QKeySequence(QStringLiteral("Ctrl+I"))),
           [] { return tr("添加指标…"); })
        ->setObjectName(QStringLiteral("showFormulas"));
    worded(add([this] { showFormulaEditor(QString()); }, QKeySequence(QStringLiteral("Ctrl+E"))), [] {
        return tr("公式编辑器…");
    })->setObjectName(QStringLiteral("formulaEditor"));
    worded(add([this] { backUp(); }), [] { return tr("备份公式"); });
    worded(add([this] { showRestoreDialog(RestoreDialog::Occasion::Menu); }), [] { return tr("恢复公式…"); });
    worded(add([this] { reloadFormulas(); }), [] { return tr("重新载入公式"); });
}

void MainWindow::backUp()
{
    base::Result<bool> made = backUpFormulas();
    slotShowMessage(!made.isGood() ? tr("备份失败：%1").arg(made.reason())
                        : *made    ? tr("公式已备份")
                                   : tr("没有需要备份的改动，未做新备份"));
}

} // namespace client
