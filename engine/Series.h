#pragma once
/// @file Functions of series, a value a bar. DBL_MAX is a missing number; NaN and infinities count as
/// missing.

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <vector>

namespace engine {

using Series = std::vector<double>;

constexpr double kMissing = DBL_MAX;

inline bool isMissing(double value)
{
    return !std::isfinite(value) || value == kMissing;
}

/// Mean of the last `period` values. Missing until there are as many, and while one of them is missing.
Series mean(const Series& values, int period);

/// Population standard deviation of the last `period` values, around their mean. Missing as mean().
Series deviation(const Series& values, int period);

/// Exponential average: y = (2 x + (period - 1) y') / (period + 1), seeded with the first value. A missing
/// value gives a missing one and leaves the average as it was.
Series exponentialMean(const Series& values, int period);

/// Weighted average: y = (weight x + (period - weight) y') / period, seeded with the first value. Missing as
/// exponentialMean().
Series smoothedMean(const Series& values, int period, double weight);

/// Largest and smallest of the last `period` values; of fewer at the start. Missing values are left out.
Series highest(const Series& values, int period);
Series lowest(const Series& values, int period);

/// Difference to the value before; missing at the first bar.
Series change(const Series& values);

/// Applies a function bar by bar; missing where an argument is missing or the result is no number. Series of
/// unequal length count as far as the shorter one.
template <class Function>
Series combine(const Series& a, const Series& b, Function function)
{
    Series result(std::min(a.size(), b.size()), kMissing);
    for (std::size_t bar = 0; bar < result.size(); ++bar) {
        if (isMissing(a[bar]) || isMissing(b[bar]))
            continue;
        const double value = function(a[bar], b[bar]);
        result[bar] = std::isfinite(value) ? value : kMissing;
    }
    return result;
}

} // namespace engine
