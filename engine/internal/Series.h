#pragma once
/// @file The functions over bars that formulas are written in.
///
/// A series has one number per bar; kMissing, NaN and infinities read as "no value" and every function
/// answers kMissing where it has none. All run in linear time whatever the period.

#include <cfloat>
#include <cstddef>
#include <vector>

namespace engine {

using Series = std::vector<double>;

/// What the records hold for a number that does not exist.
constexpr double kMissing = DBL_MAX;

/// Whether the number is a value: finite and not the marker.
inline bool isValue(double number)
{
    return number < DBL_MAX && number > -DBL_MAX;
}

/// The number itself, or the marker where it is not a value.
inline double valueOrMissing(double number)
{
    return isValue(number) ? number : kMissing;
}

/// Applies `function` bar by bar; missing where either operand is.
template <class Function>
Series combine(const Series& a, const Series& b, Function function)
{
    Series combined(a.size(), kMissing);
    for (std::size_t bar = 0; bar < a.size(); ++bar) {
        if (isValue(a[bar]) && isValue(b[bar]))
            combined[bar] = valueOrMissing(function(a[bar], b[bar]));
    }
    return combined;
}

/// Mean of the last `period` bars; missing unless all of them have a value.
Series movingAverage(const Series& values, int period);

/// Sample standard deviation (divisor period - 1) of the last `period` bars; missing unless all of them have
/// a value. A period of 1 gives zeros.
Series standardDeviation(const Series& values, int period);

/// Exponential average: E = (2 x + (period - 1) E') / (period + 1), starting with the first value. A missing
/// bar has no result and leaves the average as it was.
Series exponentialAverage(const Series& values, int period);

/// Weighted average: S = (weight x + (period - weight) S') / period, starting with the first value; missing
/// bars as for the exponential average.
Series smoothedAverage(const Series& values, int period, int weight);

/// Greatest value of the last `period` bars; missing unless all of them have a value.
Series highestOf(const Series& values, int period);

/// Least value of the last `period` bars; missing unless all of them have a value.
Series lowestOf(const Series& values, int period);

/// 1 on the bars where `a` comes to stand above `b` after it last stood below, -1 the other way round, 0
/// elsewhere. Meeting without passing is no crossing, and neither is the first bar that has both values.
Series crossingsOf(const Series& a, const Series& b);

} // namespace engine
