#include "host/embedded/reading/SheetCells.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace TC::embedded {

namespace {

constexpr int kMostRows = 1'048'576, kMostColumns = 16'384;
constexpr std::size_t kMostCells = 2'000'000;
constexpr int kLongestText = 32'767;           // characters of a cell
constexpr qint64 kMostCharacters = 32'000'000; // of all texts together

template <class Cell>
bool isBefore(const Cell& a, const Cell& b)
{
    return std::tie(a.row, a.column) < std::tie(b.row, b.column);
}

} // namespace

bool SheetCells::takeCharacters(int count)
{
    m_characters += count;
    if (m_characters > kMostCharacters)
        refuse();
    return !m_refused;
}

void SheetCells::setText(int row, int column, const QString& text)
{
    if (m_refused || row < 0 || row >= kMostRows || column < 0 || column >= kMostColumns)
        return;
    if (m_cells.size() >= kMostCells)
        refuse();
    else if (takeCharacters(std::min(text.size(), kLongestText)))
        m_cells.push_back({ row, column, text.left(kLongestText) });
}

void SheetCells::setNumber(int row, int column, double number)
{
    constexpr double largestPlain = 1e15;
    const bool isIntegral = std::abs(number) < largestPlain && number == std::trunc(number);
    setText(row, column,
            isIntegral ? QString::number(static_cast<qint64>(number)) : QString::number(number, 'g', 15));
}

void SheetCells::setBool(int row, int column, bool value)
{
    setText(row, column, value ? QStringLiteral("TRUE") : QStringLiteral("FALSE"));
}

std::size_t SheetCells::addShared(std::string_view utf8)
{
    constexpr std::size_t mostBytes = 4 * kLongestText; // of a text that is kept
    const QString text =
        QString::fromUtf8(utf8.data(), static_cast<int>(std::min(utf8.size(), mostBytes))).left(kLongestText);
    if (m_shared.size() >= kMostCells)
        refuse();
    if (!m_refused && takeCharacters(text.size()))
        m_shared.push_back(text);
    return m_shared.empty() ? 0 : m_shared.size() - 1;
}

void SheetCells::setShared(int row, int column, std::size_t index)
{
    if (index >= m_shared.size())
        return;
    const qint64 before = m_characters;
    setText(row, column, m_shared[index]);
    m_characters = std::min(m_characters, before); // the text is held once
}

void SheetCells::finish()
{
    m_shared = {};
    if (!std::is_sorted(m_cells.begin(), m_cells.end(), isBefore<Cell>))
        std::stable_sort(m_cells.begin(), m_cells.end(), isBefore<Cell>);
    if (m_cells.empty())
        return;
    m_firstRow = m_cells.front().row;
    m_lastRow = m_cells.back().row;
    const auto byColumn = [](const Cell& a, const Cell& b) { return a.column < b.column; };
    const auto [leftmost, rightmost] = std::minmax_element(m_cells.begin(), m_cells.end(), byColumn);
    m_firstColumn = leftmost->column;
    m_lastColumn = rightmost->column;
}

void SheetCells::refuse()
{
    m_refused = true;
    m_cells = {};
    m_shared = {};
}

QString SheetCells::text(int row, int column) const
{
    const Cell place { row, column, QString() };
    const auto found = std::upper_bound(m_cells.begin(), m_cells.end(), place, isBefore<Cell>);
    if (found == m_cells.begin())
        return QString();
    const Cell& cell = *std::prev(found); // of several the last one written
    return cell.row == row && cell.column == column ? cell.text : QString();
}

} // namespace TC::embedded
