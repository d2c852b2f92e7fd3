// SPDX-License-Identifier: MIT
#pragma once
/// @file Which way each trade of a run goes, decided without a painter.

#include <optional>
#include <vector>

namespace TC::detail {

/// Where a price stands between two reference prices. It decides the direction of a following trade at
/// the same price.
enum class DirectionState {
    Between = 0,        ///< above the lower reference and below the upper one
    AtOrBelowLower = 1, ///< not above the lower reference
    AtOrAboveUpper = 2  ///< above the lower reference and not below the upper one
};

/// State of a price; all comparisons within the tolerance. The lower reference is asked first, so it
/// wins where the two are equal.
DirectionState directionState(double price, double lower, double upper);

/// The series that trades are classified by, indexed by bar. Null or short series lack those trades.
struct TradeSeries
{
    const std::vector<double>* price = nullptr;
    const std::vector<double>* lower = nullptr; ///< lower reference prices
    const std::vector<double>* upper = nullptr; ///< upper reference prices
};

/// Classifies the trades of one run, in the order in which they are asked for.
class TradeDirection
{
public:
    /// The series must outlive the object.
    explicit TradeDirection(const TradeSeries& series)
        : m_series(series)
    {
    }

    /// Whether the next trade of the run rises. Empty where the trade has no price or no reference
    /// prices: it is then no part of the run.
    std::optional<bool> rises(int bar);

private:
    TradeSeries m_series;
    std::optional<double> m_lastPrice; ///< of the previous trade of the run; empty before the first
    DirectionState m_state = DirectionState::Between;
};

} // namespace TC::detail
