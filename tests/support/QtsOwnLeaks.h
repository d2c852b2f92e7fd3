// SPDX-License-Identifier: MIT
#pragma once
/// @file What the leak checker is not to tell of.

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace test {

/// While one lives, nothing that is allocated is told as lost. For tests whose JSON repeats a key: Qt's
/// parser loses the first value, in functions without a name that a suppression could tell.
class QtsOwnLeaks
{
public:
    QtsOwnLeaks() { } // not trivial, so that an object of it counts as used

#ifdef __SANITIZE_ADDRESS__
private:
    const __lsan::ScopedDisabler m_disabler;
#endif
};

} // namespace test
