// SPDX-License-Identifier: MIT
#pragma once
/// @file Cells on their way from the reading program to its caller.

#include "host/embedded/ReadingSetup.h"
#include "host/embedded/reading/SheetCells.h"

#include <QByteArray>

class QIODevice;

namespace TC::embedded {

/// Writes what was read, in the byte order of this machine. @return whether all of it was taken.
bool sendCells(QIODevice& to, WorkbookOutcome outcome, bool mayBeIncomplete,
               const std::vector<SheetCells::Cell>& cells, const QString& texts);

/// How many bytes the answer that begins with `bytes` has in all; 0 while too few bytes are there to tell,
/// and -1 for what is no answer of a program of this version.
qint64 answerSize(const QByteArray& bytes);

/// Takes a whole answer apart. Nothing in it is trusted.
/// @return false, with everything untouched, when the bytes are no answer of answerSize() bytes, or a cell
///         stands outside the largest sheet or the texts.
bool takeAnswer(const QByteArray& bytes, WorkbookReport& report, SheetCells& cells);

} // namespace TC::embedded
