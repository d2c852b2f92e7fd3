// SPDX-License-Identifier: MIT
#include "engine/kernels/KernelRows.h"
#include "engine/kernels/Periods.h"
#include "engine/kernels/Recurrence.h"

#include <algorithm>

namespace engine::language {

namespace {

/// Stop and reverse (J. W. Wilder, "New Concepts in Technical Trading Systems", 1978). The first N bars with
/// prices tell the direction and the first stop: rising when the last of their closes is above the first; the
/// stop is then their lowest low and the extreme their highest high.
class ParabolicStep
{
public:
    struct State
    {
        std::size_t seen = 0; ///< bars with prices
        double firstClose = 0.0, highest = 0.0, lowest = 0.0;
        bool isRising = true;
        double stop = 0.0, extreme = 0.0, speed = 0.0;
        double highs[2] = {}, lows[2] = {}; ///< of the last two bars with prices, the later first
    };

    ParabolicStep(const Operand* arguments, const Work& work)
        : m_bars(work.bars)
        , m_start(barsOf(arguments[0][0]).value_or(0))
        , m_step(arguments[1][0] / 100.0)
        , m_limit(arguments[2][0] / 100.0)
    {
    }

    double operator()(State& state, std::size_t bar) const
    {
        const double high = at(m_bars.high, bar), low = at(m_bars.low, bar), close = at(m_bars.close, bar);
        const bool isUsable = m_start > 0 && m_step > 0.0 && m_limit > 0.0;
        if (!isUsable || isMissing(high) || isMissing(low) || isMissing(close))
            return kMissing;
        const bool isFirst = state.seen == 0;
        if (state.seen < m_start)
            begin(state, high, low, close);
        else
            advance(state, high, low);
        state.highs[1] = isFirst ? high : state.highs[0];
        state.lows[1] = isFirst ? low : state.lows[0];
        state.highs[0] = high;
        state.lows[0] = low;
        return state.seen < m_start ? kMissing : valueOrMissing(state.stop);
    }

private:
    static double at(const std::vector<double>& column, std::size_t bar)
    {
        return bar < column.size() ? valueOrMissing(column[bar]) : kMissing;
    }

    void begin(State& state, double high, double low, double close) const
    {
        const bool isFirst = state.seen == 0;
        state.firstClose = isFirst ? close : state.firstClose;
        state.highest = isFirst ? high : std::max(state.highest, high);
        state.lowest = isFirst ? low : std::min(state.lowest, low);
        if (++state.seen < m_start)
            return;
        state.isRising = close >= state.firstClose;
        state.stop = state.isRising ? state.lowest : state.highest;
        state.extreme = state.isRising ? state.highest : state.lowest;
        state.speed = std::min(m_step, m_limit);
    }

    void advance(State& state, double high, double low) const
    {
        double stop = state.stop + state.speed * (state.extreme - state.stop);
        if (state.isRising)
            stop = std::min({ stop, state.lows[0], state.lows[1] });
        else
            stop = std::max({ stop, state.highs[0], state.highs[1] });
        const bool isBroken = state.isRising ? low < stop : high > stop;
        if (isBroken) {
            state.stop = state.isRising ? std::max(state.extreme, high) : std::min(state.extreme, low);
            state.isRising = !state.isRising;
            state.extreme = state.isRising ? high : low;
            state.speed = std::min(m_step, m_limit);
            return;
        }
        state.stop = stop;
        const bool isFurther = state.isRising ? high > state.extreme : low < state.extreme;
        if (isFurther) {
            state.extreme = state.isRising ? high : low;
            state.speed = std::min(state.speed + m_step, m_limit);
        }
    }

    const BarSeries& m_bars;
    const std::size_t m_start;
    const double m_step, m_limit;
};

} // namespace

std::vector<Function> parabolicFunctions()
{
    return {
        FunctionRow("SAR", "抛物线转向，步长和上限为百分数",
                    "parabolic stop and reverse; step and limit in per cent")
            .takes("N,STEP,LIMIT", "ccc")
            .runs<Recurrence<ParabolicStep>>(),
    };
}

} // namespace engine::language
