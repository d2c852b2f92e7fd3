// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/xlsx/SheetPart.h"

#include <algorithm>
#include <charconv>

namespace workbook {

namespace {

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t from = text.find_first_not_of(blanks);
    return from == std::string_view::npos ? std::string_view()
                                          : text.substr(from, text.find_last_not_of(blanks) - from + 1);
}

struct CellPlace
{
    int row, column;
};

/// Place of "B7"; -1 twice for what is none.
CellPlace placeOf(std::string_view reference)
{
    constexpr int mostLetters = 3, mostDigits = 7; // beyond any sheet
    std::size_t at = 0;
    int column = 0;
    for (; at < reference.size() && at < mostLetters; ++at) {
        const int letter = (reference[at] | 0x20) - 'a'; // upper or lower case
        if (letter < 0 || letter >= 26)
            break;
        column = column * 26 + letter + 1;
    }
    const std::string_view digits = reference.substr(at);
    const int row = digits.size() <= mostDigits ? wholeNumber(digits) : -1;
    return column > 0 && row > 0 ? CellPlace { row - 1, column - 1 } : CellPlace { -1, -1 };
}

} // namespace

SheetPart::SheetPart(const CellStyles& styles, bool is1904, CellCollector& cells)
    : m_styles(styles)
    , m_is1904(is1904)
    , m_cells(cells)
{
}

SheetPart::Place SheetPart::placeBelow(Place around, std::string_view name) const
{
    switch (around) {
    case Place::Sheet: return name == "sheetData" ? Place::Rows : Place::Elsewhere;
    case Place::Rows: return name == "row" ? Place::Row : Place::Elsewhere;
    case Place::Row: return name == "c" ? Place::Cell : Place::Elsewhere;
    case Place::Cell:
        return name == "v" ? Place::Value : name == "is" ? Place::Inline : Place::Elsewhere; // f: the formula
    default: return Place::Elsewhere;
    }
}

void SheetPart::startElement(std::string_view name, const XmlAttributes& attributes)
{
    if (m_path.empty()) {
        m_hasSheet = name == "worksheet";
        m_path.push_back(m_hasSheet ? Place::Sheet : Place::Elsewhere);
        return;
    }
    const Place around = m_path.back();
    if (around == Place::Inline) { // all below it belongs to its text
        m_inline.startElement(name);
        m_path.push_back(Place::Inline);
        return;
    }
    const Place here = placeBelow(around, name);
    m_path.push_back(here);
    if (here == Place::Row)
        startRow(attributes);
    else if (here == Place::Cell)
        startCell(attributes);
}

void SheetPart::endElement()
{
    const Place place = m_path.back();
    m_path.pop_back();
    if (place == Place::Inline && m_path.back() == Place::Inline)
        m_inline.endElement();
    else if (place == Place::Cell)
        endCell();
}

void SheetPart::characters(std::string_view utf8)
{
    constexpr std::size_t most = std::size_t { 16 } * TC::embedded::kLongestText; // bytes
    const Place place = m_path.empty() ? Place::Elsewhere : m_path.back();
    if (place == Place::Value && m_value.size() < most)
        m_value.append(utf8);
    else if (place == Place::Inline)
        m_inline.characters(utf8);
}

/// Rows and cells without a place of their own follow the one before.
void SheetPart::startRow(const XmlAttributes& attributes)
{
    const std::string_view number = attributes.value("r");
    const int row = wholeNumber(number) - 1;
    if (!number.empty() && row < 0)
        m_cells.noteLoss();
    m_row = row >= 0 ? row : std::min(m_row + 1, TC::embedded::kMostRows);
    m_column = -1;
}

void SheetPart::startCell(const XmlAttributes& attributes)
{
    const std::string_view reference = attributes.value("r");
    if (reference.empty()) {
        m_column = std::min(m_column + 1, TC::embedded::kMostColumns);
    } else {
        const CellPlace place = placeOf(reference);
        m_column = place.column;
        if (place.row >= 0)
            m_row = place.row;
    }
    m_type = attributes.value("t");
    m_style = static_cast<std::size_t>(std::max(wholeNumber(attributes.value("s")), 0));
    m_value.clear();
    m_inline.clear();
}

void SheetPart::endCell()
{
    if (m_type == "inlineStr") {
        m_cells.setText(m_row, m_column, m_inline.text());
        return;
    }
    if (m_type == "str") {
        decodeInto(m_text, m_value);
        m_cells.setText(m_row, m_column, m_text);
        return;
    }
    const std::string_view value = trimmed(m_value);
    if (value.empty())
        return; // a style without a value, or a formula that was never computed
    if (m_type.empty() || m_type == "n") {
        takeNumber(value);
    } else if (m_type == "s") {
        const int index = wholeNumber(value);
        m_cells.setShared(m_row, m_column, index < 0 ? SIZE_MAX : static_cast<std::size_t>(index));
    } else if (m_type == "b") {
        m_cells.setBool(m_row, m_column, value == "1" || value == "true");
    } else if (m_type == "d") {
        takeDate(value);
    } else { // "e": the error as it is shown
        decodeInto(m_text, value);
        m_cells.setText(m_row, m_column, m_text);
        if (m_type != "e")
            m_cells.noteLoss();
    }
}

void SheetPart::takeNumber(std::string_view text)
{
    double number = 0.0;
    const char* const from = text.data() + (text.front() == '+' ? 1 : 0);
    const auto [end, error] = std::from_chars(from, text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        m_cells.noteLoss();
        return;
    }
    const QString date = dateText(number, m_styles.kind(m_style), m_is1904);
    if (date.isEmpty())
        m_cells.setNumber(m_row, m_column, number);
    else
        m_cells.setText(m_row, m_column, date);
}

/// A date in words of its own, "2024-03-09T15:30:15Z".
void SheetPart::takeDate(std::string_view text)
{
    decodeInto(m_text, text);
    m_text = m_text.section(QLatin1Char('Z'), 0, 0).section(QLatin1Char('.'), 0, 0);
    m_text.replace(QLatin1Char('T'), QLatin1Char(' '));
    if (m_styles.kind(m_style) == DateKind::Date || m_text.endsWith(QLatin1String(" 00:00:00")))
        m_text = m_text.section(QLatin1Char(' '), 0, 0);
    m_cells.setText(m_row, m_column, m_text);
}

} // namespace workbook
