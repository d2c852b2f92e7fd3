// SPDX-License-Identifier: MIT
#include "draw/internal/ink/Extremes.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace TC::detail {

namespace {

bool counts(double value, const CountRule& rule)
{
    const bool isNumber = rule.countsMarker ? value <= DBL_MAX : value < DBL_MAX;
    return isNumber && value >= -DBL_MAX && std::abs(value) > rule.largestZero;
}

void gather(Extremes& extremes, double value, const CountRule& rule)
{
    value *= rule.factor;
    if (counts(value, rule)) {
        extremes.lowest = std::min(extremes.lowest, value);
        extremes.highest = std::max(extremes.highest, value);
    } else {
        extremes.hasGaps = true;
    }
}

#ifdef __SSE2__

/// Two bars at a time; several pairs are under way at once, because each minimum waits for the one before.
class PairGatherer
{
public:
    explicit PairGatherer(const CountRule& rule)
        : m_factor(_mm_set1_pd(rule.factor))
        , m_limit(_mm_set1_pd(rule.countsMarker ? std::numeric_limits<double>::infinity() : DBL_MAX))
        , m_zero(_mm_set1_pd(rule.largestZero))
    {
    }

    /// @param off  all bits set where the bar is not valid.
    void take(const double* values, __m128d off)
    {
        const __m128d value = _mm_mul_pd(_mm_loadu_pd(values), m_factor);
        // The negated comparisons hold for what is not a number as well.
        __m128d out = _mm_or_pd(_mm_cmpnlt_pd(value, m_limit), _mm_cmplt_pd(value, m_lowestNumber));
        out = _mm_or_pd(out, _mm_cmpngt_pd(_mm_and_pd(value, m_sizeBits), m_zero));
        out = _mm_or_pd(out, off);
        m_gaps = _mm_or_pd(m_gaps, _mm_andnot_pd(off, out));
        // What does not count becomes a NaN, and both instructions then keep their second operand.
        const __m128d candidate = _mm_or_pd(value, out);
        m_lowest = _mm_min_pd(candidate, m_lowest);
        m_highest = _mm_max_pd(candidate, m_highest);
    }

    void addTo(Extremes& extremes) const
    {
        double low[2], high[2];
        _mm_storeu_pd(low, m_lowest);
        _mm_storeu_pd(high, m_highest);
        extremes.lowest = std::min({ extremes.lowest, low[0], low[1] });
        extremes.highest = std::max({ extremes.highest, high[0], high[1] });
        extremes.hasGaps = extremes.hasGaps || _mm_movemask_pd(m_gaps) != 0;
    }

private:
    __m128d m_factor, m_limit, m_zero;
    __m128d m_sizeBits = _mm_castsi128_pd(_mm_set1_epi64x(0x7fff'ffff'ffff'ffff));
    __m128d m_lowestNumber = _mm_set1_pd(-DBL_MAX);
    __m128d m_lowest = _mm_set1_pd(std::numeric_limits<double>::infinity());
    __m128d m_highest = _mm_set1_pd(-std::numeric_limits<double>::infinity());
    __m128d m_gaps = _mm_setzero_pd();
};

/// Takes whole fours of which every bar is a valid number; false, and nothing taken, where one is not. The
/// outcome tells: what is no number is looked for, what is too large comes out as an extreme.
bool gatherBlock(Extremes& extremes, const double* values, const int* flags, std::size_t count)
{
    const __m128i none = _mm_setzero_si128();
    __m128i off = none;
    __m128d noNumbers = _mm_setzero_pd();
    __m128d low = _mm_set1_pd(values[0]), high = low, low2 = low, high2 = low;
    for (std::size_t i = 0; i < count; i += 4) {
        const __m128d first = _mm_loadu_pd(values + i), second = _mm_loadu_pd(values + i + 2);
        low = _mm_min_pd(first, low);
        low2 = _mm_min_pd(second, low2);
        high = _mm_max_pd(first, high);
        high2 = _mm_max_pd(second, high2);
        noNumbers = _mm_or_pd(noNumbers, _mm_cmpunord_pd(first, second));
        const __m128i valid = _mm_loadu_si128(reinterpret_cast<const __m128i*>(flags + i));
        off = _mm_or_si128(off, _mm_cmpeq_epi32(valid, none));
    }
    double lows[2], highs[2];
    _mm_storeu_pd(lows, _mm_min_pd(low, low2));
    _mm_storeu_pd(highs, _mm_max_pd(high, high2));
    const double lowest = std::min(lows[0], lows[1]), highest = std::max(highs[0], highs[1]);
    if (_mm_movemask_epi8(off) != 0 || _mm_movemask_pd(noNumbers) != 0 || !(lowest >= -DBL_MAX)
        || !(highest < DBL_MAX))
        return false;
    extremes.lowest = std::min(extremes.lowest, lowest);
    extremes.highest = std::max(extremes.highest, highest);
    return true;
}

/// Takes blocks up to the first that is not clean; gives the number of bars taken.
std::size_t gatherClean(Extremes& extremes, const double* values, const int* flags, std::size_t count)
{
    constexpr std::size_t block = 512; // bars; what a block holds is still at hand when it is looked at again
    std::size_t taken = 0;
    while (count - taken >= 4) {
        const std::size_t length = std::min(block, (count - taken) / 4 * 4);
        if (!gatherBlock(extremes, values + taken, flags + taken, length))
            break;
        taken += length;
    }
    return taken;
}

/// Takes whole fours; gives the number of bars taken.
std::size_t gatherFours(Extremes& extremes, const double* values, const int* flags, std::size_t count,
                        const CountRule& rule)
{
    PairGatherer even(rule), odd(rule);
    const __m128i none = _mm_setzero_si128();
    const bool countsAll = rule.factor == 1.0 && !rule.countsMarker && rule.largestZero < 0.0;
    std::size_t i = countsAll ? gatherClean(extremes, values, flags, count) : 0;
    for (; i + 4 <= count; i += 4) {
        const __m128i off =
            _mm_cmpeq_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(flags + i)), none);
        even.take(values + i, _mm_castsi128_pd(_mm_unpacklo_epi32(off, off)));
        odd.take(values + i + 2, _mm_castsi128_pd(_mm_unpackhi_epi32(off, off)));
    }
    even.addTo(extremes);
    odd.addTo(extremes);
    return i;
}

#else

std::size_t gatherFours(Extremes&, const double*, const int*, std::size_t, const CountRule&)
{
    return 0;
}

#endif

/// The first zero of the run that counts; comparing alone does not tell 0.0 from -0.0.
double firstZero(const double* values, const int* flags, std::size_t count, const CountRule& rule)
{
    for (std::size_t i = 0; i < count; ++i) {
        const double value = values[i] * rule.factor;
        if (value == 0.0 && flags[i] != 0 && counts(value, rule))
            return value;
    }
    return 0.0;
}

void gatherRest(Extremes& extremes, const double* values, const int* flags, std::size_t from,
                std::size_t count, const CountRule& rule)
{
    for (std::size_t i = from; i < count; ++i) {
        if (flags[i] != 0)
            gather(extremes, values[i], rule);
    }
    if (extremes.lowest == 0.0)
        extremes.lowest = firstZero(values, flags, count, rule);
    if (extremes.highest == 0.0)
        extremes.highest = firstZero(values, flags, count, rule);
}

} // namespace

Extremes extremesOf(const double* values, const int* flags, std::size_t count, const CountRule& rule)
{
    Extremes extremes;
    const std::size_t taken = gatherFours(extremes, values, flags, count, rule);
    gatherRest(extremes, values, flags, taken, count, rule);
    return extremes;
}

Extremes plainExtremesOf(const double* values, const int* flags, std::size_t count, const CountRule& rule)
{
    Extremes extremes;
    gatherRest(extremes, values, flags, 0, count, rule);
    return extremes;
}

} // namespace TC::detail
