// SPDX-License-Identifier: MIT
#include "apps/base/FileCalls.h"
#include "apps/base/FileNames.h"
#include "apps/base/WholeFile.h"
#include "tests/support/RecoveryFolders.h"
#include "tests/support/SmallFiles.h"
#include "tests/support/System.h"
#include "tests/support/Trace.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using base::WriteFault;
using base::writeWholeFile;

class WholeFile : public testing::Test
{
protected:
    static QByteArray contentOf(const QString& file) { return test::RecoveryFolders::contentOf(file); }
    QStringList names() const { return test::RecoveryFolders::namesIn(folder.path()); }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("out.csv"));
};

TEST_F(WholeFile, HoldsTheBytesAsTheyAre)
{
    EXPECT_FALSE(writeWholeFile(path, "时间,a\n"));
    EXPECT_EQ(contentOf(path), QByteArray("时间,a\n"));
}

TEST_F(WholeFile, ReplacesAnOlderOneAndKeepsItsPermissions)
{
    ON_UNIX_ALONE("permissions are of another kind");
    ASSERT_FALSE(writeWholeFile(path, "a long first text"));
    ASSERT_TRUE(test::setPermissions(path, 0640));
    EXPECT_FALSE(writeWholeFile(path, "second"));
    EXPECT_EQ(contentOf(path), QByteArray("second"));
    EXPECT_EQ(test::permissionsOf(path), 0640u);
    EXPECT_EQ(names(), QStringList(QStringLiteral("out.csv")));
}

TEST_F(WholeFile, NamesThePathThatLeadsNowhere)
{
    const QString nowhere = folder.filePath(QStringLiteral("none/out.csv"));
    const auto fault = writeWholeFile(nowhere, "x");
    ASSERT_TRUE(fault);
    EXPECT_TRUE(fault->english().contains(nowhere));
    EXPECT_TRUE(fault->chinese().contains(nowhere));
}

/// Small contents fit into buffers, whose flush fails long after the writing.
TEST_F(WholeFile, StaysAsItWasOnAFullDiskHoweverSmallTheContent)
{
    ON_UNIX_ALONE("the size of files has no limit");
    ASSERT_FALSE(writeWholeFile(path, "first"));
    for (int size : { 1, 100, 4096, 16 * 1024, 1 << 20 }) {
        const test::SmallFiles disk(0);
        const auto fault = writeWholeFile(path, QByteArray(size, 'x'));
        ASSERT_TRUE(fault) << size;
        EXPECT_EQ(fault->left, WriteFault::OldContent);
        EXPECT_FALSE(fault->english().contains(QLatin1Char('\n')));
        EXPECT_EQ(contentOf(path), QByteArray("first")) << size;
        EXPECT_EQ(names(), QStringList(QStringLiteral("out.csv")));
    }
}

TEST_F(WholeFile, NeverTakesThePlaceOfWhatIsNoOrdinaryFile)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("inner")));
    EXPECT_TRUE(writeWholeFile(folder.filePath(QStringLiteral("inner")), "x"));
    ON_UNIX_ALONE("pipes and devices stand in no folder");
    const QString pipe = path + QStringLiteral(".pipe"), device = QStringLiteral("/dev/null");
    ASSERT_TRUE(test::makePipe(pipe));
    EXPECT_TRUE(writeWholeFile(pipe, "x"));
    EXPECT_TRUE(test::isPipe(pipe));
    EXPECT_TRUE(writeWholeFile(device, "x"));
    EXPECT_TRUE(test::isDevice(device));
}

TEST_F(WholeFile, IsWrittenWhereALinkLeads)
{
    ON_UNIX_ALONE("a link of Qt's is a file of its own kind");
    const QString link = folder.filePath(QStringLiteral("link"));
    ASSERT_FALSE(writeWholeFile(path, "first"));
    ASSERT_TRUE(QFile::link(path, link));
    EXPECT_FALSE(writeWholeFile(link, "second"));
    EXPECT_EQ(contentOf(path), QByteArray("second"));
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(writeWholeFile(link, "third")); // leads nowhere now
}

TEST_F(WholeFile, MayHaveANameOfAnyBytes)
{
    ON_UNIX_ALONE("names are texts");
    const QByteArray bytes = folder.path().toUtf8() + "/\xFF\xC3(\xE4\xB8\n\t\xED\xB0\x80 名.csv";
    const QString name = base::nameFromBytes(bytes);
    EXPECT_EQ(base::bytesOfName(name), bytes);
    EXPECT_FALSE(writeWholeFile(name, "x"));
    const int file = base::openForReading(name);
    EXPECT_GE(file, 0);
    base::closeFile(file);
    const QString shown = base::printable(name);
    EXPECT_TRUE(shown.endsWith(QStringLiteral("/\\xff\\xc3(\\xe4\\xb8\\n\\t\\xed\\xb0\\x80 名.csv")))
        << shown.toStdString();
}

TEST_F(WholeFile, LeftoversOfAnEndedProgramAreRemovedAndNothingElse)
{
    for (const char* name : { ".indicatorui-aB3xYz", ".indicatorui-rc", "out.csv" })
        test::RecoveryFolders::write(folder.filePath(QString::fromLatin1(name)), "x");
    base::removeUnfinishedFiles(folder.path());
    EXPECT_EQ(names(), (QStringList { QStringLiteral(".indicatorui-rc"), QStringLiteral("out.csv") }));
}

} // namespace
