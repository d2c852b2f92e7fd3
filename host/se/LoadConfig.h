#pragma once
/// @file The formula engine's own reload of its configuration.

#include "host/HostExport.h"

#include <string>

namespace se {

/// Makes the formula engine load a configuration anew. GUI thread only.
/// @param root  the folder, by its role: "root" is the user's root folder.
/// @param name  the configuration in it: "configFormula".
/// @param extra  nothing for a plain reload.
/// @return 0 when the configuration was taken over.
INDICATORHOST_EXPORT int loadConfig(const std::string& root, const std::string& name,
                                    const std::string& extra);

} // namespace se
