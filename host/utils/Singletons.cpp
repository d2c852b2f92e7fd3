// SPDX-License-Identifier: MIT
/// @file The objects of CSingletonT. Belongs to the library that stands behind the seam: a library that held
/// them in a header template would have objects of its own wherever symbols are not shared between libraries.

#include "host/utils/CSingletonT.h"

#include <typeindex>
#include <unordered_map>

namespace utils {

SingletonPlace& singletonPlace(const std::type_info& type)
{
    struct Places
    {
        std::mutex lock;
        std::unordered_map<std::type_index, SingletonPlace> byType; // its values stay where they are
    };
    // Deliberate: never destroyed. Static objects of any library may ask while the process ends.
    static Places& places = *new Places;
    const std::lock_guard<std::mutex> lock(places.lock);
    return places.byType[std::type_index(type)];
}

} // namespace utils
