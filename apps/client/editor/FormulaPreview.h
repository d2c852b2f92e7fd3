// SPDX-License-Identifier: MIT
#pragma once
/// @file What a formula that is being written looks like.

#include "apps/chart/OpenedBars.h"
#include "apps/chart/PaneResults.h"
#include "apps/base/LatestJob.h"
#include "engine/language/Formula.h"

#include <QWidget>

#include <memory>
#include <utility>
#include <vector>

namespace client {

/// A pane with a formula over the last bars of an instrument; one for the main chart lies on its candles. It
/// is computed on another thread, and the picture before stays until it is done.
class FormulaPreview : public QWidget
{
    Q_OBJECT

public:
    explicit FormulaPreview(QWidget* parent = nullptr);

    /// @param bars  null: there is nothing to compute from, and a line of text says so.
    void setBars(chart::Instrument instrument, const std::shared_ptr<const engine::BarSeries>& bars);

    /// @param formula  null: the picture stays as it is.
    void setFormula(const std::shared_ptr<const engine::Formula>& formula,
                    const std::vector<double>& parameters);

    /// Whether there is something to be seen.
    bool hasPicture() { return !m_results.getFormulas().isEmpty(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    using Records = std::vector<std::pair<QString, engine::FormulaRecords>>;

    void compute();
    void show(int kind, Records records);

    chart::Instrument m_instrument;
    std::shared_ptr<const engine::BarSeries> m_bars; ///< the last ones; null when there are none
    std::shared_ptr<const engine::Formula> m_formula;
    std::vector<double> m_parameters;
    chart::PaneResults m_results;
    int m_kind = 0;        ///< of the formula in the picture
    base::LatestJob m_job; ///< last: it ends before what it shows
};

} // namespace client
