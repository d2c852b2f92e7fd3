// SPDX-License-Identifier: MIT
#pragma once
/// @file Module rights of the current user.

#include "host/HostExport.h"

#include <QStringList>

namespace luawrapper {

/// Answers whether the current user holds a module right; reached through
/// utils::CSingletonT<LuaModuleCtrl>. GUI thread only.
class INDICATORHOST_EXPORT LuaModuleCtrl
{
public:
    /// Whether the user holds the right. The answer may change while the client runs.
    /// @param path  names from the outermost module inward.
    /// @param fallback  the answer for a right about which nothing is known.
    bool checkModule(const QStringList& path, bool fallback) const;
};

} // namespace luawrapper
