// SPDX-License-Identifier: MIT
#pragma once
/// @file What is wrong with a formula's text, and where.

#include <cstddef>
#include <string>

namespace engine {

/// A stretch of a text. Lines and columns count from 1; a column is a character (a code point), not a byte.
struct Place
{
    int line = 1;           ///< of the first character
    int column = 1;         ///< likewise
    int length = 0;         ///< in characters
    std::size_t offset = 0; ///< in bytes from the beginning of the text
};

/// One fault of a formula's text, or one hint.
struct Problem
{
    Place place;         ///< where it stands
    std::string found;   ///< the offending text as written; empty at the end of the text
    std::string chinese; ///< what was expected, one sentence without the place
    std::string english; ///< the same in English
};

} // namespace engine
