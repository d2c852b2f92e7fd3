// SPDX-License-Identifier: MIT
#pragma once
/// @file One step of a formula: columns in, a column out.
///
/// Columns hold values and kMissing; there are no infinities. Kernels keep what they need to go on from the
/// last bar, so that a new bar costs no second look at the past, and compute every bar by the same operations
/// in the same order however the bars arrive.

#include "engine/series/BarSeries.h"
#include "engine/series/Series.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <memory>
#include <vector>

namespace engine::language {

/// Whether a condition holds; a missing one does not.
inline bool isTrue(double condition)
{
    return condition != 0.0 && !isMissing(condition);
}

/// What a kernel reads: a column, or one number for all bars. Of a column no more may stand than the bars
/// from the first on.
struct Operand
{
    const double* values = nullptr;
    bool isConstant = false;
    std::size_t first = 0;

    double operator[](std::size_t bar) const { return values[isConstant ? 0 : bar - first]; }
    /// The values from a bar on; of a column.
    const double* from(std::size_t bar) const { return values + (bar - first); }
};

/// What a kernel writes: a column from a bar on.
struct Result
{
    double* values;
    std::size_t first = 0;

    double& operator[](std::size_t bar) const { return values[bar - first]; }
    double* from(std::size_t bar) const { return values + (bar - first); }
    void fill(std::size_t begin, std::size_t end, double value) const
    {
        std::fill(from(begin), from(end), value);
    }
};

/// Which bars to compute.
struct Work
{
    const BarSeries& bars; ///< all of them
    std::size_t from;      ///< bars before it stand already; 0, or the `keep` of the call before
    std::size_t keep;      ///< the state before this bar is to be kept for the next call; at most `count`
    std::size_t count;     ///< one behind the last bar to compute; all bars for what looks ahead
    const std::atomic<bool>* cancelledFlag = nullptr;

    bool cancelled() const { return cancelledFlag && cancelledFlag->load(std::memory_order_relaxed); }
};

class Kernel;

/// The bars of one of several kernels that are computed together.
struct Chain
{
    Kernel* kernel;
    const Operand* arguments;
    Result result;
    std::size_t from, to; ///< as Work::from and, for both of its ends, Work::keep
};

/// A function at work. One object belongs to one step of one evaluation.
class Kernel
{
public:
    virtual ~Kernel() = default;

    /// Fills result[from] to result[count - 1]; what was there before is not read.
    virtual void compute(const Operand* arguments, const Work& work, Result result) = 0;

    /// As compute() of one to three kernels of this one's function after another; each may read what those
    /// before it give for the same bar. For functions that Function::isChain marks.
    virtual void computeTogether(const Chain* chains, std::size_t count, const Work& work)
    {
        for (const Chain* chain = chains; chain != chains + count; ++chain)
            chain->kernel->compute(chain->arguments, { work.bars, chain->from, chain->to, chain->to },
                                   chain->result);
    }
};

using KernelPointer = std::unique_ptr<Kernel>;

} // namespace engine::language
