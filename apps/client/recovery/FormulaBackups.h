// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's way to the backups of the formulas: its own store, and what the recovery manager keeps.

#include "apps/client/recovery/FormulaFiles.h"

#include <QDateTime>
#include <QString>

#include <vector>

namespace client {

/// A backup of formulas and scripts.
struct FormulaVersion
{
    QString name;             ///< of the store's file, or as TC::CRecoveryVersionManager lists it
    bool isOfManager = false; ///< made by TC::CRecoveryVersionManager
    QDateTime made;           ///< by its name; by the file's time when the name tells none
    qint64 formulaBytes = -1; ///< -1: missing
    qint64 scriptBytes = -1;  ///< -1: missing
};

/// The versions there are now: the store's, newest first, then those of the recovery manager that hold
/// something else. The manager lists what it found at its construction, so it is made anew here: nobody may
/// hold a pointer to it.
std::vector<FormulaVersion> formulaVersions();

/// Content of a version; nothing where it has no such file or cannot be read.
FormulaFiles filesOf(const FormulaVersion& version);

/// Content of the live files, as far as they can be read.
FormulaFiles liveFiles();

/// Makes a backup of the live files in the store. The recovery manager makes its own as well, where it can
/// and as long as that costs no version that the store does not hold.
/// @return whether there is a new backup: none is made of what the newest one holds, and of nothing. On
/// failure there is none, and the reason is for the user.
base::Result<bool> backUpFormulas();

/// Backs the live files up, puts a version in their place and makes the engine reload them. Killed at any
/// point, it leaves each live file old or restored, the old ones in a backup, and a note by which
/// mendInterruptedRestore() finishes it.
/// @return what went wrong, for the user, and what the live files are now.
base::Result<void> restoreFormulas(const FormulaVersion& version);

/// To be called at the start: finishes a restore that was interrupted.
/// @return what was found and done, for the user; empty when there is nothing to tell.
QString mendInterruptedRestore();

} // namespace client
