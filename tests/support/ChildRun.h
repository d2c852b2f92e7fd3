// SPDX-License-Identifier: MIT
#pragma once
/// @file Work that may crash, hang or eat memory, in a process of its own.

#include <functional>

namespace test {

/// How a child process ended.
struct ChildEnd
{
    bool finished = false; ///< neither a signal nor the time limit ended it
    int answer = -1;       ///< what the work returned, 0 to 255
    long peakMiB = 0;      ///< its largest resident memory; that of the test program itself is part of it
};

/// Runs `work` in a forked child. Past `seconds` the child is ended. Where processes do not fork, the work is
/// done here and without a limit.
ChildEnd runInChild(const std::function<int()>& work, unsigned seconds);

/// Whether memory can be measured: sanitizers need several times as much, and not every system tells.
constexpr bool measuresMemory()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(_WIN32)
    return false;
#else
    return true;
#endif
}

} // namespace test
