// SPDX-License-Identifier: MIT
#pragma once
/// @file Real folders for tests of backups and restores.

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace test {

/// A configuration folder and a user root folder of their own, which the embedded host answers with.
class RecoveryFolders
{
public:
    RecoveryFolders();

    QString configDir() const { return m_home.filePath(QStringLiteral("config")); }
    QString userDir() const { return m_home.filePath(QStringLiteral("user")); }
    QString backupDir() const { return configDir() + QStringLiteral("/backUp"); }

    /// Writes the live formulas and scripts.
    void setLive(const QByteArray& formulas, const QByteArray& scripts) const;
    /// Writes a file of the backup folder, which is made when needed.
    void addBackup(const QString& name, const QByteArray& content, const QDateTime& modified) const;
    /// Writes `count` pairs of backups, a day apart; pair 0 is the oldest.
    void addBackups(int count) const;

    /// Date in the names of pair `number` of addBackups.
    static QString timestamp(int number);
    static QString formulaBackup(int number) { return QStringLiteral("configFormula_") + timestamp(number); }
    static QString scriptBackup(int number) { return QStringLiteral("lua_") + timestamp(number); }

    /// Names in the backup folder in alphabetical order, everything included.
    QStringList backups() const { return namesIn(backupDir()); }
    QStringList live() const { return namesIn(userDir()); }
    QByteArray backup(const QString& name) const { return contentOf(backupDir() + QLatin1Char('/') + name); }
    QByteArray live(const QString& name) const { return contentOf(userDir() + QLatin1Char('/') + name); }

    static QStringList namesIn(const QString& folder);
    /// Content of a file; "<none>" when it cannot be read.
    static QByteArray contentOf(const QString& path);
    static void write(const QString& path, const QByteArray& content);

private:
    QTemporaryDir m_home;
};

} // namespace test
