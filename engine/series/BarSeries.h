// SPDX-License-Identifier: MIT
#pragma once
/// @file Price bars of one instrument.

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

namespace engine {

/// Bars in the order of their source; every vector has one entry per bar, except the optional ones, which may
/// be empty.
struct BarSeries
{
    /// Start of the bar, milliseconds since 1970-01-01 UTC. Rises from bar to bar, but for an hour or a day
    /// that the local clock left out.
    std::vector<std::int64_t> timeMs;
    std::vector<double> open;         ///< NaN where it is missing, as the next three
    std::vector<double> high;         ///< highest price
    std::vector<double> low;          ///< lowest price
    std::vector<double> close;        ///< last price
    std::vector<double> volume;       ///< shares, or lots for futures
    std::vector<double> amount;       ///< turnover in yuan; empty when the source has none
    std::vector<double> openInterest; ///< lots; empty when the source has none

    double floatingShares =
        std::numeric_limits<double>::quiet_NaN(); ///< in the unit of the volume; NaN: unknown
    double totalShares = std::numeric_limits<double>::quiet_NaN(); ///< likewise
    std::int64_t periodMinutes = 0; ///< length of a bar; 0: told by the distance between bars
    /// A second instrument to compare with, usually an index; null when there is none. Its bars answer those
    /// of this series that begin at the same time. It may only grow as this series may.
    std::shared_ptr<const BarSeries> index;

    /// Number of bars.
    std::size_t size() const { return timeMs.size(); }
};

} // namespace engine
