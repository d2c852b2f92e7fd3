// SPDX-License-Identifier: MIT
/// @file indicatorui-workbook PARENT < WORKBOOK: reads the first sheet of a workbook for the library, which
/// starts it, and writes the cells to standard output. PARENT is the library's process id: this program ends
/// with it. Whatever a file does to its reader, it does it here.

#include "host/embedded/reading/CellTransfer.h"
#include "host/embedded/reading/TextDecoding.h"
#include "host/embedded/reading/program/ProcessLimits.h"
#include "host/embedded/reading/program/Readers.h"

#include <QFile>

#include <cstdio>
#include <new>

namespace {

using workbook::Outcome;

/// @return false when the answer could not be written.
bool answer(Outcome outcome, const workbook::CellCollector& cells)
{
    QFile out;
    return out.open(1, QIODevice::WriteOnly | QIODevice::Unbuffered)
        && TC::embedded::sendCells(out, outcome, cells.isIncomplete(), cells.cells(), cells.texts());
}

Outcome readInput(workbook::CellCollector& cells)
{
    QByteArray bytes;
    {
        QFile in;
        if (!in.open(0, QIODevice::ReadOnly))
            return Outcome::CannotOpen;
        bytes = in.read(TC::embedded::kLargestFile + 1);
    }
    if (bytes.size() > TC::embedded::kLargestFile)
        return Outcome::FileTooLarge;
    if (bytes.isEmpty())
        return Outcome::EmptyFile;
    workbook::readAnyKind(bytes, cells);
    return cells.outcome();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("indicatorui-workbook is started by the library, not by hand.\n", stderr);
        return 2;
    }
    if (!workbook::limitThisProcess(QByteArray(argv[1]).toLongLong()))
        return 1;
    workbook::useBinaryStreams();
    try {
        workbook::CellCollector cells;
        const Outcome outcome = readInput(cells);
        return answer(outcome, cells) ? 0 : 1;
    } catch (const std::bad_alloc&) {
        return answer(Outcome::OutOfMemory, workbook::CellCollector()) ? 0 : 1;
    }
}
