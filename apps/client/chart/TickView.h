// SPDX-License-Identifier: MIT
#pragma once
/// @file The tick page: every trade as a cross above, its volume as a stick below.

#include "apps/chart/OpenedBars.h"
#include "apps/chart/PaneContent.h"
#include "apps/chart/PaneResults.h"
#include "apps/client/chart/ChartState.h"

#include <boost/shared_ptr.hpp>

#include <QWidget>

#include <memory>

class QComboBox;
class QStackedLayout;

namespace TC {
class CIndexTitleWidget;
struct CKLineUiParam;
} // namespace TC

namespace client {

class PlotWidget;

/// Trades of one instrument; wheel, drag and keys move and zoom as on the chart. A box chooses whether volume
/// sticks are coloured by price alone or by the order book as well. GUI thread only.
class TickView : public QWidget
{
    Q_OBJECT

public:
    explicit TickView(QWidget* parent = nullptr);
    ~TickView() override;

    void setTicks(const chart::OpenedTicks& opened);
    /// Takes the trades that were set before and more behind them.
    void growTicks(const chart::OpenedTicks& opened);
    /// What is shown; null trades without any.
    const chart::OpenedTicks& opened() const { return m_opened; }
    ChartState* state() { return &m_state; }

    /// Whether large changes of the order book override the direction of a trade's volume.
    bool followsBook() const;
    void setFollowsBook(bool on);

Q_SIGNALS:
    /// The user wants to choose a trades file.
    void sigOpenRequested();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// One pane with what it shows.
    struct Pane
    {
        std::unique_ptr<chart::PaneResults> results;
        TC::CIndexTitleWidget* title = nullptr;
        PlotWidget* plot = nullptr;
        boost::shared_ptr<TC::CKLineUiParam> param; ///< of the title
    };

    Pane makePane(bool main);
    chart::PaneContent contentOf(chart::PaneResults& results);
    void show(Pane& pane, const QString& formula, engine::FormulaRecords records);
    void showResults();

    chart::OpenedTicks m_opened;
    ChartState m_state;
    QStackedLayout* m_pages;
    QComboBox* m_rule;
    Pane m_prices, m_volumes;
};

} // namespace client
