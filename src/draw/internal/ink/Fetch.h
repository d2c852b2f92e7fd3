// SPDX-License-Identifier: MIT
#pragma once
/// @file A hint to the memory.

#ifdef __SSE2__
#include <xmmintrin.h>
#endif

namespace TC::detail {

/// Says that a place scattered in memory is read soon, so that several such reads wait at the same time.
inline void fetch([[maybe_unused]] const void* place)
{
#ifdef __SSE2__
    _mm_prefetch(static_cast<const char*>(place), _MM_HINT_T0);
#endif
}

} // namespace TC::detail
