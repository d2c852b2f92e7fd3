// SPDX-License-Identifier: MIT
#include "apps/client/chart/ChartView.h"

#include "apps/base/WholeFile.h"
#include "apps/chart/ChartMeasures.h"
#include "apps/client/chart/ChartKeys.h"
#include "apps/client/chart/FocusFrame.h"
#include "apps/client/EmptyPage.h"
#include "apps/client/PlainTexts.h"
#include "apps/client/access/Announcement.h"
#include "apps/client/chart/PaneMenu.h"
#include "apps/client/chart/PlotWidget.h"
#include "apps/client/chart/TimeAxisWidget.h"
#include "apps/client/language/Language.h"
#include "engine/language/Formula.h"
#include "host/TC/Instruments.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace client {

ChartView::ChartView(FormulaSource* source, QWidget* parent)
    : QWidget(parent)
    , m_source(source)
    , m_pages(new QStackedWidget(this))
    , m_scroll(new QScrollArea(this))
    , m_splitter(new QSplitter(Qt::Vertical, this))
{
    setFocusPolicy(Qt::StrongFocus);
    addKeys();
    const auto words = [] {
        return EmptyPage::Words {
            tr("还没有打开品种"),
            tr("打开K线文件（CSV：date,open,high,low,close,volume），或把它拖到窗口里。\n"
               "打开一个文件后，左边的列表给出同一文件夹里的其他品种。"),
            tr("打开K线…  (Ctrl+O)")
        };
    };
    auto* empty = new EmptyPage(words, this);
    connect(empty, &EmptyPage::sigOpen, this, &ChartView::sigOpenRequested);
    m_pages->addWidget(empty);
    m_pages->addWidget(makeChartPage());
    connect(&m_state, &ChartState::sigBarsChanged, this,
            [this] { m_pages->setCurrentIndex(m_state.barTotal() > 0 ? 1 : 0); });
    connect(&m_state, &ChartState::sigCrosshairChanged, this, [this] { announceValues(this); });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1); // where the frame of the focus shows
    layout->addWidget(m_pages);
}

QWidget* ChartView::makeChartPage()
{
    m_splitter->setHandleWidth(2);
    m_splitter->setChildrenCollapsible(false);
    m_scroll->setWidget(m_splitter);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->verticalScrollBar()->installEventFilter(this);
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_scroll, 1);
    m_axisRow = new QHBoxLayout;
    m_axisRow->addWidget(new TimeAxisWidget(&m_state, this));
    layout->addLayout(m_axisRow);
    return page;
}

/// The time axis ends where the panes end.
bool ChartView::eventFilter(QObject* watched, QEvent* event)
{
    QScrollBar* bar = m_scroll->verticalScrollBar();
    if (watched == bar && (event->type() == QEvent::Show || event->type() == QEvent::Hide))
        m_axisRow->setContentsMargins(0, 0, event->type() == QEvent::Show ? bar->sizeHint().width() : 0, 0);
    return QWidget::eventFilter(watched, event);
}

void ChartView::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void ChartView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

/// A frame shows that keys go to the chart.
void ChartView::paintEvent(QPaintEvent*)
{
    paintFocusFrame(this);
}

ChartChoices ChartView::choices() const
{
    ChartChoices choices;
    choices.period = m_state.chosenPeriod();
    choices.margin = m_state.margin();
    choices.axis = m_state.axisKind();
    choices.isMagnetic = m_state.isMagnetic();
    choices.priceLines = m_state.allPriceLines();
    for (ChartPane* pane : m_panes)
        choices.stretches << pane->plot()->stretch();
    return choices;
}

void ChartView::take(const ChartChoices& choices)
{
    m_state.setPeriod(choices.period);
    m_state.setMargin(choices.margin);
    m_state.setAxisKind(choices.axis);
    m_state.setMagnetic(choices.isMagnetic);
    m_state.setAllPriceLines(choices.priceLines);
    for (std::size_t pane = 0; pane < m_panes.size(); ++pane)
        m_panes[pane]->plot()->setStretch(choices.stretches.value(static_cast<int>(pane), 1.0));
}

ChartPane* ChartView::addPane(const QStringList& formulas)
{
    const bool main = m_panes.empty();
    showEveryPane();
    auto* pane = new ChartPane(main, &m_state, m_source, formulas, m_splitter);
    m_splitter->addWidget(pane);
    m_splitter->setStretchFactor(m_splitter->count() - 1, main ? chart::kMainShare : 1);
    m_panes.push_back(pane);
    connect(pane, &ChartPane::sigCloseRequested, this, [this, pane] { closePane(pane); });
    connect(pane, &ChartPane::sigParametersRequested, this, &ChartView::sigParametersRequested);
    connect(pane, &ChartPane::sigDragged, this, [this, pane](const QPoint& place) { dragPane(pane, place); });
    connect(pane, &ChartPane::sigMaximizeRequested, this, [this, pane] { toggleMaximized(pane); });
    connect(
        pane, &ChartPane::sigExportRequested, this,
        [this, pane](const QString& formula, bool toClipboard) { exportPane(pane, formula, toClipboard); });
    connect(pane, &ChartPane::sigPictureRequested, this,
            [this, pane](bool toClipboard) { Q_EMIT sigPictureRequested(pane, toClipboard); });
    QTimer::singleShot(0, pane, [this, pane] { m_scroll->ensureWidgetVisible(pane, 0, 0); });
    return pane;
}

void ChartView::showFormula(const QString& name)
{
    const auto recipe = TC::embedded::resolveFormula(name);
    if (recipe && recipe->formula->kind() != 0)
        m_panes.front()->data()->addFormula(name);
    else
        addPane({ name });
}

void ChartView::closePane(ChartPane* pane)
{
    const auto found = std::find(m_panes.begin(), m_panes.end(), pane);
    if (found == m_panes.end() || pane->isMain())
        return;
    m_panes.erase(found);
    pane->hide();
    pane->deleteLater();
    showEveryPane();
}

void ChartView::movePane(ChartPane* pane, std::size_t place)
{
    const auto from = std::find(m_panes.begin(), m_panes.end(), pane);
    if (from == m_panes.end() || pane->isMain() || place < 1 || place >= m_panes.size())
        return;
    QList<int> heights = m_splitter->sizes();
    const int old = static_cast<int>(from - m_panes.begin());
    m_panes.erase(from);
    m_panes.insert(m_panes.begin() + static_cast<std::ptrdiff_t>(place), pane);
    m_splitter->insertWidget(static_cast<int>(place), pane);
    heights.move(old, static_cast<int>(place));
    m_splitter->setSizes(heights);
}

/// The pane takes the place of the one whose middle the pointer has passed.
void ChartView::dragPane(ChartPane* pane, const QPoint& place)
{
    const auto own =
        static_cast<std::size_t>(std::find(m_panes.begin(), m_panes.end(), pane) - m_panes.begin());
    for (std::size_t other = 1; other < m_panes.size(); ++other) {
        const int row = m_panes[other]->mapFromGlobal(place).y(), middle = m_panes[other]->height() / 2;
        const bool isPassed = m_panes[other]->isVisible() && (other < own ? row < middle : row > middle);
        if (other != own && isPassed && row >= 0 && row < m_panes[other]->height())
            return movePane(pane, other);
    }
}

void ChartView::showEveryPane()
{
    for (ChartPane* pane : m_panes)
        pane->show();
}

void ChartView::toggleMaximized(ChartPane* pane)
{
    const bool alone = std::none_of(m_panes.begin(), m_panes.end(), [&](ChartPane* other) {
        return other != pane && other->isVisibleTo(m_splitter);
    });
    for (ChartPane* other : m_panes)
        other->setVisible(alone || other == pane);
}

void ChartView::keyPressEvent(QKeyEvent* event)
{
    const QString typed = event->text();
    const bool isPlain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (runKeyAction(this, event))
        return;
    if (isPlain && !typed.isEmpty() && typed.at(0).isLetterOrNumber())
        Q_EMIT sigSearchRequested(typed);
    else
        QWidget::keyPressEvent(event);
}

void ChartView::addKeys()
{
    addChartActions(this, &m_state);
    addKeyAction(
        this, [] { return tr("隐藏十字光标与测量"); }, { Qt::Key_Escape },
        [this] {
            m_state.setCrosshairBar(-1);
            for (ChartPane* pane : m_panes)
                pane->plot()->forgetMeasure();
        });
    addKeyAction(
        this, [] { return tr("上一品种"); }, { Qt::Key_PageUp }, [this] { Q_EMIT sigStepRequested(-1); });
    addKeyAction(
        this, [] { return tr("下一品种"); }, { Qt::Key_PageDown }, [this] { Q_EMIT sigStepRequested(1); });
    addKeyAction(
        this, [] { return tr("窗格菜单"); }, { Qt::Key_Menu, QStringLiteral("Shift+F10") },
        [this] { showPaneMenus(); });
}

/// The menus of all shown panes, for keys, which point at none of them.
void ChartView::showPaneMenus()
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (ChartPane* pane : m_panes) {
        if (!pane->isVisible())
            continue;
        QMenu* one = makePaneMenu(pane, std::nullopt);
        one->setTitle(menuText(pane->data()->getFormulas().join(QStringLiteral(", "))));
        connect(menu, &QObject::destroyed, one, &QObject::deleteLater);
        menu->addMenu(one);
    }
    menu->popup(mapToGlobal(rect().center()));
}

void ChartView::exportPane(ChartPane* pane, const QString& formula, bool toClipboard)
{
    constexpr bool withTime = true;
    const std::string text = pane->data()->exported(formula, withTime);
    if (toClipboard) {
        QApplication::clipboard()->setText(QString::fromStdString(text));
        Q_EMIT sigMessage(tr("指标数据已复制到剪贴板"));
        return;
    }
    const QString shown = formula.isEmpty() ? pane->data()->getFormulas().join(QLatin1Char('-')) : formula;
    const QString proposed = QStringLiteral("%1-%2.csv").arg(TC::getDetailQsKey(m_state.instrument()), shown);
    QString path =
        QFileDialog::getSaveFileName(this, tr("导出指标"), proposed, QStringLiteral("CSV (*.csv)"));
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".csv");
    const auto fault = base::writeWholeFile(path, QByteArray::fromStdString(text));
    Q_EMIT sigMessage(fault ? ownWords(*fault) : tr("已导出 %1").arg(path));
}

} // namespace client
