// SPDX-License-Identifier: MIT
#include "apps/client/recovery/BackupStore.h"
#include "tests/support/RecoveryFolders.h"
#include "tests/support/SmallFiles.h"
#include "tests/support/System.h"
#include "tests/support/Trace.h"

#include <QDir>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using client::BackupStore;
using client::FormulaFiles;
using client::StoredBackup;

class BackupStoreTest : public testing::Test
{
protected:
    static FormulaFiles files(const QByteArray& formulas) { return { formulas, std::nullopt }; }
    QStringList names() const { return test::RecoveryFolders::namesIn(path); }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("backups"));
    BackupStore store { path };
    const QDateTime day { QDate(2026, 3, 2), QTime(9, 30) };
};

TEST_F(BackupStoreTest, HoldsBothFilesAndTheAbsenceOfEither)
{
    for (const FormulaFiles& kept :
         { FormulaFiles { QByteArray("a\xFF"), QByteArray() }, FormulaFiles { QByteArray(), std::nullopt },
           FormulaFiles { std::nullopt, QByteArray("b") } }) {
        ASSERT_TRUE(*store.add(kept, day));
        const auto read = store.read(store.list().front().name);
        ASSERT_TRUE(read);
        EXPECT_TRUE(*read == kept);
    }
}

TEST_F(BackupStoreTest, ClocksThatGoWrongPutNothingOutOfOrder)
{
    const QDateTime ahead(QDate(2099, 1, 1), QTime(0, 0));
    ASSERT_TRUE(*store.add(files("ahead"), ahead));
    for (int save = 0; save < 40; ++save)
        ASSERT_TRUE(*store.add(files(QByteArray::number(save)), day)); // and this one stands still
    const std::vector<StoredBackup> left = store.list();
    ASSERT_GE(left.size(), 10u);
    for (int back = 0; back < 10; ++back)
        EXPECT_TRUE(*store.read(left[static_cast<std::size_t>(back)].name)
                    == files(QByteArray::number(39 - back)));
}

TEST_F(BackupStoreTest, KeepsTheLastOfEachDayAndWeekHoweverOftenItIsSaved)
{
    // Twelve saves a day for sixty days, each followed by what a store does then.
    std::vector<StoredBackup> backups;
    for (int number = 0; number < 60 * 12; ++number) {
        const QDateTime made = day.addDays(number / 12).addSecs(qint64 { 60 } * (number % 12));
        backups.insert(backups.begin(), { number, QString::number(number), made });
        const QStringList gone = client::dispensable(backups);
        backups.erase(std::remove_if(backups.begin(), backups.end(),
                                     [&](const StoredBackup& backup) { return gone.contains(backup.name); }),
                      backups.end());
    }
    QSet<int> kept;
    for (const StoredBackup& backup : backups)
        kept << backup.number;
    for (int last = 710; last < 720; ++last)
        EXPECT_TRUE(kept.contains(last)) << last;
    for (int back = 0; back < 14; ++back)
        EXPECT_TRUE(kept.contains(719 - 12 * back)) << back << " days ago";
    for (int sunday = 6; sunday < 60; sunday += 7) // 2026-03-02 was a Monday
        EXPECT_TRUE(kept.contains(12 * sunday + 11)) << "day " << sunday;
    EXPECT_LE(kept.size(), 10 + 14 + 26);
}

TEST_F(BackupStoreTest, LosesNothingForABackupThatFails)
{
    ON_UNIX_ALONE("the size of files has no limit");
    for (int number = 0; number < 30; ++number)
        ASSERT_TRUE(*store.add(files(QByteArray::number(number)), day));
    const QStringList before = names();
    {
        const test::SmallFiles disk(0);
        EXPECT_FALSE(store.add(files("new"), day).isGood());
    }
    EXPECT_EQ(names(), before);
}

TEST_F(BackupStoreTest, PassesForeignFilesOver)
{
    ASSERT_TRUE(*store.add(files("a"), day));
    test::RecoveryFolders::write(path + QStringLiteral("/notes.txt"), "mine");
    test::RecoveryFolders::write(path + QStringLiteral("/999999999 2026-03-02.backup"), "mine");
    EXPECT_EQ(store.list().size(), 1u);
    ASSERT_TRUE(*store.add(files("b"), day));
    EXPECT_EQ(names().size(), 4);
}

} // namespace
