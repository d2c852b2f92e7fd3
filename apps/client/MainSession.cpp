// SPDX-License-Identifier: MIT
/// @file What the client's window keeps from one run to the next, and what it opens.

#include "apps/client/MainWindow.h"
#include "apps/chart/OpenedBars.h"
#include "apps/client/SkinDirections.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/ParameterDialog.h"
#include "apps/client/chart/TickView.h"
#include "apps/client/language/Language.h"
#include "apps/client/lists/InstrumentList.h"
#include "engine/language/Formula.h"
#include "host/TC/CFormulaOperateManager.h"
#include "host/TC/Instruments.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/utils/CSingletonT.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QToolBar>
#include <QUrl>

#include <algorithm>

namespace client {

namespace {

const std::vector<QStringList>& usualPanes()
{
    static const std::vector<QStringList> panes = { { QStringLiteral("KLINE"), QStringLiteral("MA") },
                                                    { QStringLiteral("VOL") },
                                                    { QStringLiteral("MACD") } };
    return panes;
}

QString firstFileOf(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.isEmpty() ? QString() : urls.first().toLocalFile();
}

} // namespace

void MainWindow::chooseSkin(const QString& nameOrPath)
{
    const QString failure = TC::embedded::loadSkin(nameOrPath);
    if (!failure.isEmpty())
        return slotShowMessage(failure);
    m_skin = nameOrPath;
    if (m_isGreenUp)
        swapDirections();
}

void MainWindow::setGreenUp(bool on)
{
    if (on == m_isGreenUp)
        return;
    m_isGreenUp = on;
    swapDirections();
}

void MainWindow::takeChoices()
{
    if (!m_last.skin.isEmpty())
        chooseSkin(m_last.skin);
    findChild<QAction*>(QStringLiteral("greenUp"))->setChecked(m_last.isGreenUp);
    auto* tools = findChild<QToolBar*>(QStringLiteral("mainTools"));
    tools->setVisible(m_last.hasTools);
    tools->toggleViewAction()->setChecked(m_last.hasTools); // no event says so before the window stands
    for (const QStringList& formulas : m_last.panes.empty() ? usualPanes() : m_last.panes)
        m_chart->addPane(formulas);
    m_chart->take(m_last.chart);
    m_instruments->setFilter(m_last.filter);
    m_instruments->setMarks(m_last.favourites, m_last.recent);
    m_ticks->setFollowsBook(m_last.bookRule);
}

void MainWindow::reopen()
{
    if (!m_chart->state()->bars() && !isOpening() && !m_last.bars.isEmpty())
        static_cast<void>(openBars(m_last.bars, [this] {
            showLastRange();
            overlayLast();
        })); // a failure is shown
    if (m_ticksPath.isEmpty())
        reopenTicks();
}

void MainWindow::showLastRange()
{
    if (m_last.shown <= 0)
        return;
    const int last = std::max(0, m_chart->state()->barTotal() - 1 - m_last.behind);
    m_chart->state()->show(std::max(0, last - m_last.shown + 1), last);
}

void MainWindow::overlayLast()
{
    const std::vector<OverlaidFile> files = m_last.overlays;
    for (const OverlaidFile& file : files)
        static_cast<void>(overlayBars(file.path, file.scale)); // a failure is shown
}

void MainWindow::reopenTicks()
{
    base::Result<chart::OpenedTicks> opened =
        m_last.ticks.isEmpty() ? base::Failure {} : chart::openTicksFile(m_last.ticks);
    if (!opened.isGood())
        return tell(opened.reason());
    m_ticksPath = m_last.ticks;
    m_ticks->setTicks(*opened);
}

void MainWindow::showParameters(const QString& formula)
{
    const auto recipe = TC::embedded::resolveFormula(formula);
    if (!recipe || !recipe->formula)
        return;
    auto* dialog = new ParameterDialog(formula, recipe->formula->parameters(), recipe->parameters, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this,
            [this, dialog, formula] { setParameters(formula, dialog->values()); });
    dialog->open();
}

void MainWindow::setParameters(const QString& formula, const QVector<double>& values)
{
    const auto recipe = TC::embedded::resolveFormula(formula);
    const auto known = utils::CSingletonT<TC::CFormulaOperateManager>::instance()->getFormula(formula);
    if (!recipe || recipe->base.isEmpty() || !known)
        return;
    TC::CFormulaDetail detail = *known;
    detail.numberParams = values;
    TC::embedded::setFormula(detail);
    m_parameters[formula] = values;
    followFormulas();
}

Session MainWindow::session() const
{
    const ChartState* state = m_chart->state();
    Session now;
    now.language = chosenLanguage();
    now.skin = m_skin;
    now.isGreenUp = m_isGreenUp;
    now.bars = m_barsPath.isEmpty() && isOpening() ? m_last.bars : m_barsPath;
    now.ticks = m_ticksPath;
    now.filter = m_instruments->filter();
    now.favourites = m_instruments->favourites();
    now.recent = m_instruments->recent();
    now.shown = state->last() - state->first() + 1;
    now.behind = std::max(0, state->barTotal() - 1 - state->last());
    now.chart = m_chart->choices();
    if (now.bars == m_last.bars && m_barsPath.isEmpty())
        now.overlays = m_last.overlays;
    for (const PaneData::Overlay& overlay : m_chart->panes().front()->data()->overlays())
        now.overlays.push_back({ overlay.path, overlay.scale });
    now.hasTools = !findChild<QToolBar*>(QStringLiteral("mainTools"))->isHidden();
    now.bookRule = m_ticks->followsBook();
    for (ChartPane* pane : m_chart->panes())
        now.panes.push_back(pane->data()->getFormulas());
    now.parameters = m_parameters;
    return now;
}

void MainWindow::nameInstrument()
{
    const ChartState::Instrument& instrument = m_chart->state()->instrument();
    setWindowTitle(instrument ? QStringLiteral("%1 %2").arg(TC::getDetailQsName(instrument),
                                                            TC::getDetailQsKey(instrument))
                              : QString());
}

void MainWindow::chooseBars()
{
    const QString path =
        QFileDialog::getOpenFileName(this, tr("打开K线"), QString(), QStringLiteral("CSV (*.csv)"));
    if (!path.isEmpty())
        static_cast<void>(openBars(path)); // a failure is shown
}

void MainWindow::chooseTicks()
{
    const QString path =
        QFileDialog::getOpenFileName(this, tr("打开分笔"), QString(), QStringLiteral("CSV (*.csv)"));
    if (!path.isEmpty())
        static_cast<void>(openTicks(path));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (firstFileOf(event->mimeData()).endsWith(QLatin1String(".csv"), Qt::CaseInsensitive))
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    static_cast<void>(openBars(firstFileOf(event->mimeData())));
}

} // namespace client
