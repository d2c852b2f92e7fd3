/// @file What the legend strip paints.

#include "title/CIndexTitleWidget.h"

#include "data/IndexBaseData.h"
#include "draw/CDrawStyle.h"
#include "draw/internal/Pens.h"
#include "host/TC/Instruments.h"
#include "host/TC/PeriodNames.h"
#include "host/TC/UiParams.h"
#include "host/WB/CPushButton.h"
#include "title/internal/AccountPositions.h"
#include "title/internal/LegendFlow.h"
#include "title/internal/Pictures.h"
#include "title/internal/StripLayout.h"

#include <QDateTime>
#include <QFontMetrics>
#include <QPainter>

#include <cmath>

namespace TC {

namespace {

constexpr const char* kBackgroundColor = "ic_clr_graph_kline_bg";
constexpr const char* kSeparatorColor = "ic_clr_kline_graph_frame_border";
constexpr const char* kGroupNameFont = "ic_fnt_index_modulegroup_header_text";
constexpr const char* kGroupNameColor = "ic_clr_modulegroup_header_stock";
constexpr const char* kHeadingFont = "ic_fnt_index_realtime_stock_title_text";
constexpr const char* kHeadingColor = "clr_stock_code";
constexpr int kLeftMiddle = Qt::AlignLeft | Qt::AlignVCenter;

QFont skinFont(const char* key)
{
    const QFont* font = utils::CSingletonT<WB::CUiResource>::instance()->getFont(QString::fromLatin1(key));
    return font ? *font : QFont();
}

/// A heading text, shortened where its column is too narrow for it.
void paintHeading(QPainter& painter, const QRect& column, const QString& text, const char* fontKey,
                  const char* colorKey)
{
    if (column.isEmpty())
        return;
    const QFont font = skinFont(fontKey);
    painter.setFont(font);
    painter.setPen(WB::skinColor(colorKey));
    const QString shown = QFontMetrics(font).elidedText(text, Qt::ElideRight, column.width());
    painter.drawText(column, kLeftMiddle | Qt::TextDontClip | Qt::TextSingleLine, shown);
}

int widthIn(const char* fontKey, const QString& text)
{
    return text.isEmpty() ? 0 : WB::CSimpleText::getSize(text, QString::fromLatin1(fontKey)).width();
}

/// Whether the pane's settings ask for the account positions.
bool showsPositions(const CKLineUiParam* kline, const CRealtimeUiParam* realtime)
{
    constexpr int positions = 2;
    return (kline && (kline->displayFlags & positions) != 0)
        || (realtime && (realtime->displayFlags & positions) != 0);
}

int objectsWidth(const QList<CArrowColorSimpleText>& row)
{
    return detail::forEachObject(row, 0, 0, [](const CArrowColorSimpleText&, int, int) {});
}

} // namespace

void CIndexTitleWidget::makeBuffer()
{
    // Rounded up: a fractional ratio must not lose the last column or row.
    const qreal ratio = devicePixelRatioF();
    m_buffer =
        QPixmap(static_cast<int>(std::ceil(width() * ratio)), static_cast<int>(std::ceil(height() * ratio)));
    m_buffer.setDevicePixelRatio(ratio);
}

void CIndexTitleWidget::placeCloseButton()
{
    if (m_displayType == EIndexDisplay_Heading || m_viewType == EIndexView_Quote || !m_closeBtn)
        return;
    const QRect place = detail::closeButtonRect(width());
    m_closeBtn->setFixedSize(place.size());
    m_closeBtn->move(place.topLeft());
}

void CIndexTitleWidget::resizeEvent(QResizeEvent* event)
{
    CBaseWidget::resizeEvent(event);
    placeCloseButton();
    makeBuffer();
    updateView();
}

void CIndexTitleWidget::paintEvent(QPaintEvent*)
{
    // The strip may have moved to a screen of another density since it was drawn.
    if (!m_buffer.isNull() && !qFuzzyCompare(m_buffer.devicePixelRatioF(), devicePixelRatioF())) {
        makeBuffer();
        updateView();
    }
    QPainter painter(this);
    painter.fillRect(rect(), WB::skinColor(kBackgroundColor));
    if (m_indexData && !m_buffer.isNull())
        painter.drawPixmap(0, 0, m_buffer);
}

void CIndexTitleWidget::updateView()
{
    readPictures();
    if (m_buffer.isNull() || m_buffer.paintingActive())
        return;
    QPainter painter(&m_buffer);
    painter.fillRect(rect(), WB::skinColor(kBackgroundColor));
    if (m_displayType == EIndexDisplay_Date)
        paintDate(painter);
    else
        paintStrip(painter);
    painter.end();
    update();
}

void CIndexTitleWidget::paintDate(QPainter& painter)
{
    const QString date = QDateTime::fromSecsSinceEpoch(m_tradeDate).toString(QStringLiteral("yyyy/MM/dd"));
    WB::CSimpleText(date, QString::fromLatin1(kHeadingColor), QString::fromLatin1(kHeadingFont))
        .drawText(&painter, 0, 0, width(), height(), kLeftMiddle, false, false);
}

void CIndexTitleWidget::paintStrip(QPainter& painter)
{
    const QString name = getDetailQsName(m_stock);
    if (!m_stock && name.isEmpty())
        return;

    const bool mainChart = m_displayType == EIndexDisplay_Heading;
    const bool isGroup = m_subViewType == EIndexView_Module;
    const char* const nameFont = isGroup ? kGroupNameFont : kHeadingFont;
    const QString period = getCycleName(getPeriodIndex(m_period));
    const QString adjustment = getDrName(m_drType);
    detail::TitleRows rows;
    if (m_indexData)
        rows = detail::composeTitleRows(m_indexData->getData(), m_indexId, m_stock, m_addStocks, mainChart,
                                        m_klineParam);

    detail::StripContent content;
    content.size = size();
    content.displayType = m_displayType;
    content.viewType = m_viewType;
    content.subViewType = m_subViewType;
    content.leftOffset = m_leftOffset;
    content.rowHeight = m_rowHeight;
    content.nameWidth = widthIn(nameFont, name);
    content.periodWidth = std::max(widthIn(kHeadingFont, period), widthIn(kHeadingFont, adjustment));
    content.icon = detail::logicalSize(m_codeIcon);
    content.hasButton = m_closeBtn != nullptr;
    content.firstRowWidth = objectsWidth(rows.first);
    const detail::StripLayout layout = detail::layOutStrip(content);

    painter.setPen(WB::skinColor(kSeparatorColor));
    painter.drawLines(layout.separators);
    paintHeading(painter, layout.name, name, nameFont, isGroup ? kGroupNameColor : kHeadingColor);
    paintHeading(painter, layout.period, period, kHeadingFont, kHeadingColor);
    paintHeading(painter, layout.adjustment, adjustment, kHeadingFont, kHeadingColor);
    if (m_codeIcon && !layout.icon.isEmpty())
        painter.drawPixmap(layout.icon, *m_codeIcon);
    if (m_indexData && !layout.legend.isEmpty())
        paintLegend(painter, rows, layout);
}

void CIndexTitleWidget::paintLegend(QPainter& painter, const detail::TitleRows& rows,
                                    const detail::StripLayout& layout)
{
    const bool mainChart = m_displayType == EIndexDisplay_Heading;
    const auto& results = m_indexData->getData();
    if (!mainChart && layout.legend.width() < detail::titleWidth(rows)) {
        // drawTitle wraps each formula by itself and leaves what stands behind it outside the strip: the
        // rows that were opened for the legend would stay empty.
        for (const detail::FlowPiece& piece : detail::flowPieces(rows, layout.legend))
            piece.text.drawText(&painter, piece.position.x(), piece.position.y(), QWIDGETSIZE_MAX,
                                detail::kTitleRowHeight, Qt::AlignCenter, false, false);
        return;
    }
    const double priceTick = getDetailPriceTick(m_stock);
    detail::TitleTrading trading;
    if (mainChart && showsPositions(m_klineParam.get(), m_realtimeParam.get())) {
        const QString key = getDetailQsKey(m_stock);
        const int behind = detail::saturatedSum(
            detail::titleOrigin(layout.titleRect, m_viewType, layout.titleOffset, mainChart).firstX,
            objectsWidth(rows.first));
        trading = detail::tradingAt(utils::CSingletonT<CLinkageManager>::instance()->getPositionNumber(key),
                                    detail::shownBarDate(results, key, m_indexId));
        trading = detail::fitTrading(trading, layout.legend, behind, priceTick);
    }

    const QRegion visible =
        detail::wholePieces(layout.legend, layout.titleRect, rows, detail::summaryTexts(trading, priceTick),
                            m_viewType, layout.titleOffset, mainChart);
    if (visible.isEmpty())
        return;
    painter.setClipRegion(visible);
    QRect titleRect = layout.titleRect;
    CDrawStyle::drawTitle(&painter, titleRect, results, m_indexId, m_stock, m_addStocks, m_viewType,
                          layout.titleOffset, mainChart, trading.accounts, trading.positions,
                          trading.positionFlags, trading.totalBuyAmount, trading.totalSellAmount,
                          trading.netBuyAmount, trading.profitLoss, trading.balanceAmount, trading.buyVolume,
                          trading.sellVolume, trading.buyAvgPrice, trading.sellAvgPrice, m_klineParam);
}

} // namespace TC
