// SPDX-License-Identifier: MIT
#include "engine/language/TokenReader.h"

namespace engine::language {

void TokenReader::report(const Token& token, const std::string& chinese, const std::string& english)
{
    m_problems.add(token.place, token.text, chinese, english);
}

void TokenReader::hint(const Token& token, const std::string& chinese, const std::string& english)
{
    m_problems.hint(token.place, token.text, chinese, english);
}

void TokenReader::expected(const std::string& chinese, const std::string& english)
{
    report(current(), "此处应为" + chinese, "expected " + english);
    m_hasFailed = true;
}

bool TokenReader::expectSign(const char* sign)
{
    if (current().is(sign)) {
        take();
        return true;
    }
    expected(std::string(" ") + sign, sign);
    return false;
}

/// Whether the current token is the first of NAME: or NAME:= on a line of its own.
bool TokenReader::beginsStatement() const
{
    const bool isFirstOfLine = m_position > 0 && m_tokens[m_position - 1].place.line < current().place.line;
    return isFirstOfLine && current().kind == TokenKind::Name && (next().is(":") || next().is(":="));
}

void TokenReader::endStatement()
{
    if (!m_hasFailed && !current().is(";") && !atEnd())
        expected("运算符或分号", "an operator or a semicolon");
    while (!current().is(";") && !atEnd() && !beginsStatement())
        take();
    if (current().is(";"))
        take();
}

} // namespace engine::language
