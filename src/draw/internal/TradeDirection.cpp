// SPDX-License-Identifier: MIT
#include "draw/internal/TradeDirection.h"

#include "data/internal/ElementAt.h"

#include "draw/internal/Numbers.h"

namespace TC::detail {

namespace {

const double* valueAt(const std::vector<double>* series, int bar)
{
    return series ? elementAt(*series, bar) : nullptr;
}

} // namespace

DirectionState directionState(double price, double lower, double upper)
{
    if (price - lower <= kTolerance)
        return DirectionState::AtOrBelowLower;
    return price - upper < -kTolerance ? DirectionState::Between : DirectionState::AtOrAboveUpper;
}

std::optional<bool> TradeDirection::rises(int bar)
{
    const bool isFirst = !m_lastPrice;
    // Deliberate: the first trade of a run is measured by the reference prices of the trade before it,
    // every later one by its own.
    const int referenceBar = isFirst && bar > 0 ? bar - 1 : bar;
    const double* price = valueAt(m_series.price, bar);
    const double* lower = valueAt(m_series.lower, referenceBar);
    const double* upper = valueAt(m_series.upper, referenceBar);
    if (!price || !lower || !upper)
        return std::nullopt;

    bool rise = false;
    if (isFirst)
        rise = *price - *lower > kTolerance;
    else if (isEqual(*price, *m_lastPrice))
        // Deliberate: an unchanged price follows the state that the previous price left, not the colour
        // of the previous trade.
        rise = m_state == DirectionState::AtOrAboveUpper;
    else
        rise = *price - *m_lastPrice > kTolerance;

    m_state = directionState(*price, *lower, *upper);
    m_lastPrice = *price;
    return rise;
}

} // namespace TC::detail
