// SPDX-License-Identifier: MIT
#pragma once
/// @file Texts of the engine (UTF-8 bytes) as Qt strings and back.

#include "host/HostExport.h"

#include <QString>

#include <string>

namespace WB {

/// UTF-8 bytes as a QString; bytes that are not UTF-8 become replacement characters.
INDICATORHOST_EXPORT QString sToQs(const std::string& text);

/// A QString as UTF-8 bytes.
INDICATORHOST_EXPORT std::string qsToS(const QString& text);

} // namespace WB
