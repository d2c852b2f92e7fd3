// SPDX-License-Identifier: MIT
#include "engine/kernels/KernelRows.h"
#include "engine/kernels/Periods.h"
#include "engine/kernels/Recurrence.h"

namespace engine::language {

namespace {

/// Bars since something, counted from 0 on its own bar.
struct Since
{
    bool hasHappened = false;
    double bars = 0.0;

    double answer() const { return hasHappened ? bars : kMissing; }
    void happen()
    {
        hasHappened = true;
        bars = 0.0;
    }
};

class BarsLastStep
{
public:
    using State = Since;

    BarsLastStep(const Operand* arguments, const Work&)
        : m_condition(arguments[0])
    {
    }

    double operator()(State& state, std::size_t bar) const
    {
        ++state.bars;
        if (isTrue(m_condition[bar]))
            state.happen();
        return state.answer();
    }

private:
    const Operand m_condition;
};

class BarsSinceStep
{
public:
    using State = Since;

    BarsSinceStep(const Operand* arguments, const Work&)
        : m_condition(arguments[0])
    {
    }

    double operator()(State& state, std::size_t bar) const
    {
        ++state.bars;
        if (!state.hasHappened && isTrue(m_condition[bar]))
            state.happen();
        return state.answer();
    }

private:
    const Operand m_condition;
};

/// Number of bars from the first value on: 1 on its own bar.
class BarsCountStep
{
public:
    using State = double;

    BarsCountStep(const Operand* arguments, const Work&)
        : m_values(arguments[0])
    {
    }

    double operator()(State& counted, std::size_t bar) const
    {
        if (counted > 0.0 || !isMissing(m_values[bar]))
            ++counted;
        return counted > 0.0 ? counted : kMissing;
    }

private:
    const Operand m_values;
};

/// The value at the bar on which the condition last held.
class ValueWhenStep
{
public:
    using State = double;

    ValueWhenStep(const Operand* arguments, const Work&)
        : m_condition(arguments[0])
        , m_values(arguments[1])
    {
    }

    double operator()(State& held, std::size_t bar) const
    {
        if (bar == 0)
            held = kMissing;
        if (isTrue(m_condition[bar]))
            held = m_values[bar];
        return held;
    }

private:
    const Operand m_condition, m_values;
};

/// Bars in a row up to this one on which something holds.
template <class Holds>
class RunStep
{
public:
    using State = double;

    RunStep(const Operand* arguments, const Work&)
        : m_holds { arguments }
    {
    }

    double operator()(State& run, std::size_t bar) const
    {
        run = m_holds(bar) ? run + 1.0 : 0.0;
        return run;
    }

private:
    const Holds m_holds;
};

/// 1 when something has held on each of the last N bars.
template <class Holds, std::size_t kPeriod>
class RunOfStep : public RunStep<Holds>
{
public:
    RunOfStep(const Operand* arguments, const Work& work)
        : RunStep<Holds>(arguments, work)
        , m_periods(arguments[kPeriod])
    {
    }

    double operator()(double& run, std::size_t bar) const
    {
        RunStep<Holds>::operator()(run, bar);
        const double bars = std::trunc(m_periods[bar]);
        return bars >= 1.0 ? static_cast<double>(run >= bars) : kMissing;
    }

private:
    const Operand m_periods;
};

struct Condition
{
    const Operand* arguments;

    bool operator()(std::size_t bar) const { return isTrue(arguments[0][bar]); }
};

struct Rising
{
    const Operand* arguments;

    bool operator()(std::size_t bar) const { return bar > 0 && arguments[0][bar] > arguments[0][bar - 1]; }
};

struct Falling
{
    const Operand* arguments;

    bool operator()(std::size_t bar) const { return bar > 0 && arguments[0][bar] < arguments[0][bar - 1]; }
};

struct FirstAbove
{
    const Operand* arguments;

    bool operator()(std::size_t bar) const { return arguments[0][bar] > arguments[1][bar]; }
};

/// Lets of two kinds of signals that take turns the first of each run pass.
class TurnFilterStep
{
public:
    using State = int; ///< the kind that passed last: 1, 2, or 0 for none

    TurnFilterStep(const Operand* arguments, const Work&)
        : m_first(arguments[0])
        , m_second(arguments[1])
        , m_wanted(std::trunc(arguments[2][0]))
    {
    }

    double operator()(State& last, std::size_t bar) const
    {
        if (!(m_wanted >= 0.0 && m_wanted <= 2.0))
            return kMissing;
        int passed = 0;
        if (last != 1 && isTrue(m_first[bar]))
            passed = 1;
        else if (last == 1 && isTrue(m_second[bar]))
            passed = 2;
        last = passed == 0 ? last : passed;
        if (m_wanted == 0.0)
            return passed;
        return passed == static_cast<int>(m_wanted) ? 1.0 : 0.0;
    }

private:
    const Operand m_first, m_second;
    const double m_wanted;
};

/// Lets a signal pass and then none for some bars.
class FilterStep
{
public:
    using State = std::size_t; ///< bars that are still to be held back

    FilterStep(const Operand* arguments, const Work&)
        : m_condition(arguments[0])
        , m_quiet(arguments[1])
    {
    }

    double operator()(State& held, std::size_t bar) const
    {
        if (held > 0) {
            --held;
            return 0.0;
        }
        if (!isTrue(m_condition[bar]))
            return 0.0;
        held = barsOf(m_quiet[bar]).value_or(0);
        return 1.0;
    }

private:
    const Operand m_condition, m_quiet;
};

/// 1 where the first comes to stand above the second after it last stood below. Meeting without passing is no
/// crossing, and neither is the first bar that has both values.
class CrossStep
{
public:
    using State = double; ///< where the first last stood: 1 above, -1 below

    CrossStep(const Operand* arguments, const Work&)
        : m_first(arguments[0])
        , m_second(arguments[1])
    {
    }

    double operator()(State& side, std::size_t bar) const
    {
        const double first = m_first[bar], second = m_second[bar];
        if (isMissing(first) || isMissing(second) || first == second)
            return 0.0;
        const double before = side;
        side = first > second ? 1.0 : -1.0;
        return before < 0.0 && side > 0.0 ? 1.0 : 0.0;
    }

private:
    const Operand m_first, m_second;
};

/// 1 where the first stands above the second after it stood below on each of the N bars before.
class LongCrossStep
{
public:
    using State = double; ///< bars in a row on which the first stood below

    LongCrossStep(const Operand* arguments, const Work&)
        : m_first(arguments[0])
        , m_second(arguments[1])
        , m_bars(std::trunc(arguments[2][0]))
    {
    }

    double operator()(State& below, std::size_t bar) const
    {
        if (!(m_bars >= 1.0))
            return kMissing;
        const double first = m_first[bar], second = m_second[bar];
        const bool isCrossing = first > second && below >= m_bars;
        below = first < second ? below + 1.0 : 0.0;
        return isCrossing ? 1.0 : 0.0;
    }

private:
    const Operand m_first, m_second;
    const double m_bars;
};

} // namespace

std::vector<Function> countingFunctions()
{
    return {
        FunctionRow("BARSLAST", "上次成立以来的根数", "bars since the condition last held")
            .takes("COND", "s")
            .reachesBack(0)
            .runs<Recurrence<BarsLastStep>>(),
        FunctionRow("BARSSINCE", "首次成立以来的根数", "bars since the condition first held")
            .takes("COND", "s")
            .reachesBack(0)
            .runs<Recurrence<BarsSinceStep>>(),
        FunctionRow("BARSCOUNT", "自第一个有效值起的根数", "bars from the first value on, which counts 1")
            .takes("X", "s")
            .reachesBack(0)
            .runs<Recurrence<BarsCountStep>>(),
        FunctionRow("BARSLASTCOUNT", "连续成立的根数", "bars in a row on which the condition holds")
            .takes("COND", "s")
            .reachesBack(0)
            .runs<Recurrence<RunStep<Condition>>>(),
        FunctionRow("VALUEWHEN", "上次成立时的 X", "X of the bar on which the condition last held")
            .takes("COND,X", "ss")
            .reachesBack(0)
            .runs<Recurrence<ValueWhenStep>>(),
        FunctionRow("UPNDAY", "是否连涨 N 根", "1 when X has risen on each of N bars")
            .takes("X,N", "ss")
            .window(1)
            .logical()
            .reachesBack(1)
            .runs<Recurrence<RunOfStep<Rising, 1>>>(),
        FunctionRow("DOWNNDAY", "是否连跌 N 根", "1 when X has fallen on each of N bars")
            .takes("X,N", "ss")
            .window(1)
            .logical()
            .reachesBack(1)
            .runs<Recurrence<RunOfStep<Falling, 1>>>(),
        FunctionRow("NDAY", "A 是否连续 N 根高于 B", "1 when A has stood above B on each of N bars")
            .takes("A,B,N", "sss")
            .window(2)
            .logical()
            .reachesBack(0)
            .runs<Recurrence<RunOfStep<FirstAbove, 2>>>(),
        FunctionRow("TFILTER", "轮流出现的信号，各取第一个",
                    "of two signals that take turns, the first of each run")
            .takes("A,B,KIND", "ssc")
            .reachesBack(0)
            .runs<Recurrence<TurnFilterStep>>(),
        FunctionRow("CROSS", "A 上穿 B", "1 where A rises through B")
            .takes("A,B", "ss")
            .logical()
            .reachesBack(0)
            .runs<Recurrence<CrossStep>>(),
        FunctionRow("LONGCROSS", "A 在 N 根低于 B 之后上穿",
                    "1 where A rises through B after N bars below it")
            .takes("A,B,N", "ssc")
            .window(2)
            .logical()
            .reachesBack(0)
            .runs<Recurrence<LongCrossStep>>(),
        FunctionRow("FILTER", "成立后 N 根内不再提示", "the condition, held back for N bars after it held")
            .takes("COND,N", "ss")
            .logical()
            .reachesBack(0)
            .runs<Recurrence<FilterStep>>(),
    };
}

} // namespace engine::language
