// SPDX-License-Identifier: MIT
#include "draw/internal/ink/Peaks.h"

#include <algorithm>
#include <limits>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace TC::detail {

namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();

bool isBetween(double value, double level)
{
    return value >= 0.0 && value <= level;
}

#ifdef __SSE2__

/// Of whole fours; infinite where one is negative.
double peakOfFours(const double* values, std::size_t count)
{
    __m128d high = _mm_setzero_pd(), high2 = high, signs = high;
    for (std::size_t i = 0; i < count; i += 4) {
        const __m128d first = _mm_loadu_pd(values + i), second = _mm_loadu_pd(values + i + 2);
        // The instruction keeps its second operand where the first is not a number.
        high = _mm_max_pd(first, high);
        high2 = _mm_max_pd(second, high2);
        signs = _mm_or_pd(signs, _mm_or_pd(first, second));
    }
    double highs[2];
    _mm_storeu_pd(highs, _mm_max_pd(high, high2));
    return _mm_movemask_pd(signs) != 0 ? kEndless : std::max(highs[0], highs[1]);
}

/// Numbers that are left when whole fours without one outside are taken away at the end.
std::size_t withoutCovered(const double* values, std::size_t count, double level)
{
    const __m128d zero = _mm_setzero_pd(), limit = _mm_set1_pd(level);
    const auto outside = [&](__m128d value) {
        // The negated comparisons hold for what is not a number as well.
        return _mm_or_pd(_mm_cmpnle_pd(value, limit), _mm_cmpnge_pd(value, zero));
    };
    for (; count >= 4; count -= 4) {
        const __m128d found =
            _mm_or_pd(outside(_mm_loadu_pd(values + count - 2)), outside(_mm_loadu_pd(values + count - 4)));
        if (_mm_movemask_pd(found) != 0)
            break;
    }
    return count;
}

#endif

} // namespace

double peakOf(const double* values, std::size_t count)
{
    double peak = 0.0;
    std::size_t i = 0;
#ifdef __SSE2__
    i = count / 4 * 4;
    peak = peakOfFours(values, i);
#endif
    for (; i < count; ++i)
        peak = values[i] < 0.0 ? kEndless : std::max(peak, values[i]);
    return peak;
}

std::size_t lastOutside(const double* values, std::size_t count, double level)
{
    std::size_t left = count;
#ifdef __SSE2__
    left = withoutCovered(values, count, level);
#endif
    while (left > 0) {
        if (!isBetween(values[--left], level))
            return left;
    }
    return count;
}

} // namespace TC::detail
