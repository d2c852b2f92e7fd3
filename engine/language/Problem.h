// SPDX-License-Identifier: MIT
#pragma once
/// @file What is wrong with a formula's text, and where.

#include <cstddef>
#include <string>

namespace engine {

/// A stretch of a text. Lines and columns count from 1; a column is a character (a code point), not a byte.
struct Place
{
    int line = 1, column = 1;
    int length = 0;         ///< in characters
    std::size_t offset = 0; ///< in bytes from the beginning of the text
};

/// One fault of a formula's text, or one hint.
struct Problem
{
    Place place;
    std::string found;            ///< the offending text as written; empty at the end of the text
    std::string chinese, english; ///< what was expected, one sentence each, without the place
};

} // namespace engine
