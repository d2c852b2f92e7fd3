// SPDX-License-Identifier: MIT
#pragma once
/// @file Asks the formula engine to read its configuration anew.

#include "host/HostExport.h"

#include <string>

namespace se {

/// Reads a configuration file anew. GUI thread only.
/// @param folder  "root": the user's root folder.
/// @param file  "configFormula": the user's formulas.
/// @param section  empty: all of it.
/// @return 0 when all of the file is in use, another number when something in it is wrong. Other folders and
///         files are not known: nothing is read.
INDICATORHOST_EXPORT int loadConfig(const std::string& folder, const std::string& file,
                                    const std::string& section);

} // namespace se
