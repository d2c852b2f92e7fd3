// SPDX-License-Identifier: MIT
#pragma once
/// @file What the embedded table holds.

#include "host/WB/CBaseNormalTable.h"
#include "host/embedded/table/TableHeader.h"
#include "host/embedded/table/TableModel.h"
#include "host/embedded/table/TableView.h"

#include <QMenu>
#include <QPoint>
#include <QVBoxLayout>

namespace WB {

struct CBaseNormalTable::Contents
{
    TC::embedded::TableModel model;
    TC::embedded::TableView* view = nullptr;
    TC::embedded::TableHeader* header = nullptr;
    TC::embedded::TableDelegate* delegate = nullptr;
    QMenu* menu = nullptr;
    QVBoxLayout* layout = nullptr;
    QFlags<EBaseTableMenuFlag> flags;
    QPoint cursor { -1, -1 }; ///< current column and place before the rows were cleared
    int scroll = 0;           ///< first row shown before the rows were cleared
};

} // namespace WB
