// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's own backups of the formulas.

#include "apps/client/recovery/FormulaFiles.h"

#include <QCoreApplication>
#include <QDateTime>

#include <vector>

namespace client {

/// A backup of the store.
struct StoredBackup
{
    int number = 0; ///< backups made later have greater ones, whatever the clock says
    QString name;   ///< of its file
    QDateTime made; ///< what the clock said
};

/// One file a backup in a folder of its own. Their order is that of their numbers: a clock that goes wrong
/// puts nothing out of order. Kept are the last ten, the last one of each of the last fourteen days and of
/// each of the last twenty-six weeks in which there are any; a backup goes only after a new one is safe.
class BackupStore
{
    Q_DECLARE_TR_FUNCTIONS(client::BackupStore)

public:
    /// @param folder  made when the first backup is.
    explicit BackupStore(QString folder);

    /// Newest first. Files of other names are not looked at.
    std::vector<StoredBackup> list() const;

    /// Nothing when the backup is gone, unreadable or damaged.
    std::optional<FormulaFiles> read(const QString& name) const;

    /// Whether a backup holds just this.
    bool holds(const FormulaFiles& files) const;

    /// Adds a backup. What the newest one holds already is not added again.
    /// @return whether there is a new one.
    base::Result<bool> add(const FormulaFiles& files, const QDateTime& made);

private:
    void prune() const;

    QString m_folder;
};

/// Names of the backups that may go, of a list that begins with the newest.
QStringList dispensable(const std::vector<StoredBackup>& backups);

} // namespace client
