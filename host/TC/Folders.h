// SPDX-License-Identifier: MIT
#pragma once
/// @file Folders of the client.

#include "host/HostExport.h"

#include <QString>

namespace TC {

/// Folder of the client's configuration, without a separator at its end; exists.
INDICATORHOST_EXPORT QString getConfigDir();

/// Root folder of the current user's files ("configFormula", "lua"), without a separator at its end; exists.
INDICATORHOST_EXPORT QString getUserRootDir();

} // namespace TC
