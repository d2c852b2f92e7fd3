// SPDX-License-Identifier: MIT
#include "draw/internal/ink/PriceRuns.h"

#include <limits>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace TC::detail {

namespace {

/// What is known of the bars taken so far.
struct Merge
{
    double high = -std::numeric_limits<double>::infinity();
    double low = std::numeric_limits<double>::infinity();
    bool isWhole = true; ///< no bar is left out, none jumps
    std::size_t taken = 0;
};

bool isUsable(const PriceRun& run, std::size_t i)
{
    return run.flags[i] != 0 && !isMissing(run.open[i]) && !isMissing(run.high[i]) && !isMissing(run.low[i])
        && !isMissing(run.close[i]);
}

void takeRest(Merge& merge, const PriceRun& run, double factor, int period)
{
    for (std::size_t i = merge.taken; i < run.count && merge.isWhole; ++i) {
        merge.isWhole =
            isUsable(run, i) && (i == 0 || !isJump(run.close[i - 1] * factor, run.close[i] * factor, period));
        merge.high = std::max(merge.high, run.high[i]);
        merge.low = std::min(merge.low, run.low[i]);
    }
}

#ifdef __SSE2__

/// Takes the first bar alone and then whole pairs.
void takePairs(Merge& merge, const PriceRun& run, double factor, int period)
{
    if (run.count == 0 || !isUsable(run, 0)) {
        merge.isWhole = run.count == 0;
        return;
    }
    const __m128d most = _mm_set1_pd(DBL_MAX), least = _mm_set1_pd(-DBL_MAX), times = _mm_set1_pd(factor);
    const __m128d fall = _mm_set1_pd(1.2), tolerance = _mm_set1_pd(kTolerance), part = _mm_set1_pd(0.02);
    const __m128d sign = _mm_set1_pd(-0.0);
    const __m128d isMinute = _mm_castsi128_pd(_mm_set1_epi32(period == kMinutePeriod ? -1 : 0));
    __m128d high = _mm_set1_pd(run.high[0]), low = _mm_set1_pd(run.low[0]);
    __m128d stops = _mm_setzero_pd();
    const auto add = [&](__m128d value) {
        // The negated comparison holds for what is not a number as well.
        stops = _mm_or_pd(stops, _mm_or_pd(_mm_cmpnlt_pd(value, most), _mm_cmplt_pd(value, least)));
    };
    std::size_t i = 1;
    for (; i + 2 <= run.count; i += 2) {
        const __m128d highs = _mm_loadu_pd(run.high + i), lows = _mm_loadu_pd(run.low + i);
        const __m128d closes = _mm_loadu_pd(run.close + i);
        add(_mm_loadu_pd(run.open + i));
        add(highs);
        add(lows);
        add(closes);
        high = _mm_max_pd(highs, high);
        low = _mm_min_pd(lows, low);

        const __m128d before = _mm_mul_pd(_mm_loadu_pd(run.close + i - 1), times);
        const __m128d close = _mm_mul_pd(closes, times);
        const __m128d falls = _mm_cmpgt_pd(_mm_sub_pd(before, _mm_mul_pd(fall, close)), tolerance);
        const __m128d change = _mm_andnot_pd(sign, _mm_sub_pd(before, close));
        const __m128d jumps = _mm_and_pd(_mm_cmpgt_pd(change, _mm_mul_pd(part, close)), isMinute);
        stops = _mm_or_pd(stops, _mm_or_pd(falls, jumps));

        const __m128i flags = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(run.flags + i));
        const __m128i off = _mm_cmpeq_epi32(flags, _mm_setzero_si128());
        stops = _mm_or_pd(stops, _mm_castsi128_pd(_mm_unpacklo_epi32(off, off)));
    }
    double highs[2], lows[2];
    _mm_storeu_pd(highs, high);
    _mm_storeu_pd(lows, low);
    merge.high = std::max(highs[0], highs[1]);
    merge.low = std::min(lows[0], lows[1]);
    merge.isWhole = _mm_movemask_pd(stops) == 0;
    merge.taken = i;
}

#else

void takePairs(Merge&, const PriceRun&, double, int) { }

#endif

std::optional<Prices> result(const Merge& merge, const PriceRun& run, double factor)
{
    if (!merge.isWhole || run.count == 0)
        return std::nullopt;
    return Prices { run.open[0] * factor, merge.high * factor, merge.low * factor,
                    run.close[run.count - 1] * factor };
}

/// Order and jumps stay with a positive factor; any other, and any that is no number, is looked at bar by
/// bar.
bool keepsOrder(double factor)
{
    return factor > 0.0 && std::isfinite(factor);
}

} // namespace

std::optional<Prices> mergePrices(const PriceRun& run, double factor, int period)
{
    Merge merge;
    if (!keepsOrder(factor))
        return std::nullopt;
    takePairs(merge, run, factor, period);
    takeRest(merge, run, factor, period);
    return result(merge, run, factor);
}

std::optional<Prices> mergePricesPlainly(const PriceRun& run, double factor, int period)
{
    Merge merge;
    if (!keepsOrder(factor))
        return std::nullopt;
    takeRest(merge, run, factor, period);
    return result(merge, run, factor);
}

} // namespace TC::detail
