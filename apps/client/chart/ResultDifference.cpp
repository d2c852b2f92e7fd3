// SPDX-License-Identifier: MIT
#include "apps/client/chart/ResultDifference.h"

#include <algorithm>
#include <cstring>

namespace client {

namespace {

/// Bars, the last one included.
struct Stretch
{
    std::size_t first, end;
};

bool isSame(const int* one, const int* other, std::size_t count)
{
    return std::memcmp(one, other, count * sizeof(int)) == 0;
}
/// Bit for bit: a NaN equals itself.
bool isSame(const double* one, const double* other, std::size_t count)
{
    return std::memcmp(one, other, count * sizeof(double)) == 0;
}
bool isSame(const std::string* one, const std::string* other, std::size_t count)
{
    return std::equal(one, one + count, other);
}

template <typename Value>
bool differ(const std::vector<Value>& one, const std::vector<Value>& other, const Stretch& bars)
{
    const std::size_t end = std::min(one.size(), bars.end);
    if (end != std::min(other.size(), bars.end))
        return true;
    return bars.first < end && !isSame(one.data() + bars.first, other.data() + bars.first, end - bars.first);
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

bool isDescribedAlike(const se::RPCFormulaMetaResult& one, const se::RPCFormulaMetaResult& other)
{
    return one.outputCount == other.outputCount && one.drawType == other.drawType
        && one.outputColumns == other.outputColumns && one.lineWidth == other.lineWidth;
}

bool isDescribedAlike(const se::RPCFormulaResult& one, const se::RPCFormulaResult& other)
{
    return one.columnSeries == other.columnSeries && one.columnType == other.columnType
        && one.columnNeedsAxis == other.columnNeedsAxis;
}

bool differ(const se::RPCFormulaResult& one, const se::RPCFormulaResult& other, int first, int last)
{
    const Stretch bars { static_cast<std::size_t>(std::max(0, first)),
                         static_cast<std::size_t>(std::max(-1, last) + 1) };
    return !isDescribedAlike(one, other)
        || std::min(one.barTimes.size(), bars.end) != std::min(other.barTimes.size(), bars.end)
        || differ(one.barValid, other.barValid, bars) || differ(one.numberSeries, other.numberSeries, bars)
        || differ(one.textSeries, other.textSeries, bars);
}

} // namespace client
