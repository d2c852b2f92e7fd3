// SPDX-License-Identifier: MIT
#pragma once
/// @file Cuts the text of a formula into words and signs.

#include "engine/language/Problems.h"

#include <string>
#include <string_view>
#include <vector>

namespace engine::language {

enum class TokenKind {
    Name,   ///< Latin or Han letters, digits and underscores; also the words AND, OR, NOT and PARAM
    Number, ///< 12, 1.5, .5, 1e-3
    Text,   ///< in single quotes
    Quoted, ///< in double quotes: an output of another formula, or a text
    Color,  ///< #RRGGBB behind a comma
    Sign,   ///< an operator or a mark of punctuation
    EndOfText
};

/// A word or a sign of the text.
struct Token
{
    TokenKind kind = TokenKind::EndOfText;
    Place place;
    std::string text;    ///< as written; of a Text or Quoted without its quotes
    std::string key;     ///< the text with ASCII letters in capitals: what names are compared by
    double number = 0.0; ///< of a Number

    bool is(const char* sign) const { return kind == TokenKind::Sign && text == sign; }
    bool isWord(const char* word) const { return kind == TokenKind::Name && key == word; }
};

/// Cuts a text. Blanks and comments, { ... } and // to the end of the line, are passed over. The last token
/// is the end of the text. Whatever belongs to no token is reported and passed over; full-width punctuation
/// and typographic quotes are read as their plain counterparts, with a hint.
/// @param text  UTF-8; bytes that are none are reported.
std::vector<Token> tokenize(std::string_view text, Problems& problems);

/// The text with ASCII letters in capitals.
std::string inCapitals(std::string_view text);

} // namespace engine::language
