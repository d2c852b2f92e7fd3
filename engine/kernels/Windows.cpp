// SPDX-License-Identifier: MIT
#include "engine/kernels/Folds.h"
#include "engine/kernels/KernelRows.h"
#include "engine/kernels/SortedBlocks.h"
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

/// Mean distance from the mean.
class MeanDeviationKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        m_mean.compute(arguments, work, result);
        m_sorted.takeBack(work.from);
        for (std::size_t bar = work.from; bar < work.count && !work.cancelled(); ++bar) {
            if (isMissing(result[bar]))
                continue;
            const std::size_t length = barsOrNone(arguments[1][bar]); // a mean has a length
            const double distances = m_sorted.distances(arguments[0], bar + 1 - length, bar + 1, result[bar]);
            result[bar] = valueOrMissing(distances / static_cast<double>(length));
        }
    }

private:
    WindowKernel<MeanFold, Window::Whole> m_mean;
    SortedBlocks m_sorted;
};

using IsHigher = std::greater<double>;
using IsLower = std::less<double>;

template <class Fold>
FunctionRow window(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english)
        .takes("X,N", "ss")
        .window(1)
        .reachesBackBy(1, kFoldedBlock)
        .runs<WindowKernel<Fold, Window::Whole>>();
}

template <class Fold>
FunctionRow windowThere(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english)
        .takes("X,N", "ss")
        .window(1, 0.0)
        .reachesBackBy(1, kFoldedBlock)
        .runs<WindowKernel<Fold, Window::There>>();
}

template <class Fold>
FunctionRow condition(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english)
        .takes("COND,N", "ss")
        .window(1, 0.0)
        .reachesBackBy(1, kFoldedBlock)
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
