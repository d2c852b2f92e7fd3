// SPDX-License-Identifier: MIT
#pragma once
/// @file The chart: panes below each other over one time axis.

#include "apps/client/chart/ChartPane.h"

#include <QWidget>

#include <vector>

class QSplitter;

namespace client {

/// All panes of one instrument. Keys: up and down zoom, left and right move, Home and End jump. GUI thread
/// only.
class ChartView : public QWidget
{
    Q_OBJECT

public:
    explicit ChartView(FormulaSource* source, QWidget* parent = nullptr);

    ChartState* state() { return &m_state; }
    const std::vector<ChartPane*>& panes() const { return m_panes; }

    /// Adds a pane below the others; the first one is the main pane and cannot be closed.
    ChartPane* addPane(const QStringList& formulas);
    void closePane(ChartPane* pane);
    /// Gives one pane the whole height, or all their shares again.
    void toggleMaximized(ChartPane* pane);

Q_SIGNALS:
    void sigMessage(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void exportPane(ChartPane* pane, const QString& formula, bool toClipboard);

    FormulaSource* m_source;
    ChartState m_state;
    QSplitter* m_splitter;
    std::vector<ChartPane*> m_panes;
};

} // namespace client
