// SPDX-License-Identifier: MIT
/// @file A library to be loaded before a program (LD_PRELOAD): one of its calls on files of a folder fails,
/// or is the last thing that the program comes to.
///
/// FAILING_FOLDER  calls on files in this folder, and on the folder itself, count from 1 on
/// FAILING_CALL    number of the call that is not carried out
/// FAILING_ERROR   what that call answers in errno; "kill": the program is killed instead
/// FAILING_MARK    path of a file, outside the folder, that is made when that call is met

#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

bool isInFolder(const char* path)
{
    const char* folder = std::getenv("FAILING_FOLDER");
    return folder && path && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

bool isInFolder(int file)
{
    char link[32], path[PATH_MAX] = "";
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    return ::readlink(link, path, sizeof path - 1) > 0 && isInFolder(path);
}

/// Not by the calls that are counted.
void leaveMark()
{
    const char* mark = std::getenv("FAILING_MARK");
    if (!mark)
        return;
    const long file = syscall(SYS_openat, AT_FDCWD, mark, O_CREAT | O_WRONLY, 0600);
    syscall(SYS_close, file);
}

/// Counts a call. @return whether it is the one that fails; errno is set then.
bool fails()
{
    static std::atomic<int> s_calls { 0 };
    const char* chosen = std::getenv("FAILING_CALL");
    const char* error = std::getenv("FAILING_ERROR");
    if (!chosen || !error || ++s_calls != std::atoi(chosen))
        return false;
    leaveMark();
    if (std::strcmp(error, "kill") == 0)
        std::raise(SIGKILL);
    errno = std::atoi(error);
    return true;
}

/// Calls the system's own function, unless this call on the file or path is to fail.
template <typename Result, typename... Arguments, typename Place>
Result unlessItFails(const Place& place, const char* name, Arguments... arguments)
{
    if (isInFolder(place) && fails())
        return -1;
    const auto function = reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, name));
    return function(arguments...);
}

/// Permissions of the file that is made, where one is.
mode_t modeOf(int flags, std::va_list list)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(list, mode_t) : 0;
}

} // namespace

#define EXPORTED __attribute__((visibility("default")))

extern "C" {

EXPORTED int open(const char* path, int flags, ...)
{
    std::va_list list;
    va_start(list, flags);
    const mode_t mode = modeOf(flags, list);
    va_end(list);
    return unlessItFails<int>(path, "open", path, flags, mode);
}

EXPORTED int open64(const char* path, int flags, ...)
{
    std::va_list list;
    va_start(list, flags);
    const mode_t mode = modeOf(flags, list);
    va_end(list);
    return unlessItFails<int>(path, "open64", path, flags, mode);
}

EXPORTED int mkostemp(char* path, int flags)
{
    return unlessItFails<int>(path, "mkostemp", path, flags);
}

EXPORTED ssize_t read(int file, void* bytes, std::size_t count)
{
    return unlessItFails<ssize_t>(file, "read", file, bytes, count);
}

EXPORTED ssize_t pread64(int file, void* bytes, std::size_t count, off64_t place)
{
    return unlessItFails<ssize_t>(file, "pread64", file, bytes, count, place);
}

EXPORTED ssize_t write(int file, const void* bytes, std::size_t count)
{
    return unlessItFails<ssize_t>(file, "write", file, bytes, count);
}

EXPORTED ssize_t pwrite64(int file, const void* bytes, std::size_t count, off64_t place)
{
    return unlessItFails<ssize_t>(file, "pwrite64", file, bytes, count, place);
}

EXPORTED int ftruncate64(int file, off64_t size) noexcept
{
    return unlessItFails<int>(file, "ftruncate64", file, size);
}

EXPORTED int fchmod(int file, mode_t mode)
{
    return unlessItFails<int>(file, "fchmod", file, mode);
}

EXPORTED int fsync(int file)
{
    return unlessItFails<int>(file, "fsync", file);
}

EXPORTED int fdatasync(int file)
{
    return unlessItFails<int>(file, "fdatasync", file);
}

/// A close that fails has closed all the same.
EXPORTED int close(int file)
{
    const bool failed = isInFolder(file) && fails();
    const int error = errno;
    const int answer = reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "close"))(file);
    if (!failed)
        return answer;
    errno = error;
    return -1;
}

EXPORTED int rename(const char* from, const char* to) noexcept
{
    return unlessItFails<int>(to, "rename", from, to);
}

EXPORTED int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                       unsigned flags) noexcept
{
    return unlessItFails<int>(to, "renameat2", fromFolder, from, toFolder, to, flags);
}

EXPORTED int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    return unlessItFails<int>(to, "linkat", fromFolder, from, toFolder, to, flags);
}

EXPORTED int unlink(const char* path) noexcept
{
    return unlessItFails<int>(path, "unlink", path);
}

EXPORTED int mkdir(const char* path, mode_t mode)
{
    return unlessItFails<int>(path, "mkdir", path, mode);
}
}
