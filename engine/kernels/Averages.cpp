// SPDX-License-Identifier: MIT
#include "engine/kernels/KernelRows.h"
#include "engine/kernels/Recurrence.h"

namespace engine::language {

namespace {

struct AverageState
{
    bool isStarted = false;
    double average = 0.0;
};

/// Takes a value into an average. The step form keeps an average of equal values exactly equal, so that no
/// legend arrow flickers; where the step is too large for a double, the weighted sum of the two still is not.
double stepped(AverageState& state, double value, double weightOfNew)
{
    if (isMissing(value))
        return kMissing;
    if (state.isStarted) {
        const double next = state.average + weightOfNew * (value - state.average);
        state.average =
            std::isfinite(next) ? next : weightOfNew * value + (1.0 - weightOfNew) * state.average;
    } else {
        state.average = value;
    }
    state.isStarted = true;
    return valueOrMissing(state.average);
}

/// E = w x + (1 - w) E', starting with the first value.
class WeightedStep
{
public:
    using State = AverageState;

    double operator()(State& state, std::size_t bar) const { return stepped(state, m_values[bar], m_weight); }

    bool isPlain(const State& state) const { return state.isStarted && !m_values.isConstant; }
    PlainAverage plainFrom(const State& state, std::size_t bar, Result result) const
    {
        return { m_values.from(bar), m_weight, state.average, result.from(bar) };
    }

protected:
    /// @param weight  of the new value, 0 to 1; without a value nothing has an average.
    WeightedStep(const Operand& values, double weight)
        : m_values(!isMissing(weight) ? values : Operand { &kMissing, true })
        , m_weight(weight)
    {
    }

private:
    const Operand m_values;
    const double m_weight;
};

class ExponentialStep : public WeightedStep
{
public:
    ExponentialStep(const Operand* arguments, const Work&)
        : WeightedStep(arguments[0], weightOf(std::trunc(arguments[1][0])))
    {
    }

private:
    static double weightOf(double period) { return period >= 1.0 ? 2.0 / (period + 1.0) : kMissing; }
};

class SmoothedStep : public WeightedStep
{
public:
    SmoothedStep(const Operand* arguments, const Work&)
        : WeightedStep(arguments[0], weightOf(std::trunc(arguments[1][0]), std::trunc(arguments[2][0])))
    {
    }

private:
    static double weightOf(double period, double weight)
    {
        return weight >= 1.0 && weight <= period ? weight / period : kMissing;
    }
};

/// As the others, but starting with the mean of the first N values; none before the N-th.
class MeanStartedStep
{
public:
    struct State
    {
        double seen = 0.0, sum = 0.0;
        AverageState average;
    };

    double operator()(State& state, std::size_t bar) const
    {
        const double value = m_values[bar];
        if (isMissing(value) || isMissing(m_weight))
            return kMissing;
        if (state.seen >= m_period)
            return stepped(state.average, value, m_weight);
        state.sum += value;
        if (++state.seen < m_period)
            return kMissing;
        state.average = { true, state.sum / m_period };
        return valueOrMissing(state.average.average);
    }

protected:
    /// @param weight  over the period, by which a new value counts.
    MeanStartedStep(const Operand* arguments, double weight)
        : m_values(arguments[0])
        , m_period(std::trunc(arguments[1][0]))
        , m_weight(m_period >= 1.0 ? weight / (m_period + weight - 1.0) : kMissing)
    {
    }

private:
    const Operand m_values;
    const double m_period, m_weight;
};

struct MeanStartedExponentialStep : MeanStartedStep
{
    MeanStartedExponentialStep(const Operand* arguments, const Work&)
        : MeanStartedStep(arguments, 2.0)
    {
    }
};

struct MeanStartedSmoothedStep : MeanStartedStep
{
    MeanStartedSmoothedStep(const Operand* arguments, const Work&)
        : MeanStartedStep(arguments, 1.0)
    {
    }
};

/// Y = A Y' + B X, starting with the first X; the weights need not sum up to 1.
class TwoWeightsStep
{
public:
    using State = AverageState;

    TwoWeightsStep(const Operand* arguments, const Work&)
        : m_values(arguments[0])
        , m_weightOfOld(arguments[1][0])
        , m_weightOfNew(arguments[2][0])
    {
    }

    double operator()(State& state, std::size_t bar) const
    {
        const double value = m_values[bar];
        if (isMissing(value) || isMissing(m_weightOfOld) || isMissing(m_weightOfNew))
            return kMissing;
        state.average = state.isStarted ? m_weightOfOld * state.average + m_weightOfNew * value : value;
        state.isStarted = true;
        return valueOrMissing(state.average);
    }

private:
    const Operand m_values;
    const double m_weightOfOld, m_weightOfNew;
};

/// The weight is a series; a bar whose weight is missing or not from 0 to 1 has no average.
class DynamicStep
{
public:
    using State = AverageState;

    DynamicStep(const Operand* arguments, const Work&)
        : m_values(arguments[0])
        , m_weights(arguments[1])
    {
    }

    double operator()(State& state, std::size_t bar) const
    {
        const double weight = m_weights[bar];
        return weight >= 0.0 && weight <= 1.0 ? stepped(state, m_values[bar], weight) : kMissing;
    }

private:
    const Operand m_values, m_weights;
};

} // namespace

std::vector<Function> averageFunctions()
{
    return {
        FunctionRow("EMA", "指数移动平均", "exponential moving average, weight 2/(N+1)")
            .takes("X,N", "sc")
            .window(1)
            .reachesBack(0)
            .chain()
            .runs<Recurrence<ExponentialStep>>(),
        FunctionRow("EXPMEMA", "以前 N 个值的平均起算的指数平均",
                    "as EMA, starting with the mean of the first N values")
            .takes("X,N", "sc")
            .window(1)
            .reachesBack(0)
            .runs<Recurrence<MeanStartedExponentialStep>>(),
        FunctionRow("MEMA", "以前 N 个值的平均起算，权重 1/N",
                    "weight 1/N, starting with the mean of the first N values")
            .takes("X,N", "sc")
            .window(1)
            .reachesBack(0)
            .runs<Recurrence<MeanStartedSmoothedStep>>(),
        FunctionRow("TMA", "递归平均 Y=A*Y'+B*X", "Y = A*Y' + B*X, starting with the first X")
            .takes("X,A,B", "scc")
            .reachesBack(0)
            .runs<Recurrence<TwoWeightsStep>>(),
        FunctionRow("SMA", "移动平均，权重 M/N", "smoothed moving average, weight M/N")
            .takes("X,N,M", "scc")
            .window(1)
            .reachesBack(0)
            .chain()
            .runs<Recurrence<SmoothedStep>>(),
        FunctionRow("DMA", "动态移动平均，权重 A", "moving average of weight A, 0 to 1")
            .takes("X,A", "ss")
            .reachesBack(0)
            .chain()
            .runs<Recurrence<DynamicStep>>(),
    };
}

} // namespace engine::language
