// SPDX-License-Identifier: MIT
#include "apps/base/MemoryShortage.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

namespace base {

namespace {

const char* s_program = "";

[[noreturn]] void endForWantOfMemory()
{
    std::fputs(s_program, stderr); // has no buffer, so that it takes no memory
    std::fputs(": not enough memory\n", stderr);
    std::_Exit(kFailed);
}

/// Where exceptions end that nothing catches.
void onTerminate()
{
    if (const std::exception_ptr thrown = std::current_exception()) {
        try {
            std::rethrow_exception(thrown);
        } catch (const std::bad_alloc&) {
            endForWantOfMemory();
        } catch (...) {
        }
    }
    std::abort();
}

} // namespace

int runWithinMemory(const char* program, int (*work)(int, char**), int argc, char** argv)
{
    s_program = program;
    std::set_terminate(onTerminate);
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow is a failed write, not the program's end
#endif
    try {
        return work(argc, argv);
    } catch (const std::bad_alloc&) {
        endForWantOfMemory();
    }
}

} // namespace base
