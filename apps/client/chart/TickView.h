// SPDX-License-Identifier: MIT
#pragma once
/// @file The tick page: every trade as a cross above, its volume as a stick below.

#include "apps/chart/OpenedBars.h"
#include "apps/chart/PaneContent.h"
#include "apps/chart/PaneResults.h"
#include "apps/client/chart/ChartState.h"

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
    ChartState* state() { return &m_state; }

    /// Whether large changes of the order book override the direction of a trade's volume.
    bool followsBook() const;
    void setFollowsBook(bool on);

Q_SIGNALS:
    /// The user wants to choose a trades file.
    void sigOpenRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// One pane with what it shows.
    struct Pane
    {
        std::unique_ptr<chart::PaneResults> results;
        TC::CIndexTitleWidget* title = nullptr;
        PlotWidget* plot = nullptr;
    };

    Pane makePane(bool main);
    chart::PaneContent contentOf(chart::PaneResults& results);
    void show(Pane& pane, const QString& formula, engine::FormulaRecords records);

    ChartState m_state;
    QStackedLayout* m_pages;
    QComboBox* m_rule;
    Pane m_prices, m_volumes;
};

} // namespace client
