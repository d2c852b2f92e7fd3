// SPDX-License-Identifier: MIT
#include "host/WB/CExcelReader.h"
#include "host/embedded/ReadingSetup.h"
#include "tests/support/ChildRun.h"
#include "tests/support/Workbooks.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

using TC::embedded::lastWorkbookReport;
using TC::embedded::setWorkbookProgram;
using TC::embedded::WorkbookOutcome;

namespace {

/// The program that reads workbooks, in bad company.
class WorkbookIsolation : public testing::Test
{
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    /// A shell script in place of the reading program.
    void useScript(const QByteArray& script)
    {
        const QString file = test::writeFile(path("program"), "#!/bin/sh\n" + script + "\n");
        QFile::setPermissions(file, QFile::ReadOwner | QFile::ExeOwner);
        setWorkbookProgram(file);
    }
    WorkbookOutcome outcome()
    {
        WB::CExcelReader reader;
        reader.init(false);
        const bool isRead = reader.open(m_sound);
        EXPECT_EQ(isRead, lastWorkbookReport().outcome == WorkbookOutcome::Read);
        EXPECT_EQ(isRead, reader.getData(1, 1, 1, true) == QStringLiteral("600000"));
        EXPECT_EQ(isRead, TC::embedded::textOf(lastWorkbookReport()).isEmpty());
        return lastWorkbookReport().outcome;
    }

    QTemporaryDir m_folder;
    const QString m_sound = test::writeXlsx(path("sound.xlsx"), { { QStringLiteral("600000") } });
};

/// Starts the program with a standard input that never ends, and pauses.
[[noreturn]] void startAndPause(int in, int out)
{
    const QByteArray self = QByteArray::number(getpid());
    if (fork() == 0) {
        dup2(in, STDIN_FILENO);
        dup2(out, STDOUT_FILENO);
        execl(WORKBOOK_PROGRAM, WORKBOOK_PROGRAM, self.constData(), static_cast<char*>(nullptr));
        _exit(1);
    }
    for (;;)
        pause();
}

bool endsWithin(int pipeEnd, int milliseconds)
{
    struct pollfd end = { pipeEnd, POLLIN, 0 };
    return poll(&end, 1, milliseconds) == 1;
}

} // namespace

TEST_F(WorkbookIsolation, ReadsWhereTheEndsOfChildrenAreIgnored)
{
    const test::ChildEnd end = test::runInChild(
        [&] {
            std::signal(SIGCHLD, SIG_IGN);
            return outcome() == WorkbookOutcome::Read && outcome() == WorkbookOutcome::Read ? 0 : 1;
        },
        30);
    EXPECT_TRUE(end.finished);
    EXPECT_EQ(end.answer, 0);
}

TEST_F(WorkbookIsolation, ReadsWhereSignalsAreHeldBack)
{
    const test::ChildEnd end = test::runInChild(
        [&] {
            sigset_t all;
            sigfillset(&all);
            sigprocmask(SIG_SETMASK, &all, nullptr);
            return outcome() == WorkbookOutcome::Read ? 0 : 1;
        },
        30);
    EXPECT_EQ(end.answer, 0);
}

TEST_F(WorkbookIsolation, TheProgramEndsWhenItsParentIsKilled)
{
    int in[2], out[2];
    ASSERT_EQ(pipe(in), 0);
    ASSERT_EQ(pipe(out), 0);
    const pid_t parent = fork();
    if (parent == 0)
        startAndPause(in[0], out[1]);
    close(out[1]);
    EXPECT_FALSE(endsWithin(out[0], 500)); // it waits for its input
    kill(parent, SIGKILL);
    waitpid(parent, nullptr, 0);
    EXPECT_TRUE(endsWithin(out[0], 5'000));
    for (const int end : { in[0], in[1], out[0] })
        close(end);
}

TEST_F(WorkbookIsolation, TheProgramEndsAtOnceWhenItsParentIsAnother)
{
    QProcess program;
    program.setStandardInputFile(m_sound);
    program.start(QStringLiteral(WORKBOOK_PROGRAM), { QStringLiteral("1") });
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_EQ(program.readAllStandardOutput(), QByteArray());
}

TEST_F(WorkbookIsolation, TheProgramSaysThatItIsNotForUse)
{
    QProcess program;
    program.start(QStringLiteral(WORKBOOK_PROGRAM), QStringList());
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 2);
    EXPECT_EQ(program.readAllStandardOutput(), QByteArray());
    EXPECT_TRUE(program.readAllStandardError().contains("started by the library"));
}

TEST_F(WorkbookIsolation, TheProgramFailsWhereItsAnswerFindsNoRoom)
{
    QProcess program;
    program.setStandardInputFile(m_sound);
    program.setStandardOutputFile(QStringLiteral("/dev/full"));
    program.start(QStringLiteral(WORKBOOK_PROGRAM), { QString::number(getpid()) });
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 1);
}

TEST_F(WorkbookIsolation, TheProgramStandsWhereItIsLookedFor)
{
    EXPECT_EQ(outcome(), WorkbookOutcome::Read);
    const QStringList places = TC::embedded::workbookProgramPlaces();
    EXPECT_TRUE(places.contains(QFileInfo(QStringLiteral(WORKBOOK_PROGRAM)).absolutePath()));
    for (const QString& place : places)
        EXPECT_TRUE(QDir::isAbsolutePath(place)) << place.toStdString();
}

TEST_F(WorkbookIsolation, AMissingProgramIsTold)
{
    setWorkbookProgram(path("nowhere"));
    EXPECT_EQ(outcome(), WorkbookOutcome::ProgramMissing);
    EXPECT_EQ(lastWorkbookReport().detail, path("nowhere"));
}

TEST_F(WorkbookIsolation, AProgramThatCannotBeStartedIsToldWithTheReason)
{
    setWorkbookProgram(test::writeFile(path("text"), "no program"));
    EXPECT_EQ(outcome(), WorkbookOutcome::ProgramNotStarted);
    EXPECT_FALSE(lastWorkbookReport().detail.isEmpty());
}

TEST_F(WorkbookIsolation, TooFewFilesForAChildAreTold)
{
    const test::ChildEnd end = test::runInChild(
        [&] {
            const int next = dup(0); // the lowest number that is free
            close(next);
            const struct rlimit files = { static_cast<rlim_t>(next) + 2, static_cast<rlim_t>(next) + 2 };
            setrlimit(RLIMIT_NOFILE, &files);
            return outcome() == WorkbookOutcome::ProgramNotStarted ? 0 : 1;
        },
        30);
    EXPECT_TRUE(end.finished);
    EXPECT_EQ(end.answer, 0);
}

TEST_F(WorkbookIsolation, AProgramThatCrashesCostsNoMoreThanItsCells)
{
    useScript("kill -SEGV $$");
    EXPECT_EQ(outcome(), WorkbookOutcome::ProgramFailed);
}

TEST_F(WorkbookIsolation, AnAnswerThatIsNoneIsRefused)
{
    for (const char* script :
         { "exit 0", "echo hello", "head -c 100000 /dev/zero", "cat /dev/zero",
           "printf cells001; head -c 100 /dev/zero", "printf cells001; cat /dev/urandom" }) {
        QElapsedTimer timer;
        timer.start();
        useScript(script);
        EXPECT_EQ(outcome(), WorkbookOutcome::ProgramFailed) << script;
        EXPECT_LT(timer.elapsed(), 15'000) << script;
        QFile::remove(path("program"));
    }
}

TEST_F(WorkbookIsolation, ReadersWorkInSeveralThreadsAtOnce)
{
    std::vector<std::unique_ptr<QThread>> threads;
    std::atomic<int> read { 0 };
    for (int i = 0; i < 6; ++i) {
        threads.emplace_back(QThread::create([&] { read += outcome() == WorkbookOutcome::Read; }));
        threads.back()->start();
    }
    for (const auto& thread : threads)
        thread->wait();
    EXPECT_EQ(read, 6);
}
