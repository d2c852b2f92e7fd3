// SPDX-License-Identifier: MIT
#pragma once
/// @file Dated backups of the user's formula configuration.

#include "indicatorui_export.h"

#include <QList>
#include <QString>

namespace TC {

/// Keeps dated copies of the files "configFormula" and "lua" of the user's root folder in the folder
/// "backUp" below the configuration folder, and restores them.
///
/// Reached through utils::CSingletonT<CRecoveryVersionManager>. The configuration folder is asked for once,
/// at construction, the user's root folder at each operation. No operation reports an error. GUI thread only.
class INDICATORUI_EXPORT CRecoveryVersionManager
{
public:
    /// Makes the backup folder when it does not exist (not the folders above it) and lists the backups.
    CRecoveryVersionManager();

    /// Marks the client as running by an empty file "out.txt" in the configuration folder.
    /// @return true when the mark was there already: the previous run ended without quit().
    bool init();
    /// Removes the mark of init().
    void quit();

    /// Copies both files into the backup folder under one timestamp of local time, "configFormula_" and
    /// "lua_" followed by "yyyy-MM-dd hh#mm#ss". When ten or more versions are listed, the oldest pair is
    /// deleted first. A file that cannot be copied is left out.
    void backUp();

    /// Versions found at construction, newest first by time of modification: base names of the backups of
    /// "configFormula". Backups made since are missing from it.
    QList<QString> getDataList() const { return m_versions; }

    /// Puts a version's files in place of the live ones and makes the formula engine reload them.
    /// @param version  an entry of getDataList(). A live file is deleted even when the version has no file
    ///        to put in its place.
    void loadFile(QString version);

private:
    void backUpFile(const QString& name, const QString& timestamp);
    void loadConfigFile(const QString& backupName, const QString& targetName);
    void load();
    void removeOld();

    QString m_runMarker;
    QString m_backupFolder;
    int m_maxCount = 10;
    QList<QString> m_versions;
};

} // namespace TC
