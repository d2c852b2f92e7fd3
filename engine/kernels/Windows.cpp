#include "engine/kernels/Folds.h"
#include "engine/kernels/Makers.h"
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

/// Mean distance from the mean. Every window is added up anew, which takes N steps a bar.
class MeanDeviationKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, double* result) override
    {
        m_mean.compute(arguments, work, result);
        for (std::size_t bar = work.from; bar < work.count && !work.cancelled(); ++bar) {
            if (!hasValue(result[bar]))
                continue;
            const std::size_t length = *barsOf(arguments[1][bar]); // a mean has a length
            CarefulSum distances;
            for (std::size_t other = bar + 1 - length; other <= bar; ++other)
                distances =
                    CarefulSum::merged(distances, { std::abs(arguments[0][other] - result[bar]), 0.0 });
            result[bar] = finiteOrNone(distances.total() / static_cast<double>(length));
        }
    }

private:
    WindowKernel<MeanFold, Window::Whole> m_mean;
};

template <class Fold, Window kWindow = Window::Whole>
KernelPointer make()
{
    return std::make_unique<WindowKernel<Fold, kWindow>>();
}

using IsHigher = std::greater<double>;
using IsLower = std::less<double>;

} // namespace

// clang-format off
KernelPointer makeMean() { return make<MeanFold>(); }
KernelPointer makeWeightedMean() { return make<WeightedMeanFold>(); }
KernelPointer makeSum() { return make<SumFold, Window::WholeOrAll>(); }
KernelPointer makeHighest() { return make<BestFold<IsHigher>, Window::WholeOrAll>(); }
KernelPointer makeLowest() { return make<BestFold<IsLower>, Window::WholeOrAll>(); }
KernelPointer makeHighestBars() { return make<BestBarsFold<IsHigher>, Window::WholeOrAll>(); }
KernelPointer makeLowestBars() { return make<BestBarsFold<IsLower>, Window::WholeOrAll>(); }
KernelPointer makeCount() { return make<CountFold, Window::Conditions>(); }
KernelPointer makeEvery() { return make<EveryFold, Window::Conditions>(); }
KernelPointer makeExist() { return make<ExistFold, Window::Conditions>(); }
KernelPointer makeSampleDeviation() { return make<SampleDeviationFold>(); }
KernelPointer makePopulationDeviation() { return make<PopulationDeviationFold>(); }
KernelPointer makeSampleVariance() { return make<SampleVarianceFold>(); }
KernelPointer makePopulationVariance() { return make<PopulationVarianceFold>(); }
KernelPointer makeSquaredDeviations() { return make<MomentsFold>(); }
KernelPointer makeMeanDeviation() { return std::make_unique<MeanDeviationKernel>(); }
KernelPointer makeSlope() { return make<SlopeFold>(); }
KernelPointer makeForecast() { return make<ForecastFold>(); }
// clang-format on

} // namespace engine::language
