// SPDX-License-Identifier: MIT
/// @file The program that reads workbooks, in bad company, by the means of Windows: a job object, handles.

#include "host/WB/CExcelReader.h"
#include "host/embedded/ReadingSetup.h"
#include "tests/support/Workbooks.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using TC::embedded::lastWorkbookReport;
using TC::embedded::setWorkbookProgram;
using TC::embedded::WorkbookOutcome;

namespace {

class WorkbookOnWindows : public testing::Test
{
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    static WorkbookOutcome outcomeOf(const QString& file)
    {
        WB::CExcelReader reader;
        reader.init(false);
        const bool isRead = reader.open(file);
        EXPECT_EQ(isRead, lastWorkbookReport().outcome == WorkbookOutcome::Read);
        EXPECT_EQ(isRead, reader.getData(1, 1, 1, true) == QStringLiteral("600000"));
        return lastWorkbookReport().outcome;
    }

    QTemporaryDir m_folder;
    const QString m_sound = test::writeXlsx(path("sound.xlsx"), { { QStringLiteral("600000") } });
};

} // namespace

TEST_F(WorkbookOnWindows, FilesWithNamesInAnyScriptAreRead)
{
    const QString named = path("自选股 1.xlsx");
    ASSERT_TRUE(QFile::copy(m_sound, named));
    EXPECT_EQ(outcomeOf(named), WorkbookOutcome::Read);
}

TEST_F(WorkbookOnWindows, AMissingProgramIsTold)
{
    setWorkbookProgram(path("nowhere.exe"));
    EXPECT_EQ(outcomeOf(m_sound), WorkbookOutcome::ProgramMissing);
}

TEST_F(WorkbookOnWindows, AProgramThatCannotBeStartedIsToldWithTheReason)
{
    setWorkbookProgram(test::writeFile(path("text.exe"), "no program"));
    EXPECT_EQ(outcomeOf(m_sound), WorkbookOutcome::ProgramNotStarted);
    EXPECT_FALSE(lastWorkbookReport().detail.isEmpty());
}

TEST_F(WorkbookOnWindows, TheProgramEndsAtOnceWhenItsParentIsNone)
{
    QProcess program;
    program.setStandardInputFile(m_sound);
    program.start(QStringLiteral(WORKBOOK_PROGRAM), { QStringLiteral("1") });
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_EQ(program.readAllStandardOutput(), QByteArray());
}

TEST_F(WorkbookOnWindows, TheProgramEndsWithItsParent)
{
    QProcess parent, program;
    parent.start(QStringLiteral(WORKBOOK_PROGRAM), { QString::number(QCoreApplication::applicationPid()) });
    ASSERT_TRUE(parent.waitForStarted()); // it waits for its input
    program.start(QStringLiteral(WORKBOOK_PROGRAM), { QString::number(parent.processId()) });
    ASSERT_TRUE(program.waitForStarted());
    EXPECT_FALSE(program.waitForFinished(500));
    parent.kill();
    EXPECT_TRUE(program.waitForFinished(10'000));
    EXPECT_EQ(program.exitCode(), 1);
    parent.waitForFinished();
}
