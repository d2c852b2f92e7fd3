// SPDX-License-Identifier: MIT
#pragma once
/// @file The formulas of a pane with their results.

#include "apps/chart/OpenedBars.h"
#include "apps/chart/PaneContent.h"
#include "data/IndexBaseData.h"
#include "engine/records/FormulaRecords.h"

#include <string>
#include <vector>

namespace chart {

/// Holds a pane's formulas with their results.
class PaneResults : public TC::IndexBaseData
{
public:
    explicit PaneResults(WB::CEventDeliverer* parent = nullptr);

    /// Adds a formula behind the others, or replaces its records.
    void add(const TC::CFormulaKey& key, engine::FormulaRecords records);

    /// Lays the candles of another instrument over the pane's own formulas, or replaces their records.
    void overlay(const TC::CFormulaKey& key, engine::FormulaRecords records);

    /// The text of a formula's results, or of all of them side by side in the display order of the pane when
    /// `formula` is empty; cells of missing numbers are empty. Formulas whose results have not arrived are
    /// left out; empty when none is there.
    std::string exported(const QString& formula, bool withTime);

    /// Forgets every formula.
    void clear();

    /// The pane as the painters take it: the pane's formulas in display order; those without results are left
    /// out. Valid until a result is added or forgotten.
    /// @param instrument  whose results are shown; null shows none.
    PaneContent content(const Instrument& instrument);

protected:
    /// Gives overlaid candles, and their texts in the legend, colours of the skin's palette that the pane's
    /// first averages do not use. @param keys  of the overlaid ones, in their order; those without a result
    /// are passed over.
    void colorOverlaid(const std::vector<TC::CFormulaKey>& keys);

    /// The same of any keys, in their order. Those of other instruments are overlaid.
    PaneContent content(const Instrument& instrument, const std::vector<TC::CFormulaKey>& keys);

private:
    std::vector<TC::CFormulaKey> m_overlaid;
};

/// The factor that makes overlaid candles meet the pane's own at a bar; 1 where one of them has no close
/// there.
/// @param own,other  closes by bar.
float meetingFactor(const std::vector<double>& own, const std::vector<double>& other, int bar);

} // namespace chart
