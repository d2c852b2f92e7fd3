// SPDX-License-Identifier: MIT
#pragma once
/// @file Functions that go from bar to bar with a small state.

#include "engine/kernels/Kernel.h"

#include <algorithm>
#include <utility>

namespace engine::language {

/// An average that goes on while no value is missing and none comes near the limits of double: nothing but
/// the arithmetic, so that the processor waits for one result after the other and for nothing else.
struct PlainAverage
{
    const double* values;
    double weight;
    double average;
    double* results;

    void next(std::size_t index)
    {
        average += weight * (values[index] - average);
        results[index] = average;
    }

    /// Whether it was right to ask nothing: whatever is not finite stays so, and is seen here.
    bool isSound(std::size_t count) const { return areNumbers(results, count); }
};

/// Runs a step over the bars. A step is built from the arguments, has a copyable State, and answers a bar:
///
///     double operator()(State& state, std::size_t bar) const
///
/// A step may say from where on it is a PlainAverage, whose state is then `state.average`:
///
///     bool isPlain(const State& state) const
///     PlainAverage plainFrom(const State& state, std::size_t bar, Result result) const
template <class Step>
class Recurrence : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        Strand strand { Step(arguments, work), stateBefore(work.from), result, work.from };
        run<0>(&strand, work.keep - work.from);
        m_kept = strand.state;
        run<0>(&strand, work.count - work.keep);
    }

    /// Bar by bar, so that the processor works on one chain while the others wait for their last results.
    void computeTogether(const Chain* chains, std::size_t count, const Work& work) override
    {
        if (count == 1)
            runTogether<0>(chains, work);
        else if (count == 2)
            runTogether<0, 1>(chains, work);
        else
            runTogether<0, 1, 2>(chains, work);
    }

private:
    using State = typename Step::State;

    struct Strand
    {
        Step step;
        State state;
        Result result;
        std::size_t bar; ///< the next one

        void next()
        {
            result[bar] = step(state, bar);
            ++bar;
        }
    };

    static constexpr std::size_t kFewBars = 8; ///< are not worth a look at what they give

    State stateBefore(std::size_t bar) const { return bar == 0 ? State() : m_kept; }
    static Recurrence& of(const Chain& chain) { return static_cast<Recurrence&>(*chain.kernel); }

    template <std::size_t... kIndex>
    void runTogether(const Chain* chains, const Work& work)
    {
        Strand strands[] = { { Step(chains[kIndex].arguments, work),
                               of(chains[kIndex]).stateBefore(chains[kIndex].from), chains[kIndex].result,
                               chains[kIndex].from }... };
        run<kIndex...>(strands, std::min({ (chains[kIndex].to - chains[kIndex].from)... }));
        (run<0>(strands + kIndex, chains[kIndex].to - strands[kIndex].bar), ...);
        ((of(chains[kIndex]).m_kept = strands[kIndex].state), ...);
    }

    template <std::size_t... kIndex>
    static void run(Strand* strands, std::size_t bars)
    {
        if constexpr (hasPlainForm<Step>(0)) {
            if (bars >= kFewBars && runPlainly<kIndex...>(strands, bars))
                return;
        }
        for (std::size_t index = 0; index < bars; ++index)
            (strands[kIndex].next(), ...);
    }

    /// @return false where a bar needs more than the arithmetic; then nothing has changed but results, which
    ///         are to be computed again.
    template <std::size_t... kIndex>
    static bool runPlainly(Strand* strands, std::size_t bars)
    {
        if (!(strands[kIndex].step.isPlain(strands[kIndex].state) && ...))
            return false;
        PlainAverage chains[] = { strands[kIndex].step.plainFrom(strands[kIndex].state, strands[kIndex].bar,
                                                                 strands[kIndex].result)... };
        for (std::size_t index = 0; index < bars; ++index)
            (chains[kIndex].next(index), ...);
        if (!(chains[kIndex].isSound(bars) && ...))
            return false;
        ((strands[kIndex].state.average = chains[kIndex].average), ...);
        ((strands[kIndex].bar += bars), ...);
        return true;
    }

    template <class S, class = decltype(&S::plainFrom)>
    static constexpr bool hasPlainForm(int)
    {
        return true;
    }
    template <class S>
    static constexpr bool hasPlainForm(long)
    {
        return false;
    }

    State m_kept; ///< before the bar that the last call was to keep
};

} // namespace engine::language
