// SPDX-License-Identifier: MIT
#include "apps/base/MemoryShortage.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>

#include <unistd.h>

namespace base {

namespace {

const char* s_program = "";

/// Takes no memory.
void print(const char* text)
{
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text, std::strlen(text));
}

[[noreturn]] void endForWantOfMemory()
{
    print(s_program);
    print(": not enough memory\n");
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
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow is a failed write, not the program's end
    try {
        return work(argc, argv);
    } catch (const std::bad_alloc&) {
        endForWantOfMemory();
    }
}

} // namespace base
