#pragma once
/// @file The engine's built-in formulas.

#include "engine/BarSeries.h"
#include "host/se/RPCFormulaMetaResult.h"
#include "host/se/RPCFormulaResult.h"

#include <atomic>
#include <optional>
#include <string>
#include <vector>

namespace engine {

/// One parameter of a formula. Values outside [least, greatest] are limited to it, NaN becomes the default.
struct Parameter
{
    std::string name;
    double value; ///< default
    double least, greatest;
};

/// What is known about a formula before it is computed.
struct FormulaDescription
{
    std::string name;        ///< by which it is asked for
    std::string displayName; ///< UTF-8
    int kind;                ///< 2: the main chart itself; 1: drawn over the main chart; 0: a pane of its own
    std::vector<Parameter> parameters;
};

/// A formula's description of outputs and its series, as the client's engine hands them out.
struct FormulaRecords
{
    se::RPCFormulaMetaResult meta;
    se::RPCFormulaResult result;
};

/// All built-in formulas, in the order in which lists show them.
const std::vector<FormulaDescription>& builtInFormulas();

/// The built-in formula of a name; null when there is none.
const FormulaDescription* findBuiltIn(const std::string& name);

/// Computes a built-in formula. Numbers that cannot be computed (too few bars, missing input) are DBL_MAX.
///
/// @param parameters  in the order of the description; missing ones take their default.
/// @param cancelled  looked at between outputs; true ends the computation.
/// @return empty for an unknown name and for a cancelled computation.
std::optional<FormulaRecords> computeFormula(const std::string& name, const BarSeries& bars,
                                             const std::vector<double>& parameters = {},
                                             const std::atomic<bool>* cancelled = nullptr);

} // namespace engine
