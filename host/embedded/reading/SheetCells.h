// SPDX-License-Identifier: MIT
#pragma once
/// @file The cells of one sheet.

#include <QString>

#include <vector>

namespace TC::embedded {

/// Cells that hold a text; rows and columns count from 0. All texts stand in one buffer, where several cells
/// may share a stretch.
class SheetCells
{
public:
    /// A cell whose text is `length` UTF-16 units from `from` on.
    struct Cell
    {
        qint32 row, column;
        quint32 from, length;
    };

    SheetCells() = default;
    /// @param cells  in any order, each within `texts`; of several at one place the last one counts.
    SheetCells(std::vector<Cell> cells, QString texts);

    bool isEmpty() const { return m_cells.empty(); }
    int firstRow() const { return m_firstRow; }
    int lastRow() const { return m_lastRow; }
    int firstColumn() const { return m_firstColumn; }
    int lastColumn() const { return m_lastColumn; }
    QString text(int row, int column) const;

private:
    std::vector<Cell> m_cells; ///< by row, then by column
    QString m_texts;
    int m_firstRow = 0, m_lastRow = -1, m_firstColumn = 0, m_lastColumn = -1;
};

// The largest sheet that spreadsheets know, and what one workbook may bring.
constexpr int kMostRows = 1'048'576, kMostColumns = 16'384;
constexpr int kMostCells = 2'000'000;
constexpr int kLongestText = 32'767;        ///< UTF-16 units of a cell
constexpr int kMostCharacters = 32'000'000; ///< UTF-16 units of all texts together

} // namespace TC::embedded
