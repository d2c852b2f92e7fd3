// SPDX-License-Identifier: MIT
#pragma once
/// @file Formulas by the names that users see.

#include "engine/Formulas.h"
#include "engine/evaluation/FormulaEvaluation.h"

#include <QString>

#include <memory>
#include <optional>

namespace chart {

/// Computes a formula that the formula manager knows, built-in or the user's own, with its parameters and
/// colours, and makes records of the bars [first, end). Empty for a name that it does not know, and
/// where the records would take too much memory.
std::optional<engine::FormulaRecords> computeNamed(const QString& name, const engine::BarSeries& bars,
                                                   std::size_t first, std::size_t end);

/// Such a formula ready to be computed once; null for a name that the manager does not know.
std::unique_ptr<engine::FormulaEvaluation> evaluationOfNamed(const QString& name);

/// Finds the formulas that a text may call: the user's own and the built-in ones, as they are now. Made on
/// the GUI thread, to be called from any.
/// @param reader  name of the formula whose text is read, which would call itself; empty for none.
engine::FormulaLookup knownFormulas(const QString& reader = QString());

} // namespace chart
