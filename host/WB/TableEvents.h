// SPDX-License-Identifier: MIT
#pragma once
/// @file Events that a table handles itself (IBaseTable::handleEvent).

#include <QString>

namespace WB {

/// Ids of table events.
enum ETableEvent {
    ETableEvent_CellEdited = 52,    ///< a cell's edited text is committed; the data block is a TableCellEdit
    ETableEvent_Delete = 58,        ///< the selected rows shall go; no data block
    ETableEvent_IntegerEdited = 88, ///< a column's integer editor has a new value; the data block is an int
};

/// Data block of ETableEvent_CellEdited.
struct TableCellEdit
{
    int column = -1; ///< column id
    QString text;    ///< what the user wrote
};

} // namespace WB
