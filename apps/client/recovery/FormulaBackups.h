#pragma once
/// @file The client's way to the backups of the formulas.

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <vector>

namespace client {

/// A backup of formulas and scripts.
struct FormulaVersion
{
    QString name;             ///< as TC::CRecoveryVersionManager lists it
    QDateTime made;           ///< by its name; by the file's time when the name tells none
    qint64 formulaBytes = -1; ///< -1: the file is missing
    qint64 scriptBytes = -1;  ///< -1: the file is missing
};

/// The versions there are now, newest first. The recovery manager lists what it found at its construction,
/// so it is made anew here: nobody may hold a pointer to it.
std::vector<FormulaVersion> formulaVersions();

/// Makes a backup of the live files. Staging files that an interrupted or colliding backup left, which
/// would block this one, are removed. Waits for the next second when this one has a backup already.
void backUpFormulas();

/// Puts a version in place of the live files. What a restore that was interrupted left behind, and would
/// stop this one, is removed.
/// @return empty on success; else what went wrong, for the user, and the live files are as before.
QString restoreFormulas(const FormulaVersion& version);

/// Whether a backup made now would discard this version.
bool isNextToGo(const FormulaVersion& version);

/// Content of the live files and of a version's; empty when a file is missing.
QByteArray liveFormulas();
QByteArray liveScripts();
QByteArray formulasOf(const FormulaVersion& version);
QByteArray scriptsOf(const FormulaVersion& version);

} // namespace client
