// SPDX-License-Identifier: MIT
#pragma once
/// @file Formulas by the names that users see.

#include "engine/Formulas.h"

#include <QString>

#include <optional>

namespace chart {

/// Computes a formula that the formula manager knows, built-in or the user's own, with its parameters and
/// colours; empty for a name that it does not know.
std::optional<engine::FormulaRecords> computeNamed(const QString& name, const engine::BarSeries& bars);

/// Finds the formulas that a text may call: the user's own and the built-in ones, as they are now. Made on
/// the GUI thread, to be called from any.
/// @param reader  name of the formula whose text is read, which would call itself; empty for none.
engine::FormulaLookup knownFormulas(const QString& reader = QString());

} // namespace chart
