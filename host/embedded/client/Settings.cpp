// SPDX-License-Identifier: MIT
#include "host/TC/CAppConfig.h"
#include "host/TC/Folders.h"
#include "host/embedded/SettingsSetup.h"

#include <QDir>
#include <QStandardPaths>

namespace {

struct Settings
{
    int clientType = 0; ///< 0: of no type
    QString configDir, userRootDir;
};

Settings& settings()
{
    static Settings chosen;
    return chosen;
}

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
    return type != 0 && settings().clientType == type;
}

QString getConfigDir()
{
    return folder(settings().configDir, QStringLiteral("config"));
}

QString getUserRootDir()
{
    return folder(settings().userRootDir, QStringLiteral("user"));
}

namespace embedded {

void setClientType(int type)
{
    settings().clientType = type;
}

void setConfigDir(const QString& path)
{
    settings().configDir = path;
}

void setUserRootDir(const QString& path)
{
    settings().userRootDir = path;
}

} // namespace embedded
} // namespace TC
