// SPDX-License-Identifier: MIT
#include "engine/kernels/Folds.h"
#include "engine/kernels/KernelRows.h"
#include "engine/kernels/SortedWindow.h"
#include "engine/kernels/WindowKernel.h"

#include <functional>

namespace engine::language {

namespace {

struct SampleVarianceFold : MomentsFold
{
    /// A single value does not vary.
    static double answer(const State& window, double length, std::size_t)
    {
        return window.squares / std::max(length - 1.0, 1.0);
    }
};

struct SampleDeviationFold : MomentsFold
{
    static double answer(const State& window, double length, std::size_t bar)
    {
        return std::sqrt(SampleVarianceFold::answer(window, length, bar));
    }
};

struct PopulationVarianceFold : MomentsFold
{
    static double answer(const State& window, double length, std::size_t) { return window.squares / length; }
};

struct PopulationDeviationFold : MomentsFold
{
    static double answer(const State& window, double length, std::size_t)
    {
        return std::sqrt(window.squares / length);
    }
};

struct SlopeFold : TrendFold
{
    static double answer(const State& window, double length, std::size_t) { return slope(window, length); }
};

/// The least-squares line at the last bar.
struct ForecastFold : TrendFold
{
    static double answer(const State& window, double length, std::size_t)
    {
        return window.mean + slope(window, length) * (length - 1.0) / 2.0;
    }
};

struct EveryFold : CountFold
{
    static double answer(const State& window, double length, std::size_t)
    {
        return window == length ? 1.0 : 0.0;
    }
};

struct ExistFold : CountFold
{
    static double answer(const State& window, double, std::size_t) { return window > 0.0 ? 1.0 : 0.0; }
};

/// Mean distance from the mean. Short windows and those whose length changes are added up anew, which takes N
/// steps a bar; long ones are kept in order.
class MeanDeviationKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        m_mean.compute(arguments, work, result);
        const std::size_t length = arguments[1].isConstant ? barsOf(arguments[1][0]).value_or(0) : 0;
        if (length > kLongestAdded && length <= work.count)
            computeSorted(arguments[0], length, work, result);
        else
            computeAnew(arguments, work, result);
    }

private:
    static constexpr std::size_t kLongestAdded = 64;

    static void computeAnew(const Operand* arguments, const Work& work, Result result)
    {
        for (std::size_t bar = work.from; bar < work.count && !work.cancelled(); ++bar) {
            if (isMissing(result[bar]))
                continue;
            const std::size_t length = *barsOf(arguments[1][bar]); // a mean has a length
            CompensatedSum distances;
            for (std::size_t other = bar + 1 - length; other <= bar; ++other)
                distances =
                    CompensatedSum::merged(distances, { std::abs(arguments[0][other] - result[bar]), 0.0 });
            result[bar] = valueOrMissing(distances.total() / static_cast<double>(length));
        }
    }

    void computeSorted(const Operand& values, std::size_t length, const Work& work, Result result)
    {
        if (!m_sorted || work.from == 0) {
            m_sorted.emplace(length + 1);
            m_seen.clear();
        }
        while (m_seen.size() > work.from)
            takeBack(length);
        for (std::size_t bar = m_seen.size(); bar < work.count && !work.cancelled(); ++bar) {
            add(values[bar], length);
            if (bar >= work.from && !isMissing(result[bar]))
                result[bar] = valueOrMissing(m_sorted->distances(result[bar]) / static_cast<double>(length));
        }
    }

    /// The next bar comes in and the one that is now too old goes.
    void add(double value, std::size_t length)
    {
        const std::size_t bar = m_seen.size();
        m_seen.push_back(value);
        if (bar >= length && !isMissing(m_seen[bar - length]))
            m_sorted->erase(bar - length, m_seen[bar - length]);
        if (!isMissing(value))
            m_sorted->insert(bar, value);
    }

    void takeBack(std::size_t length)
    {
        const std::size_t bar = m_seen.size() - 1;
        if (!isMissing(m_seen[bar]))
            m_sorted->erase(bar, m_seen[bar]);
        m_seen.pop_back();
        if (bar >= length && !isMissing(m_seen[bar - length]))
            m_sorted->insert(bar - length, m_seen[bar - length]);
    }

    WindowKernel<MeanFold, Window::Whole> m_mean;
    std::optional<SortedWindow> m_sorted;
    Series m_seen; ///< the values that came in, by bar
};

using IsHigher = std::greater<double>;
using IsLower = std::less<double>;

template <class Fold>
FunctionRow window(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english)
        .takes("X,N", "ss")
        .window(1)
        .reachesBackBy(1)
        .runs<WindowKernel<Fold, Window::Whole>>();
}

template <class Fold>
FunctionRow windowThere(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english)
        .takes("X,N", "ss")
        .window(1, 0.0)
        .reachesBackBy(1)
        .runs<WindowKernel<Fold, Window::There>>();
}

template <class Fold>
FunctionRow condition(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english)
        .takes("COND,N", "ss")
        .window(1, 0.0)
        .reachesBackBy(1)
        .runs<WindowKernel<Fold, Window::Conditions>>();
}

} // namespace

std::vector<Function> windowFunctions()
{
    return {
        window<MeanFold>("MA", "简单移动平均", "simple moving average"),
        window<WeightedMeanFold>("WMA", "加权移动平均，权重 1 至 N", "moving average weighted 1 to N"),
        windowThere<SumFold>("SUM", "N 根之和，N 为 0 时全部累加", "sum of N bars; N=0: of all so far"),
        windowThere<ExtremeValueFold<IsHigher>>("HHV", "N 根内最大值，N 为 0 时为历史",
                                                "greatest of N bars; N=0: of all so far"),
        windowThere<ExtremeValueFold<IsLower>>("LLV", "N 根内最小值，N 为 0 时为历史",
                                               "least of N bars; N=0: of all so far"),
        windowThere<BarsSinceExtremeFold<IsHigher>>("HHVBARS", "N 根内最大值到现在的根数",
                                                    "bars since the greatest of N bars"),
        windowThere<BarsSinceExtremeFold<IsLower>>("LLVBARS", "N 根内最小值到现在的根数",
                                                   "bars since the least of N bars"),
        window<SampleDeviationFold>("STD", "样本标准差", "sample standard deviation"),
        window<PopulationDeviationFold>("STDP", "总体标准差", "population standard deviation"),
        window<SampleVarianceFold>("VAR", "样本方差", "sample variance"),
        window<PopulationVarianceFold>("VARP", "总体方差", "population variance"),
        FunctionRow("AVEDEV", "平均绝对偏差", "mean absolute deviation")
            .takes("X,N", "ss")
            .window(1)
            .runs<MeanDeviationKernel>(),
        window<MomentsFold>("DEVSQ", "偏差平方和", "sum of squared deviations"),
        window<SlopeFold>("SLOPE", "线性回归斜率", "slope of the least-squares line"),
        window<ForecastFold>("FORCAST", "线性回归的当前值", "least-squares line at the bar"),
        window<ProductFold>("MULAR", "N 根之积", "product of N bars"),
        condition<FirstHeldFold>("BARSSINCEN", "N 根内首次成立至今的根数",
                                 "bars since the condition first held within N bars"),
        condition<CountFold>("COUNT", "N 根内成立的次数，N 为 0 时全部",
                             "bars of N on which the condition holds; N=0: of all so far"),
        condition<EveryFold>("EVERY", "N 根内是否一直成立", "1 when the condition holds on all of N bars")
            .logical(),
        condition<ExistFold>("EXIST", "N 根内是否成立过", "1 when the condition holds on any of N bars")
            .logical(),
    };
}

} // namespace engine::language
