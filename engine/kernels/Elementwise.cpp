// SPDX-License-Identifier: MIT
#include "engine/kernels/KernelRows.h"

#include <algorithm>
#include <cmath>

namespace engine::language {

namespace {

/// Calls `work` with what reads an operand by its distance from a bar: a column's values or the number. Loops
/// over either stand apart, so that the compiler can work on several bars at once.
template <class DoWork>
void withReader(const Operand& operand, std::size_t from, DoWork doWork)
{
    if (operand.isConstant)
        doWork([number = *operand.values](std::size_t) { return number; });
    else
        doWork([values = operand.from(from)](std::size_t index) { return values[index]; });
}

/// A function of one bar of its argument.
template <class Operation>
class UnaryKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        double* const out = result.from(work.from);
        withReader(arguments[0], work.from, [&, count = work.count - work.from](auto value) {
            for (std::size_t index = 0; index < count; ++index)
                out[index] = valueOrMissing(Operation()(value(index)));
        });
    }
};

template <class Operation>
class BinaryKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        double* const out = result.from(work.from);
        withReader(arguments[0], work.from, [&](auto left) {
            withReader(arguments[1], work.from, [&, count = work.count - work.from](auto right) {
                for (std::size_t index = 0; index < count; ++index)
                    out[index] = valueOrMissing(Operation()(left(index), right(index)));
            });
        });
    }
};

template <class Operation>
class TernaryKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        double* const out = result.from(work.from);
        withReader(arguments[0], work.from, [&](auto first) {
            withReader(arguments[1], work.from, [&](auto second) {
                withReader(arguments[2], work.from, [&, count = work.count - work.from](auto third) {
                    for (std::size_t index = 0; index < count; ++index)
                        out[index] = valueOrMissing(Operation()(first(index), second(index), third(index)));
                });
            });
        });
    }
};

/// Whether both are there. Like all operations below without a branch, so that the compiler can work on
/// several bars at once.
bool areThere(double a, double b)
{
    return !std::isunordered(a, b);
}

/// 1 or 0; missing when one of two numbers is.
double logical(double a, double b, bool holds)
{
    const double truth = holds ? 1.0 : 0.0;
    return areThere(a, b) ? truth : kMissing;
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
    double operator()(double a, double b) const { return logical(a, b, (a != 0.0) & (b != 0.0)); }
};
struct Or
{
    double operator()(double a, double b) const { return logical(a, b, (a != 0.0) | (b != 0.0)); }
};
struct Not
{
    double operator()(double a) const { return logical(a, a, a == 0.0); }
};
struct If
{
    double operator()(double condition, double then, double otherwise) const
    {
        const double chosen = condition != 0.0 ? then : otherwise;
        return !isMissing(condition) ? chosen : kMissing;
    }
};
struct IfNot
{
    double operator()(double condition, double then, double otherwise) const
    {
        return If()(condition, otherwise, then);
    }
};
struct IsValid
{
    double operator()(double a) const { return isMissing(a) ? 0.0 : 1.0; }
};
struct IsNull
{
    double operator()(double a) const { return !isMissing(a) ? 0.0 : 1.0; }
};
struct Max
{
    double operator()(double a, double b) const
    {
        const double greater = a < b ? b : a;
        return areThere(a, b) ? greater : kMissing;
    }
};
struct Min
{
    double operator()(double a, double b) const
    {
        const double lesser = b < a ? b : a;
        return areThere(a, b) ? lesser : kMissing;
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
        return !isMissing(a) ? static_cast<double>((a > 0.0) - (a < 0.0)) : kMissing;
    }
};
struct IntegerPart
{
    double operator()(double a) const { return std::trunc(a); }
};
struct Floor
{
    double operator()(double a) const { return std::floor(a); }
};
struct Ceiling
{
    double operator()(double a) const { return std::ceil(a); }
};
struct Fraction
{
    double operator()(double a) const { return a - std::trunc(a); }
};
struct ArcTangent
{
    double operator()(double a) const { return std::atan(a); }
};
struct ArcSine
{
    double operator()(double a) const { return std::asin(a); }
};
struct ArcCosine
{
    double operator()(double a) const { return std::acos(a); }
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
        return !isMissing(a) && !isMissing(b) ? std::pow(a, b)
                                              : kMissing; // pow(1, NaN) and pow(NaN, 0) are 1
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
    void compute(const Operand*, const Work& work, Result result) override
    {
        result.fill(work.from, work.count, kMissing);
    }
};

template <class Operation>
FunctionRow arithmeticOperator(const char* sign)
{
    return FunctionRow(sign).isOperator().takes("", "ss").elementwise().runs<BinaryKernel<Operation>>();
}

template <class Operation>
FunctionRow logicalOperator(const char* sign)
{
    return arithmeticOperator<Operation>(sign).logical();
}

template <class Operation>
FunctionRow ofOne(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english).takes("X", "s").elementwise().runs<UnaryKernel<Operation>>();
}

template <class Operation>
FunctionRow ofTwo(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english)
        .takes("A,B", "ss")
        .elementwise()
        .runs<BinaryKernel<Operation>>();
}

template <class Operation>
FunctionRow ofThree(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english)
        .takes("X,A,B", "sss")
        .elementwise()
        .runs<TernaryKernel<Operation>>();
}

} // namespace

std::vector<Function> elementwiseFunctions()
{
    return {
        arithmeticOperator<Add>("+"),
        arithmeticOperator<Subtract>("-"),
        arithmeticOperator<Multiply>("*"),
        arithmeticOperator<Divide>("/"),
        FunctionRow("NEG").isOperator().takes("", "s").elementwise().runs<UnaryKernel<Negate>>(),
        logicalOperator<Greater>(">"),
        logicalOperator<Less>("<"),
        logicalOperator<GreaterOrEqual>(">="),
        logicalOperator<LessOrEqual>("<="),
        logicalOperator<Equal>("="),
        logicalOperator<NotEqual>("<>"),
        logicalOperator<And>("AND"),
        logicalOperator<Or>("OR"),
        FunctionRow("NOT").isOperator().takes("", "s").elementwise().runs<UnaryKernel<Not>>().logical(),
        FunctionRow("DRAWNULL", "缺值", "a missing value").runs<NullKernel>(),
        ofThree<If>("IF", "成立取 A，否则取 B", "A where the condition holds, else B")
            .takes("COND,A,B", "sss")
            .alias("IFF"),
        ofThree<IfNot>("IFN", "成立取 B，否则取 A", "B where the condition holds, else A")
            .takes("COND,A,B", "sss"),
        ofOne<IsValid>("ISVALID", "是否有值", "1 where X has a value").logical(),
        ofOne<IsNull>("ISNULL", "是否缺值", "1 where X is missing").logical(),
        ofThree<Between>("BETWEEN", "X 是否在 A 与 B 之间（含）",
                         "1 when X lies between A and B, ends included")
            .logical(),
        ofThree<Range>("RANGE", "X 是否在 A 与 B 之间（不含）",
                       "1 when X lies between A and B, ends excluded")
            .logical(),
        ofTwo<Max>("MAX", "较大值", "the greater"),
        ofTwo<Min>("MIN", "较小值", "the lesser"),
        ofOne<Abs>("ABS", "绝对值", "absolute value"),
        ofOne<Sign>("SGN", "符号：1、0、-1", "sign: 1, 0 or -1"),
        ofOne<IntegerPart>("INTPART", "整数部分", "integer part, towards zero"),
        ofOne<Floor>("FLOOR", "向下取整", "the greatest integer up to X"),
        ofOne<Ceiling>("CEILING", "向上取整", "the least integer from X on"),
        ofOne<Fraction>("FRACPART", "小数部分", "fraction, with the sign of X"),
        ofOne<Round>("ROUND", "四舍五入", "nearest integer, halves away from zero"),
        ofTwo<Modulo>("MOD", "余数，符号同 A", "remainder with the sign of A"),
        ofTwo<Power>("POW", "A 的 B 次方", "A to the power of B"),
        ofOne<SquareRoot>("SQRT", "平方根", "square root"),
        ofOne<Exponential>("EXP", "e 的 X 次方", "e to the power of X"),
        ofOne<NaturalLogarithm>("LN", "自然对数", "natural logarithm"),
        ofOne<DecimalLogarithm>("LOG", "常用对数", "decimal logarithm"),
        ofOne<Sine>("SIN", "正弦（弧度）", "sine of radians"),
        ofOne<Cosine>("COS", "余弦（弧度）", "cosine of radians"),
        ofOne<Tangent>("TAN", "正切（弧度）", "tangent of radians"),
        ofOne<ArcSine>("ASIN", "反正弦（弧度）", "arc sine in radians"),
        ofOne<ArcCosine>("ACOS", "反余弦（弧度）", "arc cosine in radians"),
        ofOne<ArcTangent>("ATAN", "反正切（弧度）", "arc tangent in radians"),
    };
}

} // namespace engine::language
