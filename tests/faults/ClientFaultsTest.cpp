// SPDX-License-Identifier: MIT
/// @file What the client's steps leave behind when a call on their files fails or is their last. Whatever it
/// is, formulas and scripts in use before are in use or in a listed backup, every file is old or new, and
/// what the user is told happened did.

#include "apps/client/docking/ArrangementFile.h"
#include "apps/client/recovery/FormulaBackups.h"
#include "tests/faults/FaultRun.h"
#include "tests/support/RecoveryFolders.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using test::FaultEnd;
using test::RecoveryFolders;

const QByteArray kFormulas = R"({"formulas": [{"name": "MINE", "base": "MA", "parameters": [7]}]})";
const QByteArray kScripts = "scripts in use";
const QString kLive = QStringLiteral("configFormula");
const QString kLua = QStringLiteral("lua");

class ClientFaults : public testing::Test
{
protected:
    QString home() const { return QFileInfo(m_folders.configDir()).path(); }
    QStringList step(const char* name) const
    {
        return { QStringLiteral(FAULT_STEPS), QString::fromLatin1(name), home() };
    }

    /// Formulas in use, and older versions that the recovery manager keeps.
    void prepare() const
    {
        for (const QString& folder : { m_folders.configDir(), m_folders.userDir() }) {
            QDir(folder).removeRecursively();
            QDir().mkpath(folder);
        }
        m_folders.setLive(kFormulas, kScripts);
        m_folders.addBackups(m_backups);
    }

    static bool isListed(const QByteArray& formulas, const QByteArray& scripts)
    {
        const std::vector<client::FormulaVersion> versions = client::formulaVersions();
        return std::any_of(versions.begin(), versions.end(), [&](const client::FormulaVersion& version) {
            const client::FormulaFiles files = client::filesOf(version);
            return files.formulas == formulas && files.scripts == scripts;
        });
    }

    /// Holds after every step, whatever happened to it.
    void expectNothingLost() const
    {
        const bool isInUse = m_folders.live(kLive) == kFormulas && m_folders.live(kLua) == kScripts;
        EXPECT_TRUE(isInUse || isListed(kFormulas, kScripts));
        for (int number = 0; number < m_backups; ++number) {
            const QByteArray text = QByteArray::number(number);
            EXPECT_TRUE(isListed("formulas " + text, "scripts " + text)) << "version " << number;
        }
    }

    /// The step is told as done, or as not done in one line.
    static void expectOneWord(const FaultEnd& end)
    {
        EXPECT_TRUE(end.wasKilled || end.exitCode == (end.told == QLatin1String("done") ? 0 : 2))
            << end.exitCode << " " << end.told.toStdString();
        EXPECT_FALSE(end.told.contains(QLatin1Char('\n'))) << end.told.toStdString();
    }

    void tryStep(const char* name, const std::function<void(const FaultEnd&)>& check)
    {
        test::tryFaults(name,
                        { step(name), home(), [this] { prepare(); },
                          [&](const FaultEnd& end) {
                              expectOneWord(end);
                              check(end);
                          } });
    }

    RecoveryFolders m_folders;
    int m_backups = 2;
};

TEST_F(ClientFaults, OfASavedFormulaLeaveTheOldFileOrTheNewOne)
{
    prepare();
    ASSERT_EQ(test::runWhole(step("save")).told, QStringLiteral("done"));
    const QByteArray saved = m_folders.live(kLive);
    ASSERT_TRUE(saved.contains("ADDED") && saved.contains("MINE"));
    tryStep("save", [&](const FaultEnd& end) {
        const QByteArray left = m_folders.live(kLive);
        EXPECT_TRUE(left == kFormulas || left == saved) << left.constData();
        EXPECT_TRUE(!end.claimsSuccess() || left == saved);
        EXPECT_TRUE(end.wasKilled || end.claimsSuccess() || left == kFormulas
                    || end.told.contains(QStringLiteral("内容已写入")))
            << end.told.toStdString();
        EXPECT_TRUE(left == kFormulas || isListed(kFormulas, kScripts)) << "no backup was made before";
        expectNothingLost();
        if (end.wasKilled && left == kFormulas) {
            EXPECT_EQ(test::runWhole(step("save")).told.toStdString(), "done");
        }
    });
}

TEST_F(ClientFaults, OfABackupCostNothingAndItIsThereWhenThatIsTold)
{
    m_backups = 10; // as many as the manager keeps: its next backup discards the oldest
    tryStep("backup", [&](const FaultEnd& end) {
        EXPECT_EQ(m_folders.live(kLive), kFormulas);
        EXPECT_EQ(m_folders.live(kLua), kScripts);
        EXPECT_TRUE(!end.claimsSuccess() || isListed(kFormulas, kScripts));
        expectNothingLost();
    });
}

TEST_F(ClientFaults, OfARestoreLoseNothingAndTheNextStartMendsWhatWasLeft)
{
    prepare();
    ASSERT_EQ(test::runWhole(step("restore")).told, QStringLiteral("done"));
    const QByteArray formulas = m_folders.live(kLive), scripts = m_folders.live(kLua);
    ASSERT_NE(formulas, kFormulas);
    tryStep("restore", [&](const FaultEnd& end) {
        const auto expectOldOrRestored = [&] {
            EXPECT_TRUE(m_folders.live(kLive) == kFormulas || m_folders.live(kLive) == formulas);
            EXPECT_TRUE(m_folders.live(kLua) == kScripts || m_folders.live(kLua) == scripts);
            expectNothingLost();
        };
        expectOldOrRestored();
        EXPECT_TRUE(!end.claimsSuccess()
                    || (m_folders.live(kLive) == formulas && m_folders.live(kLua) == scripts));
        if (!end.wasKilled)
            return;
        EXPECT_EQ(test::runWhole(step("mend")).exitCode, 0);
        expectOldOrRestored();
        EXPECT_EQ(m_folders.live(kLive) == kFormulas, m_folders.live(kLua) == kScripts) << "half a restore";
    });
}

TEST_F(ClientFaults, OfASavedArrangementLeaveTheOldOneOrTheNewOne)
{
    const QString path = m_folders.configDir() + QStringLiteral("/arrangement");
    client::ArrangementFile old;
    old.last = QByteArray(10'000, 'o');
    const QByteArray renewed(20'000, 'n');
    const auto prepareOld = [&] {
        prepare();
        ASSERT_EQ(old.write(path).reason(), QString());
    };
    test::tryFaults("arrange", { step("arrange"), home(), prepareOld, [&](const FaultEnd& end) {
                                    expectOneWord(end);
                                    auto left = client::ArrangementFile::read(path);
                                    ASSERT_TRUE(left.isGood()) << left.reason().toStdString();
                                    EXPECT_TRUE(left->last == old.last || left->last == renewed);
                                    EXPECT_TRUE(!end.claimsSuccess() || left->last == renewed);
                                } });
}

TEST_F(ClientFaults, OfTheInstrumentStoreHideNoInstrumentNowNorAtTheNextStart)
{
    prepare();
    const QString all = test::runWhole(step("instruments")).told;
    ASSERT_GT(all.toInt(), 5'000);
    test::tryFaults("instruments",
                    { step("instruments"), home(), [this] { prepare(); },
                      [&](const FaultEnd& end) {
                          EXPECT_TRUE(end.wasKilled || end.told == all) << end.told.toStdString();
                          EXPECT_EQ(test::runWhole(step("instruments")).told, all);
                      } });
}

} // namespace
