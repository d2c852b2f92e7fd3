// SPDX-License-Identifier: MIT
#include "engine/kernels/Folds.h"
#include "engine/kernels/KernelRows.h"
#include "engine/kernels/Periods.h"
#include "engine/kernels/SegmentTree.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <queue>

namespace engine::language {

namespace {

/// A sum, and the greatest sum of a stretch that ends with it.
struct ReachFold
{
    struct State
    {
        CompensatedSum sum;
        double greatest = -std::numeric_limits<double>::infinity();
    };

    static State merged(const State& a, const State& b)
    {
        return { CompensatedSum::merged(a.sum, b.sum), std::max(b.greatest, a.greatest + b.sum.total()) };
    }
};

/// How many bars, counted backwards, sum up to an amount.
class SumBarsKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        const Operand &values = arguments[0], &amounts = arguments[1];
        m_tree.extend(work.from, work.count, [&](std::size_t bar) {
            const double value = isMissing(values[bar]) ? 0.0 : values[bar];
            return ReachFold::State { { value, 0.0 }, value };
        });
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const double amount = amounts[bar];
            const bool isAsked = !isMissing(values[bar]) && !isMissing(amount);
            const std::size_t bars = isAsked
                ? m_tree.shortestBefore(bar + 1, [&](const auto& state) { return state.greatest >= amount; })
                : 0;
            result[bar] = bars > 0 ? static_cast<double>(bars) : kMissing;
        }
    }

private:
    SegmentTree<ReachFold> m_tree;
};

/// Bars in a row before this one whose values are all worse; bars without a value count as worse.
template <class IsBetter>
class RangeKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        const Operand& values = arguments[0];
        m_worse.resize(work.count);
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            std::size_t worse = 0; // leaps over what the bars before have leapt over
            while (worse < bar && isWorse(values[bar - 1 - worse], values[bar]))
                worse += 1 + m_worse[bar - 1 - worse];
            m_worse[bar] = isMissing(values[bar]) ? 0 : worse;
            result[bar] = isMissing(values[bar]) ? kMissing : static_cast<double>(worse);
        }
    }

private:
    static bool isWorse(double earlier, double value)
    {
        return isMissing(earlier) || IsBetter()(value, earlier);
    }

    std::vector<std::size_t> m_worse;
};

/// Whether a condition holds from A bars ago to B bars ago. A run is the number of bars up to a bar on which
/// it holds, or fails, without a break.
template <bool kOnAll>
class SpanKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        m_runs.resize(work.count);
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const bool goesOn = isTrue(arguments[0][bar]) == kOnAll;
            m_runs[bar] = !goesOn ? 0 : bar == 0 ? 1 : m_runs[bar - 1] + 1;
            const std::optional<std::size_t> first = barsOf(arguments[1][bar]);
            const std::optional<std::size_t> last = barsOf(arguments[2][bar]);
            result[bar] =
                first && last && (*first == 0 || *last <= *first) ? answer(bar, *first, *last) : kMissing;
        }
    }

private:
    /// @param first  bars ago; 0 stands for the first bar of all.
    double answer(std::size_t bar, std::size_t first, std::size_t last) const
    {
        if (last > bar || (kOnAll && first > bar))
            return 0.0;
        const std::size_t begin = first == 0 || first > bar ? 0 : bar - first, end = bar - last;
        const bool isUnbroken = m_runs[end] >= end - begin + 1;
        return isUnbroken == kOnAll ? 1.0 : 0.0;
    }

    std::vector<std::size_t> m_runs;
};

/// The T-th best of a window of M bars that ends N bars ago. The best of a stretch splits it in two, the best
/// of which come next.
template <class IsBetter, bool kAsksBars>
class FindKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        m_tree.extend(work.from, work.count,
                      [&](std::size_t bar) { return Fold::of(arguments[0][bar], bar); });
        for (std::size_t bar = work.from; bar < work.count && !work.cancelled(); ++bar) {
            const std::optional<std::size_t> back = barsOf(arguments[1][bar]);
            const std::size_t length = barsOf(arguments[2][bar]).value_or(0);
            const std::size_t rank = barsOf(arguments[3][bar]).value_or(0);
            const bool isAsked = back && *back <= bar && length > 0 && rank > 0 && rank <= length;
            result[bar] = isAsked ? find(bar, bar - *back, length, rank) : kMissing;
        }
    }

private:
    using Fold = ExtremeFold<IsBetter>;

    struct Stretch
    {
        typename Fold::State best;
        std::size_t begin, end;

        /// Whether the other one's best comes before this one's; of equal ones the later bar.
        bool operator<(const Stretch& other) const
        {
            if (best.value != other.best.value)
                return IsBetter()(other.best.value, best.value);
            return best.bar < other.best.bar;
        }
    };

    double find(std::size_t bar, std::size_t last, std::size_t length, std::size_t rank) const
    {
        std::priority_queue<Stretch> stretches;
        const auto add = [&](std::size_t begin, std::size_t end) {
            const Stretch stretch { m_tree.fold(begin, end), begin, end };
            if (begin < end && !isMissing(stretch.best.value))
                stretches.push(stretch);
        };
        add(last + 1 - std::min(length, last + 1), last + 1);
        for (; !stretches.empty(); --rank) {
            const Stretch best = stretches.top();
            if (rank == 1)
                return kAsksBars ? static_cast<double>(bar - best.best.bar) : best.best.value;
            stretches.pop();
            add(best.begin, best.best.bar);
            add(best.best.bar + 1, best.end);
        }
        return kMissing;
    }

    SegmentTree<Fold> m_tree;
};

using IsHigher = std::greater<double>;
using IsLower = std::less<double>;

template <class IsBetter, bool kAsksBars>
FunctionRow find(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english)
        .takes("X,N,M,T", "ssss")
        .window(2)
        .runs<FindKernel<IsBetter, kAsksBars>>();
}

} // namespace

std::vector<Function> searchFunctions()
{
    return {
        FunctionRow("SUMBARS", "向前累加到 A 所需的根数", "bars back until X sums up to A")
            .takes("X,A", "ss")
            .runs<SumBarsKernel>(),
        FunctionRow("TOPRANGE", "高于之前连续多少根", "bars in a row before that are all lower")
            .takes("X", "s")
            .runs<RangeKernel<IsHigher>>(),
        FunctionRow("LOWRANGE", "低于之前连续多少根", "bars in a row before that are all higher")
            .takes("X", "s")
            .runs<RangeKernel<IsLower>>(),
        FunctionRow("LAST", "A 根前到 B 根前是否一直成立", "1 when it held on all bars from A ago to B ago")
            .takes("COND,A,B", "sss")
            .logical()
            .runs<SpanKernel<true>>(),
        FunctionRow("EXISTR", "A 根前到 B 根前是否成立过", "1 when it held on any bar from A ago to B ago")
            .takes("COND,A,B", "sss")
            .logical()
            .runs<SpanKernel<false>>(),
        find<IsHigher, false>("FINDHIGH", "N 根前的 M 根中第 T 个最大值",
                              "the T-th greatest of M bars that end N bars ago"),
        find<IsHigher, true>("FINDHIGHBARS", "N 根前的 M 根中第 T 个最大值至今的根数",
                             "bars since the T-th greatest of M bars that end N bars ago"),
        find<IsLower, false>("FINDLOW", "N 根前的 M 根中第 T 个最小值",
                             "the T-th least of M bars that end N bars ago"),
        find<IsLower, true>("FINDLOWBARS", "N 根前的 M 根中第 T 个最小值至今的根数",
                            "bars since the T-th least of M bars that end N bars ago"),
    };
}

} // namespace engine::language
