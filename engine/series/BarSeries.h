#pragma once
/// @file Price bars of one instrument.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace engine {

/// Bars in the order of their source; every vector has one entry per bar, except the optional ones, which may
/// be empty.
struct BarSeries
{
    /// Start of the bar, milliseconds since 1970-01-01 UTC. Rises from bar to bar, but for an hour or a day
    /// that the local clock left out.
    std::vector<std::int64_t> timeMs;
    std::vector<double> open, high, low, close;
    std::vector<double> volume;       ///< shares, or lots for futures
    std::vector<double> amount;       ///< turnover in yuan; empty when the source has none
    std::vector<double> openInterest; ///< lots; empty when the source has none

    std::size_t size() const { return timeMs.size(); }
};

} // namespace engine
