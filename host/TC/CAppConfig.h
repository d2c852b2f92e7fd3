// SPDX-License-Identifier: MIT
#pragma once
/// @file Settings of the client that change how the library draws.

#include "host/HostExport.h"

namespace TC {

/// Settings of the running client; reached through utils::CSingletonT<CAppConfig>.
class INDICATORHOST_EXPORT CAppConfig
{
public:
    /// Whether the client is of the given type. Type 3 selects the second visual variant: blue accents
    /// and left-aligned lines.
    bool isClientType(int type) const;
};

} // namespace TC
