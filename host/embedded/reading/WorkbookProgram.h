// SPDX-License-Identifier: MIT
#pragma once
/// @file Reading of a workbook in a program of its own, so that no file can harm the client.

#include "host/embedded/ReadingSetup.h"
#include "host/embedded/reading/SheetCells.h"

namespace TC::embedded {

/// Starts the reading program on an ordinary file and takes its cells over. The program limits its own time
/// and memory and ends with this process; whatever it does, this call comes back.
WorkbookReport readInProgram(const QString& file, SheetCells& cells);

/// Folder of the shared library that holds this code; empty when the system does not tell.
QString libraryFolder();

} // namespace TC::embedded
