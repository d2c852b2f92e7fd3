// SPDX-License-Identifier: MIT
#include "tests/faults/FaultRun.h"

#include "tests/support/Preload.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

namespace test {

namespace {

constexpr int kMostCalls = 5'000; // far above the calls of any scenario
constexpr int kLongestRunMs = 60'000;
constexpr int kFewCalls = 12; // of the fixed part

FaultEnd run(const QStringList& words, const QProcessEnvironment& environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(words.first(), words.mid(1));
    FaultEnd end;
    EXPECT_TRUE(process.waitForFinished(kLongestRunMs)) << words.join(QLatin1Char(' ')).toStdString();
    end.wasKilled = process.exitStatus() == QProcess::CrashExit;
    end.exitCode = process.exitCode();
    end.told = QString::fromUtf8(process.readAll()).trimmed();
    return end;
}

/// The faults to be tried at a call.
std::vector<Fault> faultsAt(int call)
{
    std::vector<Fault> all = { { ENOSPC }, { 0 }, { EIO }, { EACCES }, { EROFS } };
    if (triesAllFaults())
        return all;
    return { all[static_cast<std::size_t>(call) % all.size()] };
}

/// How far the next call lies from one.
int stride(int call)
{
    return triesAllFaults() || call < kFewCalls ? 1 : 7 + call / 3;
}

} // namespace

QString Fault::name() const
{
    return isKill() ? QStringLiteral("kill") : QString::fromLocal8Bit(std::strerror(error));
}

bool triesAllFaults()
{
    return qEnvironmentVariableIsSet("INDICATORUI_ALL_FAULTS");
}

FaultEnd runWhole(const QStringList& words)
{
    return run(words, QProcessEnvironment::systemEnvironment());
}

FaultEnd runWithFault(const QStringList& words, const QString& folder, int call, const Fault& fault)
{
    const QTemporaryDir outside;
    const QString mark = outside.filePath(QStringLiteral("met"));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    preload(environment, QStringLiteral(FAILING_CALLS));
    environment.insert(QStringLiteral("ASAN_OPTIONS"),
                       QStringLiteral("verify_asan_link_order=0:detect_leaks=0"));
    environment.insert(QStringLiteral("FAILING_FOLDER"), folder);
    environment.insert(QStringLiteral("FAILING_CALL"), QString::number(call));
    environment.insert(QStringLiteral("FAILING_ERROR"),
                       fault.isKill() ? QStringLiteral("kill") : QString::number(fault.error));
    environment.insert(QStringLiteral("FAILING_MARK"), mark);
    FaultEnd end = run(words, environment);
    end.wasMet = QFile::exists(mark);
    return end;
}

void tryFaults(const char* name, const FaultScenario& scenario)
{
    int calls = 0, failures = 0, kills = 0;
    bool wasMet = true;
    for (int call = 1; wasMet && call < kMostCalls; call += stride(call)) {
        for (const Fault& fault : faultsAt(call)) {
            SCOPED_TRACE(testing::Message()
                         << name << ", call " << call << ": " << fault.name().toStdString());
            scenario.prepare();
            const FaultEnd end = runWithFault(scenario.words, scenario.folder, call, fault);
            wasMet = end.wasMet;
            EXPECT_EQ(end.wasKilled, end.wasMet && fault.isKill()) << end.told.toStdString();
            scenario.check(end);
            if (testing::Test::HasFatalFailure())
                return;
            calls = std::max(calls, wasMet ? call : 0);
            (fault.isKill() ? kills : failures) += wasMet;
        }
    }
    EXPECT_GT(calls, 2) << name;
    EXPECT_FALSE(wasMet) << name;
    std::printf("%-34s %4d calls %5d failures %5d kills\n", name, calls, failures, kills);
}

} // namespace test
