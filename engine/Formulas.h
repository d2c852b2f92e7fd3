#pragma once
/// @file The engine's built-in formulas: bars in, formula records out.
///
/// Plain functions without state; every one of them may be called from any thread.

#include "engine/BarSeries.h"
#include "engine/Formula.h"
#include "engine/FormulaRecords.h"

#include <atomic>
#include <optional>
#include <string>
#include <vector>

namespace engine {

/// What a formula is called and what it takes.
struct FormulaDescription
{
    std::string name;        ///< what the engine knows it by ("MACD")
    std::string displayName; ///< what users see, UTF-8; traders know the built-in ones by their name
    int kind = 0;            ///< 2: the main chart itself; 1: drawn over it; 0: in a pane of its own
    std::vector<Parameter> parameters;
};

/// Every built-in formula, in the order in which a menu lists them.
const std::vector<FormulaDescription>& builtInFormulas();

/// The built-in formula of an exact name ("MA"); null when there is none.
const FormulaDescription* findBuiltIn(const std::string& name);

/// Computes a built-in formula.
///
/// @param bars  may be empty; a vector shorter than the times reads as missing past its end. A bar whose four
///        prices are all missing (not finite, or DBL_MAX) is marked as carrying nothing.
/// @param parameters  in the order of the description. Missing ones and NaN take their default, others are
///        moved into [least, greatest]; periods lose their fraction. Further ones are ignored.
/// @param cancelled  when it turns true the computation ends early with nothing; may be null.
/// @return records with one time and one validity flag per bar and every series of that length, DBL_MAX where
///         there is no value; nothing when the name is unknown or the computation was cancelled.
std::optional<FormulaRecords> computeFormula(const std::string& name, const BarSeries& bars,
                                             const std::vector<double>& parameters = {},
                                             const std::atomic<bool>* cancelled = nullptr);

} // namespace engine
