// SPDX-License-Identifier: MIT
#pragma once
/// @file Classes of instruments.

#include "host/HostExport.h"

#include <string>

namespace ttservice {

/// Answers what class an instrument belongs to; reached through utils::CSingletonT<StockTypeCenter>.
class INDICATORHOST_EXPORT StockTypeCenter
{
public:
    /// Whether the instrument is of the class.
    /// @param type  100003: A share, which the instrument database must know; 277: code of market SH that
    ///        begins with 688; 10006: code of market SZ that begins with 300 or 301. Other classes hold
    ///        nothing.
    bool isTypedStock(int type, const std::string& market, const std::string& code) const;
};

} // namespace ttservice
