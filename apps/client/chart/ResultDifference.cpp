// SPDX-License-Identifier: MIT
#include "apps/client/chart/ResultDifference.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace client {

namespace {

/// Bars, the last one included.
struct Stretch
{
    std::size_t first, end;
};

bool isSame(double one, double other)
{
    std::uint64_t bits = 0, otherBits = 0; // in which a NaN equals itself
    static_assert(sizeof bits == sizeof one);
    std::memcpy(&bits, &one, sizeof bits);
    std::memcpy(&otherBits, &other, sizeof otherBits);
    return bits == otherBits;
}
bool isSame(int one, int other)
{
    return one == other;
}
bool isSame(const std::string& one, const std::string& other)
{
    return one == other;
}

template <typename Value>
bool differ(const std::vector<Value>& one, const std::vector<Value>& other, const Stretch& bars)
{
    if (std::min(one.size(), bars.end) != std::min(other.size(), bars.end))
        return true;
    const std::size_t end = std::min(one.size(), bars.end);
    for (std::size_t bar = bars.first; bar < end; ++bar) {
        if (!isSame(one[bar], other[bar]))
            return true;
    }
    return false;
}

template <typename Value>
bool differ(const std::vector<std::vector<Value>>& one, const std::vector<std::vector<Value>>& other,
            const Stretch& bars)
{
    return one.size() != other.size()
        || !std::equal(one.begin(), one.end(), other.begin(),
                       [&](const auto& a, const auto& b) { return !differ(a, b, bars); });
}

} // namespace

bool differ(const se::RPCFormulaResult& one, const se::RPCFormulaResult& other, int first, int last)
{
    const Stretch bars { static_cast<std::size_t>(std::max(0, first)),
                         static_cast<std::size_t>(std::max(-1, last) + 1) };
    return one.columnSeries != other.columnSeries || one.columnType != other.columnType
        || differ(one.barValid, other.barValid, bars) || differ(one.numberSeries, other.numberSeries, bars)
        || differ(one.textSeries, other.textSeries, bars);
}

} // namespace client
