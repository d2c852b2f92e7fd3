// SPDX-License-Identifier: MIT
#pragma once
/// @file Walks over the tokens of a text and reports what is wrong with them.

#include "engine/language/Lexer.h"

#include <algorithm>
#include <string>
#include <vector>

namespace engine::language {

/// A position among tokens. After a fault of grammar the reader has failed until the next statement.
class TokenReader
{
public:
    TokenReader(const std::vector<Token>& tokens, Problems& problems)
        : m_tokens(tokens)
        , m_problems(problems)
    {
    }

    const Token& current() const { return m_tokens[m_position]; }
    const Token& next() const { return m_tokens[std::min(m_position + 1, m_tokens.size() - 1)]; }
    bool atEnd() const { return current().kind == TokenKind::EndOfText; }

    /// The current token; goes to the next. The end of the text stays.
    const Token& take()
    {
        const Token& taken = current();
        if (!atEnd())
            ++m_position;
        return taken;
    }

    void beginStatement() { m_hasFailed = false; }
    /// Passes over the semicolon behind a statement; whatever else stands there is reported.
    void endStatement();

    bool hasFailed() const { return m_hasFailed; }
    bool isFull() const { return m_problems.isFull(); }
    bool hasReported() const { return !m_problems.empty(); }

    /// Reports a token; reading goes on.
    void report(const Token& token, const std::string& chinese, const std::string& english);
    /// Notes a hint about a token.
    void hint(const Token& token, const std::string& chinese, const std::string& english);
    /// Reports that something else was expected than the current token; the reader has failed.
    void expected(const std::string& chinese, const std::string& english);
    /// Passes over a sign, or fails.
    bool expectSign(const char* sign);
    /// Fails for a reason that has been reported.
    void fail() { m_hasFailed = true; }

private:
    bool beginsStatement() const;

    const std::vector<Token>& m_tokens;
    Problems& m_problems;
    std::size_t m_position = 0;
    bool m_hasFailed = false;
};

} // namespace engine::language
