// SPDX-License-Identifier: MIT
#include "apps/client/recovery/RestoreDialog.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/RecoveryFolders.h"
#include "tests/support/SmallFiles.h"
#include "tests/support/Trace.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

using client::RestoreDialog;

const QString kFormulas = QStringLiteral("configFormula");
const QString kScripts = QStringLiteral("lua");

class RestoreDialogTest : public testing::Test, protected test::RecoveryFolders
{
protected:
    /// Two pairs of backups and live files that differ from both.
    void prepare()
    {
        addBackups(2);
        setLive("live formulas", "live scripts");
    }

    static QTreeWidget* list(const RestoreDialog& dialog)
    {
        return dialog.findChild<QTreeWidget*>(QStringLiteral("versions"));
    }
    static QString preview(const RestoreDialog& dialog)
    {
        return dialog.findChild<QPlainTextEdit*>(QStringLiteral("preview"))->toPlainText();
    }
    static QPushButton* restoreButton(const RestoreDialog& dialog)
    {
        return dialog.findChild<QPushButton*>(QStringLiteral("restore"));
    }
    static QString summary(const RestoreDialog& dialog)
    {
        return dialog.findChild<QLabel*>(QStringLiteral("summary"))->text();
    }
    static void choose(const RestoreDialog& dialog, int row)
    {
        list(dialog)->setCurrentItem(list(dialog)->topLevelItem(row));
    }
    static QString cell(const RestoreDialog& dialog, int row, int column)
    {
        return list(dialog)->topLevelItem(row)->text(column);
    }
    /// Backups made while the test ran.
    QStringList newBackups() const
    {
        QStringList made;
        for (const QString& name : backups()) {
            if (!name.contains(QLatin1String("2024-03-")))
                made << name;
        }
        return made;
    }
};

TEST_F(RestoreDialogTest, ListsVersionsNewestFirstWithDateAndSizes)
{
    prepare();
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    ASSERT_EQ(list(dialog)->topLevelItemCount(), 2);
    EXPECT_EQ(cell(dialog, 0, 0), QStringLiteral("2024-03-02 09:30:00"));
    EXPECT_EQ(cell(dialog, 1, 0), QStringLiteral("2024-03-01 09:30:00"));
    EXPECT_EQ(cell(dialog, 0, 1), QStringLiteral("10 字节")); // "formulas 1"
    EXPECT_EQ(cell(dialog, 0, 2), QStringLiteral("9 字节"));  // "scripts 1"
}

TEST_F(RestoreDialogTest, ListsBackupsOfThisRunToo)
{
    setLive("formulas", "scripts");
    ASSERT_TRUE(client::backUpFormulas().isGood());
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    EXPECT_EQ(list(dialog)->topLevelItemCount(), 1);
}

TEST_F(RestoreDialogTest, PreviewShowsWhatGoesAndWhatComes)
{
    prepare();
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    EXPECT_EQ(preview(dialog),
              QStringLiteral("公式\n- live formulas\n+ formulas 1\n"
                             "脚本\n- live scripts\n+ scripts 1"));
    choose(dialog, 1);
    EXPECT_TRUE(preview(dialog).contains(QStringLiteral("+ formulas 0")));
}

TEST_F(RestoreDialogTest, PreviewComparesJsonByItsLaidOutLines)
{
    setLive(R"({"MA":{"n":5},"KDJ":{"n":9}})", "s");
    addBackup(formulaBackup(0), R"({"KDJ": {"n": 9}, "MA": {"n": 10}})", QDateTime::currentDateTime());
    addBackup(scriptBackup(0), "s", QDateTime::currentDateTime());
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    const QStringList lines = preview(dialog).split(QLatin1Char('\n'));
    EXPECT_EQ(lines.filter(QStringLiteral("- ")), QStringList(QStringLiteral("-         \"n\": 5")));
    EXPECT_EQ(lines.filter(QStringLiteral("+ ")), QStringList(QStringLiteral("+         \"n\": 10")));
    EXPECT_TRUE(lines.last().contains(QStringLiteral("相同")));
}

TEST_F(RestoreDialogTest, EmptyFolderOffersNothing)
{
    RestoreDialog dialog(RestoreDialog::Occasion::FailedRun);
    EXPECT_EQ(list(dialog)->topLevelItemCount(), 0);
    EXPECT_FALSE(restoreButton(dialog)->isEnabled());
    dialog.restoreChosen();
    EXPECT_EQ(dialog.result(), 0);
}

TEST_F(RestoreDialogTest, ConfirmedRestoreBacksUpTheLiveFilesFirst)
{
    prepare();
    int reloads = 0;
    TC::embedded::setReloadReceiver([&](auto&&...) { ++reloads; });
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    QSignalSpy restored(&dialog, &RestoreDialog::restored);
    dialog.setConfirmation([](const QString&) { return true; });
    choose(dialog, 1);
    restoreButton(dialog)->click();

    EXPECT_EQ(live(kFormulas), "formulas 0");
    EXPECT_EQ(live(kScripts), "scripts 0");
    ASSERT_EQ(newBackups().size(), 2);
    EXPECT_EQ(backup(newBackups().at(0)), "live formulas");
    EXPECT_EQ(backup(newBackups().at(1)), "live scripts");
    ASSERT_EQ(restored.size(), 1);
    EXPECT_EQ(restored.at(0).at(0).toString(), QStringLiteral("2024-03-01 09:30:00"));
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(reloads, 1);
}

TEST_F(RestoreDialogTest, DeclinedRestoreChangesNothing)
{
    prepare();
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    QString question;
    dialog.setConfirmation([&](const QString& text) {
        question = text;
        return false;
    });
    restoreButton(dialog)->click();
    EXPECT_EQ(question, QStringLiteral("恢复到 2024-03-02 09:30:00 的版本？\n现用公式会先备份。"));
    EXPECT_EQ(live(kFormulas), "live formulas");
    EXPECT_EQ(backups().size(), 4);
    EXPECT_EQ(dialog.result(), 0);
}

TEST_F(RestoreDialogTest, OldestOfTenIsRestoredAfterABackupAndStaysListed)
{
    addBackups(10);
    setLive("live formulas", "live scripts");
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    dialog.setConfirmation(
        [](const QString& question) { return question.contains(QStringLiteral("会先备份")); });
    choose(dialog, 9);
    dialog.restoreChosen();
    EXPECT_EQ(live(kFormulas), "formulas 0");
    EXPECT_EQ(live(kScripts), "scripts 0");
    QList<QByteArray> listed;
    for (const client::FormulaVersion& version : client::formulaVersions())
        listed << client::filesOf(version).formulas.value_or(QByteArray());
    for (int number = 0; number < 10; ++number)
        EXPECT_TRUE(listed.contains("formulas " + QByteArray::number(number))) << number;
    EXPECT_TRUE(listed.contains("live formulas"));
    EXPECT_EQ(listed.size(), 11);
}

TEST_F(RestoreDialogTest, VersionWithoutScriptsLeavesTheLiveOnes)
{
    addBackup(formulaBackup(0), "formulas 0", QDateTime::currentDateTime());
    setLive("live formulas", "live scripts");
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    EXPECT_EQ(cell(dialog, 0, 2), QStringLiteral("缺失"));
    dialog.setConfirmation(
        [](const QString& question) { return question.contains(QStringLiteral("现用脚本不变")); });
    dialog.restoreChosen();
    EXPECT_EQ(live(kFormulas), "formulas 0");
    EXPECT_EQ(live(kScripts), "live scripts");
}

TEST_F(RestoreDialogTest, VersionWhoseFileHasAnotherNameCannotBeRestored)
{
    addBackup(formulaBackup(0) + QStringLiteral(".txt"), "formulas", QDateTime::currentDateTime());
    setLive("live formulas", "live scripts");
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    ASSERT_EQ(list(dialog)->topLevelItemCount(), 1);
    EXPECT_FALSE(restoreButton(dialog)->isEnabled());
    dialog.setConfirmation([](const QString&) { return true; });
    dialog.restoreChosen();
    EXPECT_EQ(live(kFormulas), "live formulas");
}

TEST_F(RestoreDialogTest, VersionThatVanishedMeanwhileCostsNothing)
{
    prepare();
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    QFile::remove(backupDir() + QLatin1Char('/') + formulaBackup(1));
    dialog.setConfirmation([](const QString&) { return true; });
    dialog.restoreChosen();
    EXPECT_EQ(live(kFormulas), "live formulas");
    EXPECT_EQ(live(kScripts), "live scripts");
    EXPECT_EQ(dialog.result(), 0);
}

TEST_F(RestoreDialogTest, FailedRestoreSaysWhatTheLiveFilesAreNow)
{
    prepare();
    QFile::remove(userDir() + QLatin1Char('/') + kScripts);
    QDir().mkpath(userDir() + QLatin1Char('/') + kScripts); // no scripts can be written, nor read
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    dialog.setConfirmation([](const QString&) { return true; });
    dialog.restoreChosen();
    EXPECT_EQ(live(kFormulas), "live formulas");
    EXPECT_EQ(dialog.result(), 0);
    EXPECT_TRUE(summary(dialog).startsWith(QStringLiteral("现用公式备份失败，未恢复：")))
        << summary(dialog).toStdString();
}

TEST_F(RestoreDialogTest, RestoreOnAFullDiskChangesNothingAndClaimsNothing)
{
    prepare();
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    dialog.setConfirmation([](const QString&) { return true; });
    {
        const test::SmallFiles disk(0);
        dialog.restoreChosen();
    }
    EXPECT_EQ(live(kFormulas), "live formulas");
    EXPECT_EQ(live(kScripts), "live scripts");
    EXPECT_EQ(dialog.result(), 0);
    EXPECT_TRUE(summary(dialog).contains(QStringLiteral("未恢复"))) << summary(dialog).toStdString();
}

TEST_F(RestoreDialogTest, BackupsInOneSecondDoNotCollideAndNobodyWaits)
{
    for (const char* formulas : { "first", "second", "third" }) {
        setLive(formulas, "scripts");
        base::Result<bool> made = client::backUpFormulas();
        ASSERT_TRUE(made.isGood() && *made);
    }
    const std::vector<client::FormulaVersion> versions = client::formulaVersions();
    ASSERT_EQ(versions.size(), 3u);
    EXPECT_EQ(client::filesOf(versions[0]).formulas, QByteArray("third"));
    EXPECT_EQ(client::filesOf(versions[2]).formulas, QByteArray("first"));
    EXPECT_FALSE(backups().contains(kFormulas));
}

TEST_F(RestoreDialogTest, WhatTheNewestBackupHoldsIsNotBackedUpAgain)
{
    setLive("formulas", "scripts");
    ASSERT_TRUE(*client::backUpFormulas());
    base::Result<bool> again = client::backUpFormulas();
    ASSERT_TRUE(again.isGood());
    EXPECT_FALSE(*again);
    EXPECT_EQ(client::formulaVersions().size(), 1u);
}

TEST_F(RestoreDialogTest, BackupFolderThatIsAFileIsTold)
{
    setLive("formulas", "scripts");
    write(configDir() + QStringLiteral("/formulaBackups"), "no folder");
    EXPECT_FALSE(client::backUpFormulas().isGood());
    RestoreDialog dialog(RestoreDialog::Occasion::Menu);
    EXPECT_EQ(list(dialog)->topLevelItemCount(), 0);
}

TEST_F(RestoreDialogTest, LeftoverOfABrokenBackupDoesNotStopTheManagersNextOne)
{
    setLive("live", "scripts");
    addBackup(kFormulas, "leftover", QDateTime::currentDateTime());
    ASSERT_TRUE(client::backUpFormulas().isGood());
    ASSERT_EQ(backups().size(), 2);
    EXPECT_EQ(backup(backups().at(0)), "live");
}

TEST_F(RestoreDialogTest, DamagedBackupIsListedButCannotBeRestored)
{
    setLive("formulas", "scripts");
    ASSERT_TRUE(client::backUpFormulas().isGood());
    const QString folder = configDir() + QStringLiteral("/formulaBackups/");
    const QString name = namesIn(folder).value(0);
    QByteArray content = contentOf(folder + name);
    content.replace("Z", "Y");
    write(folder + name, content);
    const std::vector<client::FormulaVersion> versions = client::formulaVersions();
    ASSERT_GE(versions.size(), 1u);
    EXPECT_EQ(versions[0].formulaBytes, -1);
    EXPECT_FALSE(client::restoreFormulas(versions[0]).isGood());
    EXPECT_EQ(live(kFormulas), "formulas");
}

} // namespace
