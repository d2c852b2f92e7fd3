// SPDX-License-Identifier: MIT
#pragma once
/// @file The steps of a formula, ready to be run.

#include "engine/language/Syntax.h"

#include <cstdint>
#include <vector>

namespace engine::language {

using StepId = int;

constexpr StepId kNoStep = -1;

/// One column to compute, or a number.
struct Step
{
    bool isConstant = false;
    double number = 0.0;                ///< of a constant
    const Function* function = nullptr; ///< of a column
    std::vector<StepId> arguments;      ///< earlier steps
    std::size_t lookAhead = 0;          ///< bars behind a bar that its value depends on, at most kEndless
    std::size_t reach = 0;              ///< bars before a bar that later steps still read there, likewise
    bool isRunEarlier = false;          ///< together with an earlier step, see Strands
};

constexpr std::size_t kEndless = SIZE_MAX / 2;

/// Steps of one chain function that are run in one loop, at the place of the first.
struct Strands
{
    StepId first = kNoStep;
    StepId second = kNoStep;     ///< may read the first one's result; there may be none
    std::vector<StepId> between; ///< elementwise steps that the third reads, in their order
    StepId third = kNoStep;      ///< runs some bars behind the others; there may be none
};

/// What a formula with given parameters computes: every step once, however often the text says it, and none
/// that no output needs.
struct Plan
{
    std::vector<Step> steps;
    std::vector<Strands> strands;                   ///< by their first steps
    std::vector<std::vector<StepId>> outputColumns; ///< by output: Output::columns, and open and close
                                                    ///< behind a volume

    /// Whether any value depends on later bars.
    bool looksAhead() const;
};

/// @param parameters  one sound number for each of the formula's parameters.
Plan buildPlan(const Syntax& syntax, const std::vector<double>& parameters);

} // namespace engine::language
