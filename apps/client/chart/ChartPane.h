// SPDX-License-Identifier: MIT
#pragma once
/// @file One pane of the chart: legend strip above, plot below.

#include "apps/client/chart/PaneData.h"
#include "title/CIndexPanelBaseWidget.h"

#include <boost/shared_ptr.hpp>

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
    TC::CIndexTitleWidget* title() { return m_title; }

    void setOverlays(const std::vector<PaneData::Overlay>& overlays);

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

    bool m_main;
    ChartState* m_state;
    std::unique_ptr<PaneData> m_data;
    boost::shared_ptr<TC::CKLineUiParam> m_klineParam;
    TC::CIndexTitleWidget* m_title = nullptr;
    PlotWidget* m_plot = nullptr;
};

} // namespace client
