// SPDX-License-Identifier: MIT
#pragma once
/// @file Entries that a table brings along in its menus.

#include <QFlags>

namespace WB {

/// Built-in menu entries of a table.
enum EBaseTableMenuFlag {
    EBaseTableMenu_None = 0,
    EBaseTableMenu_Delete = 1, ///< context menu: delete the selected rows
    EBaseTableMenu_Filter = 2, ///< header menu: filter a column
    EBaseTableMenu_Columns = 4 ///< header menu: show and hide columns
};

} // namespace WB
