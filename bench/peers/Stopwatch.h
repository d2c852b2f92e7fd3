// SPDX-License-Identifier: MIT
#pragma once
/// @file Thread time of a call, from a fixed state of the vector registers.

#include <ctime>

namespace bench {

#if defined(__x86_64__)
__attribute__((target("avx"))) inline void clearUpperHalves()
{
    __builtin_ia32_vzeroupper();
}
#endif

inline void fixVectorState()
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx"))
        clearUpperHalves();
#endif
}

inline double threadMilliseconds()
{
    timespec now {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

template <class Call>
double millisecondsOf(const Call& call)
{
    fixVectorState();
    const double begin = threadMilliseconds();
    call();
    return threadMilliseconds() - begin;
}

} // namespace bench
