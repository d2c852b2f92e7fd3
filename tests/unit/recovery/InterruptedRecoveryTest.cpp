// SPDX-License-Identifier: MIT
/// @file What is left when the client dies in the middle of a backup or a restore, or its disk is full.

#include "apps/client/recovery/FormulaBackups.h"
#include "recovery/CRecoveryVersionManager.h"
#include "tests/support/RecoveryFolders.h"
#include "tests/support/StepKiller.h"
#include "tests/support/Trace.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

using test::Ending;
using test::RecoveryFolders;

constexpr int kNoDisk = 77;
constexpr int kMostCalls = 2000; // far above the calls of a backup
const QString kFormulas = QStringLiteral("configFormula");
const QString kScripts = QStringLiteral("lua");
const QByteArray kLiveFormulas(100'000, 'f');
const QByteArray kLiveScripts(50'000, 's');

QStringList command(const char* operation, const RecoveryFolders& folders, const QString& version = QString())
{
    return { QStringLiteral(RECOVERY_STEPS), QString::fromLatin1(operation), folders.configDir(),
             folders.userDir(), version };
}

/// Kills the operation before each of its system calls in turn, in fresh folders each time, and shows what
/// is left. Tells how many times it was killed; -1 when the machine does not allow it.
template <class Prepare, class Inspect>
int killAtEveryCall(const char* operation, const QString& version, Prepare prepare, Inspect inspect)
{
    for (int calls = 0; calls < kMostCalls; ++calls) {
        SCOPED_TRACE(testing::Message() << "killed after " << calls << " calls");
        RecoveryFolders folders;
        prepare(folders);
        const Ending ending = test::runAndKill(command(operation, folders, version), calls);
        if (ending == Ending::Unavailable)
            return -1;
        inspect(folders);
        if (ending == Ending::Finished)
            return calls;
        if (testing::Test::HasFailure())
            return calls;
    }
    return kMostCalls;
}

/// A nameless copy in the making, which file systems without nameless files show.
bool isUnfinishedCopy(const QString& name)
{
    return name.startsWith(QLatin1String("qt_temp."));
}

TEST(KilledBackup, LeavesTheLiveFilesAndOlderBackupsAndNoHalfBackup)
{
    std::set<std::string> outcomes;
    const int kills = killAtEveryCall(
        "backup", QString(),
        [](const RecoveryFolders& folders) {
            folders.setLive(kLiveFormulas, kLiveScripts);
            folders.addBackups(2);
        },
        [&](const RecoveryFolders& folders) {
            EXPECT_TRUE(folders.live(kFormulas) == kLiveFormulas);
            EXPECT_TRUE(folders.live(kScripts) == kLiveScripts);
            EXPECT_EQ(folders.live().size(), 2);
            for (int number = 0; number < 2; ++number) {
                EXPECT_EQ(folders.backup(RecoveryFolders::formulaBackup(number)),
                          "formulas " + QByteArray::number(number));
                EXPECT_EQ(folders.backup(RecoveryFolders::scriptBackup(number)),
                          "scripts " + QByteArray::number(number));
            }
            std::string made;
            for (const QString& name : folders.backups()) {
                if (isUnfinishedCopy(name) || name.contains(QLatin1String("2024-03-")))
                    continue;
                const QByteArray content = folders.backup(name);
                EXPECT_TRUE(content == (name.startsWith(kFormulas) ? kLiveFormulas : kLiveScripts))
                    << qPrintable(name) << " is cut short at " << content.size();
                made += name.left(name.indexOf(QLatin1Char('_')) + 1).toStdString()
                    + (name.contains(QLatin1Char('_')) ? "dated " : name.toStdString() + " ");
            }
            outcomes.insert(made);
        });
    if (kills < 0)
        GTEST_SKIP() << "this machine does not let one process trace another";
    EXPECT_GT(kills, 10);
    // Every step was met: nothing yet, staged, dated, both.
    EXPECT_EQ(outcomes,
              std::set<std::string>({ "", "configFormula ", "configFormula_dated ",
                                      "configFormula_dated lua ", "configFormula_dated lua_dated " }));
}

TEST(KilledBackup, PrunesTheOldestPairFirstAndNothingElse)
{
    std::set<std::string> outcomes;
    const int kills = killAtEveryCall(
        "backup", QString(),
        [](const RecoveryFolders& folders) {
            folders.setLive("formulas", "scripts");
            folders.addBackups(10);
        },
        [&](const RecoveryFolders& folders) {
            const QStringList left = folders.backups();
            for (int number = 1; number < 10; ++number) {
                EXPECT_TRUE(left.contains(RecoveryFolders::formulaBackup(number)));
                EXPECT_TRUE(left.contains(RecoveryFolders::scriptBackup(number)));
            }
            // The oldest formulas go first, then their scripts, both before anything new is written.
            const bool hasFormulas = left.contains(RecoveryFolders::formulaBackup(0));
            const bool hasScripts = left.contains(RecoveryFolders::scriptBackup(0));
            EXPECT_TRUE(hasScripts || !hasFormulas);
            if (hasScripts) {
                EXPECT_EQ(left.size(), hasFormulas ? 20 : 19);
            }
            outcomes.insert(std::string(hasFormulas ? "formulas " : "") + (hasScripts ? "scripts" : ""));
        });
    if (kills < 0)
        GTEST_SKIP() << "this machine does not let one process trace another";
    EXPECT_GT(kills, 10);
    EXPECT_EQ(outcomes, std::set<std::string>({ "formulas scripts", "scripts", "" }));
}

TEST(KilledRestore, LeavesEachLiveFileOldOrRestoredOrMissingButNeverCutShort)
{
    std::set<std::string> outcomes;
    const QString version = RecoveryFolders::formulaBackup(0);
    const auto stateOf = [](const QByteArray& content, const QByteArray& old, const QByteArray& restored) {
        return content == old     ? "old"
            : content == restored ? "restored"
            : content == "<none>" ? "missing"
                                  : "cut short";
    };
    const QByteArray keptFormulas(70'000, 'k');
    const QByteArray keptScripts(30'000, 'c');
    const int kills = killAtEveryCall(
        "restore", version,
        [&](const RecoveryFolders& folders) {
            folders.setLive(kLiveFormulas, kLiveScripts);
            folders.addBackup(version, keptFormulas, QDateTime::currentDateTime());
            folders.addBackup(RecoveryFolders::scriptBackup(0), keptScripts, QDateTime::currentDateTime());
        },
        [&](const RecoveryFolders& folders) {
            EXPECT_TRUE(folders.backup(version) == keptFormulas);
            EXPECT_TRUE(folders.backup(RecoveryFolders::scriptBackup(0)) == keptScripts);
            EXPECT_EQ(folders.backups().size(), 2);
            for (const QString& name : folders.live()) {
                const bool known = name == kFormulas || name == kScripts || isUnfinishedCopy(name);
                const QByteArray staged = name == version ? keptFormulas : keptScripts;
                EXPECT_TRUE(known || folders.live(name) == staged) << qPrintable(name);
            }
            outcomes.insert(std::string(stateOf(folders.live(kFormulas), kLiveFormulas, keptFormulas))
                            + (folders.live().contains(version) ? " staged" : "") + ", "
                            + stateOf(folders.live(kScripts), kLiveScripts, keptScripts)
                            + (folders.live().contains(RecoveryFolders::scriptBackup(0)) ? " staged" : ""));
        });
    if (kills < 0)
        GTEST_SKIP() << "this machine does not let one process trace another";
    EXPECT_GT(kills, 10);
    EXPECT_EQ(
        outcomes,
        std::set<std::string>({ "old, old", "missing, old", "missing staged, old", "restored, old",
                                "restored, missing", "restored, missing staged", "restored, restored" }));
}

/// Formulas of all versions that the restore dialog would list.
QList<QByteArray> listedFormulas()
{
    QList<QByteArray> listed;
    for (const client::FormulaVersion& version : client::formulaVersions())
        listed << client::filesOf(version).formulas.value_or(QByteArray());
    return listed;
}

TEST(KilledRestore, OfTheClientLosesNothingAndIsFinishedByTheNextStart)
{
    std::set<std::string> outcomes;
    const QString version = RecoveryFolders::formulaBackup(0);
    const int kills = killAtEveryCall(
        "restore-asked", version,
        [&](const RecoveryFolders& folders) {
            folders.setLive("live formulas", "live scripts");
            folders.addBackups(1);
        },
        [&](const RecoveryFolders& folders) {
            // Each live file is the old or the restored one at any moment.
            const QByteArray formulas = folders.live(kFormulas), scripts = folders.live(kScripts);
            EXPECT_TRUE(formulas == "live formulas" || formulas == "formulas 0") << formulas.constData();
            EXPECT_TRUE(scripts == "live scripts" || scripts == "scripts 0") << scripts.constData();
            outcomes.insert((formulas + ", " + scripts).toStdString());
            const QString told = client::mendInterruptedRestore();
            const bool isRestored = folders.live(kFormulas) == "formulas 0";
            EXPECT_EQ(folders.live(kScripts), isRestored ? "scripts 0" : "live scripts");
            EXPECT_TRUE(isRestored || told.isEmpty()) << told.toStdString();
            EXPECT_TRUE(!isRestored || listedFormulas().contains("live formulas"));
            EXPECT_TRUE(listedFormulas().contains("formulas 0"));
            EXPECT_EQ(client::mendInterruptedRestore(), QString());
        });
    if (kills < 0)
        GTEST_SKIP() << "this machine does not let one process trace another";
    EXPECT_GT(kills, 10);
    EXPECT_EQ(outcomes,
              std::set<std::string>(
                  { "live formulas, live scripts", "formulas 0, live scripts", "formulas 0, scripts 0" }));
}

TEST(KilledBackup, OfTheClientLosesNothing)
{
    const int kills = killAtEveryCall(
        "backup-asked", QString(),
        [](const RecoveryFolders& folders) {
            folders.setLive("live formulas", "live scripts");
            folders.addBackups(10);
        },
        [](const RecoveryFolders& folders) {
            EXPECT_EQ(folders.live(kFormulas), "live formulas");
            EXPECT_EQ(folders.live(kScripts), "live scripts");
            const QList<QByteArray> listed = listedFormulas();
            for (int number = 0; number < 10; ++number)
                EXPECT_TRUE(listed.contains("formulas " + QByteArray::number(number))) << number;
        });
    if (kills < 0)
        GTEST_SKIP() << "this machine does not let one process trace another";
    EXPECT_GT(kills, 10);
}

/// A disk without room for the file, or files that cannot grow as far, which fails at the same call.
class FullDisk : public testing::TestWithParam<const char*>
{
protected:
    /// Carries out "backup" or "restore"; skips the test when the machine has no such disk.
    void run(const char* operation, const RecoveryFolders& folders, const QString& version = QString())
    {
        const QByteArray variant = QByteArray(operation) + '-' + GetParam();
        const QStringList words = command(variant.constData(), folders, version);
        QProcess process;
        process.start(words.first(), words.mid(1));
        ASSERT_TRUE(process.waitForFinished());
        if (process.exitCode() == kNoDisk)
            GTEST_SKIP() << "this machine does not let the test mount a small disk";
        ASSERT_EQ(process.exitCode(), 0);
        left =
            QString::fromUtf8(process.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    QStringList left; ///< "FOLDER/NAME SIZE" of every file after the operation
};

TEST_P(FullDisk, BackupThatDoesNotFitLeavesNothingBehindAndTheSmallerFileIsKept)
{
    RecoveryFolders folders;
    folders.setLive(QByteArray(200'000, 'f'), "scripts"); // 65,536 bytes fit
    run("backup", folders);
    if (IsSkipped() || HasFatalFailure())
        return;
    ASSERT_EQ(left.size(), 3) << left.join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(left.at(0).startsWith(QLatin1String("backUp/lua_"))) << qPrintable(left.at(0));
    EXPECT_TRUE(left.at(0).endsWith(QLatin1String(" 7")));
    EXPECT_EQ(left.mid(1),
              QStringList({ QStringLiteral("user/configFormula 200000"), QStringLiteral("user/lua 7") }));
}

TEST_P(FullDisk, RestoreThatDoesNotFitCostsTheLiveFileAndLeavesNoPartOfTheNewOne)
{
    RecoveryFolders folders;
    const QString version = RecoveryFolders::formulaBackup(0);
    folders.setLive("live", "scripts");
    folders.addBackup(version, QByteArray(200'000, 'f'), QDateTime::currentDateTime());
    folders.addBackup(RecoveryFolders::scriptBackup(0), "kept", QDateTime::currentDateTime());
    run("restore", folders, version);
    if (IsSkipped() || HasFatalFailure())
        return;
    EXPECT_EQ(left,
              QStringList({ QStringLiteral("backUp/%1 200000").arg(version),
                            QStringLiteral("backUp/%1 4").arg(RecoveryFolders::scriptBackup(0)),
                            QStringLiteral("user/lua 4") }));
}

INSTANTIATE_TEST_SUITE_P(Either, FullDisk, testing::Values("full", "cut"),
                         [](const auto& kind) { return std::string(kind.param); });

} // namespace
