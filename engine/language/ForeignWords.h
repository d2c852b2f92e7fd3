// SPDX-License-Identifier: MIT
#pragma once
/// @file Words that formulas of traders use and that this language does not have.

#include <string>
#include <vector>

namespace engine::language {

/// A word that is refused with its reason, so that nobody takes it for a spelling mistake.
struct ForeignWord
{
    std::string name;
    std::string chinese, english; ///< one sentence each
};

/// All of them; docs/formula-words.md lists the same.
const std::vector<ForeignWord>& foreignWords();

/// The foreign word of a name in capitals; null when there is none.
const ForeignWord* findForeignWord(const std::string& key);

} // namespace engine::language
