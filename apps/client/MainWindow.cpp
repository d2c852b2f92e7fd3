// SPDX-License-Identifier: MIT
#include "apps/client/MainWindow.h"

#include "apps/base/FileNames.h"
#include "apps/base/WholeFile.h"
#include "apps/chart/OpenedBars.h"
#include "apps/client/PanelIds.h"
#include "apps/client/access/ChartAccess.h"
#include "apps/client/basket/BasketPanel.h"
#include "apps/client/chart/ChartMenus.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/TickView.h"
#include "apps/client/docking/DockLook.h"
#include "apps/client/docking/Panel.h"
#include "apps/client/editor/FormulaEditor.h"
#include "apps/client/language/Language.h"
#include "apps/client/lists/FormulaList.h"
#include "apps/client/lists/InstrumentList.h"
#include "apps/client/lists/InstrumentSearch.h"
#include "apps/client/lists/MessageList.h"
#include "apps/client/lists/QuoteList.h"
#include "apps/client/live/FollowedFile.h"
#include "apps/client/opening/BarsOpening.h"
#include "host/TC/Folders.h"
#include "host/TC/Instruments.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/utils/CSingletonT.h"
#include "recovery/CRecoveryVersionManager.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

namespace client {

namespace {

// Without "TC::" in front of a function, which Qt 6's lupdate takes for the context of its texts.
using TC::CPositionNumber;

// Shares of the default arrangement, pixels of a window of the initial size.
constexpr int kListWidth = 230, kChartWidth = 1170, kListHeight = 400, kChartHeight = 700,
              kMessageHeight = 90;

constexpr int kStatusDuration = 8000; // milliseconds
const QSize kUsable(1024, 640);       // the first window is no smaller on any screen
const QSize kFrame(16, 48);           // that window managers draw around a window

/// Invented trades and accounts, to show what the legend can say.
CPositionNumber demoPositions()
{
    CPositionNumber positions;
    positions.accounts = { { MainWindow::tr("演示账户A"), 0, 1200, true },
                           { MainWindow::tr("演示账户B"), 0, -300, false } };
    positions.summary.totalBuyAmount = 1234500.0;
    positions.summary.totalSellAmount = 567800.0;
    positions.summary.netBuyAmount = 666700.0;
    positions.summary.profitLoss = -12345.6;
    positions.summary.buyVolume = 1500;
    positions.summary.sellVolume = 600;
    positions.summary.buyAvgPrice = 26.35;
    positions.summary.sellAvgPrice = 26.81;
    return positions;
}

} // namespace

MainWindow::MainWindow(const QString& language)
    : m_docks(this, m_pool)
    , m_last(SessionKeeper::last())
    , m_keeper([this] { return session(); })
{
    describeCharts();
    chooseLanguage(language.isEmpty() ? m_last.language : language);
    const QSize room = QGuiApplication::primaryScreen()->availableSize() - kFrame;
    resize(QSize(1400, 860).boundedTo(room.expandedTo(kUsable)));
    setAcceptDrops(true);
    m_indexName = new QLabel;
    m_indexName->setObjectName(QStringLiteral("comparedIndex"));
    m_indexName->hide();
    followLanguage(this, [this] { nameIndex(); });
    m_opening = new BarsOpening;
    connect(m_opening, &BarsOpening::sigCancelled, this, [this] { slotShowMessage(tr("已取消读取")); });
    statusBar()->addPermanentWidget(m_opening);
    statusBar()->addPermanentWidget(m_indexName);
    buildPanels();
    nameInstrument();
    buildFileMenu();
    buildViewMenu();
    QMenu* periods = addPeriodMenu(menuBar(), m_chart);
    addChartMenu(menuBar(), m_chart);
    buildOverlayMenu();
    buildToolsMenu();
    buildLiveMenu();
    buildHelpMenu();
    buildToolBar(periods);
    takeChoices();
    connect(&m_keeper, &SessionKeeper::sigMessage, this, &MainWindow::slotShowMessage);
    connect(&m_keeper, &SessionKeeper::sigKeep, this, [this] { m_docks.saveChange(); });
    statusBar()->showMessage(tr("就绪"));
    m_chart->setFocus();
}

MainWindow::~MainWindow()
{
    TC::embedded::setReloadReceiver({});
    setGreenUp(false); // the skin outlives the window
}

void MainWindow::startRun()
{
    // A formula that the file now lacks stays on its pane, empty, until the user closes it.
    TC::embedded::setReloadReceiver(
        [this](const std::string&, const std::string&, const std::string&) { followFormulas(); });
    tell(m_oneClient.enter());
    tell(m_docks.restore(m_oneClient.isFirst()).reason());
    if (m_oneClient.isFirst()) {
        base::removeUnfinishedFiles(TC::getConfigDir());
        base::removeUnfinishedFiles(TC::getUserRootDir());
        tell(mendInterruptedRestore());
    }
    tell(TC::embedded::instrumentStoreNotice());
    tell(m_index.restore().reason());
    followIndex();
    tellFormulaProblems(TC::embedded::loadFormulas());
    for (auto entry = m_last.parameters.begin(); entry != m_last.parameters.end(); ++entry)
        setParameters(entry.key(), entry.value());
    reopen();
    m_chart->setFocus();
    if (!m_oneClient.isFirst())
        return;
    m_keeper.start();
    if (utils::CSingletonT<TC::CRecoveryVersionManager>::instance()->init() && !formulaVersions().empty())
        showRestoreDialog(RestoreDialog::Occasion::FailedRun);
}

void MainWindow::tell(const QString& text)
{
    if (!text.isEmpty())
        slotShowMessage(text);
}

void MainWindow::tellFormulaProblems(const QStringList& problems)
{
    if (!problems.isEmpty()) {
        const QString others =
            problems.size() > 1 ? tr("（另有 %1 处）").arg(problems.size() - 1) : QString();
        slotShowMessage(tr("公式文件有误，有误的公式未载入：%1%2").arg(problems.front(), others));
    }
    if (!QFile::exists(liveFormulasPath()) && !formulaVersions().empty())
        slotShowMessage(tr("没有公式文件；可用“工具”菜单的“恢复公式…”取回备份"));
}

void MainWindow::reloadFormulas()
{
    tellFormulaProblems(TC::embedded::loadFormulas());
    followFormulas();
}

void MainWindow::showRestoreDialog(RestoreDialog::Occasion occasion)
{
    auto* dialog = new RestoreDialog(occasion, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &RestoreDialog::restored, this,
            [this](const QString& version) { slotShowMessage(tr("已恢复 %1").arg(version)); });
    dialog->open();
}

void MainWindow::showFormulaEditor(const QString& formula)
{
    if (!m_editor) {
        m_editor = new FormulaEditor(this);
        m_editor->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_editor->setBars(m_chart->state()->instrument(), m_chart->state()->bars());
    if (!formula.isEmpty())
        m_editor->edit(formula);
    m_editor->show();
    m_editor->raise();
    m_editor->activateWindow();
}

void MainWindow::followFormulas()
{
    m_formulas->reload();
    for (ChartPane* pane : m_chart->panes())
        pane->request(true);
}

void MainWindow::buildPanels()
{
    m_chart = new ChartView(&m_source);
    m_ticks = new TickView;
    m_basket = new BasketPanel;
    m_instruments = new InstrumentList;
    m_quotes = new QuoteList;
    m_formulas = new FormulaList;
    m_messages = new MessageList;
    const std::pair<QString, QWidget*> contents[] = {
        { kChartPanel, m_chart },      { kTickPanel, m_ticks },
        { kBasketPanel, m_basket },    { kInstrumentPanel, m_instruments },
        { kFormulaPanel, m_formulas }, { kMessagePanel, m_messages },
        { kQuotePanel, m_quotes }
    };
    for (const auto& [id, content] : contents)
        m_pool.setMaker(id, [panelId = id, widget = content] { return new Panel(panelId, widget); });

    ads::CDockWidget* chart = m_docks.addPanel(kChartPanel, ads::CenterDockWidgetArea);
    ads::CDockWidget* instruments = m_docks.addPanel(kInstrumentPanel, ads::LeftDockWidgetArea, chart);
    m_docks.addPanel(kFormulaPanel, ads::BottomDockWidgetArea, instruments);
    // Before the tabs: Qt's own docks split no place that has some.
    m_docks.addPanel(kMessagePanel, ads::BottomDockWidgetArea, chart);
    m_docks.addPanel(kTickPanel, ads::CenterDockWidgetArea, chart);
    m_docks.addPanel(kQuotePanel, ads::CenterDockWidgetArea, chart);
    m_docks.addPanel(kBasketPanel, ads::CenterDockWidgetArea, chart);
    if (chart && instruments) {
        chart->setAsCurrentTab();
        m_docks.manager()->setSplitterSizes(instruments->dockAreaWidget(), { kListHeight, kListHeight });
        m_docks.manager()->setSplitterSizes(chart->dockAreaWidget(), { kChartHeight, kMessageHeight });
        setColumnWidths(m_docks.manager(), { instruments, chart }, { kListWidth, kChartWidth });
    }
    followLanguage(this, [this] { namePanels(); });
    m_docks.rememberDefault();

    connect(m_chart, &ChartView::sigMessage, this, &MainWindow::slotShowMessage);
    connect(m_basket, &BasketPanel::sigMessage, this, &MainWindow::slotShowMessage);
    const auto openFile = [this](const QString& path) {
        static_cast<void>(openBars(path));
    }; // a failure is shown
    connect(m_instruments, &InstrumentList::sigOpen, this, openFile);
    connect(m_quotes, &QuoteList::sigOpen, this, [this](const QString& path) {
        static_cast<void>(openBars(path, [this] { raisePanel(kChartPanel, m_chart); })); // a failure is shown
    });
    connect(m_instruments, &InstrumentList::sigListed, this,
            [this] { m_quotes->setInstruments(m_instruments->instruments()); });
    connect(m_chart->state(), &ChartState::sigBarsGrown, this,
            [this] { m_quotes->setBars(m_barsPath, *m_chart->state()->source()); });
    connect(m_chart, &ChartView::sigOpenRequested, this, &MainWindow::chooseBars);
    connect(m_ticks, &TickView::sigOpenRequested, this, &MainWindow::chooseTicks);
    m_search = new InstrumentSearch(m_chart);
    connect(m_search, &InstrumentSearch::sigOpen, this, openFile);
    connect(m_chart, &ChartView::sigStepRequested, m_instruments, &InstrumentList::step);
    connect(m_chart, &ChartView::sigSearchRequested, this,
            [this](const QString& typed) { m_search->open(m_instruments->instruments(), typed); });
    connect(m_chart, &ChartView::sigParametersRequested, this, &MainWindow::showParameters);
    connect(m_formulas, &FormulaList::sigShowRequested, m_chart, &ChartView::showFormula);
    connect(m_formulas, &FormulaList::sigPaneRequested, this,
            [this](const QString& name) { m_chart->addPane({ name }); });
    connect(m_formulas, &FormulaList::sigEditRequested, this, &MainWindow::showFormulaEditor);
    connect(m_chart->state(), &ChartState::sigBarsChanged, this, &MainWindow::refreshDemoAccount);
}

void MainWindow::namePanels()
{
    const std::pair<QString, QString> titles[] = {
        { kChartPanel, tr("K线图") },         { kTickPanel, tr("分笔成交") },
        { kInstrumentPanel, tr("品种列表") }, { kQuotePanel, tr("行情报价") },
        { kFormulaPanel, tr("指标公式") },    { kBasketPanel, tr("篮子管理") },
        { kMessagePanel, tr("消息面板") },
    };
    for (const auto& [id, title] : titles) {
        if (ads::CDockWidget* dock = m_docks.dock(id))
            dock->setWindowTitle(title);
    }
    const std::pair<QWidget*, QString> contents[] = {
        { m_chart, tr("K线图") },       { m_ticks, tr("分笔成交") },    { m_instruments, tr("品种列表") },
        { m_quotes, tr("行情报价") },   { m_formulas, tr("指标公式") }, { m_basket, tr("篮子管理") },
        { m_messages, tr("消息面板") },
    };
    for (const auto& [content, name] : contents)
        content->setAccessibleName(name);
}

base::Failure MainWindow::told(const base::Failure& failure)
{
    slotShowMessage(failure.reason);
    return failure;
}

base::Result<void> MainWindow::openBars(const QString& path, const std::function<void()>& then)
{
    m_opening->forget();
    if (BarsOpening::isLarge(QFileInfo(path).size())) {
        m_opening->start(path, [this, path, then](BarsOpening::Bars bars) {
            if (!bars.isGood())
                return tell(bars.reason());
            showBars(chart::withInstrument(std::move(*bars), path), path);
            if (then)
                then();
        });
        return {};
    }
    base::Result<chart::OpenedBars> opened = chart::openBarsFile(path);
    if (!opened.isGood())
        return told(opened.failure());
    showBars(*opened, path);
    if (then)
        then();
    return {};
}

bool MainWindow::isOpening() const
{
    return m_opening->isReading();
}

void MainWindow::showBars(const chart::OpenedBars& opened, const QString& path)
{
    stopLive();
    m_instruments->showFile(path);
    clearOverlays();
    m_barsPath = QFileInfo(path).absoluteFilePath();
    m_chart->state()->setBars(opened.instrument, m_index.beside(opened.bars));
    nameInstrument();
    slotShowMessage(tr("已打开 %1 %2（%3 根K线）")
                        .arg(TC::getDetailQsKey(opened.instrument), TC::getDetailQsName(opened.instrument),
                             QString::number(opened.bars->size())));
}

base::Result<void> MainWindow::openTicks(const QString& path)
{
    base::Result<chart::OpenedTicks> opened = chart::openTicksFile(path);
    if (!opened.isGood())
        return told(opened.failure());
    stopLive();
    m_ticksPath = QFileInfo(path).absoluteFilePath();
    m_ticks->setTicks(*opened);
    raisePanel(kTickPanel, m_ticks);
    slotShowMessage(
        tr("已打开 %1（%2 笔）")
            .arg(TC::getDetailQsName(opened->instrument), QString::number(opened->ticks->size())));
    return {};
}

base::Result<void> MainWindow::overlayBars(const QString& path, PaneData::OverlayScale scale)
{
    if (!m_chart->state()->bars())
        return told({ tr("先打开K线") });
    base::Result<chart::OpenedBars> opened = chart::openBarsFile(path);
    if (!opened.isGood())
        return told(opened.failure());
    std::vector<PaneData::Overlay> overlays = m_chart->panes().front()->data()->overlays();
    const QString key = TC::getDetailQsKey(opened->instrument);
    const auto isSame = [&](const PaneData::Overlay& one) {
        return TC::getDetailQsKey(one.instrument) == key;
    };
    overlays.erase(std::remove_if(overlays.begin(), overlays.end(), isSame), overlays.end());
    overlays.push_back({ opened->instrument, opened->bars, scale, QFileInfo(path).absoluteFilePath() });
    m_chart->panes().front()->setOverlays(overlays);
    slotShowMessage(tr("已叠加 %1").arg(TC::getDetailQsName(opened->instrument)));
    return {};
}

void MainWindow::clearOverlays()
{
    m_chart->panes().front()->setOverlays({});
}

base::Result<void> MainWindow::compareWith(const QString& path)
{
    const base::Result<void> chosen = m_index.choose(path);
    followIndex();
    if (!chosen.isGood())
        return told(chosen.failure());
    slotShowMessage(tr("对照指数：%1").arg(m_index.name()));
    return {};
}

void MainWindow::compareWithNothing()
{
    const base::Result<void> forgotten = m_index.forget();
    followIndex();
    slotShowMessage(forgotten.isGood() ? tr("已取消对照指数") : forgotten.reason());
}

void MainWindow::nameIndex()
{
    m_indexName->setText(tr("对照指数：%1").arg(base::printable(m_index.name())));
}

void MainWindow::followIndex()
{
    nameIndex();
    m_indexName->setHidden(m_index.name().isEmpty());
    ChartState* state = m_chart->state();
    const std::shared_ptr<const engine::BarSeries> bars = m_index.beside(state->source());
    if (bars == state->source())
        return;
    const int first = state->first(), last = state->last();
    state->setBars(state->instrument(), bars);
    state->show(first, last);
}

void MainWindow::setDemoAccount(bool on)
{
    m_demoAccount = on;
    refreshDemoAccount();
    slotShowMessage(on ? tr("演示账户已打开：成交与持仓均为虚构") : tr("演示账户已关闭"));
}

void MainWindow::refreshDemoAccount()
{
    TC::embedded::clearPositions();
    if (m_demoAccount && m_chart->state()->instrument())
        TC::embedded::setPositionNumber(TC::getDetailQsKey(m_chart->state()->instrument()), demoPositions());
    m_chart->panes().front()->showPositions(m_demoAccount);
}

void MainWindow::slotShowMessage(const QString& text)
{
    const QString line = base::printable(text);
    m_messages->slotShow(line);
    statusBar()->showMessage(line, kStatusDuration);
}

void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (m_restored)
        return;
    m_restored = true;
    QTimer::singleShot(0, this, [this] { // once the window stands
        startRun();
    });
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_editor && !m_editor->leave()) {
        event->ignore();
        return;
    }
    m_keeper.keep();
    const QString failure = m_docks.save().reason();
    if (!failure.isEmpty() && !isConfirmed(this, failure + tr("\n仍然退出？"), tr("退出"))) {
        event->ignore();
        return;
    }
    if (m_oneClient.isFirst())
        utils::CSingletonT<TC::CRecoveryVersionManager>::instance()->quit();
    m_keeper.stop();
    m_oneClient.leave();
    QMainWindow::closeEvent(event);
}

} // namespace client
