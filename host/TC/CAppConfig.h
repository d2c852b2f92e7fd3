#pragma once
/// @file Settings of the client that change how the library draws.

#include "host/HostExport.h"

namespace TC {

/// Settings of the running client; reached through utils::CSingletonT<CAppConfig>.
class INDICATORHOST_EXPORT CAppConfig
{
public:
    /// Whether the client is of the given type. Type 3 selects the second visual variant: blue accents
    /// and left-aligned lines. The embedded default is of no type until TC::embedded::setClientType.
    bool isClientType(int type) const;

    void setClientType(int type) { m_clientType = type; }

private:
    int m_clientType = 0;
};

} // namespace TC
