#pragma once
/// @file How each part of the embedded host returns to its defaults.

namespace TC::embedded {

/// Registers a function that TC::embedded::reset() calls. Make one static object per part, in the part's
/// own source file, so that a new part needs no change elsewhere.
class ResetHook
{
public:
    explicit ResetHook(void (*restoreDefaults)());

    /// Runs every registered function.
    static void runAll();
};

} // namespace TC::embedded
