// SPDX-License-Identifier: MIT
#pragma once
/// @file The engine's built-in formulas, and how any formula is computed: bars in, formula records out.
///
/// Every function here may be called from any thread.

#include "engine/EngineExport.h"
#include "engine/series/BarSeries.h"
#include "engine/language/Formula.h"
#include "engine/records/FormulaRecords.h"

#include <atomic>
#include <optional>
#include <string>
#include <vector>

namespace engine {

/// A formula that comes with the engine; its text stands in samples/formulas.
struct BuiltInFormula
{
    std::string name;                       ///< what the engine and traders know it by ("MACD")
    std::string source;                     ///< its text, UTF-8
    std::shared_ptr<const Formula> formula; ///< never null
};

/// Every built-in formula, in the order in which a menu lists them.
ENGINE_EXPORT const std::vector<BuiltInFormula>& builtInFormulas();

/// The built-in formula of an exact name ("MA"); null when there is none.
ENGINE_EXPORT const BuiltInFormula* findBuiltIn(const std::string& name);

/// The built-in formula of a name in any case, for texts that call others.
ENGINE_EXPORT FoundFormula findBuiltInFormula(const std::string& name);

/// Reads a text that may call the built-in formulas; see readFormula(utf8, lookup).
ENGINE_EXPORT FormulaReading readFormula(std::string_view utf8);

/// Computes a formula once.
///
/// @param formula  null gives nothing.
/// @param bars,parameters,cancelled  as FormulaEvaluation takes them.
/// @return the records as FormulaEvaluation describes them; nothing when the computation was cancelled
///         or would take too much memory.
ENGINE_EXPORT std::optional<FormulaRecords> computeFormula(const std::shared_ptr<const Formula>& formula,
                                                           const BarSeries& bars,
                                                           const std::vector<double>& parameters = {},
                                                           const std::atomic<bool>* cancelled = nullptr);

/// Computes a built-in formula; nothing when the name is unknown.
ENGINE_EXPORT std::optional<FormulaRecords> computeFormula(const std::string& name, const BarSeries& bars,
                                                           const std::vector<double>& parameters = {},
                                                           const std::atomic<bool>* cancelled = nullptr);

} // namespace engine
