// SPDX-License-Identifier: MIT
#include "tests/support/StepKiller.h"

#include <QByteArray>

#include <cerrno>
#include <csignal>
#include <vector>

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace test {

namespace {

constexpr int kCannotTrace = 98;
constexpr int kCannotStart = 99;
constexpr int kSystemCallStop = SIGTRAP | 0x80; // as PTRACE_O_TRACESYSGOOD marks it

pid_t startTraced(const QStringList& command)
{
    std::vector<QByteArray> texts;
    for (const QString& word : command)
        texts.push_back(word.toUtf8());
    std::vector<char*> words;
    for (QByteArray& text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);

    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            _exit(kCannotTrace);
        execv(words.front(), words.data());
        _exit(kCannotStart);
    }
    return child;
}

/// The child's next state; 0 when it cannot be told.
int nextState(pid_t child)
{
    int state = 0;
    while (waitpid(child, &state, 0) < 0) {
        if (errno != EINTR)
            return 0;
    }
    return state;
}

Ending kill(pid_t child)
{
    ::kill(child, SIGKILL);
    while (WIFSTOPPED(nextState(child))) { }
    return Ending::Killed;
}

} // namespace

Ending runAndKill(const QStringList& command, int calls)
{
    const pid_t child = startTraced(command);
    if (child < 0)
        return Ending::Unavailable;
    int state = nextState(child);
    if (!WIFSTOPPED(state)) // ended without the stop that a traced exec makes
        return Ending::Unavailable;
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    while (WSTOPSIG(state) != SIGSTOP) {
        ptrace(PTRACE_CONT, child, nullptr, nullptr);
        state = nextState(child);
        if (!WIFSTOPPED(state))
            return Ending::Finished;
    }
    for (int stops = 0;;) { // an entry and a return for each call
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        state = nextState(child);
        if (!WIFSTOPPED(state))
            return Ending::Finished;
        // The first stops are the end of raise() itself and are counted as calls like all others.
        if (WSTOPSIG(state) == kSystemCallStop && stops++ / 2 >= calls)
            return kill(child);
    }
}

} // namespace test
