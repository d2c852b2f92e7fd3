// SPDX-License-Identifier: MIT
#pragma once
/// @file Reads the tokens of a formula.

#include "engine/language/Lexer.h"
#include "engine/language/Syntax.h"

#include <vector>

namespace engine::language {

/// Reads a whole text and checks it. After a fault of grammar reading goes on behind the next semicolon;
/// after an unknown name it goes on at once.
/// @param tokens  ends with the end of the text.
/// @param lookup  finds the formulas that the text calls.
/// @return what was understood; of use only when no problem was added.
Syntax parse(const std::vector<Token>& tokens, Problems& problems, const FormulaLookup& lookup);

} // namespace engine::language
