// SPDX-License-Identifier: MIT
#pragma once
/// @file Candles from bars: bars on one pixel column become one candle unless the price jumps.

#include "draw/internal/Numbers.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace TC::detail {

/// The four prices of a bar or of a candle.
struct Prices
{
    double open = 0.0, high = 0.0, low = 0.0, close = 0.0;
};

/// A candle at its pixel column.
struct Candle
{
    int x = 0; ///< left edge of the body, pixels
    Prices prices;
};

/// The period, in seconds, at which bars on one pixel column are held apart more readily.
constexpr int kMinutePeriod = 60;

/// Whether two neighbouring bars are too far apart to share a candle. Deliberate: only a fall counts, as
/// when a share is split; minute bars jump in both directions, at 2 %.
inline bool isJump(double previousClose, double close, int period)
{
    if (previousClose - 1.2 * close > kTolerance)
        return true;
    return period == kMinutePeriod && std::abs(previousClose - close) > 0.02 * close;
}

/// Gathers bars, in order, into candles. One candle is open at a time; a bar either joins it or closes it.
class CandleBuilder
{
public:
    /// @param period  seconds of a bar.
    explicit CandleBuilder(int period)
        : m_period(period)
    {
    }

    /// Takes the next bar, whose own pixel column is `column`.
    /// @return the candle that this bar closed.
    std::optional<Candle> add(int column, const Prices& bar)
    {
        // The bar's own column is compared with the bar before it, not with the open candle, which a jump
        // may have moved one pixel to the right: that candle absorbs the rest of its column, and the first
        // bar of the next column opens another one on the same pixel.
        if (!m_open || column != m_column)
            return openCandle(column, column, bar);
        if (isJump(m_open->prices.close, bar.close, m_period))
            return openCandle(column, saturatedSum(column, 1), bar);
        merge(m_open->prices, bar);
        return std::nullopt;
    }

    /// Closes the last candle; empty when no bar was added.
    std::optional<Candle> finish()
    {
        const std::optional<Candle> closed = m_open;
        m_open.reset();
        return closed;
    }

private:
    std::optional<Candle> openCandle(int column, int x, const Prices& bar)
    {
        const std::optional<Candle> closed = m_open;
        m_open = Candle { x, bar };
        m_column = column;
        return closed;
    }

    static void merge(Prices& candle, const Prices& bar)
    {
        candle.high = std::max(candle.high, bar.high);
        candle.low = std::min(candle.low, bar.low);
        candle.close = bar.close;
    }

    int m_period;
    int m_column = 0; ///< own pixel column of the bar added last
    std::optional<Candle> m_open;
};

} // namespace TC::detail
