// SPDX-License-Identifier: MIT
#include "apps/client/chart/ChartPane.h"

#include "apps/client/chart/PaneMenu.h"
#include "apps/client/chart/PlotWidget.h"
#include "apps/client/language/Language.h"
#include "host/TC/Instruments.h"
#include "host/TC/UiParams.h"
#include "host/WB/CPushButton.h"
#include "host/WB/StripEvents.h"
#include "host/WB/TextConversion.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "title/CIndexTitleWidget.h"

#include <boost/make_shared.hpp>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>
#include <QVBoxLayout>

#include <cstdlib>

namespace client {

namespace {

constexpr int kMainHeight = 150, kOwnHeight = 80; // least heights of plots, pixels: three labels on an axis
constexpr int kAdjustmentUnknown = -1;            // files do not say whether their prices are adjusted
constexpr int kLegendOpened = 1050; // milliseconds until the strip has noticed a resting pointer

} // namespace

ChartPane::ChartPane(bool main, ChartState* state, FormulaSource* source, const QStringList& formulas,
                     QWidget* parent)
    : TC::CIndexPanelBaseWidget(QStringLiteral("chart_pane"), parent)
    , m_main(main)
    , m_state(state)
    , m_data(std::make_unique<PaneData>(this, state, source))
    , m_klineParam(boost::make_shared<TC::CKLineUiParam>())
{
    const TC::EIndexDisplayType display = main ? TC::EIndexDisplay_Heading : TC::EIndexDisplay_Legend;
    const TC::EIndexViewType view = main ? TC::EIndexView_Module : TC::EIndexView_Indented;
    m_title = new TC::CIndexTitleWidget(m_data.get(), display, view, view, 0, kAdjustmentUnknown,
                                        m_klineParam, this);
    m_plot = new PlotWidget(
        state, [this] { return m_data->content(); }, this);
    m_plot->setMinimumHeight(main ? kMainHeight : kOwnHeight);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(m_plot, 1);

    m_title->installEventFilter(this);
    if (auto* close = m_title->closeButton())
        connect(close, &WB::CPushButton::clicked, this, &ChartPane::sigCloseRequested);
    followLanguage(this, [this] {
        m_title->setAccessibleName(tr("图例"));
        if (auto* close = m_title->closeButton())
            close->setAccessibleName(tr("关闭窗格"));
    });
    connect(m_data.get(), &PaneData::sigChanged, this, &ChartPane::updateView);
    connect(m_data.get(), &PaneData::sigGrownOutOfView, this,
            [this] { showLegendOf(m_state->crosshairBar()); });
    connect(state, &ChartState::sigBarsGrown, this, [this] {
        m_klineParam->barCount = m_state->barTotal();
        m_title->setPeroid(m_state->period());
    });
    const auto followCrosshair = [this] { showLegendOf(m_state->crosshairBar()); };
    connect(state, &ChartState::sigCrosshairChanged, this, followCrosshair);
    connect(state, &ChartState::sigViewChanged, this, followCrosshair);
    connect(state, &ChartState::sigBarsChanged, this, &ChartPane::reloadStock);
    ChartPane::reloadStock();
    m_data->setFormulas(formulas);
}

ChartPane::~ChartPane()
{
    m_title->setIndexData(nullptr);
}

void ChartPane::setOverlays(const std::vector<PaneData::Overlay>& overlays)
{
    QList<ChartState::Instrument> instruments;
    for (const PaneData::Overlay& overlay : overlays)
        instruments << overlay.instrument;
    m_title->setAddStockList(instruments);
    m_data->setOverlays(overlays);
}

void ChartPane::setOverlayScale(std::size_t overlay, PaneData::OverlayScale scale)
{
    std::vector<PaneData::Overlay> all = m_data->overlays();
    if (overlay >= all.size())
        return;
    all[overlay].scale = scale;
    setOverlays(all);
}

void ChartPane::removeOverlay(std::size_t overlay)
{
    std::vector<PaneData::Overlay> all = m_data->overlays();
    if (overlay >= all.size())
        return;
    all.erase(all.begin() + static_cast<std::ptrdiff_t>(overlay));
    setOverlays(all);
}

void ChartPane::showPositions(bool on)
{
    constexpr int positionFlag = 2;
    m_klineParam->displayFlags = on ? positionFlag : 0;
    m_title->updateView();
}

void ChartPane::clear(bool)
{
    m_data->setFormulas({});
}

void ChartPane::reloadStock()
{
    m_klineParam->barCount = m_state->barTotal();
    m_title->setPeroid(m_state->period());
    m_title->setStock(m_state->instrument());
}

void ChartPane::request(bool)
{
    m_data->request();
}

void ChartPane::unrequest()
{
    m_data->cancel();
}

void ChartPane::updateView()
{
    fitLegend();
    showLegendOf(m_state->crosshairBar());
    m_plot->renew();
}

/// The legend follows the crosshair; without one it shows the last bar in view.
void ChartPane::showLegendOf(int bar)
{
    const bool looksBack = bar < 0 && m_state->last() >= 0 && m_state->last() + 1 < m_state->barTotal();
    m_title->updateIndexId(looksBack ? m_state->last() : bar);
}

QString ChartPane::getMarket() const
{
    return WB::sToQs(TC::getDetailMarket(m_state->instrument()));
}

QString ChartPane::getStock() const
{
    return m_state->instrument() ? WB::sToQs(m_state->instrument()->code) : QString();
}

void ChartPane::uiResourceChanged()
{
    TC::CIndexPanelBaseWidget::uiResourceChanged();
    if (!m_title)
        return;
    m_data->colorOverlays();
    m_title->updateView();
}

/// The legend opens further rows when the pointer has rested on it, and closes them when it leaves.
bool ChartPane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_title && event->type() == QEvent::Enter)
        QTimer::singleShot(kLegendOpened, this, &ChartPane::fitLegend);
    else if (watched == m_title && event->type() == QEvent::Leave)
        QTimer::singleShot(0, this, &ChartPane::fitLegend);
    else if (watched == m_title && !m_main)
        followStripDrag(event);
    return TC::CIndexPanelBaseWidget::eventFilter(watched, event);
}

/// A pane of its own is taken by its strip and goes where it is dragged.
void ChartPane::followStripDrag(QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease)
        m_grip.reset();
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseMove)
        return;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (event->type() == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton)
        m_grip = mouse->globalPos().y();
    else if (m_grip && std::abs(mouse->globalPos().y() - *m_grip) >= QApplication::startDragDistance())
        Q_EMIT sigDragged(mouse->globalPos());
}

/// Gives the strip the rows that its legend needs now.
void ChartPane::fitLegend()
{
    if (m_main)
        m_title->resetSize();
    else
        m_title->updateTitleHeight();
    m_title->updateView();
}

bool ChartPane::handleDeliveredEvent(int id, const QString& text, void* data)
{
    if (id != WB::EStripEvent_DoubleClicked)
        return TC::CIndexPanelBaseWidget::handleDeliveredEvent(id, text, data);
    Q_EMIT sigMaximizeRequested();
    return true;
}

void ChartPane::contextMenuEvent(QContextMenuEvent* event)
{
    const QPoint place = m_plot->mapFrom(this, event->pos());
    makePaneMenu(this, m_plot->rect().contains(place) ? std::optional<int>(place.y()) : std::nullopt)
        ->popup(event->globalPos());
}

/// A pane of its own goes with its last formula.
void ChartPane::removeFormula(const QString& formula)
{
    m_data->removeFormula(formula);
    if (!m_main && m_data->getFormulas().isEmpty())
        Q_EMIT sigCloseRequested();
}

void ChartPane::resizeEvent(QResizeEvent* event)
{
    TC::CIndexPanelBaseWidget::resizeEvent(event);
    if (!m_main)
        m_title->updateTitleHeight();
}

} // namespace client
