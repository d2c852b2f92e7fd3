// SPDX-License-Identifier: MIT
#pragma once
/// @file Programs whose calls on files fail or are their last, one call after another.

#include <QString>
#include <QStringList>

#include <functional>

namespace test {

/// What happens at one call.
struct Fault
{
    int error = 0; ///< of errno; 0: the program is killed

    bool isKill() const { return error == 0; }
    QString name() const;
};

/// How a program ended.
struct FaultEnd
{
    bool wasMet = false; ///< the program came to the call in question
    bool wasKilled = false;
    int exitCode = -1;
    QString told; ///< both outputs

    /// Whether it ended with the word that all was done.
    bool claimsSuccess() const { return !wasKilled && exitCode == 0; }
};

/// Whether everything is to be tried, or a small fixed part: environment INDICATORUI_ALL_FAULTS.
bool triesAllFaults();

/// Runs a program without a fault.
FaultEnd runWhole(const QStringList& words);

/// Runs a program to its end or to its death at a call.
/// @param folder  whose files count.
/// @param call  from 1 on.
FaultEnd runWithFault(const QStringList& words, const QString& folder, int call, const Fault& fault);

/// What a scenario tries.
struct FaultScenario
{
    QStringList words;
    QString folder;
    std::function<void()> prepare;                  ///< before each run: everything as it was before the step
    std::function<void(const FaultEnd& end)> check; ///< after each run
};

/// Tries a scenario at every call until a run that comes to no further one, with every fault; in the small
/// part one fault at each of some calls, the same ones every time. Prints how many were tried.
void tryFaults(const char* name, const FaultScenario& scenario);

} // namespace test
