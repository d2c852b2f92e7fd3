// SPDX-License-Identifier: MIT
#include "host/TC/CAppConfig.h"
#include "host/TC/Folders.h"
#include "host/embedded/SettingsSetup.h"

#include <QDir>
#include <QStandardPaths>

namespace {

int s_clientType = 0; ///< 0: of no type
QString s_configDir;
QString s_userRootDir;

/// The chosen folder, or the default one of the given name; made when it does not exist.
QString folder(const QString& chosen, const QString& name)
{
    QString path = chosen;
    if (path.isEmpty()) {
        const QString home = qEnvironmentVariable("INDICATORUI_HOME");
        path = QDir(home.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                            + QStringLiteral("/indicatorui")
                                   : home)
                   .filePath(name);
    }
    QDir().mkpath(path);
    return path;
}

} // namespace

namespace TC {

bool CAppConfig::isClientType(int type) const
{
    return s_clientType != 0 && s_clientType == type;
}

QString getConfigDir()
{
    return folder(s_configDir, QStringLiteral("config"));
}

QString getUserRootDir()
{
    return folder(s_userRootDir, QStringLiteral("user"));
}

namespace embedded {

void setClientType(int type)
{
    s_clientType = type;
}

void setConfigDir(const QString& path)
{
    s_configDir = path;
}

void setUserRootDir(const QString& path)
{
    s_userRootDir = path;
}

} // namespace embedded
} // namespace TC
