// SPDX-License-Identifier: MIT
#pragma once
/// @file What a formula can call, and how a kernel tells of itself.

#include "engine/kernels/Kernel.h"
#include "host/se/RecordCodes.h"

#include <cstring>
#include <optional>

namespace engine::language {

/// Makes the kernels of a function; may be empty.
class KernelMaker
{
public:
    using Plain = KernelPointer (*)();
    using Bound = KernelPointer (*)(const void* what);

    KernelMaker() = default;
    KernelMaker(Plain plain)
        : m_plain(plain)
    {
    }
    /// @param what  given to each call; must outlive the function.
    KernelMaker(Bound bound, const void* what)
        : m_bound(bound)
        , m_what(what)
    {
    }

    explicit operator bool() const { return m_plain || m_bound; }
    KernelPointer operator()() const { return m_plain ? m_plain() : m_bound(m_what); }

private:
    Plain m_plain = nullptr;
    Bound m_bound = nullptr;
    const void* m_what = nullptr;
};

/// One thing that a formula can call by name: a series of the bars, a function, or a drawing statement.
/// Operators are functions too, which cannot be called by name.
struct Function
{
    const char* name = "";          ///< in capitals, or the sign of an operator
    const char* alias = "";         ///< a second name (O for OPEN); empty for none
    const char* argumentNames = ""; ///< as the reference shows them: "X,N"
    /// A letter per argument: s a series, c a constant (a number or a parameter, or arithmetic of them), t a
    /// text. Arguments beyond the last letter are of its kind.
    const char* signature = "";
    int minArguments = 0;
    int maxArguments = 0;
    bool isOperator = false;
    bool isLogical = false;     ///< the value is 1 or 0
    bool isElementwise = false; ///< a bar of the result depends on nothing but that bar of the arguments
    bool isChain = false;       ///< a bar waits for the result of the one before, see Kernel::computeTogether
    /// The argument that says how many bars later a value is read; nothing where no later bar counts.
    std::optional<std::size_t> lookAheadArgument;
    /// How many bars before a bar the bars of the arguments still count for it, besides what the kernel
    /// keeps: a number, or the value of an argument that is a constant. Neither: any number of them.
    std::optional<std::size_t> reach, reachArgument;
    /// The same where that argument is a series. Nothing: any number of them.
    std::optional<std::size_t> reachOfSeries;
    /// The optional column of the bars without which there is no value at all; null when there is none.
    std::vector<double> BarSeries::*neededColumn = nullptr;
    /// The value changes with bars that come later, however many.
    bool looksAheadEndlessly = false;
    /// The argument that counts the bars of a window, and the least number that has an answer.
    std::optional<std::size_t> windowArgument;
    double leastWindow = 1.0;
    std::optional<se::DrawType::Code> drawing; ///< of a drawing statement
    /// Of a drawing statement: a digit per column, the argument that it takes; empty where they are in order.
    const char* columnOrder = "";
    bool isBuilt = false;     ///< a drawing put together from others, see BuiltDrawings.h
    KernelMaker makeKernel;   ///< empty for drawings whose columns are their arguments
    const char* chinese = ""; ///< one line each; empty for operators
    const char* english = "";
};

/// Writes the row of a function part by part. Without arguments it is a series of the bars.
class FunctionRow
{
public:
    /// @param chinese,english  one line each, for completion and the reference; none for operators.
    explicit FunctionRow(const char* name, const char* chinese = "", const char* english = "")
    {
        m_row.name = name;
        m_row.chinese = chinese;
        m_row.english = english;
    }

    FunctionRow& alias(const char* name)
    {
        m_row.alias = name;
        return *this;
    }

    /// @param names  "X,N". @param signature  a letter for each, as Function::signature.
    FunctionRow& takes(const char* names, const char* signature)
    {
        m_row.argumentNames = names;
        m_row.signature = signature;
        m_row.minArguments = m_row.maxArguments = static_cast<int>(std::strlen(signature));
        return *this;
    }

    /// A number of arguments that differs from the length of the signature.
    FunctionRow& arguments(int min, int max)
    {
        m_row.minArguments = min;
        m_row.maxArguments = max;
        return *this;
    }

    FunctionRow& isOperator()
    {
        m_row.isOperator = true;
        return *this;
    }

    FunctionRow& logical()
    {
        m_row.isLogical = true;
        return *this;
    }

    FunctionRow& elementwise()
    {
        m_row.isElementwise = true;
        return reachesBack(0);
    }

    FunctionRow& chain()
    {
        m_row.isChain = true;
        return *this;
    }

    FunctionRow& looksAheadBy(std::size_t argument)
    {
        m_row.lookAheadArgument = argument;
        return *this;
    }

    FunctionRow& looksAheadEndlessly()
    {
        m_row.looksAheadEndlessly = true;
        return *this;
    }

    FunctionRow& reachesBack(std::size_t bars)
    {
        m_row.reach = bars;
        return *this;
    }

    FunctionRow& reachesBackBy(std::size_t argument, std::optional<std::size_t> barsOfSeries = std::nullopt)
    {
        m_row.reachArgument = argument;
        m_row.reachOfSeries = barsOfSeries;
        return *this;
    }

    /// @param least  1, or 0 where that stands for all bars so far.
    FunctionRow& window(std::size_t argument, double least = 1.0)
    {
        m_row.windowArgument = argument;
        m_row.leastWindow = least;
        return *this;
    }

    FunctionRow& needs(std::vector<double> BarSeries::*column)
    {
        m_row.neededColumn = column;
        return *this;
    }

    /// @param columnOrder  as Function::columnOrder.
    FunctionRow& draws(se::DrawType::Code drawType, const char* columnOrder = "")
    {
        m_row.drawing = drawType;
        m_row.columnOrder = columnOrder;
        return *this;
    }

    FunctionRow& built()
    {
        m_row.isBuilt = true;
        return *this;
    }

    template <class Made>
    FunctionRow& runs()
    {
        m_row.makeKernel = KernelMaker([]() -> KernelPointer { return std::make_unique<Made>(); });
        return *this;
    }

    operator Function() const { return m_row; }

private:
    Function m_row;
};

} // namespace engine::language
