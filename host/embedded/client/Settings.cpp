#include "host/TC/CAppConfig.h"
#include "host/TC/Folders.h"
#include "host/embedded/ResetHooks.h"
#include "host/embedded/SettingsSetup.h"
#include "host/utils/CSingletonT.h"

#include <QDir>
#include <QStandardPaths>

namespace {

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

const TC::embedded::ResetHook s_resetSettings([] {
    TC::embedded::setClientType(0);
    s_configDir.clear();
    s_userRootDir.clear();
});

} // namespace

namespace TC {

bool CAppConfig::isClientType(int type) const
{
    return m_clientType != 0 && m_clientType == type;
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
    utils::CSingletonT<CAppConfig>::instance()->setClientType(type);
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
