// SPDX-License-Identifier: MIT
#pragma once
/// @file Titles of the client's panels.

#include "indicatorui_export.h"

#include <QString>

namespace TC {

/// The title that a panel's dock tab shows.
///
/// @param panelId  compared exactly, case included; an unknown identifier has an empty title.
/// @param count  from 1 on, " (count)" follows the title, also the empty one; below 1 nothing follows.
/// The title of "orderService" depends on a module right of the current user, asked on every call.
INDICATORUI_EXPORT QString indexTitle(QString panelId, int count);

} // namespace TC
