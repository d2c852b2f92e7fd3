// SPDX-License-Identifier: MIT
#pragma once
/// @file Reading of workbooks by the embedded host: its switches, and what came of the last reading.

#include "host/HostExport.h"

#include <QString>
#include <QStringList>

namespace TC::embedded {

/// How the reading of a workbook ended.
enum class WorkbookOutcome {
    Read,              ///< at least one cell
    NoCells,           ///< a sound workbook whose first sheet holds nothing
    NotReady,          ///< the reader was not made ready
    CannotOpen,        ///< no such file, no ordinary file, no permission; `detail` says which
    EmptyFile,         ///< no byte in it
    FileTooLarge,      ///< above 64 MiB
    UnknownKind,       ///< neither a workbook nor text
    OtherKind,         ///< a workbook of a kind that is not read: .xlsb, .ods, Excel 4 and before
    Protected,         ///< encrypted, or with a password
    Damaged,           ///< nothing stands before the damage
    TooManyParts,      ///< an archive of more than 1,000 entries
    UnpacksTooLarge,   ///< an archive of more than 256 MiB unpacked
    TooManyCells,      ///< more than 2 million cells, or 32 million characters
    OutOfMemory,       ///< the reading program came to its limit
    OutOfTime,         ///< the same for its time
    ProgramFailed,     ///< the reading program ended without an answer
    ProgramMissing,    ///< no reading program; `detail` names the places where it was looked for
    ProgramNotStarted, ///< it could not be started; `detail` says why
};

/// What came of reading one workbook.
struct WorkbookReport
{
    WorkbookOutcome outcome = WorkbookOutcome::NotReady; ///< how it ended
    /// Damage was found, or cells were left out for which a reason could not be told from damage.
    bool mayBeIncomplete = false;
    QString detail; ///< of the outcomes that say so, in the system's language; else empty
};

/// What came of the last WB::CExcelReader::open in this thread.
INDICATORHOST_EXPORT WorkbookReport lastWorkbookReport();

/// One line for the user, in Chinese; empty when all was read.
INDICATORHOST_EXPORT QString textOf(const WorkbookReport& report);

/// Names the program that reads workbooks; an empty path goes back to looking for it, see
/// workbookProgramPlaces().
INDICATORHOST_EXPORT void setWorkbookProgram(const QString& path);

/// Where the program "indicatorui-workbook" is looked for, first place first: the folder of the application,
/// that of this library, and the places beside the library where building and installing put it.
INDICATORHOST_EXPORT QStringList workbookProgramPlaces();

/// Whether WB::CExcelReader::init succeeds; false behaves like a machine that cannot read workbooks.
INDICATORHOST_EXPORT void setExcelAvailable(bool available);

/// How many workbook readers are alive, so that a leak shows.
INDICATORHOST_EXPORT int excelReaderCount();

} // namespace TC::embedded
