// SPDX-License-Identifier: MIT
/// @file Hostile text files given to the programs, within limits of time and memory: each is used or refused,
/// in one line.

#include "tests/faults/FaultRun.h"
#include "tests/faults/HostileFiles.h"
#include "tests/support/ChildRun.h"
#include "tests/support/RecoveryFolders.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

namespace {

using test::RecoveryFolders;

constexpr int kLongestRunMs = 60'000;
constexpr rlim_t kMostMemory = rlim_t { 2 } << 30; // address space, libraries included

void limitMemory()
{
    const rlimit limit { kMostMemory, kMostMemory };
    if (test::measuresMemory()) // sanitizers reserve terabytes
        setrlimit(RLIMIT_AS, &limit);
}

/// A program that gets so much address space and no more.
class LimitedProcess : public QProcess
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
protected:
    void setupChildProcess() override
    {
        limitMemory();
    }
#else
public:
    LimitedProcess()
    {
        setChildProcessModifier(limitMemory);
    }
#endif
};

struct Kind
{
    const char* name;
    const char* sound;     ///< file that the hostile ones are made from
    const char* arguments; ///< of the renderer; FILE, BARS and OUT stand for the files
};

/// One message at most, of one line; and an answer that is yes or no.
void run(const QString& program, const QStringList& arguments, const QString& output, bool isChecked)
{
    LimitedProcess process;
    process.start(program, arguments);
    ASSERT_TRUE(process.waitForFinished(kLongestRunMs)) << "it hangs";
    const QByteArray told = process.readAllStandardError().trimmed();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << told.left(2000).constData();
    EXPECT_TRUE(process.exitCode() == 0 || process.exitCode() == 2)
        << process.exitCode() << told.left(2000).constData();
    EXPECT_EQ(process.exitCode() == 0, told.isEmpty()) << told.left(2000).constData();
    EXPECT_LT(told.size(), 100'000);
    if (!isChecked) { // a check tells every fault of a text, one a line
        EXPECT_FALSE(told.contains('\n')) << told.left(2000).constData();
        EXPECT_EQ(QFile::exists(output), process.exitCode() == 0);
    }
}

class HostileFiles : public testing::TestWithParam<Kind>
{
protected:
    /// Gives the renderer a file.
    void render(const QByteArray& text)
    {
        const QString file = m_folder.filePath(QString::fromLatin1(GetParam().name) + QStringLiteral(".txt"));
        const QString output = m_folder.filePath(QStringLiteral("out.png"));
        QFile::remove(output);
        RecoveryFolders::write(file, text);
        QStringList arguments;
        for (const QString& word : QString::fromLatin1(GetParam().arguments).split(QLatin1Char(' ')))
            arguments << (word == QLatin1String("FILE")       ? file
                              : word == QLatin1String("BARS") ? QStringLiteral(SAMPLES_DIR "/bars/DFM00.csv")
                              : word == QLatin1String("OUT")  ? output
                                                              : word);
        run(QStringLiteral(RENDER_PROGRAM), arguments, output, arguments.contains(QStringLiteral("--check")));
    }

    QTemporaryDir m_folder;
};

unsigned seedsTried()
{
    return test::triesAllFaults() ? 400 : 5;
}

/// A sound file of moderate length, so that most of the time is the program's.
QByteArray headOf(const char* file)
{
    const QByteArray text = RecoveryFolders::contentOf(QString::fromUtf8(file));
    return text.size() < 20'000 ? text : text.left(text.lastIndexOf('\n', 20'000) + 1);
}

TEST_P(HostileFiles, AreDrawnOrRefusedInOneLine)
{
    const QByteArray sound = headOf(GetParam().sound);
    ASSERT_GT(sound.size(), 100);
    for (unsigned seed = 1; seed <= seedsTried(); ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        render(test::hostileFile(sound, seed));
        if (HasFatalFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Of, HostileFiles,
    testing::Values(Kind { "bars", SAMPLES_DIR "/bars/SFCU00.csv", "--bars FILE -o OUT" },
                    Kind { "ticks", SAMPLES_DIR "/ticks/SYNTHETIC-five-levels.csv", "--ticks FILE -o OUT" },
                    Kind { "formula", SAMPLES_DIR "/formulas/MACD.txt", "--bars BARS -o OUT --formula FILE" },
                    Kind { "check", SAMPLES_DIR "/formulas/DMI.txt", "--check FILE" },
                    Kind { "skin", SKINS_DIR "/dark.json", "--bars BARS -o OUT --skin FILE" }),
    [](const auto& kind) { return std::string(kind.param.name); });

TEST(HostileFiles, OfStocksAreReadAsFarAsTheyGo)
{
    RecoveryFolders folders;
    const QString home = QFileInfo(folders.configDir()).path();
    QByteArray sound = "证券代码,数量,相对权重\n";
    for (int code = 600'000; code < 600'100; ++code)
        sound += QByteArray::number(code) + ".SH," + QByteArray::number(code % 900 * 100) + ",0.01\n";
    for (unsigned seed = 1; seed <= seedsTried(); ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RecoveryFolders::write(folders.userDir() + QStringLiteral("/stocks.csv"),
                               test::hostileFile(sound, seed));
        run(QStringLiteral(FAULT_STEPS), { QStringLiteral("stocks"), home }, QString(), true);
        if (HasFatalFailure())
            return;
    }
}

TEST(HostileFiles, WithoutEndAreRefusedAtOnce)
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe")),
                  commas = folder.filePath(QStringLiteral("commas"));
    const QString output = folder.filePath(QStringLiteral("out.png"));
    ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
    RecoveryFolders::write(commas, QByteArray(100'000'000, ','));
    for (const QString& file : { pipe, commas, QStringLiteral("/dev/zero"), QStringLiteral("/dev/random") }) {
        for (const char* option : { "--bars", "--ticks" }) {
            SCOPED_TRACE(file.toStdString());
            run(QStringLiteral(RENDER_PROGRAM),
                { QString::fromLatin1(option), file, QStringLiteral("-o"), output }, output, false);
            EXPECT_FALSE(QFile::exists(output));
        }
    }
}

/// Prices at the ends of what a number can be: a chart or a refusal.
TEST(HostileFiles, OfWildPricesAreDrawnOrRefused)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("bars.csv")),
                  output = folder.filePath(QStringLiteral("out.png"));
    static const char* const rows[] = { "1e308,1e308,-1e308,-1e308",   "1e308,1e308,1e308,1e308",
                                        "-1e308,-1e308,-1e308,-1e308", "1,1e308,1,1",
                                        "1e-308,2e-308,1e-308,1e-308", "1.79e308,1.79e308,-1.79e308,0" };
    for (const char* row : rows) {
        for (const char* volume : { "-1e308", "1e308", "1", "0" }) {
            if (!test::triesAllFaults() && volume[0] != '-')
                continue;
            QByteArray text = "date,open,high,low,close,volume\n";
            for (int day = 1; day <= 9; ++day)
                text += "2024-01-0" + QByteArray::number(day) + "," + (day % 3 == 0 ? "1,2,1,2" : row) + ","
                    + volume + "\n";
            SCOPED_TRACE(text.constData());
            RecoveryFolders::write(file, text);
            QFile::remove(output);
            run(QStringLiteral(RENDER_PROGRAM),
                { QStringLiteral("--bars"), file, QStringLiteral("-o"), output }, output, false);
        }
    }
}

} // namespace
