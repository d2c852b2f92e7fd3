// SPDX-License-Identifier: MIT
#pragma once
/// @file Ends a program in the middle of its work, at a chosen call to the system.

#include <QStringList>

namespace test {

enum class Ending {
    Killed,     ///< SIGKILL took the program before the chosen call was carried out
    Finished,   ///< the program ended by itself before it came to that call
    Unavailable ///< the machine does not let one process trace another
};

/// Starts a program that stops itself (SIGSTOP) where its work begins, lets it carry out `calls` system
/// calls from there on, and kills it (SIGKILL) at the entry of the next one, which is not carried out.
Ending runAndKill(const QStringList& command, int calls);

} // namespace test
