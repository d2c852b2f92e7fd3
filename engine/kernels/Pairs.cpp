// SPDX-License-Identifier: MIT
#include "engine/kernels/KernelRows.h"
#include "engine/kernels/Periods.h"
#include "engine/kernels/SegmentTree.h"

#include <cmath>

namespace engine::language {

namespace {

/// Moments of two values, merged as those of one (Chan, Golub, LeVeque, 1983).
struct PairFold
{
    struct State
    {
        double count = 0.0, meanX = 0.0, meanY = 0.0;
        double squaresX = 0.0, squaresY = 0.0, products = 0.0;
    };

    static State merged(const State& a, const State& b)
    {
        if (a.count == 0.0)
            return b;
        const double count = a.count + b.count, part = b.count / count, weight = a.count * part;
        const double x = b.meanX - a.meanX, y = b.meanY - a.meanY;
        return { count,
                 a.meanX + x * part,
                 a.meanY + y * part,
                 a.squaresX + b.squaresX + x * x * weight,
                 a.squaresY + b.squaresY + y * y * weight,
                 a.products + b.products + x * y * weight };
    }
};

/// An answer to the last N pairs of two series, all of which must have both values.
template <double (*Answer)(const PairFold::State&)>
class PairKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        const Operand &x = arguments[0], &y = arguments[1], &lengths = arguments[2];
        const auto isThere = [&](std::size_t bar) { return !isMissing(x[bar]) && !isMissing(y[bar]); };
        m_tree.extend(work.from, work.count, [&](std::size_t bar) {
            return isThere(bar) ? PairFold::State { 1.0, x[bar], y[bar], 0.0, 0.0, 0.0 } : PairFold::State {};
        });
        std::size_t present = work.from == 0 ? 0 : m_keptPresent;
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            if (bar == work.keep)
                m_keptPresent = present;
            present = isThere(bar) ? present + 1 : 0;
            const std::size_t length = barsOf(lengths[bar]).value_or(0);
            const bool isWhole = length > 0 && length <= present;
            result[bar] = isWhole ? valueOrMissing(Answer(m_tree.fold(bar + 1 - length, bar + 1))) : kMissing;
        }
        if (work.keep >= work.count)
            m_keptPresent = present;
    }

private:
    SegmentTree<PairFold> m_tree;
    std::size_t m_keptPresent = 0; ///< pairs in a row before the bar to be kept
};

double covariance(const PairFold::State& pairs)
{
    return pairs.products / pairs.count;
}

double correlation(const PairFold::State& pairs)
{
    return pairs.products / (std::sqrt(pairs.squaresX) * std::sqrt(pairs.squaresY));
}

/// Slope of the first over the second.
double slopeOverSecond(const PairFold::State& pairs)
{
    return pairs.products / pairs.squaresY;
}

double determination(const PairFold::State& pairs)
{
    const double relation = correlation(pairs);
    return relation * relation;
}

template <double (*Answer)(const PairFold::State&)>
FunctionRow ofPairs(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english).takes("X,Y,N", "sss").window(2).runs<PairKernel<Answer>>();
}

} // namespace

std::vector<Function> pairFunctions()
{
    return {
        ofPairs<covariance>("COVAR", "总体协方差", "population covariance"),
        ofPairs<correlation>("RELATE", "相关系数", "coefficient of correlation"),
        ofPairs<slopeOverSecond>("BETA", "X 对 Y 的回归系数", "slope of the regression of X on Y"),
        ofPairs<determination>("RSQ", "相关系数的平方", "square of the correlation"),
    };
}

} // namespace engine::language
