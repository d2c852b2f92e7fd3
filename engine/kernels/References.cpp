#include "engine/kernels/Makers.h"
#include "engine/kernels/Periods.h"

namespace engine::language {

namespace {

/// The value some bars before.
class ReferenceKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, double* result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const std::optional<std::size_t> back = barsOf(arguments[1][bar]);
            result[bar] = back && *back <= bar ? arguments[0][bar - *back] : kNoValue;
        }
    }
};

/// The value some bars later.
class ReferenceAheadKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, double* result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const std::optional<std::size_t> ahead = barsOf(arguments[1][bar]);
            result[bar] = ahead && *ahead < work.count - bar ? arguments[0][bar + *ahead] : kNoValue;
        }
    }
};

} // namespace

KernelPointer makeReference()
{
    return std::make_unique<ReferenceKernel>();
}

KernelPointer makeReferenceAhead()
{
    return std::make_unique<ReferenceAheadKernel>();
}

} // namespace engine::language
