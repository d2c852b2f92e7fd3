// SPDX-License-Identifier: MIT
#pragma once
/// @file What a formula that is being written looks like.

#include "apps/chart/OpenedBars.h"
#include "apps/chart/PaneResults.h"
#include "engine/language/Formula.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace client {

/// A pane with a formula over the last bars of an instrument; one for the main chart lies on its candles.
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
    void compute();

    chart::Instrument m_instrument;
    engine::BarSeries m_bars; ///< the last ones
    std::shared_ptr<const engine::Formula> m_formula;
    std::vector<double> m_parameters;
    chart::PaneResults m_results;
};

} // namespace client
