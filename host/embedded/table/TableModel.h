// SPDX-License-Identifier: MIT
#pragma once
/// @file Cells of a table by row id and column id.

#include <QAbstractTableModel>
#include <QColor>
#include <QString>
#include <QVector>

#include <set>

namespace TC::embedded {

/// Rows keep the order in which they were made; sorting changes only the order in which they are shown.
/// A view's row is a place in the shown order, its column is a column id.
class TableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    struct Cell
    {
        QString text;
        bool isNumber = false;
        bool isEditable = false;
    };
    struct Column
    {
        QString header;
        bool isEditable = false;
        bool isMarked = false; ///< header in the mark colour
    };

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    void setColumns(int count);
    Column* column(int id);
    const Column* column(int id) const;
    void columnChanged(int id);
    void setMarkColor(const QColor& color) { m_markColor = color; }

    void setRows(int count);
    int firstId() const { return m_firstId; }
    int idAt(int place) const;
    int placeOf(int id) const;
    const Cell* cell(int row, int column) const;
    /// Changes a cell; the views hear of all changes together, later.
    void change(int row, int column, const QString& text, bool isNumber);
    void setEditable(int row, int column, bool isEditable);

    /// Shows the rows by a column's values; -1: as they were made.
    void sortBy(int column, Qt::SortOrder order);

private:
    Cell* cellAt(int row, int column);
    void announceLater();

    QVector<Column> m_columns;
    QVector<Cell> m_cells; ///< row by row as they were made
    QVector<int> m_shown;  ///< place -> row as made
    QVector<int> m_places; ///< row as made -> place
    int m_firstId = 0;
    bool m_isAnnounced = true;
    QColor m_markColor;
};

} // namespace TC::embedded
