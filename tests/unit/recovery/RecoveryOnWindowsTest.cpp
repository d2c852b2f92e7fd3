// SPDX-License-Identifier: MIT
/// @file Backups and restores while other programs hold the files: Windows refuses what Unix allows.

#include "recovery/CRecoveryVersionManager.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/RecoveryFolders.h"

#include <QDir>

#include <gtest/gtest.h>

#include <windows.h>

namespace {

using TC::CRecoveryVersionManager;

const QString kFormulas = QStringLiteral("configFormula");

/// Holds a file as a program does that lets others do only what is shared, for the length of a scope.
class Held
{
public:
    Held(const QString& path, DWORD shared)
        : m_file(CreateFileW(reinterpret_cast<const wchar_t*>(path.utf16()), GENERIC_READ, shared, nullptr,
                             OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr))
    {
        EXPECT_NE(m_file, INVALID_HANDLE_VALUE) << path.toStdString();
    }
    ~Held() { CloseHandle(m_file); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

private:
    HANDLE m_file;
};

class RecoveryOnWindows : public testing::Test, protected test::RecoveryFolders
{
protected:
    void SetUp() override { setLive("formulas", "scripts"); }

    QString liveFormulas() const { return userDir() + QLatin1Char('/') + kFormulas; }
    QString pathOfBackup(const QString& name) const { return backupDir() + QLatin1Char('/') + name; }
    static bool setAttributes(const QString& path, DWORD attributes)
    {
        return SetFileAttributesW(reinterpret_cast<const wchar_t*>(path.utf16()), attributes);
    }
};

} // namespace

TEST_F(RecoveryOnWindows, BackupsAreTakenOfFilesThatAnotherProgramReads)
{
    const Held reader(liveFormulas(), FILE_SHARE_READ);
    CRecoveryVersionManager().backUp();
    ASSERT_EQ(backups().size(), 2);
    EXPECT_EQ(backup(backups().at(0)), "formulas");
}

TEST_F(RecoveryOnWindows, NoBackupIsMadeOfAFileThatNobodyElseMayRead)
{
    addBackups(2);
    const QStringList before = backups();
    {
        const Held owner(liveFormulas(), 0);
        CRecoveryVersionManager().backUp();
    }
    ASSERT_EQ(backups().size(), before.size() + 1) << "the scripts alone";
    for (const QString& name : before)
        EXPECT_TRUE(backups().contains(name)) << name.toStdString();
    EXPECT_EQ(live(kFormulas), "formulas");
}

TEST_F(RecoveryOnWindows, ALiveFileThatIsHeldStaysWhenAVersionIsLoaded)
{
    addBackups(1);
    {
        const Held reader(liveFormulas(), FILE_SHARE_READ);
        CRecoveryVersionManager().loadFile(formulaBackup(0));
    }
    EXPECT_EQ(live(kFormulas), "formulas");
    EXPECT_EQ(live(QStringLiteral("lua")), "scripts 0");
    EXPECT_EQ(live(), QStringList({ kFormulas, QStringLiteral("lua") })) << "nothing is left beside them";
    EXPECT_EQ(backup(formulaBackup(0)), "formulas 0");
    CRecoveryVersionManager().loadFile(formulaBackup(0));
    EXPECT_EQ(live(kFormulas), "formulas 0") << "once it is let go";
}

TEST_F(RecoveryOnWindows, ALiveFileThatMayOnlyBeReadIsReplacedOrStays)
{
    addBackups(1);
    ASSERT_TRUE(setAttributes(liveFormulas(), FILE_ATTRIBUTE_READONLY));
    CRecoveryVersionManager().loadFile(formulaBackup(0));
    setAttributes(liveFormulas(), FILE_ATTRIBUTE_NORMAL);
    const QByteArray now = live(kFormulas);
    EXPECT_TRUE(now == "formulas" || now == "formulas 0") << now.constData();
    EXPECT_EQ(live(), QStringList({ kFormulas, QStringLiteral("lua") }));
}

TEST_F(RecoveryOnWindows, AnOldBackupThatIsHeldStaysAndTheNewOneIsTaken)
{
    addBackups(10);
    {
        const Held scanner(pathOfBackup(formulaBackup(0)), FILE_SHARE_READ);
        CRecoveryVersionManager().backUp();
    }
    EXPECT_EQ(backup(formulaBackup(0)), "formulas 0");
    for (int number = 1; number < 10; ++number)
        EXPECT_EQ(backup(formulaBackup(number)), "formulas " + QByteArray::number(number));
    const QString newest = backups().filter(kFormulas).constLast();
    EXPECT_EQ(backup(newest), "formulas");
}

TEST_F(RecoveryOnWindows, FoldersWithLongNamesInAnyScriptAreBackedUp)
{
    QString deep = userDir();
    while (deep.size() < 300)
        deep += QStringLiteral("/我的指标 formulas");
    ASSERT_TRUE(QDir().mkpath(deep));
    TC::embedded::setUserRootDir(deep);
    write(deep + QLatin1Char('/') + kFormulas, "deep");
    CRecoveryVersionManager manager;
    manager.backUp();
    const QStringList made = backups().filter(kFormulas);
    ASSERT_EQ(made.size(), 1);
    EXPECT_EQ(backup(made.at(0)), "deep");
    write(deep + QLatin1Char('/') + kFormulas, "lost");
    manager.loadFile(made.at(0));
    EXPECT_EQ(contentOf(deep + QLatin1Char('/') + kFormulas), "deep");
}
