// SPDX-License-Identifier: MIT
#pragma once
/// @file What windows of bars are folded into.
///
/// A fold has a State that begins as that of no bars, a State of one bar, the state of two stretches together
/// (the earlier one first), and an answer:
///
///     static State of(double value, std::size_t bar);
///     static State merged(const State& earlier, const State& later);
///     static double answer(const State& window, double length, std::size_t bar);
///
/// A fold may say how one value more is taken in, when that is less work than merging its state:
///
///     static State later(const State& earlier, double value);
///     static State earlier(double value, const State& later);
///
/// A fold that does so may also fold a block from both ends at once (see SumFold::foldBoth).
///
/// `bar` is the last bar of the window. A value is never taken out of a state again, so that nothing drifts
/// or cancels and a huge value leaves no trace behind its window.

#include "engine/kernels/Kernel.h"

#include <limits>

namespace engine::language {

/// Compensated summation (A. Neumaier, 1974): a sum together with its own rounding error, which the two-sum
/// of D. E. Knuth ("The Art of Computer Programming", vol. 2, 4.2.2) gives without a branch, so that it does
/// not depend on the order of the terms: an average over equal closes stays equal from bar to bar, and no
/// legend arrow flickers.
struct CompensatedSum
{
    double sum = 0.0, error = 0.0;

    double total() const { return sum + error; }

    static CompensatedSum merged(const CompensatedSum& a, const CompensatedSum& b)
    {
        const double sum = a.sum + b.sum;
        const double partOfB = sum - a.sum;
        const double roundedOff = (a.sum - (sum - partOfB)) + (b.sum - partOfB);
        return { sum, a.error + b.error + roundedOff };
    }

    /// As merged() with a single value behind, or before, a sum that began as zero: the value's error, which
    /// is none, need not be added.
    static CompensatedSum with(const CompensatedSum& a, double value)
    {
        const double sum = a.sum + value;
        const double part = sum - a.sum;
        return { sum, a.error + ((a.sum - (sum - part)) + (value - part)) };
    }
    static CompensatedSum sumOf(double value, const CompensatedSum& b)
    {
        const double sum = value + b.sum;
        const double part = sum - value;
        return { sum, b.error + ((value - (sum - part)) + (b.sum - part)) };
    }
};

struct SumFold
{
    using State = CompensatedSum;

    static State of(double value, std::size_t) { return { value, 0.0 }; }
    static State merged(const State& a, const State& b) { return CompensatedSum::merged(a, b); }
    static State later(const State& before, double value) { return CompensatedSum::with(before, value); }
    static State earlier(double value, const State& behind) { return CompensatedSum::sumOf(value, behind); }
    static double answer(const State& window, double, std::size_t) { return window.total(); }

    /// The sums of a block from its beginning up to each value, and from each value up to its end; forwards
    /// and backwards at once, in the two lanes of a vector.
    static void foldBoth(const double* values, std::size_t count, State* heads, State* tails)
    {
        using Lanes = double __attribute__((vector_size(2 * sizeof(double))));
        Lanes before {}, error {};
        for (std::size_t index = 0, behind = count; behind-- > 0; ++index) {
            const Lanes value { values[index], values[behind] };
            const Lanes sum = before + value;
            const Lanes part = sum - before;
            error += (before - (sum - part)) + (value - part);
            before = sum;
            heads[index] = { sum[0], error[0] };
            tails[behind] = { sum[1], error[1] };
        }
    }
};

struct MeanFold : SumFold
{
    static double answer(const State& window, double length, std::size_t) { return window.total() / length; }
};

/// Weights 1 for the oldest bar to N for the last.
struct WeightedMeanFold
{
    struct State
    {
        double bars = 0.0;
        CompensatedSum plain, weighted;
    };

    static State of(double value, std::size_t) { return { 1.0, { value, 0.0 }, { value, 0.0 } }; }

    static State merged(const State& a, const State& b)
    {
        const CompensatedSum moved { a.bars * b.plain.sum,
                                     a.bars * b.plain.error }; // the later bars weigh more
        return { a.bars + b.bars, CompensatedSum::merged(a.plain, b.plain),
                 CompensatedSum::merged(a.weighted, CompensatedSum::merged(b.weighted, moved)) };
    }

    static double answer(const State& window, double length, std::size_t)
    {
        return window.weighted.total() / (length * (length + 1.0) / 2.0);
    }
};

/// The highest or lowest value; of equal ones the last. Where there is none stands the infinity that any
/// value is better than, so that every merge is one comparison; it is no answer.
template <class IsBetter>
struct ExtremeValueFold
{
    static constexpr double kWorst = IsBetter()(1.0, 0.0) ? -std::numeric_limits<double>::infinity()
                                                          : std::numeric_limits<double>::infinity();

    struct State
    {
        double value = kWorst;
    };

    static State of(double value, std::size_t) { return { value }; }
    static State merged(const State& a, const State& b) { return later(a, b.value); }
    static State later(const State& before, double value)
    {
        return { IsBetter()(before.value, value) ? before.value : value };
    }
    static State earlier(double value, const State& behind)
    {
        return { IsBetter()(value, behind.value) ? value : behind.value };
    }
    static double answer(const State& window, double, std::size_t) { return window.value; }
};

/// The highest or lowest value and its bar; of equal ones the last.
template <class IsBetter>
struct ExtremeFold
{
    struct State
    {
        double value = kMissing;
        std::size_t bar = 0;
    };

    static State of(double value, std::size_t bar) { return { value, bar }; }

    static State merged(const State& a, const State& b)
    {
        if (isMissing(a.value) || isMissing(b.value))
            return !isMissing(a.value) ? a : b;
        return IsBetter()(a.value, b.value) ? a : b;
    }

    static double answer(const State& window, double, std::size_t) { return window.value; }
};

template <class IsBetter>
struct BarsSinceExtremeFold : ExtremeFold<IsBetter>
{
    static double answer(const typename ExtremeFold<IsBetter>::State& window, double, std::size_t bar)
    {
        return static_cast<double>(bar - window.bar);
    }
};

/// Count, mean and sum of squared deviations; plain sums of squares would cancel (T. F. Chan, G. H. Golub,
/// R. J. LeVeque, "Algorithms for Computing the Sample Variance", 1983).
struct MomentsFold
{
    struct State
    {
        double count = 0.0, mean = 0.0, squares = 0.0;
    };

    static State of(double value, std::size_t) { return { 1.0, value, 0.0 }; }

    static State merged(const State& a, const State& b)
    {
        if (a.count == 0.0)
            return b; // a distance that squares beyond any double times zero is no number
        const double count = a.count + b.count;
        const double distance = b.mean - a.mean;
        return { count, a.mean + distance * (b.count / count),
                 a.squares + b.squares + distance * distance * (a.count * b.count / count) };
    }

    static double answer(const State& window, double, std::size_t) { return window.squares; }
};

/// Moments of a value against the bar it stands on.
struct TrendFold
{
    struct State
    {
        double count = 0.0, meanBar = 0.0, mean = 0.0, products = 0.0;
    };

    static State of(double value, std::size_t bar) { return { 1.0, static_cast<double>(bar), value, 0.0 }; }

    static State merged(const State& a, const State& b)
    {
        if (a.count == 0.0)
            return b;
        const double count = a.count + b.count;
        const double bars = b.meanBar - a.meanBar, distance = b.mean - a.mean;
        return { count, a.meanBar + bars * (b.count / count), a.mean + distance * (b.count / count),
                 a.products + b.products + bars * distance * (a.count * b.count / count) };
    }

    /// Slope of the least-squares line, per bar; none for a single bar.
    static double slope(const State& window, double length)
    {
        return window.products / (length * (length * length - 1.0) / 12.0);
    }
};

struct ProductFold
{
    struct State
    {
        double product = 1.0;
    };

    static State of(double value, std::size_t) { return { value }; }
    static State merged(const State& a, const State& b) { return { a.product * b.product }; }
    static double answer(const State& window, double, std::size_t) { return window.product; }
};

/// The first bar on which a condition holds.
struct FirstHeldFold
{
    struct State
    {
        bool hasHeld = false;
        std::size_t bar = 0;
    };

    static State of(double condition, std::size_t bar) { return { isTrue(condition), bar }; }
    static State merged(const State& a, const State& b) { return a.hasHeld ? a : b; }
    static double answer(const State& window, double, std::size_t bar)
    {
        return window.hasHeld ? static_cast<double>(bar - window.bar) : kMissing;
    }
};

/// How many conditions hold.
struct CountFold
{
    using State = double;

    static State of(double condition, std::size_t) { return isTrue(condition) ? 1.0 : 0.0; }
    static State merged(const State& a, const State& b) { return a + b; }
    static double answer(const State& window, double, std::size_t) { return window; }
};

} // namespace engine::language
