#pragma once
/// @file The functions, series and drawing statements of the language.

#include "engine/EngineExport.h"
#include "engine/kernels/Kernel.h"

#include <string>
#include <vector>

namespace engine::language {

/// How a drawing statement is painted.
enum class Drawing { None, StickLine, Text, FixedText, Number, Icon, VerticalLine, Candles, StackedVolume };

/// One thing that a formula can call by name. Operators are functions too; they have no English text and
/// cannot be called by name.
struct Function
{
    enum class Group {
        Operator,
        Prices,
        Time,
        Reference,
        Average,
        Window,
        Statistics,
        Logic,
        Arithmetic,
        Signal,
        Drawing
    };

    const char* name;
    Group group;
    /// A letter per argument: s a series, c a constant (a number or a parameter, or arithmetic of them), t a
    /// text.
    const char* signature;
    int leastArguments;        ///< the others may be left out
    const char* argumentNames; ///< as the reference shows them: "X,N"
    bool isLogical;            ///< the value is 1 or 0
    bool isElementwise;        ///< a bar of the result depends on nothing but that bar of the arguments
    Drawing drawing;
    /// The kernel; null for drawings.
    KernelPointer (*make)();
    const char* chinese;
    const char* english;

    int mostArguments() const; ///< a drawing of stacked columns takes up to kMostStacked
    bool isOperator() const { return group == Group::Operator; }
};

constexpr int kMostStacked = 16;

/// Every function, operators first. Exported for the tests, which write formulas of them all.
ENGINE_EXPORT const std::vector<Function>& allFunctions();

/// The function or series of a name in capitals; null when there is none. Operators are not found by name.
const Function* findFunction(const std::string& key);

/// The operator of a sign ("+", ">=", "AND", "NOT", "NEG"); it must exist.
const Function& operatorOf(const char* sign);

} // namespace engine::language
