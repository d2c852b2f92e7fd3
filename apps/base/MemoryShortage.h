// SPDX-License-Identifier: MIT
#pragma once
/// @file What a program does when there is no more memory.

namespace base {

constexpr int kFailed = 2; ///< exit code of a program that could not do what it was asked

/// Runs a program's work. When memory gives out anywhere in it, in another thread or in code that lets no
/// exception through as well, the program prints one line and ends with kFailed.
/// @param program  its name, for that line; outlives the program.
int runWithinMemory(const char* program, int (*work)(int, char**), int argc, char** argv);

} // namespace base
