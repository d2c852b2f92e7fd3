#include "engine/kernels/Makers.h"

#include <algorithm>
#include <cmath>

namespace engine::language {

namespace {

/// A function of one bar of its arguments. The loops stand apart for constant arguments, so that the compiler
/// can work on several bars at once.
template <class Function>
class UnaryKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, double* result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar)
            result[bar] = finiteOrNone(Function()(arguments[0][bar]));
    }
};

template <class Function>
class BinaryKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, double* result) override
    {
        const double* left = arguments[0].values;
        const double* right = arguments[1].values;
        if (arguments[0].isConstant && arguments[1].isConstant)
            std::fill(result + work.from, result + work.count, finiteOrNone(Function()(*left, *right)));
        else if (arguments[0].isConstant)
            run(
                work, result, [left = *left](std::size_t) { return left; },
                [right](std::size_t bar) { return right[bar]; });
        else if (arguments[1].isConstant)
            run(
                work, result, [left](std::size_t bar) { return left[bar]; },
                [right = *right](std::size_t) { return right; });
        else
            run(
                work, result, [left](std::size_t bar) { return left[bar]; },
                [right](std::size_t bar) { return right[bar]; });
    }

private:
    template <class Left, class Right>
    static void run(const Work& work, double* result, Left left, Right right)
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar)
            result[bar] = finiteOrNone(Function()(left(bar), right(bar)));
    }
};

template <class Function>
class TernaryKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, double* result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar)
            result[bar] = finiteOrNone(Function()(arguments[0][bar], arguments[1][bar], arguments[2][bar]));
    }
};

/// 1 or 0; missing when one of two numbers is.
double logical(double a, double b, bool holds)
{
    return hasValue(a) && hasValue(b) ? static_cast<double>(holds) : kNoValue;
}

struct Add
{
    double operator()(double a, double b) const { return a + b; }
};
struct Subtract
{
    double operator()(double a, double b) const { return a - b; }
};
struct Multiply
{
    double operator()(double a, double b) const { return a * b; }
};
struct Divide
{
    double operator()(double a, double b) const { return a / b; }
};
struct Negate
{
    double operator()(double a) const { return -a; }
};
struct Greater
{
    double operator()(double a, double b) const { return logical(a, b, a > b); }
};
struct Less
{
    double operator()(double a, double b) const { return logical(a, b, a < b); }
};
struct GreaterOrEqual
{
    double operator()(double a, double b) const { return logical(a, b, a >= b); }
};
struct LessOrEqual
{
    double operator()(double a, double b) const { return logical(a, b, a <= b); }
};
struct Equal
{
    double operator()(double a, double b) const { return logical(a, b, a == b); }
};
struct NotEqual
{
    double operator()(double a, double b) const { return logical(a, b, a != b); }
};
struct And
{
    double operator()(double a, double b) const { return logical(a, b, a != 0.0 && b != 0.0); }
};
struct Or
{
    double operator()(double a, double b) const { return logical(a, b, a != 0.0 || b != 0.0); }
};
struct Not
{
    double operator()(double a) const { return logical(a, a, a == 0.0); }
};
struct If
{
    double operator()(double condition, double then, double otherwise) const
    {
        if (!hasValue(condition))
            return kNoValue;
        return condition != 0.0 ? then : otherwise;
    }
};
struct IsNull
{
    double operator()(double a) const { return hasValue(a) ? 0.0 : 1.0; }
};
struct Max
{
    double operator()(double a, double b) const
    {
        return hasValue(a) && hasValue(b) ? std::max(a, b) : kNoValue;
    }
};
struct Min
{
    double operator()(double a, double b) const
    {
        return hasValue(a) && hasValue(b) ? std::min(a, b) : kNoValue;
    }
};
struct Abs
{
    double operator()(double a) const { return std::abs(a); }
};
struct Sign
{
    double operator()(double a) const
    {
        return hasValue(a) ? static_cast<double>((a > 0.0) - (a < 0.0)) : kNoValue;
    }
};
struct IntegerPart
{
    double operator()(double a) const { return std::trunc(a); }
};
struct Round
{
    double operator()(double a) const { return std::round(a); }
};
struct Modulo
{
    double operator()(double a, double b) const { return std::fmod(a, b); }
};
struct Power
{
    double operator()(double a, double b) const
    {
        return hasValue(a) && hasValue(b) ? std::pow(a, b) : kNoValue; // pow(1, NaN) and pow(NaN, 0) are 1
    }
};
struct SquareRoot
{
    double operator()(double a) const { return std::sqrt(a); }
};
struct Exponential
{
    double operator()(double a) const { return std::exp(a); }
};
struct NaturalLogarithm
{
    double operator()(double a) const { return std::log(a); }
};
struct DecimalLogarithm
{
    double operator()(double a) const { return std::log10(a); }
};
struct Sine
{
    double operator()(double a) const { return std::sin(a); }
};
struct Cosine
{
    double operator()(double a) const { return std::cos(a); }
};
struct Tangent
{
    double operator()(double a) const { return std::tan(a); }
};
struct Between
{
    double operator()(double a, double b, double c) const
    {
        return logical(logical(a, b, true), c, a >= std::min(b, c) && a <= std::max(b, c));
    }
};
struct Range
{
    double operator()(double a, double b, double c) const
    {
        return logical(logical(a, b, true), c, a > std::min(b, c) && a < std::max(b, c));
    }
};

class NullKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, double* result) override
    {
        std::fill(result + work.from, result + work.count, kNoValue);
    }
};

template <class Made>
KernelPointer make()
{
    return std::make_unique<Made>();
}

} // namespace

// clang-format off
KernelPointer makeAdd() { return make<BinaryKernel<Add>>(); }
KernelPointer makeSubtract() { return make<BinaryKernel<Subtract>>(); }
KernelPointer makeMultiply() { return make<BinaryKernel<Multiply>>(); }
KernelPointer makeDivide() { return make<BinaryKernel<Divide>>(); }
KernelPointer makeNegate() { return make<UnaryKernel<Negate>>(); }
KernelPointer makeGreater() { return make<BinaryKernel<Greater>>(); }
KernelPointer makeLess() { return make<BinaryKernel<Less>>(); }
KernelPointer makeGreaterOrEqual() { return make<BinaryKernel<GreaterOrEqual>>(); }
KernelPointer makeLessOrEqual() { return make<BinaryKernel<LessOrEqual>>(); }
KernelPointer makeEqual() { return make<BinaryKernel<Equal>>(); }
KernelPointer makeNotEqual() { return make<BinaryKernel<NotEqual>>(); }
KernelPointer makeAnd() { return make<BinaryKernel<And>>(); }
KernelPointer makeOr() { return make<BinaryKernel<Or>>(); }
KernelPointer makeNot() { return make<UnaryKernel<Not>>(); }
KernelPointer makeIf() { return make<TernaryKernel<If>>(); }
KernelPointer makeIsNull() { return make<UnaryKernel<IsNull>>(); }
KernelPointer makeNull() { return make<NullKernel>(); }
KernelPointer makeMax() { return make<BinaryKernel<Max>>(); }
KernelPointer makeMin() { return make<BinaryKernel<Min>>(); }
KernelPointer makeAbs() { return make<UnaryKernel<Abs>>(); }
KernelPointer makeSign() { return make<UnaryKernel<Sign>>(); }
KernelPointer makeIntegerPart() { return make<UnaryKernel<IntegerPart>>(); }
KernelPointer makeRound() { return make<UnaryKernel<Round>>(); }
KernelPointer makeModulo() { return make<BinaryKernel<Modulo>>(); }
KernelPointer makePower() { return make<BinaryKernel<Power>>(); }
KernelPointer makeSquareRoot() { return make<UnaryKernel<SquareRoot>>(); }
KernelPointer makeExponential() { return make<UnaryKernel<Exponential>>(); }
KernelPointer makeNaturalLogarithm() { return make<UnaryKernel<NaturalLogarithm>>(); }
KernelPointer makeDecimalLogarithm() { return make<UnaryKernel<DecimalLogarithm>>(); }
KernelPointer makeSine() { return make<UnaryKernel<Sine>>(); }
KernelPointer makeCosine() { return make<UnaryKernel<Cosine>>(); }
KernelPointer makeTangent() { return make<UnaryKernel<Tangent>>(); }
KernelPointer makeBetween() { return make<TernaryKernel<Between>>(); }
KernelPointer makeRange() { return make<TernaryKernel<Range>>(); }
// clang-format on

} // namespace engine::language
