// SPDX-License-Identifier: MIT
#pragma once
/// @file One pane of the page: a legend that follows the mouse, and whatever the formulas draw below it.

#include <data/IndexBaseData.h>
#include <draw/PaneMapping.h>
#include <engine/series/BarSeries.h>

#include <QWidget>

#include <functional>

namespace TC {
class CIndexTitleWidget;
}

namespace example {

/// What the pane shows: a client's own data holder fills the library's.
class PaneData : public TC::IndexBaseData
{
public:
    PaneData()
        : IndexBaseData(nullptr)
    {
    }
    /// Computes a built-in formula; one that does not exist is left out.
    void add(const QString& instrument, const QString& formula, const engine::BarSeries& bars);
    DataMap& results() { return m_data; }
};

/// The last bars of an instrument. The first formula decides about the scale's air and the heading.
class Pane : public QWidget
{
public:
    Pane(const QString& instrument, const engine::BarSeries& bars, const QStringList& formulas);
    ~Pane() override;

    /// Moves crosshair and legend to a bar; -1: no crosshair, and the legend of the last bar.
    void pointAt(int bar);

    std::function<void(int)> onPointed; ///< the bar under the mouse, or -1

protected:
    void paintEvent(QPaintEvent*) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent*) override;

private:
    static constexpr int kShown = 120; // bars

    QRect plot() const { return { 0, 0, width(), height() - m_stripHeight }; }
    TC::SlotLayout barSlots() const { return TC::candleSlots(plot(), m_first, kShown); }
    QPair<double, double> range(); ///< (maximum, minimum) of what shows
    void paintOutput(QPainter& painter, TC::RPCFormulaResultCache& cache, int output,
                     const QPair<double, double>& range);

    PaneData m_data;
    TC::CIndexTitleWidget* m_strip;
    int m_stripHeight = 16;
    int m_first, m_last, m_pointed = -1;
};

} // namespace example
