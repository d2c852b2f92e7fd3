// SPDX-License-Identifier: MIT
#pragma once
/// @file Reading vectors that may be short.

#include <cstddef>
#include <vector>

namespace TC::detail {

/// Element of a vector, or null past either end.
template <class Value>
const Value* elementAt(const std::vector<Value>& values, int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < values.size()
        ? &values[static_cast<std::size_t>(index)]
        : nullptr;
}

} // namespace TC::detail
