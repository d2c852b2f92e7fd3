// SPDX-License-Identifier: MIT
#include "host/embedded/reading/WorkbookProgram.h"

#include "host/embedded/reading/CellTransfer.h"
#include "host/embedded/reading/ProgramLimits.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>

#include <mutex>

namespace TC::embedded {

namespace {

constexpr int kGrace = 5'000;    // milliseconds beyond the program's own limit
constexpr int kFarewell = 2'000; // milliseconds for a program that has answered to end

std::mutex s_mutex; // readers work in any thread

QString& chosenProgram()
{
    static QString path;
    return path;
}

QString programName()
{
#ifdef Q_OS_WIN
    return QStringLiteral("indicatorui-workbook.exe");
#else
    return QStringLiteral("indicatorui-workbook");
#endif
}

/// The program's path; empty when there is none.
QString findProgram()
{
    {
        const std::lock_guard lock(s_mutex);
        if (!chosenProgram().isEmpty())
            return QFileInfo(chosenProgram()).isFile() ? chosenProgram() : QString();
    }
    const QStringList places = workbookProgramPlaces();
    for (const QString& place : places) {
        const QFileInfo info(QDir(place), programName());
        if (info.isFile())
            return info.absoluteFilePath();
    }
    return QString();
}

/// Reads until the answer is whole, the program ends, or its time is over. How a program ended is not asked
/// for: where the client ignores the ends of its children, the system does not tell.
QByteArray answerOf(QProcess& program, const QElapsedTimer& timer)
{
    constexpr qint64 mostMilliseconds = kProgramSeconds * 1'000 + kGrace;
    QByteArray answer;
    for (;;) {
        answer += program.readAllStandardOutput();
        const qint64 size = answerSize(answer);
        const qint64 left = mostMilliseconds - timer.elapsed();
        if (size < 0 || (size > 0 && answer.size() >= size) || left <= 0)
            return answer;
        if (!program.waitForReadyRead(static_cast<int>(left)) && program.bytesAvailable() == 0)
            return answer;
    }
}

} // namespace

void setWorkbookProgram(const QString& path)
{
    const std::lock_guard lock(s_mutex);
    chosenProgram() = path;
}

QStringList workbookProgramPlaces()
{
    QStringList places;
    if (QCoreApplication::instance())
        places << QCoreApplication::applicationDirPath();
    const QString library = libraryFolder();
    if (library.isEmpty())
        return places;
    places << library;
    for (const char* fromLibrary : { WORKBOOK_PROGRAM_BUILT, WORKBOOK_PROGRAM_INSTALLED })
        places << QDir::cleanPath(library + QLatin1Char('/') + QString::fromUtf8(fromLibrary));
    places.removeDuplicates();
    return places;
}

WorkbookReport readInProgram(const QString& file, SheetCells& cells)
{
    const QString path = findProgram();
    if (path.isEmpty()) {
        const std::lock_guard lock(s_mutex);
        const QString sought =
            chosenProgram().isEmpty() ? workbookProgramPlaces().join(QStringLiteral("、")) : chosenProgram();
        return { WorkbookOutcome::ProgramMissing, false, sought };
    }
    QElapsedTimer timer;
    timer.start();
    QProcess program;
    program.setStandardInputFile(file);
    program.setStandardErrorFile(QProcess::nullDevice());
    program.start(path, { QString::number(QCoreApplication::applicationPid()) }, QIODevice::ReadOnly);
    if (!program.waitForStarted(kGrace))
        return { WorkbookOutcome::ProgramNotStarted, false, program.errorString() };

    WorkbookReport report { WorkbookOutcome::ProgramFailed, false, QString() };
    if (!takeAnswer(answerOf(program, timer), report, cells)) {
        program.kill();
        if (timer.elapsed() >= qint64 { kProgramSeconds } * 1'000)
            report.outcome = WorkbookOutcome::OutOfTime;
    }
    if (!program.waitForFinished(kFarewell))
        program.kill();
    return report;
}

} // namespace TC::embedded
