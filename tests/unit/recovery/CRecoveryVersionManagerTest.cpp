// SPDX-License-Identifier: MIT
#include "recovery/CRecoveryVersionManager.h"

#include "host/embedded/EmbeddedHost.h"
#include "host/utils/CSingletonT.h"
#include "tests/support/RecoveryFolders.h"
#include "tests/support/System.h"
#include "tests/support/Trace.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QThread>

#include <gtest/gtest.h>

namespace {

using TC::CRecoveryVersionManager;

const QString kFormulas = QStringLiteral("configFormula");
const QString kScripts = QStringLiteral("lua");

class RecoveryVersionManager : public testing::Test, protected test::RecoveryFolders
{
protected:
    /// A time of modification, in days of March 2024.
    static QDateTime day(int number) { return QDateTime(QDate(2024, 3, number), QTime(12, 0)); }

    /// Waits for the start of a second, so that what follows falls into it.
    static void awaitNewSecond()
    {
        while (QTime::currentTime().msec() > 300)
            QThread::msleep(5);
    }

    /// Names in the backup folder that are not in `before`.
    QStringList newBackups(const QStringList& before) const
    {
        QStringList added;
        for (const QString& name : backups()) {
            if (!before.contains(name))
                added << name;
        }
        return added;
    }
};

TEST_F(RecoveryVersionManager, MakesTheBackupFolder)
{
    EXPECT_FALSE(QDir(backupDir()).exists());
    CRecoveryVersionManager manager;
    EXPECT_TRUE(QDir(backupDir()).exists());
    EXPECT_TRUE(manager.getDataList().isEmpty());
}

TEST_F(RecoveryVersionManager, WithoutAConfigurationFolderNothingIsMade)
{
    // The host makes the folder it is told; one that it cannot make stays missing.
    write(configDir() + QStringLiteral("/file"), "in the way");
    const QString missing = configDir() + QStringLiteral("/file/config");
    TC::embedded::setConfigDir(missing);
    CRecoveryVersionManager manager;
    EXPECT_FALSE(QDir(missing).exists());
    EXPECT_EQ(contentOf(configDir() + QStringLiteral("/file")), "in the way");
}

TEST_F(RecoveryVersionManager, FirstInitFindsNoMarkAndSetsAnEmptyOne)
{
    CRecoveryVersionManager manager;
    EXPECT_FALSE(manager.init());
    EXPECT_EQ(contentOf(configDir() + QStringLiteral("/out.txt")), "");
}

TEST_F(RecoveryVersionManager, InitAfterARunWithoutQuitIsTrueAndLeavesTheMarkAlone)
{
    write(configDir() + QStringLiteral("/out.txt"), "left behind");
    CRecoveryVersionManager manager;
    EXPECT_TRUE(manager.init());
    EXPECT_EQ(contentOf(configDir() + QStringLiteral("/out.txt")), "left behind");
}

TEST_F(RecoveryVersionManager, QuitRemovesTheMark)
{
    {
        CRecoveryVersionManager manager;
        manager.init();
        manager.quit();
    }
    EXPECT_EQ(namesIn(configDir()), QStringList(QStringLiteral("backUp")));
    EXPECT_FALSE(CRecoveryVersionManager().init());
}

TEST_F(RecoveryVersionManager, QuitWithoutAMarkDoesNothing)
{
    CRecoveryVersionManager().quit();
    EXPECT_EQ(namesIn(configDir()), QStringList(QStringLiteral("backUp")));
}

TEST_F(RecoveryVersionManager, DestructionLeavesTheMark)
{
    {
        CRecoveryVersionManager manager;
        manager.init();
    }
    EXPECT_TRUE(CRecoveryVersionManager().init());
}

TEST_F(RecoveryVersionManager, BackUpCopiesBothFilesUnderOneTimestamp)
{
    setLive("formulas", "scripts");
    CRecoveryVersionManager manager;
    const QString format = QStringLiteral("yyyy-MM-dd hh#mm#ss");
    const QString before = QDateTime::currentDateTime().toString(format);
    manager.backUp();
    const QString after = QDateTime::currentDateTime().toString(format);

    const QStringList made = backups();
    ASSERT_EQ(made.size(), 2);
    const QString stamp = made.at(0).mid(kFormulas.size() + 1);
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^\\d{4}-\\d\\d-\\d\\d \\d\\d#\\d\\d#\\d\\d$"))
                    .match(stamp)
                    .hasMatch())
        << qPrintable(stamp);
    EXPECT_LE(before, stamp);
    EXPECT_LE(stamp, after);
    EXPECT_EQ(made,
              QStringList({ kFormulas + QLatin1Char('_') + stamp, kScripts + QLatin1Char('_') + stamp }));
    EXPECT_EQ(backup(made.at(0)), "formulas");
    EXPECT_EQ(backup(made.at(1)), "scripts");
}

TEST_F(RecoveryVersionManager, BackUpLeavesTheLiveFilesAlone)
{
    setLive("formulas", "scripts");
    CRecoveryVersionManager().backUp();
    EXPECT_EQ(RecoveryFolders::live(), QStringList({ kFormulas, kScripts }));
    EXPECT_EQ(live(kFormulas), "formulas");
    EXPECT_EQ(live(kScripts), "scripts");
}

TEST_F(RecoveryVersionManager, BackUpIsListedOnlyAfterTheNextStart)
{
    setLive("formulas", "scripts");
    CRecoveryVersionManager manager;
    manager.backUp();
    EXPECT_TRUE(manager.getDataList().isEmpty());
    EXPECT_EQ(CRecoveryVersionManager().getDataList(), QList<QString>({ backups().at(0) }));
}

TEST_F(RecoveryVersionManager, BackUpWithoutFormulasStillCopiesTheScripts)
{
    write(userDir() + QStringLiteral("/lua"), "scripts");
    CRecoveryVersionManager().backUp();
    const QStringList made = backups();
    ASSERT_EQ(made.size(), 1);
    EXPECT_TRUE(made.at(0).startsWith(QStringLiteral("lua_")));
}

TEST_F(RecoveryVersionManager, BackUpOfNothingLeavesNothing)
{
    CRecoveryVersionManager().backUp();
    EXPECT_TRUE(backups().isEmpty());
}

TEST_F(RecoveryVersionManager, NineVersionsArePrunedByNothing)
{
    addBackups(9);
    setLive("formulas", "scripts");
    CRecoveryVersionManager manager;
    manager.backUp();
    EXPECT_EQ(manager.getDataList().size(), 9);
    EXPECT_EQ(backups().size(), 20);
}

TEST_F(RecoveryVersionManager, TenVersionsLoseTheOldestPairOnDiskAndTheNewestNameInTheList)
{
    addBackups(10);
    setLive("formulas", "scripts");
    CRecoveryVersionManager manager;
    ASSERT_EQ(manager.getDataList().size(), 10);
    manager.backUp();

    EXPECT_EQ(manager.getDataList().size(), 9);
    EXPECT_EQ(manager.getDataList().first(), formulaBackup(8)); // 9 was the newest
    EXPECT_EQ(manager.getDataList().last(), formulaBackup(0));
    EXPECT_EQ(backups().size(), 20);
    EXPECT_FALSE(backups().contains(formulaBackup(0)));
    EXPECT_FALSE(backups().contains(scriptBackup(0)));
    EXPECT_TRUE(backups().contains(formulaBackup(9)));
}

TEST_F(RecoveryVersionManager, ElevenVersionsLoseTwoNamesButOnePair)
{
    addBackups(11);
    setLive("formulas", "scripts");
    CRecoveryVersionManager manager;
    manager.backUp();

    // 11 names: one goes before the formulas, one more before the scripts, each time the first.
    EXPECT_EQ(manager.getDataList().size(), 9);
    EXPECT_EQ(manager.getDataList().first(), formulaBackup(8));
    EXPECT_EQ(backups().size(), 22); // 22 - 2 + 2
    EXPECT_FALSE(backups().contains(formulaBackup(0)));
    EXPECT_TRUE(backups().contains(formulaBackup(1)));
    EXPECT_TRUE(backups().contains(scriptBackup(1)));
}

TEST_F(RecoveryVersionManager, TwelveVersionsLoseOneNameForEachOfTheTwoFilesAndNoMore)
{
    addBackups(12);
    setLive("formulas", "scripts");
    CRecoveryVersionManager manager;
    manager.backUp();
    EXPECT_EQ(manager.getDataList().size(), 10);
    EXPECT_EQ(backups().size(), 24); // 24 - 2 + 2
}

TEST_F(RecoveryVersionManager, PruningStopsAfterOneBackupOfARun)
{
    addBackups(10);
    setLive("formulas", "scripts");
    CRecoveryVersionManager manager;
    manager.backUp();
    // Taken away, so that the second backup of this second does not collide.
    for (const QString& name :
         backups().filter(QDateTime::currentDateTime().toString(QStringLiteral("yyyy-"))))
        QFile::remove(backupDir() + QLatin1Char('/') + name);
    ASSERT_EQ(backups().size(), 18);
    manager.backUp();
    EXPECT_EQ(manager.getDataList().size(), 9);
    EXPECT_EQ(backups().size(), 20);
}

TEST_F(RecoveryVersionManager, PruningTakesTheOldestByTimeOfModification)
{
    addBackups(9);
    // The date in its name is the newest, its time of modification the oldest.
    addBackup(formulaBackup(20), "old", QDateTime(QDate(2020, 1, 1), QTime(0, 0)));
    addBackup(scriptBackup(20), "old", QDateTime(QDate(2020, 1, 1), QTime(0, 0)));
    setLive("formulas", "scripts");
    CRecoveryVersionManager().backUp();
    EXPECT_FALSE(backups().contains(formulaBackup(20)));
    EXPECT_FALSE(backups().contains(scriptBackup(20)));
    EXPECT_TRUE(backups().contains(formulaBackup(0)));
}

TEST_F(RecoveryVersionManager, PruningRunsEvenWhenTheBackupFails)
{
    addBackups(10);
    CRecoveryVersionManager().backUp(); // nothing to copy
    EXPECT_EQ(backups().size(), 18);
}

TEST_F(RecoveryVersionManager, PruningAForeignVersionLooksForItsOwnScripts)
{
    addBackups(9);
    addBackup(QStringLiteral("old configFormula_77"), "old", QDateTime(QDate(2020, 1, 1), QTime(0, 0)));
    addBackup(QStringLiteral("lua_77"), "old", QDateTime(QDate(2020, 1, 1), QTime(0, 0)));
    CRecoveryVersionManager().backUp();
    EXPECT_EQ(backups().size(), 18);
    EXPECT_FALSE(backups().contains(QStringLiteral("lua_77")));
}

TEST_F(RecoveryVersionManager, SecondBackupInOneSecondLeavesItsStagingFiles)
{
    setLive("first", "one");
    CRecoveryVersionManager manager;
    awaitNewSecond();
    manager.backUp();
    const QStringList first = backups();
    setLive("second", "two");
    manager.backUp();

    EXPECT_EQ(newBackups(first), QStringList({ kFormulas, kScripts }));
    EXPECT_EQ(backup(first.at(0)), "first");
    EXPECT_EQ(backup(kFormulas), "second");
    EXPECT_EQ(backup(kScripts), "two");
}

TEST_F(RecoveryVersionManager, StagingFileBlocksEveryLaterBackupOfItsName)
{
    setLive("live", "scripts");
    addBackup(kFormulas, "left behind", day(1));
    CRecoveryVersionManager().backUp();
    const QStringList made = newBackups({ kFormulas });
    ASSERT_EQ(made.size(), 1); // the scripts alone
    EXPECT_TRUE(made.at(0).startsWith(QStringLiteral("lua_")));
    EXPECT_EQ(backup(kFormulas), "left behind");
}

TEST_F(RecoveryVersionManager, BackupsAreListedNewestFirstByTimeOfModification)
{
    addBackup(formulaBackup(3), "", day(5));
    addBackup(formulaBackup(1), "", day(9));
    addBackup(formulaBackup(2), "", day(7));
    EXPECT_EQ(CRecoveryVersionManager().getDataList(),
              QList<QString>({ formulaBackup(1), formulaBackup(2), formulaBackup(3) }));
}

TEST_F(RecoveryVersionManager, EqualTimesAreListedByName)
{
    addBackup(formulaBackup(3), "", day(5));
    addBackup(formulaBackup(1), "", day(5));
    addBackup(formulaBackup(2), "", day(5));
    EXPECT_EQ(CRecoveryVersionManager().getDataList(),
              QList<QString>({ formulaBackup(1), formulaBackup(2), formulaBackup(3) }));
}

TEST_F(RecoveryVersionManager, ClockGoingBackwardsPutsTheLatestBackupLast)
{
    const QDateTime future = QDateTime::currentDateTime().addDays(2);
    addBackup(formulaBackup(0), "made before the clock was set back", future);
    setLive("made after", "");
    CRecoveryVersionManager().backUp();
    const QList<QString> listed = CRecoveryVersionManager().getDataList();
    ASSERT_EQ(listed.size(), 2);
    EXPECT_EQ(listed.at(0), formulaBackup(0));
    EXPECT_EQ(backup(listed.at(1)), "made after");
}

TEST_F(RecoveryVersionManager, ListsEveryNameOfTwoPartsThatContainsTheFormulas)
{
    addBackup(QStringLiteral("configFormula_"), "", day(4));
    addBackup(QStringLiteral("a_configFormula"), "", day(3));
    addBackup(QStringLiteral("my configFormula_x"), "", day(2));
    EXPECT_EQ(CRecoveryVersionManager().getDataList(),
              QList<QString>({ QStringLiteral("configFormula_"), QStringLiteral("a_configFormula"),
                               QStringLiteral("my configFormula_x") }));
}

TEST_F(RecoveryVersionManager, ListsNoNameOfOneOrThreeParts)
{
    addBackup(kFormulas, "", day(1));
    addBackup(QStringLiteral("configFormula_a_b"), "", day(1));
    addBackup(QStringLiteral("configFormula__"), "", day(1));
    addBackup(QStringLiteral("_configFormula_"), "", day(1));
    EXPECT_TRUE(CRecoveryVersionManager().getDataList().isEmpty());
}

TEST_F(RecoveryVersionManager, ListsNoForeignName)
{
    addBackup(QStringLiteral("configformula_1"), "", day(1));
    addBackup(QStringLiteral("lua_1"), "", day(1));
    addBackup(QStringLiteral("notes.configFormula_1"), "", day(1)); // base name "notes"
    EXPECT_TRUE(CRecoveryVersionManager().getDataList().isEmpty());
}

TEST_F(RecoveryVersionManager, ListsTheNameUpToTheFirstDot)
{
    addBackup(QStringLiteral("configFormula_1.bak_2.old"), "", day(1));
    EXPECT_EQ(CRecoveryVersionManager().getDataList(), QList<QString>({ QStringLiteral("configFormula_1") }));
}

TEST_F(RecoveryVersionManager, ListsNoFolders)
{
    QDir().mkpath(backupDir() + QLatin1Char('/') + formulaBackup(1));
    EXPECT_TRUE(CRecoveryVersionManager().getDataList().isEmpty());
}

TEST_F(RecoveryVersionManager, LoadFilePutsBothFilesInPlaceAndKeepsTheBackups)
{
    addBackups(3);
    setLive("damaged", "damaged too");
    const QStringList before = backups();
    CRecoveryVersionManager().loadFile(formulaBackup(1));

    EXPECT_EQ(live(kFormulas), "formulas 1");
    EXPECT_EQ(live(kScripts), "scripts 1");
    EXPECT_EQ(RecoveryFolders::live(), QStringList({ kFormulas, kScripts }));
    EXPECT_EQ(backups(), before);
    EXPECT_EQ(backup(formulaBackup(1)), "formulas 1");
}

TEST_F(RecoveryVersionManager, LoadFileWorksWithoutLiveFiles)
{
    addBackups(1);
    CRecoveryVersionManager().loadFile(formulaBackup(0));
    EXPECT_EQ(live(kFormulas), "formulas 0");
    EXPECT_EQ(live(kScripts), "scripts 0");
}

TEST_F(RecoveryVersionManager, LoadFileReloadsTheEngineOnceAfterBothFilesAreInPlace)
{
    addBackups(1);
    setLive("old", "old");
    QStringList calls;
    TC::embedded::setReloadReceiver(
        [&](const std::string& root, const std::string& name, const std::string& extra) {
            calls << QStringLiteral("%1|%2|%3|%4|%5")
                         .arg(QString::fromStdString(root), QString::fromStdString(name),
                              QString::fromStdString(extra), QString::fromUtf8(live(kFormulas)),
                              QString::fromUtf8(live(kScripts)));
        });
    CRecoveryVersionManager().loadFile(formulaBackup(0));
    EXPECT_EQ(calls, QStringList(QStringLiteral("root|configFormula||formulas 0|scripts 0")));
}

TEST_F(RecoveryVersionManager, MissingBackupCostsTheLiveFilesAndStillReloads)
{
    setLive("live", "scripts");
    int reloads = 0;
    TC::embedded::setReloadReceiver([&](auto&&...) { ++reloads; });
    CRecoveryVersionManager().loadFile(QStringLiteral("configFormula_gone"));
    EXPECT_TRUE(RecoveryFolders::live().isEmpty());
    EXPECT_EQ(reloads, 1);
}

TEST_F(RecoveryVersionManager, MissingScriptBackupCostsTheLiveScriptsOnly)
{
    addBackup(formulaBackup(0), "formulas 0", day(1));
    setLive("live", "scripts");
    CRecoveryVersionManager().loadFile(formulaBackup(0));
    EXPECT_EQ(RecoveryFolders::live(), QStringList(kFormulas));
    EXPECT_EQ(live(kFormulas), "formulas 0");
}

TEST_F(RecoveryVersionManager, VersionWithoutAnUnderscorePairsWithItsWholeName)
{
    addBackup(QStringLiteral("copy"), "formulas", day(1));
    addBackup(QStringLiteral("lua_copy"), "scripts", day(1));
    CRecoveryVersionManager().loadFile(QStringLiteral("copy"));
    EXPECT_EQ(live(kFormulas), "formulas");
    EXPECT_EQ(live(kScripts), "scripts");
}

TEST_F(RecoveryVersionManager, VersionOfThreePartsPairsWithItsLastOne)
{
    addBackup(QStringLiteral("a_b_c"), "formulas", day(1));
    addBackup(QStringLiteral("lua_c"), "scripts", day(1));
    CRecoveryVersionManager().loadFile(QStringLiteral("a_b_c"));
    EXPECT_EQ(live(kScripts), "scripts");
}

TEST_F(RecoveryVersionManager, EmptyVersionCostsTheLiveFilesAndNothingElse)
{
    addBackups(2);
    setLive("live", "scripts");
    write(userDir() + QStringLiteral("/other"), "mine");
    const QStringList before = backups();
    CRecoveryVersionManager().loadFile(QString());
    EXPECT_EQ(RecoveryFolders::live(), QStringList(QStringLiteral("other")));
    EXPECT_EQ(backups(), before);
}

TEST_F(RecoveryVersionManager, LeftoverOfABrokenRestoreStopsTheNextOneOfThatVersion)
{
    addBackups(2);
    setLive("live", "scripts");
    write(userDir() + QLatin1Char('/') + formulaBackup(0), "leftover");
    CRecoveryVersionManager manager;
    manager.loadFile(formulaBackup(0));
    EXPECT_EQ(RecoveryFolders::live(), QStringList({ formulaBackup(0), kScripts }));
    manager.loadFile(formulaBackup(1));
    EXPECT_EQ(live(kFormulas), "formulas 1");
}

TEST_F(RecoveryVersionManager, BackupFolderThatIsAFileStaysAsItIs)
{
    write(backupDir(), "in the way");
    setLive("formulas", "scripts");
    CRecoveryVersionManager manager;
    EXPECT_TRUE(manager.getDataList().isEmpty());
    manager.backUp();
    EXPECT_EQ(contentOf(backupDir()), "in the way");
    EXPECT_EQ(namesIn(configDir()), QStringList(QStringLiteral("backUp")));
    EXPECT_EQ(RecoveryFolders::live(), QStringList({ kFormulas, kScripts }));
}

TEST_F(RecoveryVersionManager, BackupFolderThatVanishesIsNotMadeAgain)
{
    setLive("formulas", "scripts");
    CRecoveryVersionManager manager;
    QDir(backupDir()).removeRecursively();
    manager.backUp();
    EXPECT_TRUE(namesIn(configDir()).isEmpty());
}

TEST_F(RecoveryVersionManager, LiveFileReplacedByAFolderIsNotBackedUp)
{
    QDir().mkpath(userDir() + QStringLiteral("/configFormula/inner"));
    write(userDir() + QStringLiteral("/lua"), "scripts");
    CRecoveryVersionManager().backUp();
    const QStringList made = backups();
    ASSERT_EQ(made.size(), 1);
    EXPECT_TRUE(made.at(0).startsWith(QStringLiteral("lua_")));
}

TEST_F(RecoveryVersionManager, LiveFileReplacedByAFolderIsNotRestored)
{
    addBackups(1);
    QDir().mkpath(userDir() + QStringLiteral("/configFormula/inner"));
    CRecoveryVersionManager().loadFile(formulaBackup(0));
    // The renaming fails, the staging file is taken away, the folder stays.
    EXPECT_EQ(RecoveryFolders::live(), QStringList({ kFormulas, kScripts }));
    EXPECT_TRUE(QDir(userDir() + QStringLiteral("/configFormula/inner")).exists());
    EXPECT_EQ(live(kScripts), "scripts 0");
}

TEST_F(RecoveryVersionManager, BackupReplacedByAFolderCostsTheLiveFile)
{
    QDir().mkpath(backupDir() + QLatin1Char('/') + formulaBackup(0));
    addBackup(scriptBackup(0), "scripts 0", day(1));
    setLive("live", "scripts");
    CRecoveryVersionManager().loadFile(formulaBackup(0));
    EXPECT_EQ(RecoveryFolders::live(), QStringList(kScripts));
    EXPECT_EQ(live(kScripts), "scripts 0");
}

TEST_F(RecoveryVersionManager, OldestBackupReplacedByAFolderStaysAndItsScriptsGo)
{
    addBackups(10);
    setLive("formulas", "scripts");
    CRecoveryVersionManager manager;
    QFile::remove(backupDir() + QLatin1Char('/') + formulaBackup(0));
    QDir().mkpath(backupDir() + QLatin1Char('/') + formulaBackup(0));
    manager.backUp();
    EXPECT_TRUE(backups().contains(formulaBackup(0)));
    EXPECT_FALSE(backups().contains(scriptBackup(0)));
    EXPECT_EQ(manager.getDataList().size(), 9);
}

TEST_F(RecoveryVersionManager, MarkReplacedByAFolderCountsAsAMarkAndOutlivesQuit)
{
    QDir().mkpath(configDir() + QStringLiteral("/out.txt"));
    CRecoveryVersionManager manager;
    EXPECT_TRUE(manager.init());
    manager.quit();
    EXPECT_TRUE(manager.init());
}

TEST_F(RecoveryVersionManager, MarkThatCannotBeMadeIsNoFailedRun)
{
    CRecoveryVersionManager manager;
    QDir(configDir()).removeRecursively();
    EXPECT_FALSE(manager.init());
    EXPECT_FALSE(QDir(configDir()).exists());
}

TEST_F(RecoveryVersionManager, ForeignFilesStayThroughBackupPruningAndRestore)
{
    addBackups(10);
    setLive("formulas", "scripts");
    addBackup(QStringLiteral("readme.txt"), "foreign", day(1));
    addBackup(QStringLiteral("configFormula_a_b"), "foreign", day(1));
    addBackup(QStringLiteral("lua_"), "foreign", day(1));
    addBackup(QStringLiteral(".configFormula_1"), "foreign", day(1));
    CRecoveryVersionManager manager;
    manager.backUp();
    manager.loadFile(formulaBackup(5));
    for (const char* name : { "readme.txt", "configFormula_a_b", "lua_", ".configFormula_1" })
        EXPECT_EQ(backup(QString::fromLatin1(name)), "foreign") << name;
}

TEST_F(RecoveryVersionManager, LockedLiveFileIsBackedUpAllTheSame)
{
    ON_UNIX_ALONE("a held file cannot be read");
    setLive("formulas", "scripts");
    QFile locked(userDir() + QStringLiteral("/configFormula"));
    ASSERT_TRUE(locked.open(QIODevice::ReadOnly));
    ASSERT_TRUE(test::lockFile(locked.handle()));
    CRecoveryVersionManager().backUp();
    ASSERT_EQ(backups().size(), 2);
    EXPECT_EQ(backup(backups().at(0)), "formulas");
}

TEST_F(RecoveryVersionManager, LargeAndEmptyAndBinaryFilesComeBackByteForByte)
{
    QByteArray large(3'000'000, '\0');
    for (int i = 0; i < large.size(); ++i)
        large[i] = static_cast<char>(i * 31 % 251);
    setLive(large, "");
    CRecoveryVersionManager().backUp();
    setLive("lost", "lost");
    CRecoveryVersionManager later;
    later.loadFile(later.getDataList().value(0));
    EXPECT_TRUE(live(kFormulas) == large);
    EXPECT_EQ(live(kScripts), "");
}

TEST_F(RecoveryVersionManager, SingletonLivesUntilReleaseAndListsAnew)
{
    using Holder = utils::CSingletonT<CRecoveryVersionManager>;
    Holder::release();
    CRecoveryVersionManager* manager = Holder::instance();
    EXPECT_EQ(Holder::instance(), manager);
    addBackups(2);
    EXPECT_TRUE(Holder::instance()->getDataList().isEmpty());
    Holder::release();
    EXPECT_EQ(Holder::instance()->getDataList(), QList<QString>({ formulaBackup(1), formulaBackup(0) }));
    Holder::release();
}

TEST_F(RecoveryVersionManager, GetDataListIsACopy)
{
    addBackups(2);
    CRecoveryVersionManager manager;
    QList<QString> copy = manager.getDataList();
    copy.clear();
    EXPECT_EQ(manager.getDataList().size(), 2);
}

} // namespace
