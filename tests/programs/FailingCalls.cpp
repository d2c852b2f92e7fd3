/// @file A library to be loaded before a program (LD_PRELOAD): one of its calls on files of a folder fails.
///
/// FAILING_FOLDER  calls on files in this folder count, from 1 on
/// FAILING_CALL    number of the call that is not carried out
/// FAILING_ERROR   what that call answers in errno

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
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

/// Counts a call. @return whether it is the one that fails; errno is set then.
bool fails()
{
    static int s_calls = 0;
    const char* chosen = std::getenv("FAILING_CALL");
    const char* error = std::getenv("FAILING_ERROR");
    if (!chosen || !error || ++s_calls != std::atoi(chosen))
        return false;
    errno = std::atoi(error);
    return true;
}

template <typename Function>
Function next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

__attribute__((visibility("default"))) int mkostemp(char* path, int flags)
{
    if (isInFolder(path) && fails())
        return -1;
    return next<int (*)(char*, int)>("mkostemp")(path, flags);
}

__attribute__((visibility("default"))) ssize_t write(int file, const void* bytes, std::size_t count)
{
    if (isInFolder(file) && fails())
        return -1;
    return next<ssize_t (*)(int, const void*, std::size_t)>("write")(file, bytes, count);
}

__attribute__((visibility("default"))) int fchmod(int file, mode_t mode)
{
    if (isInFolder(file) && fails())
        return -1;
    return next<int (*)(int, mode_t)>("fchmod")(file, mode);
}

__attribute__((visibility("default"))) int fsync(int file)
{
    if (isInFolder(file) && fails())
        return -1;
    return next<int (*)(int)>("fsync")(file);
}

/// A close that fails has closed all the same.
__attribute__((visibility("default"))) int close(int file)
{
    const bool failed = isInFolder(file) && fails();
    const int error = errno;
    const int answer = next<int (*)(int)>("close")(file);
    if (!failed)
        return answer;
    errno = error;
    return -1;
}

__attribute__((visibility("default"))) int rename(const char* from, const char* to) noexcept
{
    if (isInFolder(to) && fails())
        return -1;
    return next<int (*)(const char*, const char*)>("rename")(from, to);
}
}
