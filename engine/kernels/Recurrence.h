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

private:
    typename Step::State m_kept; ///< before the bar that the last call was to keep
};

} // namespace engine::language
