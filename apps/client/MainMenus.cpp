// SPDX-License-Identifier: MIT
/// @file The menus of the client's window.

#include "apps/client/MainWindow.h"
#include "apps/client/PanelIds.h"
#include "apps/client/basket/BasketPanel.h"
#include "host/embedded/EmbeddedHost.h"

#include <QActionGroup>
#include <QFileDialog>
#include <QInputDialog>
#include <QMenuBar>

namespace client {

namespace {

QString chooseFile(QWidget* parent, const QString& title)
{
    return QFileDialog::getOpenFileName(parent, title, QString(), QStringLiteral("CSV (*.csv)"));
}

} // namespace

void MainWindow::buildFileMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("文件(&F)"));
    menu->addAction(QStringLiteral("打开K线…"), this, &MainWindow::chooseBars, QKeySequence::Open);
    menu->addAction(QStringLiteral("打开分笔…"), this, &MainWindow::chooseTicks);
    menu->addAction(QStringLiteral("导入股票列表…"), this, [this] {
        const QString path =
            QFileDialog::getOpenFileName(this, QStringLiteral("导入股票"), QString(),
                                         QStringLiteral("股票列表 (*.csv *.txt *.xlsx *.xls)"));
        if (!path.isEmpty())
            m_basket->importFile(path);
    });
    menu->addAction(QStringLiteral("粘贴股票列表"), this, &MainWindow::pasteIntoRaised, QKeySequence::Paste);
    menu->addSeparator();
    buildOutputMenu(menu);
    menu->addSeparator();
    menu->addAction(QStringLiteral("退出"), this, &QWidget::close, QKeySequence::Quit);
}

void MainWindow::pasteIntoRaised()
{
    if (m_basket->isVisible())
        m_basket->slotPaste();
    else
        slotShowMessage(QStringLiteral("先把“篮子管理”面板放到前面，再粘贴股票列表"));
}

void MainWindow::buildViewMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("视图(&V)"));
    auto* skins = new QActionGroup(this);
    QMenu* skinMenu = menu->addMenu(QStringLiteral("皮肤"));
    const QStringList names = TC::embedded::skinNames();
    for (const QString& name : names) {
        QAction* action = skinMenu->addAction(menuText(TC::embedded::skinTitle(name)), this,
                                              [this, name] { chooseSkin(name); });
        action->setCheckable(true);
        action->setChecked(name == TC::embedded::currentSkin());
        skins->addAction(action);
    }
    skinMenu->addAction(QStringLiteral("打开皮肤文件…"), this, [this] {
        const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("皮肤"), QString(),
                                                          QStringLiteral("JSON (*.json)"));
        if (!path.isEmpty())
            chooseSkin(path);
    });
    connect(skinMenu, &QMenu::aboutToShow, this, [skins, names] {
        for (int skin = 0; skin < names.size(); ++skin)
            skins->actions().at(skin)->setChecked(names.at(skin) == TC::embedded::currentSkin());
    });

    QMenu* panels = menu->addMenu(QStringLiteral("面板"));
    for (const QString& id : { kChartPanel, kTickPanel, kQuotePanel, kBasketPanel, kInstrumentPanel,
                               kFormulaPanel, kMessagePanel }) {
        if (ads::CDockWidget* dock = m_docks.dock(id))
            panels->addAction(dock->toggleViewAction());
    }
    QMenu* arrangements = menu->addMenu(QStringLiteral("布局"));
    connect(arrangements, &QMenu::aboutToShow, this, [this, arrangements] {
        arrangements->clear();
        arrangements->addAction(QStringLiteral("默认布局"), this, [this] { m_docks.applyDefault(); });
        arrangements->addAction(QStringLiteral("保存为…"), this, [this] {
            const QString name =
                QInputDialog::getText(this, QStringLiteral("保存布局"), QStringLiteral("名称"));
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

void MainWindow::buildOverlayMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("叠加(&O)"));
    menu->addAction(QStringLiteral("叠加品种…"), this, [this] {
        const QString path = chooseFile(this, QStringLiteral("叠加品种"));
        if (!path.isEmpty())
            static_cast<void>(overlayBars(path));
    });
    menu->addAction(QStringLiteral("清除叠加"), this, &MainWindow::clearOverlays);
    menu->addSeparator();
    menu->addAction(QStringLiteral("对照指数…"), this, [this] {
        const QString path = chooseFile(this, QStringLiteral("对照指数"));
        if (!path.isEmpty())
            static_cast<void>(compareWith(path));
    });
    menu->addAction(QStringLiteral("取消对照指数"), this, &MainWindow::compareWithNothing);
}

void MainWindow::buildToolsMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("工具(&T)"));
    QAction* demo = menu->addAction(QStringLiteral("演示账户（虚构数据）"));
    demo->setCheckable(true);
    connect(demo, &QAction::toggled, this, &MainWindow::setDemoAccount);
    menu->addSeparator();
    menu->addAction(QStringLiteral("公式编辑器…"), this, [this] { showFormulaEditor(QString()); });
    menu->addAction(QStringLiteral("备份公式"), this, [this] {
        base::Result<bool> made = backUpFormulas();
        slotShowMessage(!made.isGood() ? QStringLiteral("备份失败：%1").arg(made.reason())
                            : *made    ? QStringLiteral("公式已备份")
                                       : QStringLiteral("没有需要备份的改动，未做新备份"));
    });
    menu->addAction(QStringLiteral("恢复公式…"), this,
                    [this] { showRestoreDialog(RestoreDialog::Occasion::Menu); });
    menu->addAction(QStringLiteral("重新载入公式"), this, &MainWindow::reloadFormulas);
}

} // namespace client
