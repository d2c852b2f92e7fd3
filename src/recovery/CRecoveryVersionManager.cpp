// SPDX-License-Identifier: MIT
#include "recovery/CRecoveryVersionManager.h"

#include "host/TC/Folders.h"
#include "host/se/LoadConfig.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace TC {

namespace {

QString formulaName()
{
    return QStringLiteral("configFormula");
}

QString scriptName()
{
    return QStringLiteral("lua");
}

QString inFolder(const QString& folder, const QString& name)
{
    return folder + QLatin1Char('/') + name;
}

QString datedName(const QString& name, const QString& timestamp)
{
    return name + QLatin1Char('_') + timestamp;
}

/// The script backup that was made together with a formula backup. Without an underscore the whole name
/// counts as the timestamp.
QString pairedScript(const QString& version)
{
    return datedName(scriptName(), version.split(QLatin1Char('_')).constLast());
}

} // namespace

CRecoveryVersionManager::CRecoveryVersionManager()
    : m_runMarker(inFolder(getConfigDir(), QStringLiteral("out.txt")))
    , m_backupFolder(inFolder(getConfigDir(), QStringLiteral("backUp")))
{
    // Deliberate: one level only. Without a configuration folder there is nothing to keep backups for.
    if (!QDir(m_backupFolder).exists())
        QDir().mkdir(m_backupFolder);
    load();
}

bool CRecoveryVersionManager::init()
{
    QFile marker(m_runMarker);
    if (marker.exists())
        return true;
    if (marker.open(QIODevice::WriteOnly))
        marker.close();
    return false;
}

void CRecoveryVersionManager::quit()
{
    if (QFile::exists(m_runMarker))
        QFile::remove(m_runMarker);
}

void CRecoveryVersionManager::backUp()
{
    const QString timestamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh#mm#ss"));
    backUpFile(formulaName(), timestamp);
    backUpFile(scriptName(), timestamp);
}

void CRecoveryVersionManager::backUpFile(const QString& name, const QString& timestamp)
{
    const QString source = inFolder(getUserRootDir(), name);
    const QString staging = inFolder(m_backupFolder, name);
    const QString target = inFolder(m_backupFolder, datedName(name, timestamp));

    // Deliberate: asked for each of the two files, so that a list of eleven loses an entry twice.
    if (m_versions.size() >= m_maxCount)
        removeOld();

    // Deliberate: a staging file that a collision left behind is never replaced. It blocks every later
    // backup of that name until somebody removes it.
    if (QFile::copy(source, staging))
        QFile::rename(staging, target);
    // Deliberate: the list keeps to what was found at construction.
}

void CRecoveryVersionManager::loadFile(QString version)
{
    loadConfigFile(version, formulaName());
    loadConfigFile(pairedScript(version), scriptName());
    se::loadConfig("root", "configFormula", "");
}

void CRecoveryVersionManager::loadConfigFile(const QString& backupName, const QString& targetName)
{
    const QString source = inFolder(m_backupFolder, backupName);
    const QString staging = inFolder(getUserRootDir(), backupName);
    const QString target = inFolder(getUserRootDir(), targetName);

    // Deliberate: the live file goes before it is known whether the backup can be read.
    QFile::remove(target);
    if (QFile::copy(source, staging)) {
        QFile::rename(staging, target);
        QFile::remove(staging); // still there only when the renaming failed
    }
}

void CRecoveryVersionManager::load()
{
    // Deliberate: the order is that of the files' times, not that of the dates in their names.
    const QFileInfoList files = QDir(m_backupFolder).entryInfoList(QDir::Files, QDir::Time);
    for (const QFileInfo& file : files) {
        const QString name = file.baseName();
        if (!name.contains(formulaName()))
            continue;
        if (name.split(QLatin1Char('_')).size() == 2)
            m_versions.append(name);
    }
}

void CRecoveryVersionManager::removeOld()
{
    if (m_versions.isEmpty())
        return;
    const QString oldest = m_versions.constLast();
    QFile::remove(inFolder(m_backupFolder, oldest));
    // Deliberate: the files of the last entry are deleted, the first entry leaves the list. A second call
    // meets the version that is gone already.
    m_versions.removeFirst();
    QFile::remove(inFolder(m_backupFolder, pairedScript(oldest)));
}

} // namespace TC
