// SPDX-License-Identifier: MIT
#pragma once
/// @file The backups that TC::CRecoveryVersionManager keeps, as far as the client has to know its files.

#include "apps/client/recovery/FormulaFiles.h"

#include <QDateTime>

#include <vector>

namespace client {

/// Names of the versions there are now, in the manager's order.
QStringList managerVersions();

/// When a version was made: by its name, else by its file's time.
QDateTime managerTime(const QString& version);

/// Content of a version, as far as it can be read.
FormulaFiles managerFiles(const QString& version);

/// Content of a version. A file of it that is there and cannot be read is a failure.
base::Result<FormulaFiles> readManagerFiles(const QString& version);

/// The version that the manager's next backup discards; empty when it discards none.
QString managerNextToGo();

/// Lets the manager make a backup of its own. Left out when it has one of this second, which would only
/// leave files behind. Staging files of an earlier one, which would stop this one, are removed.
void letManagerBackUp();

} // namespace client
