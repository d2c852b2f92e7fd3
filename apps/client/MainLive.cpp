// SPDX-License-Identifier: MIT
/// @file What moves in the client's window: followed files and replays.

#include "apps/client/MainWindow.h"
#include "apps/client/PanelIds.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/TickView.h"
#include "apps/client/language/Language.h"
#include "apps/client/lists/InstrumentList.h"
#include "apps/client/live/FollowedFile.h"
#include "apps/client/live/Replay.h"
#include "apps/client/live/ReplayBar.h"
#include "apps/client/opening/BarsOpening.h"
#include "host/TC/Instruments.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QToolBar>

namespace client {

void MainWindow::buildLiveMenu()
{
    QMenu* menu = titled(menuBar()->addMenu(QString()), [] { return tr("实时(&L)"); });
    worded(menu->addAction(QString(), this,
                           [this] {
                               const QString path = QFileDialog::getOpenFileName(
                                   this, tr("跟随文件"), QString(), QStringLiteral("CSV (*.csv)"));
                               if (!path.isEmpty())
                                   static_cast<void>(follow(path)); // a failure is shown
                           }),
           [] { return tr("跟随文件…"); });
    QAction* leave = worded(menu->addAction(QString(), this,
                                            [this] {
                                                stopLive();
                                                slotShowMessage(tr("已停止跟随"));
                                            }),
                            [] { return tr("停止跟随"); });
    menu->addSeparator();
    worded(menu->addAction(QString(), this, &MainWindow::replayBars), [] {
        return tr("回放K线");
    })->setObjectName(QStringLiteral("replayBars"));
    worded(menu->addAction(QString(), this, &MainWindow::replayTicks), [] { return tr("回放分笔"); });
    connect(menu, &QMenu::aboutToShow, this, [this, leave] { leave->setEnabled(m_followed != nullptr); });

    m_replay = new Replay(this);
    auto* steering = new ReplayBar(m_replay->clock());
    auto* bar = new QToolBar(this);
    followLanguage(bar, [bar] { bar->setWindowTitle(tr("回放")); });
    bar->setObjectName(QStringLiteral("replayBar"));
    bar->setMovable(false);
    bar->toggleViewAction()->setVisible(false); // it comes and goes with a replay
    bar->addWidget(steering);
    addToolBar(Qt::BottomToolBarArea, bar);
    bar->hide();
    connect(steering, &ReplayBar::sigEndRequested, m_replay, &Replay::end);
    connect(m_replay, &Replay::sigChanged, this, [this, bar, steering] {
        bar->setVisible(m_replay->isOn());
        steering->showState(m_replay->progress());
    });
    connect(m_replay->clock(), &ReplayClock::sigAdvanced, this,
            [this, steering] { steering->showState(m_replay->progress()); });
}

void MainWindow::stopLive()
{
    leaveFollowed();
    m_replay->forget();
}

void MainWindow::leaveFollowed()
{
    if (!m_followed)
        return;
    m_followed->disconnect(this);
    m_followed.release()->deleteLater(); // it may be what calls
}

void MainWindow::replayBars()
{
    if (!m_chart->state()->bars()) {
        slotShowMessage(tr("先打开K线"));
        return;
    }
    leaveFollowed();
    m_replay->replayBars(m_chart->state());
    raisePanel(kChartPanel, m_chart);
}

void MainWindow::replayTicks()
{
    if (m_ticks->opened().ticks == nullptr) {
        slotShowMessage(tr("先打开分笔"));
        return;
    }
    leaveFollowed();
    m_replay->replayTicks(m_ticks, chart::OpenedTicks(m_ticks->opened()));
    raisePanel(kTickPanel, m_ticks);
}

base::Result<void> MainWindow::follow(const QString& path)
{
    auto followed = std::make_unique<FollowedFile>(QFileInfo(path).absoluteFilePath());
    connect(followed.get(), &FollowedFile::sigMessage, this, &MainWindow::slotShowMessage);
    connect(followed.get(), &FollowedFile::sigBars, this, &MainWindow::takeBars);
    connect(followed.get(), &FollowedFile::sigTicks, this, &MainWindow::takeTicks);
    stopLive();
    m_opening->forget();
    m_followed = std::move(followed);
    const base::Result<void> opened = m_followed->open();
    if (!opened.isGood()) {
        m_followed.reset();
        return told(opened.failure());
    }
    slotShowMessage(tr("正在跟随 %1").arg(path));
    return {};
}

void MainWindow::takeBars(const chart::OpenedBars& opened, bool anew)
{
    ChartState* state = m_chart->state();
    const std::shared_ptr<const engine::BarSeries> bars = m_index.beside(opened.bars);
    if (!anew)
        return state->growBars(bars);
    m_instruments->showFile(m_followed->path());
    if (TC::getDetailQsKey(state->instrument()) != TC::getDetailQsKey(opened.instrument))
        clearOverlays();
    m_barsPath = m_followed->path();
    state->setBars(opened.instrument, bars);
    nameInstrument();
    raisePanel(kChartPanel, m_chart);
}

void MainWindow::takeTicks(const chart::OpenedTicks& opened, bool anew)
{
    if (!anew)
        return m_ticks->growTicks(opened);
    m_ticksPath = m_followed->path();
    m_ticks->setTicks(opened);
    raisePanel(kTickPanel, m_ticks);
}

void MainWindow::raisePanel(const QString& id, QWidget* content)
{
    if (ads::CDockWidget* dock = m_docks.dock(id)) {
        dock->toggleView(true);
        dock->setAsCurrentTab();
        content->setFocus();
    }
}

} // namespace client
