// SPDX-License-Identifier: MIT
#include "host/embedded/reading/ProgramLimits.h"
#include "host/embedded/reading/program/ProcessLimits.h"

#include <sys/resource.h>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif
#include <unistd.h>

#include <csignal>
#include <cstdio>

namespace workbook {

namespace {

/// Address space of this process in bytes; 0 where the system does not tell, or where a sanitizer needs room
/// of its own.
rlim_t addressSpace()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return 0;
#endif
    unsigned long pages = 0;
    if (std::FILE* file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%lu", &pages) != 1)
            pages = 0;
        std::fclose(file);
    }
    return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

} // namespace

bool limitThisProcess(qint64 parent)
{
    // What the caller ignores or holds back is inherited.
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int signal : { SIGSEGV, SIGBUS, SIGFPE, SIGABRT, SIGALRM, SIGTERM, SIGPIPE })
        std::signal(signal, SIG_DFL);
#ifdef Q_OS_LINUX
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
    if (getppid() != parent) // it ended before the line above
        return false;

    const rlim_t space = addressSpace();
    const rlim_t memory = space + static_cast<rlim_t>(TC::embedded::kProgramMemory);
    const struct rlimit noCore = { 0, 0 }, bounded = { memory, memory };
    setrlimit(RLIMIT_CORE, &noCore);
    if (space > 0)
        setrlimit(RLIMIT_AS, &bounded);
    alarm(TC::embedded::kProgramSeconds);
    return true;
}

void useBinaryStreams() { }

} // namespace workbook
