// SPDX-License-Identifier: MIT
/// @file What the legend strip paints.

#include "title/CIndexTitleWidget.h"

#include "data/IndexBaseData.h"
#include "draw/internal/Numbers.h"
#include "host/TC/Instruments.h"
#include "host/TC/PeriodNames.h"
#include "host/TC/UiParams.h"
#include "host/WB/CPushButton.h"
#include "host/WB/SkinLookup.h"
#include "host/utils/LocalDateTime.h"
#include "title/internal/AccountPositions.h"
#include "title/internal/LegendClip.h"
#include "title/internal/LegendFlow.h"
#include "title/internal/LegendPaint.h"
#include "title/internal/Pictures.h"
#include "title/internal/StripLayout.h"
#include "title/internal/TextShapes.h"

#include <QFontMetrics>
#include <QPainter>

#include <cmath>

namespace TC {

using namespace detail;

namespace {

constexpr const char* kBackgroundColor = "ic_clr_graph_kline_bg";
constexpr const char* kSeparatorColor = "ic_clr_kline_graph_frame_border";
constexpr const char* kGroupNameFont = "ic_fnt_index_modulegroup_header_text";
constexpr const char* kGroupNameColor = "ic_clr_modulegroup_header_stock";
constexpr const char* kHeadingFont = "ic_fnt_index_realtime_stock_title_text";
constexpr const char* kHeadingColor = "clr_stock_code";
constexpr int kLeftMiddle = Qt::AlignLeft | Qt::AlignVCenter;

/// A heading text, shortened where its column is too narrow for it.
void paintHeading(QPainter& painter, const QRect& column, const QString& text, const char* fontKey,
                  const char* colorKey)
{
    if (column.isEmpty())
        return;
    const QFont font = WB::skinFont(fontKey);
    painter.setFont(font);
    painter.setPen(WB::skinColor(colorKey));
    const QString shown = isWithin(column.width(), text, font)
        ? text
        : QFontMetrics(font).elidedText(text, Qt::ElideRight, column.width());
    paintLine(&painter, column, kLeftMiddle, shown, font);
}

int widthIn(const char* fontKey, const QString& text)
{
    return text.isEmpty() ? 0 : textWidth(text, WB::skinFont(fontKey));
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
    return forEachObject(row, 0, 0, [](const CArrowColorSimpleText&, int, int) {});
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
    if (!m_closeBtn)
        return;
    const QRect place = closeButtonRect(width());
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
    if (!qFuzzyCompare(m_buffer.devicePixelRatioF(), devicePixelRatioF())) {
        makeBuffer();
        updateView();
    }
    QPainter painter(this);
    painter.fillRect(rect(), WB::skinColor(kBackgroundColor));
    if (m_indexData)
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
    const QString date = utils::localDateTime(m_tradeDate * 1000).toString(QStringLiteral("yyyy/MM/dd"));
    WB::CSimpleText(date, QString::fromLatin1(kHeadingColor), QString::fromLatin1(kHeadingFont))
        .drawText(&painter, 0, 0, width(), height(), kLeftMiddle, false, false);
}

void CIndexTitleWidget::paintStrip(QPainter& painter)
{
    const QString name = getDetailQsName(m_stock);
    if (!m_stock)
        return;

    const bool mainChart = m_displayType == EIndexDisplay_Heading;
    const bool isGroup = m_subViewType == EIndexView_Module;
    const char* const nameFont = isGroup ? kGroupNameFont : kHeadingFont;
    const QString period = getCycleName(getPeriodIndex(m_period));
    const QString adjustment = getDrName(m_drType);
    LegendRows rows;
    if (m_indexData)
        rows =
            composeLegend(m_indexData->getData(), m_indexId, m_stock, m_addStocks, mainChart, m_klineParam);

    StripContent content;
    content.size = size();
    content.displayType = m_displayType;
    content.viewType = m_viewType;
    content.subViewType = m_subViewType;
    content.leftOffset = m_leftOffset;
    content.rowHeight = m_rowHeight;
    content.nameWidth = widthIn(nameFont, name);
    content.periodWidth = std::max(widthIn(kHeadingFont, period), widthIn(kHeadingFont, adjustment));
    content.icon = logicalSize(m_codeIcon);
    content.hasButton = m_closeBtn != nullptr;
    content.firstRowWidth = objectsWidth(rows.first);
    const StripLayout layout = layOutStrip(content);

    painter.setPen(WB::skinColor(kSeparatorColor));
    painter.drawLines(layout.separators);
    paintHeading(painter, layout.name, name, nameFont, isGroup ? kGroupNameColor : kHeadingColor);
    paintHeading(painter, layout.period, period, kHeadingFont, kHeadingColor);
    paintHeading(painter, layout.adjustment, adjustment, kHeadingFont, kHeadingColor);
    if (!layout.icon.isEmpty())
        painter.drawPixmap(layout.icon, *m_codeIcon);
    if (m_indexData && !layout.legend.isEmpty())
        paintRows(painter, rows, layout);
}

/// The account positions and the trade summary as far as they fit behind the first row, where the pane's
/// settings ask for them.
QVector<ArrowColorTextData> CIndexTitleWidget::summaryBehind(int x, const QRect& area) const
{
    if (!showsPositions(m_klineParam.get(), m_realtimeParam.get()))
        return {};
    const QString key = getDetailQsKey(m_stock);
    const double priceTick = getDetailPriceTick(m_stock);
    const TradeSummary trading =
        tradingAt(utils::CSingletonT<CLinkageManager>::instance()->getPositionNumber(key),
                  shownBarDate(m_indexData->getData(), key, m_indexId));
    return summaryTexts(fitSummary(trading, area, x, priceTick), priceTick);
}

void CIndexTitleWidget::paintRows(QPainter& painter, const LegendRows& rows, const StripLayout& layout)
{
    const bool mainChart = m_displayType == EIndexDisplay_Heading;
    if (!mainChart && layout.legend.width() < legendWidth(rows)) {
        // The painting of a pane's legend wraps each formula by itself and leaves what stands behind it
        // outside the strip: the rows that were opened for the legend would stay empty.
        const auto pieces = flowPieces(rows, layout.legend);
        for (const FlowPiece& piece : pieces)
            piece.text.drawText(&painter, piece.position.x(), piece.position.y(), QWIDGETSIZE_MAX,
                                kLegendRowHeight, Qt::AlignCenter, false, false);
        return;
    }
    const LegendOrigin origin = legendOrigin(layout.rowsRect, m_viewType, layout.rowsOffset, mainChart);
    QVector<ArrowColorTextData> summary;
    if (origin.hasSummary)
        summary = summaryBehind(saturatedSum(origin.firstX, objectsWidth(rows.first)), layout.legend);
    const int width = layout.rowsRect.width();
    const LegendClip visible = wholePieces(painter, layout.legend, rows, origin, width, summary);
    if (visible.pieces.isEmpty())
        return;
    // Under a clip of many rectangles a text takes nearly half as long again.
    if (visible.isNeeded)
        painter.setClipRegion(visible.region());
    paintLegend(&painter, rows, origin, width, summary, &layout.legend);
}

} // namespace TC
