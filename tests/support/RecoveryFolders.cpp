// SPDX-License-Identifier: MIT
#include "tests/support/RecoveryFolders.h"

#include "host/embedded/EmbeddedHost.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace test {

RecoveryFolders::RecoveryFolders()
{
    QDir().mkpath(configDir());
    QDir().mkpath(userDir());
    TC::embedded::setConfigDir(configDir());
    TC::embedded::setUserRootDir(userDir());
}

void RecoveryFolders::setLive(const QByteArray& formulas, const QByteArray& scripts) const
{
    write(userDir() + QStringLiteral("/configFormula"), formulas);
    write(userDir() + QStringLiteral("/lua"), scripts);
}

void RecoveryFolders::addBackup(const QString& name, const QByteArray& content,
                                const QDateTime& modified) const
{
    QDir().mkpath(backupDir());
    const QString path = backupDir() + QLatin1Char('/') + name;
    write(path, content);
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || !file.setFileTime(modified, QFileDevice::FileModificationTime))
        ADD_FAILURE() << "cannot date " << qPrintable(path);
}

void RecoveryFolders::addBackups(int count) const
{
    for (int number = 0; number < count; ++number) {
        const QDateTime modified =
            QDateTime(QDate(2024, 3, 1), QTime(9, 30)).addDays(static_cast<qint64>(number));
        addBackup(formulaBackup(number), "formulas " + QByteArray::number(number), modified);
        addBackup(scriptBackup(number), "scripts " + QByteArray::number(number), modified);
    }
}

QString RecoveryFolders::timestamp(int number)
{
    return QDate(2024, 3, 1).addDays(number).toString(QStringLiteral("yyyy-MM-dd"))
        + QStringLiteral(" 09#30#00");
}

QStringList RecoveryFolders::namesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

QByteArray RecoveryFolders::contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
}

void RecoveryFolders::write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        ADD_FAILURE() << "cannot write " << qPrintable(path);
}

} // namespace test
