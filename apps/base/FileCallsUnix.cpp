// SPDX-License-Identifier: MIT
#include "apps/base/FileCalls.h"
#include "apps/base/FileNames.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace base {

int openForReading(const QString& name)
{
    return ::open(bytesOfName(name).constData(), O_RDONLY | O_CLOEXEC);
}

bool closeFile(int file)
{
    return ::close(file) == 0;
}

QByteArray readAt(int file, qint64 offset, qint64 count)
{
    QByteArray bytes(static_cast<int>(count), '\0');
    const ssize_t got = ::pread(file, bytes.data(), static_cast<std::size_t>(bytes.size()), offset);
    bytes.truncate(static_cast<int>(std::max<ssize_t>(0, got)));
    return bytes;
}

std::optional<FileState> stateOf(int file)
{
    constexpr qint64 nsPerSecond = 1'000'000'000;
    struct stat found = {};
    if (::fstat(file, &found) != 0 || !S_ISREG(found.st_mode))
        return std::nullopt;
    return FileState { found.st_dev, found.st_ino, found.st_size,
                       found.st_mtim.tv_sec * nsPerSecond + found.st_mtim.tv_nsec };
}

namespace whole {

namespace {

QByteArray folderOf(const QByteArray& path)
{
    const int slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : path.left(slash);
}

} // namespace

QString endOfLinks(const QString& path)
{
    const QByteArray bytes = bytesOfName(path);
    struct stat state;
    if (::lstat(bytes.constData(), &state) != 0 || !S_ISLNK(state.st_mode))
        return path;
    char end[PATH_MAX];
    return ::realpath(bytes.constData(), end) ? nameFromBytes(end) : QString();
}

std::optional<unsigned> permissionsFor(const QString& path)
{
    struct stat state;
    if (::stat(bytesOfName(path).constData(), &state) == 0)
        return S_ISREG(state.st_mode) ? std::optional<unsigned>(state.st_mode & 07777) : std::nullopt;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

int createBeside(const QString& path, const QString& beginning, QString& name)
{
    QByteArray bytes = folderOf(bytesOfName(path)) + '/' + beginning.toLatin1() + "XXXXXX";
    const int file = ::mkostemp(bytes.data(), O_CLOEXEC);
    if (file >= 0)
        name = nameFromBytes(bytes);
    return file;
}

bool writeAll(int file, const char* bytes, std::size_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(file, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
    return true;
}

bool bringToDisk(int file, unsigned permissions)
{
    return ::fchmod(file, permissions) == 0 && ::fsync(file) == 0;
}

bool replace(const QString& path, const QString& by, unsigned)
{
    return ::rename(bytesOfName(by).constData(), bytesOfName(path).constData()) == 0;
}

bool syncFolderOf(const QString& path)
{
    const int folder = ::open(folderOf(bytesOfName(path)).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return true;
    const bool done = ::fsync(folder) == 0 || errno == EINVAL || errno == ENOTSUP;
    const int error = errno;
    ::close(folder);
    errno = error;
    return done;
}

void remove(const QString& name)
{
    ::unlink(bytesOfName(name).constData());
}

QString lastFault()
{
    return qt_error_string(errno);
}

} // namespace whole

} // namespace base
