// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/xlsx/RichText.h"

#include "host/embedded/reading/SheetCells.h"

#include <algorithm>

namespace workbook {

namespace {

constexpr int kEscapeLength = 7; // _xHHHH_

/// The unit of an escape at `at`; -1 when there is none.
int escapedUnit(const QString& text, int at)
{
    if (at + kEscapeLength > text.size() || text[at + 1] != QLatin1Char('x')
        || text[at + kEscapeLength - 1] != QLatin1Char('_'))
        return -1;
    bool isNumber = false;
    const int unit = QStringView(text).mid(at + 2, 4).toInt(&isNumber, 16);
    return isNumber && text[at + 2] != QLatin1Char('+') && text[at + 2] != QLatin1Char('-') ? unit : -1;
}

void resolveEscapes(QString& text)
{
    int to = 0;
    for (int from = 0; from < text.size(); ++from, ++to) {
        const int unit = text[from] == QLatin1Char('_') ? escapedUnit(text, from) : -1;
        text[to] = unit >= 0 ? QChar(static_cast<ushort>(unit)) : text[from];
        if (unit >= 0)
            from += kEscapeLength - 1;
    }
    text.truncate(to);
}

} // namespace

void decodeInto(QString& text, std::string_view utf8)
{
    constexpr std::size_t mostBytes =
        std::size_t { 8 } * TC::embedded::kLongestText; // escapes are longer than letters
    text = QString::fromUtf8(utf8.data(), static_cast<int>(std::min(utf8.size(), mostBytes)));
    if (text.contains(QLatin1String("_x")))
        resolveEscapes(text);
}

void RichText::clear()
{
    m_utf8.clear();
    m_depth = m_hidden = 0;
    m_isIn = false;
}

void RichText::startElement(std::string_view name)
{
    ++m_depth;
    if (m_hidden == 0 && name != "t" && name != "r")
        m_hidden = m_depth;
    m_isIn = m_hidden == 0 && name == "t";
}

void RichText::endElement()
{
    if (m_depth == m_hidden)
        m_hidden = 0;
    --m_depth;
    m_isIn = false;
}

void RichText::characters(std::string_view utf8)
{
    constexpr std::size_t most = std::size_t { 16 } * TC::embedded::kLongestText;
    if (m_isIn && m_utf8.size() < most)
        m_utf8.append(utf8);
}

const QString& RichText::text()
{
    decodeInto(m_text, m_utf8);
    return m_text;
}

} // namespace workbook
