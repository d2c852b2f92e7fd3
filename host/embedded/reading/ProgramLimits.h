// SPDX-License-Identifier: MIT
#pragma once
/// @file What the reading program may take; it sets these limits on itself.

#include <QtGlobal>

namespace TC::embedded {

constexpr int kProgramSeconds = 30;
constexpr qint64 kProgramMemory = qint64 { 512 } << 20; ///< bytes beyond what the program has when it starts

} // namespace TC::embedded
