// SPDX-License-Identifier: MIT
#pragma once
/// @file The chart: panes below each other over one time axis.

#include "apps/client/chart/ChartPane.h"
#include "apps/client/session/ChartChoices.h"

#include <QWidget>

#include <vector>

class QHBoxLayout;
class QScrollArea;
class QSplitter;
class QStackedWidget;

namespace client {

/// All panes of one instrument, each at least as high as it takes to be read: more of them are scrolled.
/// Without bars it says how to open some. Keys: up and down zoom, left and right move, Home and End jump. GUI
/// thread only.
class ChartView : public QWidget
{
    Q_OBJECT

public:
    explicit ChartView(FormulaSource* source, QWidget* parent = nullptr);

    ChartState* state() { return &m_state; }
    const std::vector<ChartPane*>& panes() const { return m_panes; }

    /// What the user has chosen here, and takes it again.
    ChartChoices choices() const;
    void take(const ChartChoices& choices);

    /// Adds a pane below the others; the first one is the main pane and cannot be closed.
    ChartPane* addPane(const QStringList& formulas);
    /// Shows a formula where it belongs: over the candles, or in a pane of its own.
    void showFormula(const QString& name);
    void closePane(ChartPane* pane);
    /// Moves a pane to another place; the main pane stays the first.
    void movePane(ChartPane* pane, std::size_t place);
    /// Gives one pane the whole height, or all their shares again.
    void toggleMaximized(ChartPane* pane);

Q_SIGNALS:
    void sigMessage(const QString& text);
    /// The user wants the instrument that many places further in the list.
    void sigStepRequested(int places);
    /// The user has typed the beginning of an instrument's code or name.
    void sigSearchRequested(const QString& typed);
    /// The user wants other parameters for a formula.
    void sigParametersRequested(const QString& formula);
    /// The user wants a pane as a picture.
    void sigPictureRequested(client::ChartPane* pane, bool toClipboard);
    /// The user wants to choose a bars file.
    void sigOpenRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeChartPage();
    void addKeys();
    void showPaneMenus();
    void showEveryPane();
    void dragPane(ChartPane* pane, const QPoint& place);
    void exportPane(ChartPane* pane, const QString& formula, bool toClipboard);

    FormulaSource* m_source;
    ChartState m_state;
    QStackedWidget* m_pages;
    QScrollArea* m_scroll;
    QSplitter* m_splitter;
    QHBoxLayout* m_axisRow = nullptr; ///< leaves the room of the scroll bar free
    std::vector<ChartPane*> m_panes;
};

} // namespace client
