// SPDX-License-Identifier: MIT
#pragma once
/// @file What this process may take, by the means of the system.

#include <QtGlobal>

namespace workbook {

/// Limits time and memory of this process (TC::embedded::kProgramSeconds, kProgramMemory), lets it leave no
/// memory image behind, and ends it together with its parent.
/// @return false when the parent has already ended.
bool limitThisProcess(qint64 parent);

/// Lets standard input and output carry bytes as they are.
void useBinaryStreams();

} // namespace workbook
