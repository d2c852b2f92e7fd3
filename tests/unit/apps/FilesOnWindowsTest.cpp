// SPDX-License-Identifier: MIT
/// @file What files do on Windows alone: held ones cannot be replaced, attributes, devices in every folder,
/// long names.

#include "apps/base/FileCalls.h"
#include "apps/base/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <windows.h>

#include <thread>

namespace {

using base::WriteFault;
using base::writeWholeFile;

class FilesOnWindows : public testing::Test
{
protected:
    void SetUp() override { ASSERT_FALSE(writeWholeFile(path, "first")); }

    static QByteArray contentOf(const QString& name)
    {
        const int file = base::openForReading(name);
        const QByteArray bytes = file < 0 ? QByteArray("cannot be opened") : base::readAt(file, 0, 100);
        if (file >= 0)
            base::closeFile(file);
        return bytes;
    }

    /// Holds the file as a program does that lets others do only what is shared.
    HANDLE hold(DWORD shared) const
    {
        return CreateFileW(native(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                           nullptr);
    }
    const wchar_t* native() const { return reinterpret_cast<const wchar_t*>(path.utf16()); }

    void expectUntouched() const
    {
        EXPECT_EQ(contentOf(path), QByteArray("first"));
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                  QStringList(QStringLiteral("out.csv")));
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("out.csv"));
};

} // namespace

TEST_F(FilesOnWindows, MayBeWrittenAndRemovedWhileThisProgramReadsIt)
{
    const int reader = base::openForReading(path);
    ASSERT_GE(reader, 0);
    QFile writer(path);
    ASSERT_TRUE(writer.open(QIODevice::ReadWrite));
    EXPECT_EQ(writer.write("other"), 5);
    writer.close();
    EXPECT_TRUE(QFile::remove(path));
    EXPECT_EQ(base::readAt(reader, 0, 100), QByteArray("other"));
    base::closeFile(reader);
}

TEST_F(FilesOnWindows, IsReplacedOnceAScannerLetsGoOfIt)
{
    const HANDLE scanner = hold(FILE_SHARE_READ);
    ASSERT_NE(scanner, INVALID_HANDLE_VALUE);
    std::thread letGo([scanner] {
        Sleep(200); // less than the writer has patience for
        CloseHandle(scanner);
    });
    EXPECT_FALSE(writeWholeFile(path, "second"));
    letGo.join();
    EXPECT_EQ(contentOf(path), QByteArray("second"));
}

TEST_F(FilesOnWindows, ThatAnotherProgramKeepsStaysAsItWas)
{
    const HANDLE owner = hold(FILE_SHARE_READ);
    ASSERT_NE(owner, INVALID_HANDLE_VALUE);
    const auto fault = writeWholeFile(path, "second");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->left, WriteFault::OldContent);
    EXPECT_FALSE(fault->cause.isEmpty());
    CloseHandle(owner);
    expectUntouched();
}

TEST_F(FilesOnWindows, ThatMayOnlyBeReadStaysAsItWas)
{
    ASSERT_TRUE(SetFileAttributesW(native(), FILE_ATTRIBUTE_READONLY));
    const auto fault = writeWholeFile(path, "second");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->left, WriteFault::OldContent);
    SetFileAttributesW(native(), FILE_ATTRIBUTE_NORMAL);
    expectUntouched();
}

TEST_F(FilesOnWindows, ThatIsHiddenStaysHidden)
{
    ASSERT_TRUE(SetFileAttributesW(native(), FILE_ATTRIBUTE_HIDDEN));
    EXPECT_FALSE(writeWholeFile(path, "second"));
    EXPECT_TRUE(GetFileAttributesW(native()) & FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(contentOf(path), QByteArray("second"));
}

TEST_F(FilesOnWindows, DevicesAreNoFilesInAnyFolder)
{
    EXPECT_TRUE(writeWholeFile(QStringLiteral("NUL"), "x"));
    expectUntouched();
}

TEST_F(FilesOnWindows, NamesMayBeLongerThanTheOldLimitAndOfAnyScript)
{
    QString deep = folder.path();
    while (deep.size() < 400)
        deep += QStringLiteral("/上证指数 daily bars");
    ASSERT_TRUE(QDir().mkpath(deep));
    const QString name = deep + QStringLiteral("/行情 1.csv");
    EXPECT_FALSE(writeWholeFile(name, "long"));
    EXPECT_EQ(contentOf(name), QByteArray("long"));
}

TEST_F(FilesOnWindows, DriveLettersAndBothSeparatorsLeadToTheFile)
{
    ASSERT_EQ(path[1], QLatin1Char(':'));
    EXPECT_EQ(contentOf(QDir::toNativeSeparators(path)), QByteArray("first"));
    EXPECT_EQ(contentOf(QStringLiteral("\\\\?\\") + QDir::toNativeSeparators(path)), QByteArray("first"));
}

TEST_F(FilesOnWindows, AFileIsKnownAgainAndANewOneTold)
{
    const auto stateOf = [this] {
        const int file = base::openForReading(path);
        const auto state = base::stateOf(file);
        base::closeFile(file);
        return state;
    };
    const auto before = stateOf();
    ASSERT_TRUE(before);
    EXPECT_EQ(before->size, 5);
    EXPECT_EQ(stateOf()->number, before->number);
    ASSERT_FALSE(writeWholeFile(path, "second"));
    EXPECT_NE(stateOf()->number, before->number);
}
