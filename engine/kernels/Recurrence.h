// SPDX-License-Identifier: MIT
#pragma once
/// @file Functions that go from bar to bar with a small state.

#include "engine/kernels/Kernel.h"

namespace engine::language {

/// Runs a step over the bars. A step is built from the arguments, has a copyable State, and answers a bar:
///
///     double operator()(State& state, std::size_t bar) const
template <class Step>
class Recurrence : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        const Step step(arguments, work);
        typename Step::State state = work.from == 0 ? typename Step::State() : m_kept;
        for (std::size_t bar = work.from; bar < work.keep; ++bar)
            result[bar] = step(state, bar);
        m_kept = state;
        for (std::size_t bar = work.keep; bar < work.count; ++bar)
            result[bar] = step(state, bar);
    }

    /// Bar by bar, so that the processor works on one chain while the other one waits for its last result.
    void computeBoth(const Operand* arguments, Result result, Kernel& other, const Operand* otherArguments,
                     Result otherResult, const Work& work) override
    {
        auto& second = static_cast<Recurrence&>(other);
        const Step step(arguments, work), secondStep(otherArguments, work);
        State state = work.from == 0 ? State() : m_kept;
        State secondState = work.from == 0 ? State() : second.m_kept;
        const auto run = [&](std::size_t from, std::size_t to) {
            for (std::size_t bar = from; bar < to; ++bar) {
                result[bar] = step(state, bar);
                otherResult[bar] = secondStep(secondState, bar);
            }
        };
        run(work.from, work.keep);
        m_kept = state;
        second.m_kept = secondState;
        run(work.keep, work.count);
    }

private:
    using State = typename Step::State;

    State m_kept; ///< before the bar that the last call was to keep
};

} // namespace engine::language
