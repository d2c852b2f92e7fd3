// SPDX-License-Identifier: MIT
/// @file Names of files that are no texts, which only some systems have.

#include "apps/base/FileNames.h"
#include "apps/base/WholeFile.h"
#include "tests/support/ChildRun.h"
#include "tests/support/RecoveryFolders.h"
#include "tests/support/Trace.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

TEST(RenderProgramOnUnix, OpensFilesWhoseNamesAreMadeOfAnyBytes)
{
    const QTemporaryDir home;
    const QByteArray folder = home.path().toUtf8();
    QByteArray bars = folder + "/SH\xFF\n600030.csv", formula = folder + "/\xC3(.txt",
               picture = folder + "/\xFE.png", missing = folder + "/a\nb\xFF\x1B[31m.csv";
    ASSERT_FALSE(base::writeWholeFile(
        base::nameFromBytes(bars),
        test::RecoveryFolders::contentOf(QStringLiteral(SAMPLES_DIR "/bars/DFM00.csv"))));
    ASSERT_FALSE(base::writeWholeFile(base::nameFromBytes(formula), "LINE:CLOSE;"));
    const auto exitCodeOf = [](std::vector<QByteArray> words) {
        std::vector<char*> arguments;
        for (QByteArray& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        return test::runInChild(
                   [&] {
                       ::execv(RENDER_PROGRAM, arguments.data());
                       return 99;
                   },
                   60)
            .answer;
    };
    EXPECT_EQ(exitCodeOf({ "render", "--bars", bars, "--formula", formula, "-o", picture }), 0);
    struct stat state;
    EXPECT_EQ(::stat(picture.constData(), &state), 0);
    EXPECT_EQ(exitCodeOf({ "render", "--bars", missing, "-o", picture }), 2);
}
