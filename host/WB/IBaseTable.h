// SPDX-License-Identifier: MIT
#pragma once
/// @file What every table of the client can do.

#include "host/WB/CBaseWidget.h"
#include "host/WB/NumberFormat.h"

#include <QVector>

#include <set>

namespace WB {

/// A table of rows and columns that are known by id. Column ids are given once and stay when the user moves a
/// column; row ids are new after each refill and are never used again soon. Positions ("index") count from 0
/// as shown, hidden columns included. Unknown ids and indexes change nothing and answer empty, false or -1.
class INDICATORHOST_EXPORT IBaseTable : public CBaseWidget
{
    Q_OBJECT

public:
    /// @param tableId  number of the table, part of its object name.
    IBaseTable(int tableId, QWidget* parent);

    virtual void setColumnCount(int count) = 0;                      ///< gives the ids 0 to count - 1
    virtual int columnCount() const = 0;                             ///< hidden ones too
    virtual int columnID(int index) const = 0;                       ///< of the column shown at a place
    virtual void setColumnHeader(int id, const QString& header) = 0; ///< the text above the column
    virtual QString columnHeader(int id) const = 0;                  ///< the text above the column
    virtual void setColumnWidth(int id, int pixels) = 0;             ///< hidden columns keep theirs
    virtual void setColumnVisible(int id, bool visible) = 0;         ///< hidden ones keep their place
    virtual bool columnVisible(int id) const = 0;                    ///< whether it shows
    virtual void setColumnEditable(int id, bool editable) = 0;       ///< all cells of the column
    /// Lets `editor` edit the cells of a column; it must be a line edit. The table becomes its parent.
    virtual void setColumnEditor(int id, QWidget* editor) = 0;

    virtual void clearRows() = 0; ///< columns stay
    /// Replaces all rows by `count` empty ones. @return their ids, from the top.
    virtual QVector<int> setRowCount(int count) = 0;
    virtual int rowCount() const = 0;       ///< hidden ones too
    virtual int rowID(int index) const = 0; ///< of the row shown at a place

    virtual void setCellText(int row, int column, const QString& text) = 0; ///< replaces what it shows
    /// A number shown by formatDoubleNumber, "非法值" when it is invalid.
    virtual void setCellNumber(int row, int column, double value, int precision, FormatNumberFlags flags) = 0;
    /// A whole number shown by formatIntNumber.
    virtual void setCellInteger(int row, int column, int value, int width, FormatNumberFlags flags) = 0;
    /// Makes one cell editable beside those of editable columns.
    virtual void setCellEditable(int row, int column, bool editable) = 0;
    virtual bool cellEditable(int row, int column) const = 0; ///< by itself or by its column
    /// The text that the cell shows.
    virtual QString cellText(int row, int column) const = 0;

    virtual std::set<int> selectedRows() const = 0;         ///< row ids
    virtual void selectRows(const std::set<int>& rows) = 0; ///< ids; unknown ones are ignored

    /// A user's action on the table; see TableEvents.h.
    /// @param row,col  row id and column id; -1 where the event has none.
    /// @return whether the event was handled.
    virtual bool handleEvent(int id, int row, int col, QString text, void* data) = 0;
};

} // namespace WB
