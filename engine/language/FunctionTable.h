// SPDX-License-Identifier: MIT
#pragma once
/// @file The table of everything that a formula can call.

#include "engine/EngineExport.h"
#include "engine/kernels/Function.h"

#include <string>

namespace engine::language {

/// Every function, series and drawing statement, operators first; names differ. Exported for the tests, which
/// write formulas of them all.
ENGINE_EXPORT const std::vector<Function>& allFunctions();

/// What a name in capitals or its alias calls; null when there is nothing. Operators are not found by name.
const Function* findFunction(const std::string& name);

/// The operator of a sign ("+", ">=", "AND", "NOT", "NEG"); it must exist.
const Function& operatorOf(const std::string& sign);

} // namespace engine::language
