// SPDX-License-Identifier: MIT
/// @file What the renderer leaves behind when a call on its files fails or is its last.

#include "tests/faults/FaultRun.h"
#include "tests/support/RecoveryFolders.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using test::FaultEnd;
using test::RecoveryFolders;

const QString kOldFile = QStringLiteral("nothing was written");
const QString kNewFile = QStringLiteral("the file is written");

/// The name of the file that is written, and the options that write it.
struct Output
{
    const char* name;
    const char* option;
};

class RendererFaults : public testing::TestWithParam<Output>
{
protected:
    /// An old file, and nothing that an earlier run left.
    void prepare() const
    {
        for (const QString& name : RecoveryFolders::namesIn(m_folder.path()))
            QFile::remove(m_folder.filePath(name));
        RecoveryFolders::write(m_path, "old");
    }

    void check(const FaultEnd& end, const QByteArray& whole) const
    {
        const QByteArray left = RecoveryFolders::contentOf(m_path);
        EXPECT_TRUE(left == "old" || left == whole) << left.size() << " bytes, " << end.told.toStdString();
        if (end.wasKilled)
            return;
        EXPECT_EQ(RecoveryFolders::namesIn(m_folder.path()).size(), 1) << end.told.toStdString();
        if (end.claimsSuccess()) {
            EXPECT_TRUE(left == whole);
            EXPECT_EQ(end.told, QString());
            return;
        }
        EXPECT_EQ(end.exitCode, 2);
        EXPECT_FALSE(end.told.contains(QLatin1Char('\n'))) << end.told.toStdString();
        EXPECT_TRUE(end.told.contains(m_path)) << end.told.toStdString();
        EXPECT_TRUE(end.told.endsWith(left == whole ? kNewFile : kOldFile)) << end.told.toStdString();
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QString::fromLatin1(GetParam().name));
    QStringList m_words = { QStringLiteral(RENDER_PROGRAM), QStringLiteral("--bars"),
                            QStringLiteral(SAMPLES_DIR "/bars/DFM00.csv"),
                            QString::fromLatin1(GetParam().option), m_path };
};

TEST_P(RendererFaults, LeaveTheOldFileOrTheNewOneAndTheMessageTellsWhich)
{
    ASSERT_EQ(test::runWhole(m_words).exitCode, 0);
    const QByteArray whole = RecoveryFolders::contentOf(m_path);
    ASSERT_GT(whole.size(), 2000);
    test::tryFaults(
        GetParam().name,
        { m_words, m_folder.path(), [&] { prepare(); }, [&](const FaultEnd& end) { check(end, whole); } });
}

INSTANTIATE_TEST_SUITE_P(Of, RendererFaults,
                         testing::Values(Output { "picture.png", "-o" }, Output { "picture.svg", "-o" },
                                         Output { "results.csv", "--export" }),
                         [](const auto& output) {
                             const std::string name = output.param.name;
                             return name.substr(name.find('.') + 1);
                         });

/// Its input on a disk that fails.
TEST(RendererFaults, OfTheInputEndInOneLine)
{
    const QTemporaryDir folder, outside;
    const QString bars = folder.filePath(QStringLiteral("bars.csv"));
    const QString picture = outside.filePath(QStringLiteral("picture.png"));
    RecoveryFolders::write(bars, RecoveryFolders::contentOf(QStringLiteral(SAMPLES_DIR "/bars/DFM00.csv")));
    const QStringList words = { QStringLiteral(RENDER_PROGRAM), QStringLiteral("--bars"), bars,
                                QStringLiteral("-o"), picture };
    const auto check = [&](const FaultEnd& end) {
        const bool isThere = QFile::exists(picture);
        EXPECT_TRUE(end.wasKilled || end.claimsSuccess() == isThere) << end.told.toStdString();
        EXPECT_FALSE(end.told.contains(QLatin1Char('\n'))) << end.told.toStdString();
        EXPECT_TRUE(end.wasKilled || end.claimsSuccess() || end.told.contains(bars))
            << end.told.toStdString();
    };
    test::tryFaults("bars that are read", { words, folder.path(), [&] { QFile::remove(picture); }, check });
}

} // namespace
