// SPDX-License-Identifier: MIT
#include "engine/kernels/KernelRows.h"
#include "engine/kernels/Periods.h"

#include <algorithm>

namespace engine::language {

namespace {

/// The value some bars before.
class ReferenceKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        if (arguments[1].isConstant && !arguments[0].isConstant) {
            copy(arguments[0], barsOf(arguments[1][0]).value_or(work.count), work, result);
            return;
        }
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const std::optional<std::size_t> back = barsOf(arguments[1][bar]);
            result[bar] = back && *back <= bar ? arguments[0][bar - *back] : kMissing;
        }
    }

private:
    /// Every value as many bars later.
    static void copy(const Operand& values, std::size_t back, const Work& work, Result result)
    {
        const std::size_t first = std::clamp(back, work.from, work.count);
        result.fill(work.from, first, kMissing);
        if (first < work.count)
            std::copy_n(values.from(first - back), work.count - first, result.from(first));
    }
};

/// The value some bars later.
class ReferenceAheadKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const std::optional<std::size_t> ahead = barsOf(arguments[1][bar]);
            result[bar] = ahead && *ahead < work.count - bar ? arguments[0][bar + *ahead] : kMissing;
        }
    }
};

} // namespace

std::vector<Function> referenceFunctions()
{
    return {
        FunctionRow("REF", "X 在 N 根之前的值", "X of N bars before")
            .takes("X,N", "ss")
            .alias("REFV")
            .window(1, 0.0)
            .reachesBackBy(1)
            .runs<ReferenceKernel>(),
        FunctionRow("REFX", "X 在 N 根之后的值（未来数据）", "X of N bars later (looks into the future)")
            .takes("X,N", "ss")
            .alias("REFXV")
            .window(1, 0.0)
            .looksAheadBy(1)
            .runs<ReferenceAheadKernel>(),
    };
}

} // namespace engine::language
