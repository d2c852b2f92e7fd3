// SPDX-License-Identifier: MIT
#pragma once
/// @file The legend strip of an indicator pane.

#include "host/TC/Periods.h"
#include "host/WB/CBaseWidget.h"
#include "host/utils/QtVersions.h"
#include "indicatorui_export.h"
#include "title/ArrowColorTextData.h"

#include <boost/shared_ptr.hpp>

#include <QList>
#include <QPixmap>
#include <QString>
#include <QVector>

#include <memory>

class QTimer;

namespace ttservice {
class CInstrumentDetail;
}

namespace WB {
class CPushButton;
}

namespace TC {

class IndexBaseData;
struct CKLineUiParam;
struct CRealtimeUiParam;

namespace detail {
struct StripLayout;
struct LegendRows;
} // namespace detail

/// A strip of rows of 16 pixels above or inside a pane: the instrument's heading (display type 0), the
/// legends of the pane's formulas, a close button and an instrument-class icon; display type 7 shows the
/// replayed date alone. It paints into a buffer that updateView() redraws, as sharp as the screen.
///
/// Sends host event 188 on every mouse press and 213 on a double click of display type 1 in view types 0
/// and 1. The data holder is not owned and must outlive the strip, or be replaced by setIndexData.
/// GUI thread only.
class INDICATORUI_EXPORT CIndexTitleWidget : public WB::CBaseWidget
{
    Q_OBJECT

public:
    /// @param indexData  the pane's results; may be null: nothing but the background shows.
    /// @param subViewType  0: module-group heading; 1: the legend is indented by `leftOffset`.
    /// @param leftOffset  pixels; also the gap that each piece is given when rows are counted.
    /// @param drType  price adjustment, as for TC::getDrName.
    /// @param klineParam  may be null.
    CIndexTitleWidget(IndexBaseData* indexData, EIndexDisplayType displayType, EIndexViewType viewType,
                      EIndexViewType subViewType, int leftOffset, int drType,
                      boost::shared_ptr<CKLineUiParam> klineParam, QWidget* parent);
    ~CIndexTitleWidget() override;

    /// Replaces the results; the strip is redrawn with the next updateView().
    void setIndexData(IndexBaseData* indexData);
    /// Period whose name the heading shows.
    void setPeroid(EFormulaPeriod period);
    /// Price adjustment whose name the heading shows.
    void setDrType(int drType);
    /// Bar whose values show; -1: the last one.
    void updateIndexId(int index);
    /// The indicator shown alone; empty: all of them.
    void setShowIndex(const QString& name);
    /// Forgets the indicator shown alone if it is `name`; redraws in any case.
    void hideIndex(const QString& name);
    /// Back to the last bar, without redrawing.
    void clear();

    /// The instrument of the heading and of the legends' prices; null: none.
    void setStock(std::shared_ptr<ttservice::CInstrumentDetail> stock);
    /// Drops the instrument, without redrawing.
    void clearStock();
    /// Replaces the overlaid instruments; the same list again does not redraw.
    void setAddStockList(QList<std::shared_ptr<ttservice::CInstrumentDetail>>& stocks);
    /// Drops the overlaid instruments.
    void clearAddStockList();
    /// Stores the settings, without redrawing.
    void setRealtimeUiParam(boost::shared_ptr<CRealtimeUiParam> param);

    /// The close button; null for display type 0 and view type 3. It emits clicked().
    WB::CPushButton* closeButton() const { return m_closeBtn; }
    /// Shows or hides the close button, where there is one.
    void setCloseBtnVisible(bool visible);
    /// Shows the close button in its highlighted or normal picture.
    void highlightTitleWidget(bool on);
    /// Highlights the strip and its close button, or neither.
    void setShowTitleBg(bool on);

    /// Height of one row in pixels.
    int titleHeight() const { return m_rowHeight; }
    /// Fixes the height to `rows` rows, one at least.
    void setSubHeight(int rows);
    /// Fixes the height that the content needs; without data that is none.
    void resetSize();

    /// Redraws the strip and schedules its repaint.
    void updateView();
    /// Counts the rows that the legends need and fixes that height; acts for display type 1 alone.
    void updateTitleHeight();

    void uiResourceChanged() override;

public Q_SLOTS:
    /// The pointer has rested on the strip: up to five rows count from now on.
    void slotShowAllIndex();
    /// @param msecs  milliseconds since 1970-01-01 UTC.
    void slotTradeDateChanged(long long msecs);

protected:
    /// Rows that the legends take within `rect`, at most as many as are shown.
    int getSubStorey(QRect& rect);
    /// Pixels that the content needs: one or two rows; -1 without data.
    int heightForContent();

    /// Sends event 188.
    void mousePressEvent(QMouseEvent* event) override;
    /// Sends event 213 where the strip's kind has one.
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    /// Starts waiting until the pointer has rested.
    void enterEvent(utils::EnterEvent* event) override;
    /// Two rows count again at most.
    void leaveEvent(QEvent* event) override;
    /// Redraws the strip in its new size.
    void resizeEvent(QResizeEvent* event) override;
    /// Shows the buffer.
    void paintEvent(QPaintEvent* event) override;

private:
    void createUi();
    void readPictures();
    void placeCloseButton();
    void makeBuffer();
    void paintDate(QPainter& painter);
    void paintStrip(QPainter& painter);
    QVector<ArrowColorTextData> summaryBehind(int x, const QRect& area) const;
    void paintRows(QPainter& painter, const detail::LegendRows& rows, const detail::StripLayout& layout);

    IndexBaseData* m_indexData; ///< not owned
    EIndexViewType m_viewType;
    EIndexViewType m_subViewType;
    EIndexDisplayType m_displayType;
    WB::CPushButton* m_closeBtn = nullptr; ///< child
    int m_leftOffset;
    std::shared_ptr<ttservice::CInstrumentDetail> m_stock;
    int m_indexId = -1;
    QString m_showIndex;
    EFormulaPeriod m_period = EFormulaPeriod_Day;
    int m_drType;
    int m_rowHeight = 16;
    bool m_showTitleBg = false;
    boost::shared_ptr<CKLineUiParam> m_klineParam;
    boost::shared_ptr<CRealtimeUiParam> m_realtimeParam;
    QList<std::shared_ptr<ttservice::CInstrumentDetail>> m_addStocks;
    int m_storeys = 1;                    ///< rows in use
    int m_showState = 2;                  ///< most rows that count: 2, or 5 once the pointer has rested
    QTimer* m_hoverTimer;                 ///< child
    const QPixmap* m_upArrow = nullptr;   ///< the skin's
    const QPixmap* m_downArrow = nullptr; ///< the skin's
    QPixmap m_buffer;
    const QPixmap* m_codeIcon = nullptr; ///< the skin's
    long long m_tradeDate = 0;           ///< seconds since 1970-01-01 UTC
};

} // namespace TC
