// SPDX-License-Identifier: MIT
/// @file What the thread sanitizer is told. Qt comes from the distribution, built without the sanitizer: its
/// locks are invisible, and memory that it moves under them inside the library would be reported. Accesses in
/// our own code are not touched by this.

#if defined(__SANITIZE_THREAD__)

extern "C" __attribute__((visibility("default"))) const char* __tsan_default_suppressions();

const char* __tsan_default_suppressions()
{
    return "called_from_lib:libQt5Core.so\n";
}

#endif
