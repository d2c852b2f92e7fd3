#pragma once
/// @file The cells of one sheet, within limits.

#include <QString>

#include <algorithm>
#include <string_view>
#include <vector>

namespace TC::embedded {

/// Collects the cells of a sheet; rows and columns count from 0. Cells outside the largest sheet that
/// spreadsheets know are dropped. Past the limits the whole sheet is refused: it turns and stays empty.
class SheetCells
{
public:
    void setText(int row, int column, const QString& text);
    /// Plain text of a number: 15 digits, no ".0" behind an integral one.
    void setNumber(int row, int column, double number);
    void setBool(int row, int column, bool value);

    /// Adds a text that several cells may share. @return its index.
    std::size_t addShared(std::string_view utf8);
    /// A cell with a shared text; an index that is not there leaves the cell out.
    void setShared(int row, int column, std::size_t index);

    /// To be called after the last cell and before the questions below.
    void finish();
    /// Empties the sheet for good.
    void refuse();
    bool isRefused() const { return m_refused; }

    bool isEmpty() const { return m_cells.empty(); }
    int firstRow() const { return m_firstRow; }
    int lastRow() const { return m_lastRow; }
    int firstColumn() const { return m_firstColumn; }
    int lastColumn() const { return m_lastColumn; }
    QString text(int row, int column) const;

    /// Gives every cell in the order in which it was set to `take(row, column, text)`, until that answers
    /// false. @return whether all were taken.
    template <class Take>
    bool forEach(Take take) const
    {
        return std::all_of(m_cells.begin(), m_cells.end(),
                           [&](const Cell& cell) { return take(cell.row, cell.column, cell.text); });
    }

private:
    struct Cell
    {
        int row, column;
        QString text;
    };
    bool takeCharacters(int count);

    std::vector<Cell> m_cells;
    std::vector<QString> m_shared;
    qint64 m_characters = 0;
    bool m_refused = false;
    int m_firstRow = 0, m_lastRow = -1, m_firstColumn = 0, m_lastColumn = -1;
};

} // namespace TC::embedded
