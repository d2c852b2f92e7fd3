// SPDX-License-Identifier: MIT
#include "tests/support/ChildRun.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace test {

ChildEnd runInChild(const std::function<int()>& work, unsigned seconds)
{
    const pid_t child = fork();
    if (child == 0) {
        alarm(seconds);
        _exit(work());
    }
    ChildEnd end;
    int status = 0;
    struct rusage usage = {};
    if (child > 0 && wait4(child, &status, 0, &usage) == child) {
        end.finished = WIFEXITED(status);
        end.answer = end.finished ? WEXITSTATUS(status) : -1;
        end.peakMiB = usage.ru_maxrss / 1024;
    }
    return end;
}

} // namespace test
