// SPDX-License-Identifier: MIT
#pragma once
/// @file What one pane of the client has asked for and received.

#include "apps/chart/PaneResults.h"
#include "apps/client/chart/ChartState.h"
#include "apps/client/chart/FormulaSource.h"

#include <map>
#include <set>

namespace client {

/// The pane's formulas, their requests and results. A result whose request was superseded is dropped.
class PaneData : public chart::PaneResults
{
    Q_OBJECT

public:
    PaneData(WB::CEventDeliverer* parent, ChartState* state, FormulaSource* source);
    ~PaneData() override;

    /// Replaces the formulas and asks for their results.
    void setFormulas(const QStringList& names);
    /// Adds a formula behind the others, unless it is there.
    void addFormula(const QString& name);
    void removeFormula(const QString& name);
    /// Moves a formula to another place in the order of legend and painting; places that do not exist change
    /// nothing.
    void moveFormula(int from, int to);
    /// Asks anew for every formula; results already here stay until new ones arrive.
    void request();
    /// Gives up whatever is outstanding.
    void cancel();

    /// How an overlaid instrument stands on the pane's axis.
    enum class OverlayScale {
        Together, ///< both instruments meet at the first shown close
        Same,     ///< at its own prices
        Own       ///< as high as the pane, whatever its prices are
    };
    /// Overlaid instruments with their bars.
    struct Overlay
    {
        ChartState::Instrument instrument;
        ChartState::Bars bars; ///< as their file has them; they are brought onto the chart's times
        OverlayScale scale = OverlayScale::Together;
        QString path {}; ///< of their file
    };
    void setOverlays(const std::vector<Overlay>& overlays);
    const std::vector<Overlay>& overlays() const { return m_overlays; }

    /// Gives overlaid candles, and their texts in the legend, colours of the skin's palette that the pane's
    /// first averages do not use.
    void colorOverlays();

    /// The pane as the painters take it, formulas in display order.
    chart::PaneContent content();

Q_SIGNALS:
    void sigChanged();
    /// Results have followed the bars, in a way that does not show in the plot.
    void sigGrownOutOfView();

private:
    void standOnAxis(chart::PaneContent& pane);
    void gatherOverlays();
    /// Brings overlaid prices onto the pane's axis.
    void placeOverlays(chart::PaneContent& pane);
    void stretchOverPane(chart::PaneFormula& formula, const chart::PaneContent& pane) const;
    /// Forgets what was found out about a result.
    void forget(const TC::CFormulaKey& key);
    float factorOf(std::size_t overlay) const;
    std::optional<chart::LastPrice> lastPrice() const;
    /// The bars have grown: the formulas follow.
    void grow();
    void growOne(const TC::CFormulaKey& key);
    /// The bars that a formula is computed over; null for one that is not shown.
    ChartState::Bars barsOf(const TC::CFormulaKey& key) const;
    /// Whether the plot shows other results than those that are known.
    bool isSeen(const TC::CFormulaKey& key, const engine::FormulaRecords& records) const;
    void requestOne(const TC::CFormulaKey& key, const ChartState::Bars& bars);
    void store(const QString& id, const std::shared_ptr<const engine::FormulaRecords>& records,
               const TC::embedded::FormulaRecipe& recipe);
    std::vector<TC::CFormulaKey> keys() const;

    /// A result on a logarithmic axis.
    struct Places
    {
        TC::RPCFormulaResultCache records;
        chart::BlockRanges ranges;
    };

    QMap<TC::CFormulaKey, Places> m_places;
    QMap<TC::CFormulaKey, chart::BlockRanges> m_ranges; ///< of the results as they are
    ChartState* m_state;
    FormulaSource* m_source;
    std::vector<Overlay> m_overlays;
    std::vector<ChartState::Bars> m_overlaidBars; ///< on the times of the chart, in its period
    std::map<TC::CFormulaKey, FormulaSource::Followed> m_followed;
    /// Formulas whose request was under way when the bars grew: they follow when it has ended.
    std::set<TC::CFormulaKey> m_due;
};

} // namespace client
