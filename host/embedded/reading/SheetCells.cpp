// SPDX-License-Identifier: MIT
#include "host/embedded/reading/SheetCells.h"

#include <algorithm>
#include <tuple>

namespace TC::embedded {

namespace {

bool isBefore(const SheetCells::Cell& a, const SheetCells::Cell& b)
{
    return std::tie(a.row, a.column) < std::tie(b.row, b.column);
}

} // namespace

SheetCells::SheetCells(std::vector<Cell> cells, QString texts)
    : m_cells(std::move(cells))
    , m_texts(std::move(texts))
{
    if (m_cells.empty())
        return;
    if (!std::is_sorted(m_cells.begin(), m_cells.end(), isBefore))
        std::stable_sort(m_cells.begin(), m_cells.end(), isBefore);
    m_firstRow = m_cells.front().row;
    m_lastRow = m_cells.back().row;
    const auto byColumn = [](const Cell& a, const Cell& b) { return a.column < b.column; };
    const auto [leftmost, rightmost] = std::minmax_element(m_cells.begin(), m_cells.end(), byColumn);
    m_firstColumn = leftmost->column;
    m_lastColumn = rightmost->column;
}

QString SheetCells::text(int row, int column) const
{
    const auto found = std::upper_bound(m_cells.begin(), m_cells.end(), Cell { row, column, 0, 0 }, isBefore);
    if (found == m_cells.begin())
        return QString();
    const Cell& cell = *std::prev(found); // of several the last one written
    const bool isHere = cell.row == row && cell.column == column;
    return isHere ? m_texts.mid(static_cast<int>(cell.from), static_cast<int>(cell.length)) : QString();
}

} // namespace TC::embedded
