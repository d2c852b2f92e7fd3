// SPDX-License-Identifier: MIT
#pragma once
/// @file Client type and folders of the embedded host.

#include "host/HostExport.h"

#include <QString>

namespace TC::embedded {

/// The one client type for which CAppConfig::isClientType is true; 0 (the default): none.
INDICATORHOST_EXPORT void setClientType(int type);

/// Folders that TC::getConfigDir and TC::getUserRootDir answer. An empty text returns to the default:
/// the environment variable INDICATORUI_HOME with "config" and "user" below it where it is set, else the
/// standard folder for application data.
INDICATORHOST_EXPORT void setConfigDir(const QString& folder);
/// Likewise for TC::getUserRootDir.
INDICATORHOST_EXPORT void setUserRootDir(const QString& folder);

} // namespace TC::embedded
