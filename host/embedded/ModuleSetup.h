// SPDX-License-Identifier: MIT
#pragma once
/// @file Module rights of the embedded host's user.

#include "host/HostExport.h"

#include <QStringList>

namespace TC::embedded {

/// Grants or denies a module right; luawrapper::LuaModuleCtrl::checkModule answers it from now on. A right
/// that was never set answers the caller's own fallback.
/// @param path  names from the outermost module inward.
INDICATORHOST_EXPORT void setModuleRight(const QStringList& path, bool granted);

/// Forgets every right that was set.
INDICATORHOST_EXPORT void clearModuleRights();

} // namespace TC::embedded
