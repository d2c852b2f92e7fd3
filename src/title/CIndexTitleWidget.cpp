// SPDX-License-Identifier: MIT
#include "title/CIndexTitleWidget.h"

#include "data/IndexBaseData.h"
#include "host/TC/CReplayManager.h"
#include "host/TC/UiParams.h"
#include "host/WB/CPushButton.h"
#include "host/WB/StripEvents.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/ttservice/StockTypeCenter.h"
#include "host/utils/CSingletonT.h"
#include "title/internal/Pictures.h"
#include "title/internal/RowCount.h"
#include "title/internal/StripLayout.h"
#include "title/internal/TextShapes.h"

#include <QMouseEvent>
#include <QTimer>

#include <algorithm>

namespace TC {

using namespace detail;

namespace {

constexpr int kRowsShown = 2, kRowsShownOnHover = 5;
constexpr const char* kCloseImage = "img_index_title_normal_close";
constexpr const char* kActiveCloseImage = "img_index_title_normal_close_a";

} // namespace

CIndexTitleWidget::CIndexTitleWidget(IndexBaseData* indexData, EIndexDisplayType displayType,
                                     EIndexViewType viewType, EIndexViewType subViewType, int leftOffset,
                                     int drType, boost::shared_ptr<CKLineUiParam> klineParam, QWidget* parent)
    : CBaseWidget(QStringLiteral("index_title_widget"), true, parent)
    , m_indexData(indexData)
    , m_viewType(viewType)
    , m_subViewType(subViewType)
    , m_displayType(displayType)
    , m_leftOffset(leftOffset)
    , m_drType(drType)
    , m_klineParam(klineParam)
    , m_hoverTimer(new QTimer(this))
{
    readPictures();
    createUi();
    setFixedHeight(m_rowHeight);
    connect(m_hoverTimer, SIGNAL(timeout()), this, SLOT(slotShowAllIndex()));
    connect(utils::CSingletonT<CReplayManager>::instance(), SIGNAL(sigTradeDateChanged(long long)), this,
            SLOT(slotTradeDateChanged(long long)));
}

CIndexTitleWidget::~CIndexTitleWidget() = default;

void CIndexTitleWidget::createUi()
{
    if (m_displayType != EIndexDisplay_Heading && m_viewType != EIndexView_Quote)
        m_closeBtn =
            new WB::CPushButton(QString::fromLatin1(kCloseImage), WB::CPushButton::kPictureOnly, this);
}

/// Pictures live in the skin and are void once it changes.
void CIndexTitleWidget::readPictures()
{
    m_upArrow = WB::skinPicture(kArrowUpPicture);
    m_downArrow = WB::skinPicture(kArrowDownPicture);
    m_codeIcon = nullptr;
    if (m_viewType != EIndexView_Quote || !m_stock)
        return;
    constexpr int scienceBoard = 277, growthBoard = 10006;
    const auto* types = utils::CSingletonT<ttservice::StockTypeCenter>::instance();
    if (types->isTypedStock(scienceBoard, m_stock->market, m_stock->code))
        m_codeIcon = WB::skinPicture("img_code_kcb_icon");
    // Deliberate: market SZ is asked for whatever the instrument's own market is.
    else if (types->isTypedStock(growthBoard, "SZ", m_stock->code))
        m_codeIcon = WB::skinPicture("img_code_gem_icon");
}

void CIndexTitleWidget::uiResourceChanged()
{
    CBaseWidget::uiResourceChanged();
    forgetTexts();
    updateView();
}

void CIndexTitleWidget::setIndexData(IndexBaseData* indexData)
{
    m_indexData = indexData;
}

void CIndexTitleWidget::setPeroid(EFormulaPeriod period)
{
    m_period = period;
    updateView();
}

void CIndexTitleWidget::setDrType(int drType)
{
    m_drType = drType;
    updateView();
}

void CIndexTitleWidget::updateIndexId(int index)
{
    m_indexId = index;
    updateView();
}

void CIndexTitleWidget::setShowIndex(const QString& name)
{
    m_showIndex = name;
    updateView();
}

void CIndexTitleWidget::hideIndex(const QString& name)
{
    if (m_showIndex == name)
        m_showIndex.clear();
    updateView();
}

void CIndexTitleWidget::clear()
{
    m_indexId = -1;
}

void CIndexTitleWidget::setStock(std::shared_ptr<ttservice::CInstrumentDetail> stock)
{
    m_stock = stock;
    updateView();
}

void CIndexTitleWidget::clearStock()
{
    m_stock.reset();
}

void CIndexTitleWidget::setAddStockList(QList<std::shared_ptr<ttservice::CInstrumentDetail>>& stocks)
{
    if (m_addStocks == stocks)
        return;
    m_addStocks = stocks;
    updateView();
}

void CIndexTitleWidget::clearAddStockList()
{
    m_addStocks.clear();
    updateView();
}

void CIndexTitleWidget::setRealtimeUiParam(boost::shared_ptr<CRealtimeUiParam> param)
{
    m_realtimeParam = param;
}

void CIndexTitleWidget::setCloseBtnVisible(bool visible)
{
    if (m_closeBtn)
        m_closeBtn->setVisible(visible);
}

void CIndexTitleWidget::highlightTitleWidget(bool on)
{
    if (m_closeBtn)
        m_closeBtn->setImageKey(QString::fromLatin1(on ? kActiveCloseImage : kCloseImage));
}

void CIndexTitleWidget::setShowTitleBg(bool on)
{
    m_showTitleBg = on;
    highlightTitleWidget(on);
    updateView();
    update();
}

void CIndexTitleWidget::setSubHeight(int rows)
{
    const long long height = static_cast<long long>(m_rowHeight) * rows;
    setFixedHeight(static_cast<int>(std::clamp<long long>(height, m_rowHeight, QWIDGETSIZE_MAX)));
}

int CIndexTitleWidget::heightForContent()
{
    if (!m_indexData)
        return -1;
    const int formulas = std::max(m_indexData->getFormulaSize(), m_storeys);
    int rows = formulas;
    if (m_displayType != EIndexDisplay_Legend) {
        rows = std::max(formulas, saturatedSum(formulas, m_storeys - 1LL));
        if (m_subViewType == EIndexView_Module && m_displayType == EIndexDisplay_Heading)
            rows = std::max(rows, 2);
    }
    // Deliberate: two rows at most, although a resting pointer may have opened five.
    return m_rowHeight * std::clamp(rows, 1, 2);
}

void CIndexTitleWidget::resetSize()
{
    // Deliberate: without data the -1 is passed on as it is; Qt makes it 0.
    const int wanted = heightForContent();
    if (wanted != height())
        setFixedHeight(wanted);
}

int CIndexTitleWidget::getSubStorey(QRect& rect)
{
    readPictures();
    LegendRows rows;
    if (m_indexData)
        rows = composeLegend(m_indexData->getData(), m_indexId, m_stock, m_addStocks,
                             m_displayType == EIndexDisplay_Heading, m_klineParam);
    const PieceSteps steps { m_leftOffset, logicalSize(m_upArrow).width(), logicalSize(m_downArrow).width() };
    return std::min(countRows(rows, rect, steps), m_showState);
}

void CIndexTitleWidget::updateTitleHeight()
{
    const int indent = stripIndent(m_subViewType, m_leftOffset);
    // Deliberate: a heading strip keeps its height, however wide its heading is.
    if (m_displayType != EIndexDisplay_Legend)
        return;
    constexpr int reserve = 50;
    QRect room = paintableRect(indent, 0, static_cast<long long>(width()) - reserve - indent, height());
    const int rows = getSubStorey(room);
    if (rows == m_storeys)
        return;
    m_storeys = rows;
    setFixedHeight(std::max(m_rowHeight, m_rowHeight * rows));
}

void CIndexTitleWidget::mousePressEvent(QMouseEvent* event)
{
    CBaseWidget::mousePressEvent(event);
    deliverEvent(WB::EStripEvent_Pressed, QString());
}

void CIndexTitleWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    CBaseWidget::mouseDoubleClickEvent(event);
    if (m_displayType == EIndexDisplay_Legend && m_viewType < EIndexView_Plain)
        deliverEvent(WB::EStripEvent_DoubleClicked, QString());
}

void CIndexTitleWidget::enterEvent(utils::EnterEvent* event)
{
    constexpr int restMs = 1000;
    CBaseWidget::enterEvent(event);
    if (m_displayType == EIndexDisplay_Legend)
        m_hoverTimer->start(restMs);
}

void CIndexTitleWidget::leaveEvent(QEvent* event)
{
    CBaseWidget::leaveEvent(event);
    m_showState = kRowsShown; // the height follows with the next updateTitleHeight()
    m_hoverTimer->stop();
}

void CIndexTitleWidget::slotShowAllIndex()
{
    m_showState = kRowsShownOnHover; // the height follows with the next updateTitleHeight()
    m_hoverTimer->stop();
    update();
}

void CIndexTitleWidget::slotTradeDateChanged(long long msecs)
{
    m_tradeDate = msecs / 1000;
}

} // namespace TC
