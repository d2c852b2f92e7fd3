// SPDX-License-Identifier: MIT
#pragma once
/// @file Whether a bar rises or falls: the colour rules of volume bars and candles, without a painter.

#include "draw/internal/Numbers.h"

#include <optional>

namespace TC::detail {

/// Whether a volume bar rises.
/// @param firstOfView  the bar stands at the start of the view; `reference` is then the close before it.
/// @param reference  close of the bar before; empty when there is none, which no unchanged bar can reach.
inline bool volumeRises(double open, double close, bool firstOfView, std::optional<double> reference)
{
    if (close - open > kTolerance)
        return true;
    if (!isEqual(open, close) || !reference)
        return false;
    // Deliberate: the first unchanged bar must close strictly above its reference, later ones only not below.
    return firstOfView ? close - *reference > kTolerance : close - *reference >= -kTolerance;
}

/// Whether a candle rises. An unchanged candle rises when it is the first one (no `previousClose`) or does
/// not close below the candle before it.
inline bool candleRises(double open, double close, std::optional<double> previousClose)
{
    if (close - open > kTolerance)
        return true;
    return isEqual(open, close) && (!previousClose || close - *previousClose >= -kTolerance);
}

} // namespace TC::detail
