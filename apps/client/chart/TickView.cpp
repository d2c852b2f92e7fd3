// SPDX-License-Identifier: MIT
#include "apps/client/chart/TickView.h"

#include "apps/chart/ChartMeasures.h"
#include "apps/chart/TickFormulaNames.h"
#include "apps/client/EmptyPage.h"
#include "apps/client/chart/ChartKeys.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/FocusFrame.h"
#include "apps/client/chart/PlotWidget.h"
#include "apps/client/chart/TimeAxisWidget.h"
#include "apps/client/language/Language.h"
#include "engine/TickFormulas.h"
#include "host/TC/Instruments.h"
#include "host/TC/UiParams.h"
#include "title/CIndexTitleWidget.h"

#include <boost/make_shared.hpp>

#include <QComboBox>
#include <QKeyEvent>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace client {

namespace {

constexpr int kShownTrades = 600;
constexpr int kUnadjusted = -1; // trades are never adjusted, which needs no word

/// Bars of nothing but times, as the chart's axis takes them.
std::shared_ptr<const engine::BarSeries> timesOf(const engine::TickSeries& ticks)
{
    auto times = std::make_shared<engine::BarSeries>();
    times->timeMs = ticks.timeMs;
    return times;
}

} // namespace

TickView::TickView(QWidget* parent)
    : QWidget(parent)
    , m_pages(new QStackedLayout(this))
    , m_rule(new QComboBox(this))
{
    chart::registerTickFormulas();
    setFocusPolicy(Qt::StrongFocus);
    addChartActions(this, &m_state);
    addKeyAction(
        this, [] { return ChartView::tr("隐藏十字光标"); }, { Qt::Key_Escape },
        [this] { m_state.setCrosshairBar(-1); });
    m_pages->setContentsMargins(1, 1, 1, 1); // where the frame of the focus shows
    m_rule->addItems({ QString(), QString() });
    followLanguage(m_rule, [this] {
        m_rule->setItemText(0, tr("量能颜色：按价格"));
        m_rule->setItemText(1, tr("量能颜色：按价格与盘口"));
        m_rule->setAccessibleName(tr("量能颜色"));
    });
    m_rule->setFocusPolicy(Qt::TabFocus);
    const auto words = [] {
        return EmptyPage::Words { tr("还没有打开分笔"),
                                  tr("打开成交明细文件（CSV：time_utc,price,volume，可带五档盘口）。"),
                                  tr("打开分笔…") };
    };
    auto* empty = new EmptyPage(words, this);
    connect(empty, &EmptyPage::sigOpen, this, &TickView::sigOpenRequested);
    auto* page = new QWidget(this);
    m_pages->addWidget(empty);
    m_pages->addWidget(page);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(1, 1, 1, 1); // where the frame of the focus shows
    layout->setSpacing(0);
    layout->addWidget(m_rule, 0, Qt::AlignLeft);
    m_prices = makePane(true);
    m_volumes = makePane(false);
    layout->addWidget(m_prices.title);
    layout->addWidget(m_prices.plot, chart::kMainShare);
    layout->addWidget(m_volumes.title);
    layout->addWidget(m_volumes.plot, 1);
    layout->addWidget(new TimeAxisWidget(&m_state, this));
    m_volumes.title->setCloseBtnVisible(false);
    connect(m_rule, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this] { m_volumes.plot->renew(); });
    connect(&m_state, &ChartState::sigCrosshairChanged, this, [this] {
        m_prices.title->updateIndexId(m_state.crosshairBar());
        m_volumes.title->updateIndexId(m_state.crosshairBar());
    });
}

TickView::~TickView()
{
    m_prices.title->setIndexData(nullptr);
    m_volumes.title->setIndexData(nullptr);
}

TickView::Pane TickView::makePane(bool main)
{
    Pane pane;
    pane.results = std::make_unique<chart::PaneResults>();
    pane.param = boost::make_shared<TC::CKLineUiParam>();
    pane.title = new TC::CIndexTitleWidget(pane.results.get(),
                                           main ? TC::EIndexDisplay_Heading : TC::EIndexDisplay_Legend,
                                           main ? TC::EIndexView_Module : TC::EIndexView_Plain,
                                           TC::EIndexView_Module, 0, kUnadjusted, pane.param, this);
    pane.title->setPeroid(TC::EFormulaPeriod_Tick);
    pane.plot = new PlotWidget(
        &m_state, [this, results = pane.results.get()] { return contentOf(*results); }, this);
    return pane;
}

chart::PaneContent TickView::contentOf(chart::PaneResults& results)
{
    chart::PaneContent content = results.content(m_state.instrument());
    content.bookRule = followsBook();
    return content;
}

void TickView::show(Pane& pane, const QString& formula, engine::FormulaRecords records)
{
    pane.results->clear();
    pane.results->add(TC::CFormulaKey(TC::getDetailQsKey(m_state.instrument()), formula), std::move(records));
    pane.param->barCount = m_state.barTotal();
    pane.title->setStock(m_state.instrument());
    pane.title->resetSize();
    pane.title->updateView();
    pane.plot->renew();
}

void TickView::setTicks(const chart::OpenedTicks& opened)
{
    m_opened = opened;
    m_state.setBars(opened.instrument, timesOf(*opened.ticks));
    m_pages->setCurrentIndex(m_state.barTotal() > 0 ? 1 : 0);
    m_state.show(m_state.barTotal() - kShownTrades, m_state.barTotal() - 1);
    showResults();
}

void TickView::growTicks(const chart::OpenedTicks& opened)
{
    if (m_state.barTotal() == 0)
        return setTicks(opened);
    m_opened = opened;
    m_state.growBars(timesOf(*opened.ticks));
    showResults();
}

void TickView::showResults()
{
    engine::TickRecords records = engine::computeTicks(*m_opened.ticks);
    show(m_prices, QString::fromLatin1(chart::kTickPrices), std::move(records.prices));
    show(m_volumes, QString::fromUtf8(chart::kTickVolumes), std::move(records.volumes));
}

bool TickView::followsBook() const
{
    return m_rule->currentIndex() == 1;
}

void TickView::setFollowsBook(bool on)
{
    m_rule->setCurrentIndex(on ? 1 : 0);
}

void TickView::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void TickView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

void TickView::paintEvent(QPaintEvent*)
{
    paintFocusFrame(this);
}

void TickView::keyPressEvent(QKeyEvent* event)
{
    if (!runKeyAction(this, event))
        QWidget::keyPressEvent(event);
}

} // namespace client
