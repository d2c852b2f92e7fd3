#pragma once
/// @file Who hears of the engine's reloads.

#include "host/HostExport.h"

#include <functional>
#include <string>

namespace TC::embedded {

/// The function that every se::loadConfig reaches with its three arguments; an empty one: nobody.
INDICATORHOST_EXPORT void setReloadReceiver(
    std::function<void(const std::string&, const std::string&, const std::string&)> receiver);

} // namespace TC::embedded
