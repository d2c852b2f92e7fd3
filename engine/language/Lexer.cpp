// SPDX-License-Identifier: MIT
#include "engine/language/Lexer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace engine::language {

namespace {

constexpr char32_t kNoCharacter = 0xFFFFFFFF; // also for bytes that are no UTF-8
constexpr int kColorDigits = 6;               // of #RRGGBB

struct FullWidth
{
    char32_t character;
    const char* plain;
};

constexpr FullWidth kFullWidth[] = {
    { U'；', ";" }, { U'：', ":" },  { U'，', "," },  { U'（', "(" }, { U'）', ")" }, { U'＋', "+" },
    { U'－', "-" }, { U'＊', "*" },  { U'／', "/" },  { U'＞', ">" }, { U'＜', "<" }, { U'＝', "=" },
    { U'！', "!" }, { U'＆', "&&" }, { U'｜', "||" }, { U'≥', ">=" }, { U'≤', "<=" }, { U'≠', "<>" },
    { U'×', "*" },  { U'÷', "/" },   { U'＃', "#" },
};

/// Longer signs that begin with a full-width one.
struct FullWidthPair
{
    const char* written;
    const char* plain;
};

constexpr FullWidthPair kFullWidthPairs[] = {
    { "：＝", ":=" }, { "：=", ":=" }, { ":＝", ":=" },  { "＞＝", ">=" }, { "＜＝", "<=" },
    { "＜＞", "<>" }, { "＝＝", "=" }, { "！＝", "<>" }, { "＆＆", "&&" }, { "｜｜", "||" },
    { "＞=", ">=" },  { "＜=", "<=" }, { ">＝", ">=" },  { "<＝", "<=" },
};

/// Signs of other languages for an operator of this one; no hint, they are as good.
constexpr FullWidthPair kOtherSigns[] = { { "==", "=" }, { "!=", "<>" } };

/// The opening marks of texts and what closes them.
struct QuotationMark
{
    char32_t opening;
    const char* closing; ///< any of these characters
    bool isDouble, isPlain;
};

constexpr QuotationMark kQuotationMarks[] = {
    { U'\'', "'", false, true },   { U'"', "\"", true, true },    { U'‘', "’‘'", false, false },
    { U'’', "’‘'", false, false }, { U'“', "”“\"", true, false }, { U'”', "”“\"", true, false },
    { U'＇', "＇", false, false }, { U'＂', "＂", true, false },
};

const QuotationMark* quotationMark(char32_t character)
{
    const auto found = std::find_if(std::begin(kQuotationMarks), std::end(kQuotationMarks),
                                    [&](const QuotationMark& mark) { return mark.opening == character; });
    return found == std::end(kQuotationMarks) ? nullptr : found;
}

constexpr const char* kSigns[] = { ":=", ">=", "<=", "<>", "&&", "||", "+", "-", "*", "/", ">",
                                   "<",  "=",  "!",  "(",  ")",  ",",  ":", ";", "#", "." };

bool isDigit(char32_t character)
{
    return character >= U'0' && character <= U'9';
}

bool isHan(char32_t character)
{
    return (character >= 0x4E00 && character <= 0x9FFF) || (character >= 0x3400 && character <= 0x4DBF)
        || (character >= 0x20000 && character <= 0x3FFFD) || (character >= 0xF900 && character <= 0xFAFF)
        || character == 0x3005 || character == 0x3007;
}

bool beginsName(char32_t character)
{
    return (character >= U'a' && character <= U'z') || (character >= U'A' && character <= U'Z')
        || character == U'_' || isHan(character);
}

bool isFullWidthWord(char32_t character)
{
    return (character >= U'０' && character <= U'９') || (character >= U'Ａ' && character <= U'Ｚ')
        || (character >= U'ａ' && character <= U'ｚ') || character == U'＿' || character == U'．';
}

bool isHexDigit(char32_t character)
{
    return isDigit(character) || (character >= U'a' && character <= U'f')
        || (character >= U'A' && character <= U'F');
}

bool isBlank(char32_t character)
{
    return character == U' ' || character == U'\t' || character == U'\r' || character == U'\n'
        || character == 0x3000 || character == 0xFEFF || character == 0x00A0;
}

/// Walks over the characters of a UTF-8 text and knows line and column.
class Cursor
{
public:
    explicit Cursor(std::string_view text)
        : m_text(text)
    {
        decode();
    }

    bool atEnd() const { return m_place.offset >= m_text.size(); }
    char32_t character() const { return m_character; }
    const Place& place() const { return m_place; }

    bool startsWith(std::string_view sign) const
    {
        return m_text.substr(m_place.offset, sign.size()) == sign;
    }

    void advance()
    {
        if (atEnd())
            return;
        if (m_character == U'\n') {
            ++m_place.line;
            m_place.column = 1;
        } else {
            ++m_place.column;
        }
        m_place.offset += m_bytes;
        ++m_passed;
        decode();
    }

    /// The stretch from an earlier place to this one.
    Place since(const Place& start, int passedAtStart) const
    {
        Place stretch = start;
        stretch.length = m_passed - passedAtStart;
        return stretch;
    }

    std::string textSince(const Place& start) const
    {
        return std::string(m_text.substr(start.offset, m_place.offset - start.offset));
    }

    int passed() const { return m_passed; }

private:
    void decode()
    {
        m_bytes = 1;
        m_character = kNoCharacter;
        if (atEnd())
            return;
        const auto byteAt = [&](std::size_t index) {
            return index < m_text.size() ? static_cast<unsigned char>(m_text[index]) : 0U;
        };
        const unsigned first = byteAt(m_place.offset);
        if (first < 0x80) {
            m_character = first;
            return;
        }
        const std::size_t length = first >= 0xF0 && first < 0xF5 ? 4
            : first >= 0xE0 && first < 0xF0                      ? 3
            : first >= 0xC2 && first < 0xE0                      ? 2
                                                                 : 0;
        if (length == 0)
            return;
        char32_t decoded = first & (0x7FU >> length);
        for (std::size_t index = 1; index < length; ++index) {
            const unsigned next = byteAt(m_place.offset + index);
            if ((next & 0xC0) != 0x80)
                return;
            decoded = (decoded << 6) | (next & 0x3F);
        }
        constexpr char32_t shortest[] = { 0, 0, 0x80, 0x800, 0x10000 };
        if (decoded < shortest[length] || decoded > 0x10FFFF || (decoded >= 0xD800 && decoded <= 0xDFFF))
            return;
        m_bytes = length;
        m_character = decoded;
    }

    std::string_view m_text;
    Place m_place;
    std::size_t m_bytes = 1;
    char32_t m_character = kNoCharacter;
    int m_passed = 0;
};

/// Cuts one text.
class Lexer
{
public:
    Lexer(std::string_view text, Problems& problems)
        : m_cursor(text)
        , m_problems(problems)
    {
    }

    std::vector<Token> run()
    {
        while (!m_cursor.atEnd() && !m_problems.isFull()) {
            m_start = m_cursor.place();
            m_passedAtStart = m_cursor.passed();
            next();
        }
        m_start = m_cursor.place();
        m_passedAtStart = m_cursor.passed();
        add(TokenKind::EndOfText, {});
        return std::move(m_tokens);
    }

private:
    void next()
    {
        const char32_t character = m_cursor.character();
        if (isBlank(character))
            m_cursor.advance();
        else if (character == U'{')
            passComment();
        else if (m_cursor.startsWith("//"))
            passLine();
        else if (const QuotationMark* mark = quotationMark(character))
            readText(*mark);
        else if (beginsName(character))
            readName();
        else if (beginsNumber())
            readNumber();
        else if (beginsColor())
            readColor();
        else
            readSign();
    }

    /// A dot without digits stands between the names of a formula and its output.
    bool beginsNumber() const
    {
        if (m_cursor.character() != U'.')
            return isDigit(m_cursor.character());
        Cursor ahead = m_cursor;
        ahead.advance();
        const bool isBehindName = !m_tokens.empty() && m_tokens.back().kind == TokenKind::Name;
        return !(isBehindName && beginsName(ahead.character()));
    }

    /// #RRGGBB; behind a name the sign leads to a parameter.
    bool beginsColor() const
    {
        if (m_cursor.character() != U'#' || m_tokens.empty() || !m_tokens.back().is(","))
            return false;
        Cursor ahead = m_cursor;
        for (int digit = 0; digit < kColorDigits; ++digit) {
            ahead.advance();
            if (!isHexDigit(ahead.character()))
                return false;
        }
        ahead.advance();
        return !beginsName(ahead.character()) && !isDigit(ahead.character());
    }

    void readColor()
    {
        for (int passed = 0; passed <= kColorDigits; ++passed)
            m_cursor.advance();
        add(TokenKind::Color, m_cursor.textSince(m_start));
    }

    void passComment()
    {
        while (!m_cursor.atEnd() && m_cursor.character() != U'}')
            m_cursor.advance();
        if (m_cursor.atEnd())
            m_problems.add(oneCharacter(), "{", "注释没有结束，缺少 }", "the comment has no end, expected }");
        m_cursor.advance();
    }

    void passLine()
    {
        while (!m_cursor.atEnd() && m_cursor.character() != U'\n')
            m_cursor.advance();
    }

    void readText(const QuotationMark& mark)
    {
        m_cursor.advance();
        const Place inside = m_cursor.place();
        while (!m_cursor.atEnd() && !closes(mark) && m_cursor.character() != U'\n')
            m_cursor.advance();
        const std::string text = m_cursor.textSince(inside);
        const std::string quotes = mark.isDouble ? "双引号" : "单引号";
        const std::string quote = mark.isDouble ? "a double quote" : "a single quote";
        if (m_cursor.atEnd() || m_cursor.character() == U'\n')
            report("文字没有结束，缺少右" + quotes, "the text has no end on its line, expected " + quote);
        else
            m_cursor.advance();
        if (!mark.isPlain)
            hint("排版引号，按半角" + quotes + "读", "a typographic quote, read as " + quote);
        add(mark.isDouble ? TokenKind::Quoted : TokenKind::Text, text);
    }

    bool closes(const QuotationMark& mark) const
    {
        for (Cursor closing(mark.closing); !closing.atEnd(); closing.advance()) {
            if (closing.character() == m_cursor.character())
                return true;
        }
        return false;
    }

    void readName()
    {
        while (beginsName(m_cursor.character()) || isDigit(m_cursor.character()))
            m_cursor.advance();
        add(TokenKind::Name, m_cursor.textSince(m_start));
    }

    void readDigits()
    {
        while (isDigit(m_cursor.character()))
            m_cursor.advance();
    }

    void readNumber()
    {
        readDigits();
        if (m_cursor.character() == U'.') {
            m_cursor.advance();
            readDigits();
        }
        readExponent();
        const std::string text = m_cursor.textSince(m_start);
        double number = 0.0;
        const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
        if (read.ec != std::errc() || read.ptr != text.data() + text.size() || !std::isfinite(number)) {
            report("不是可以使用的数字", "this is no number that can be used");
            number = 0.0;
        }
        add(TokenKind::Number, text);
        m_tokens.back().number = number;
    }

    /// An e belongs to the number only when digits follow.
    void readExponent()
    {
        const auto digitFollows = [&] {
            for (const char* sign : { "e+", "e-", "E+", "E-", "e", "E" }) {
                if (!m_cursor.startsWith(sign))
                    continue;
                Cursor ahead = m_cursor;
                for (std::size_t passed = 0; sign[passed] != '\0'; ++passed)
                    ahead.advance();
                return isDigit(ahead.character());
            }
            return false;
        };
        if (!digitFollows())
            return;
        m_cursor.advance();
        if (!isDigit(m_cursor.character()))
            m_cursor.advance();
        readDigits();
    }

    void readSign()
    {
        for (const FullWidthPair& sign : kOtherSigns) {
            if (takeSign(sign.written, sign.plain))
                return;
        }
        for (const FullWidthPair& sign : kFullWidthPairs) {
            if (takeSign(sign.written, sign.plain)) {
                hintFullWidth(sign.plain);
                return;
            }
        }
        for (const char* sign : kSigns) {
            if (takeSign(sign, sign))
                return;
        }
        for (const FullWidth& sign : kFullWidth) {
            if (m_cursor.character() != sign.character)
                continue;
            m_cursor.advance();
            hintFullWidth(sign.plain);
            add(TokenKind::Sign, sign.plain);
            return;
        }
        passForeign();
    }

    /// Passes over a sign and adds what it means, if it stands here.
    bool takeSign(std::string_view written, const char* meant)
    {
        if (!m_cursor.startsWith(written))
            return false;
        const std::size_t end = m_cursor.place().offset + written.size();
        while (m_cursor.place().offset < end)
            m_cursor.advance();
        add(TokenKind::Sign, meant);
        return true;
    }

    void hintFullWidth(const char* plain)
    {
        hint(std::string("全角符号，按 ") + plain + " 读",
             std::string("a full-width sign, read as ") + plain);
    }

    /// A run of characters that the language does not know is one fault.
    void passForeign()
    {
        const char32_t first = m_cursor.character();
        const bool isCharacter = first != kNoCharacter;
        const bool isWord = isFullWidthWord(m_cursor.character());
        const auto isForeign = [&] {
            const char32_t character = m_cursor.character();
            if (m_cursor.atEnd() || isBlank(character) || beginsName(character) || isDigit(character)
                || quotationMark(character) || isFullWidthWord(character) != isWord)
                return false;
            return (character != kNoCharacter) == isCharacter && !isKnownSign();
        };
        do {
            m_cursor.advance();
        } while (isForeign());
        if (isCharacter && isWord)
            report("全角字母或数字，请改用半角",
                   "full-width letters or digits, expected the half-width ones");
        else if (isCharacter)
            reportSign(first);
        else
            report("不是 UTF-8 编码的文字", "these bytes are no UTF-8");
    }

    /// Operators of other languages have functions here.
    void reportSign(char32_t sign)
    {
        if (sign == U'%')
            report("公式里不能使用的符号，余数请写 MOD(A,B)",
                   "a character that formulas do not use; write MOD(A,B) for a remainder");
        else if (sign == U'^')
            report("公式里不能使用的符号，乘方请写 POW(A,B)",
                   "a character that formulas do not use; write POW(A,B) for a power");
        else if (sign == U'?')
            report("公式里不能使用的符号，取舍请写 IF(COND,A,B)",
                   "a character that formulas do not use; write IF(COND,A,B) for a choice");
        else
            report("公式里不能使用的符号", "a character that formulas do not use");
    }

    bool isKnownSign() const
    {
        return m_cursor.startsWith("{")
            || std::any_of(std::begin(kSigns), std::end(kSigns),
                           [&](const char* sign) { return m_cursor.startsWith(sign); })
            || std::any_of(std::begin(kFullWidth), std::end(kFullWidth),
                           [&](const FullWidth& sign) { return m_cursor.character() == sign.character; });
    }

    Place oneCharacter() const
    {
        Place place = m_start;
        place.length = 1;
        return place;
    }

    void report(const std::string& chinese, const std::string& english)
    {
        m_problems.add(m_cursor.since(m_start, m_passedAtStart), m_cursor.textSince(m_start), chinese,
                       english);
    }

    void hint(const std::string& chinese, const std::string& english)
    {
        m_problems.hint(m_cursor.since(m_start, m_passedAtStart), m_cursor.textSince(m_start), chinese,
                        english);
    }

    void add(TokenKind kind, std::string text)
    {
        Token token;
        token.kind = kind;
        token.place = m_cursor.since(m_start, m_passedAtStart);
        token.key = inCapitals(text);
        token.text = std::move(text);
        m_tokens.push_back(std::move(token));
    }

    Cursor m_cursor;
    Problems& m_problems;
    std::vector<Token> m_tokens;
    Place m_start;
    int m_passedAtStart = 0;
};

} // namespace

std::vector<Token> tokenize(std::string_view text, Problems& problems)
{
    return Lexer(text, problems).run();
}

std::string inCapitals(std::string_view text)
{
    std::string capitals(text);
    for (char& character : capitals) {
        if (character >= 'a' && character <= 'z')
            character = static_cast<char>(character - 'a' + 'A');
    }
    return capitals;
}

} // namespace engine::language
