// SPDX-License-Identifier: MIT
#pragma once
/// @file One pane of the chart: legend strip above, plot below.

#include "apps/client/chart/PaneData.h"
#include "title/CIndexPanelBaseWidget.h"

#include <boost/shared_ptr.hpp>

#include <optional>

namespace TC {
class CIndexTitleWidget;
struct CKLineUiParam;
} // namespace TC

namespace client {

class PlotWidget;

/// An indicator panel over the chart's shared state. GUI thread only.
class ChartPane : public TC::CIndexPanelBaseWidget
{
    Q_OBJECT

public:
    /// @param main  the pane that shows the instrument's prices.
    ChartPane(bool main, ChartState* state, FormulaSource* source, const QStringList& formulas,
              QWidget* parent);
    ~ChartPane() override;

    bool isMain() const { return m_main; }
    PaneData* data() { return m_data.get(); }
    ChartState* state() { return m_state; }
    PlotWidget* plot() { return m_plot; }
    TC::CIndexTitleWidget* title() { return m_title; }

    void setOverlays(const std::vector<PaneData::Overlay>& overlays);

    /// @param overlay  its place among the overlaid instruments; one that does not exist changes nothing.
    void setOverlayScale(std::size_t overlay, PaneData::OverlayScale scale);
    void removeOverlay(std::size_t overlay);

    void removeFormula(const QString& formula);

    /// Shows the user's trades and positions in the main pane's legend.
    void showPositions(bool on);

    void clear(bool) override;
    void reloadStock() override;
    void request(bool) override;
    void unrequest() override;
    void updateView() override;
    QString getMarket() const override;
    QString getStock() const override;

    void uiResourceChanged() override;

Q_SIGNALS:
    void sigCloseRequested();
    /// The legend was double-clicked.
    void sigMaximizeRequested();
    /// The user drags the pane by its strip.
    /// @param place  of the pointer on the screen.
    void sigDragged(const QPoint& place);
    void sigParametersRequested(const QString& formula);
    void sigExportRequested(const QString& formula, bool toClipboard);
    /// The user wants the pane as a picture.
    void sigPictureRequested(bool toClipboard);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool handleDeliveredEvent(int id, const QString& text, void* data) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showLegendOf(int bar);
    void fitLegend();
    void followStripDrag(QEvent* event);

    bool m_main;
    ChartState* m_state;
    std::unique_ptr<PaneData> m_data;
    boost::shared_ptr<TC::CKLineUiParam> m_klineParam;
    TC::CIndexTitleWidget* m_title = nullptr;
    PlotWidget* m_plot = nullptr;
    std::optional<int> m_grip; ///< row of the screen where the strip was taken
};

} // namespace client
