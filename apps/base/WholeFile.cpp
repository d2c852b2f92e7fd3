// SPDX-License-Identifier: MIT
#include "apps/base/WholeFile.h"

#include "apps/base/FileNames.h"

#include <QDir>
#include <QStringList>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace base {

namespace {

const QString kUnfinished = QStringLiteral(".indicatorui-"); // beginning of names of files in the making

QString systemWords(int error)
{
    return qt_error_string(error);
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

/// Where a path leads: itself, or the end of its links. Empty, with errno set, for a link that leads nowhere.
QByteArray endOfLinks(const QByteArray& path)
{
    struct stat state;
    if (::lstat(path.constData(), &state) != 0 || !S_ISLNK(state.st_mode))
        return path;
    char end[PATH_MAX];
    return ::realpath(path.constData(), end) ? QByteArray(end) : QByteArray();
}

/// Permissions of the file to be replaced, or of a new one; nothing for what is no ordinary file.
std::optional<mode_t> permissionsFor(const QByteArray& path)
{
    struct stat state;
    if (::stat(path.constData(), &state) == 0)
        return S_ISREG(state.st_mode) ? std::optional<mode_t>(state.st_mode & 07777) : std::nullopt;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

QByteArray folderOf(const QByteArray& path)
{
    const int slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : path.left(slash);
}

/// Brings the entry of a folder to the disk; file systems that cannot are not asked twice.
bool syncFolder(const QByteArray& folder)
{
    const int open = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (open < 0)
        return true;
    const bool done = ::fsync(open) == 0 || errno == EINVAL || errno == ENOTSUP;
    const int error = errno;
    ::close(open);
    errno = error;
    return done;
}

} // namespace

QString WriteFault::english() const
{
    const QString state =
        left == OldContent ? QStringLiteral("nothing was written") : QStringLiteral("the file is written");
    return QStringLiteral("%1: %2; %3").arg(printable(path), cause, state);
}

QString WriteFault::chinese() const
{
    const QString state = left == OldContent ? QStringLiteral("未写入，原内容不变")
                                             : QStringLiteral("内容已写入，但可能经不起断电");
    return QStringLiteral("%1：%2（%3）").arg(printable(path), state, cause);
}

WholeFile::WholeFile(const QString& path)
    : m_target(endOfLinks(bytesOfName(path)))
{
    m_fault.path = path;
    if (m_target.isEmpty()) {
        fail(systemWords(errno));
    } else if (const std::optional<mode_t> permissions = permissionsFor(m_target)) {
        m_permissions = *permissions;
        open();
    } else {
        fail(QStringLiteral("not an ordinary file"));
    }
}

WholeFile::~WholeFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    if (!m_beside.isEmpty())
        ::unlink(m_beside.constData());
}

bool WholeFile::append(const char* bytes, std::size_t count)
{
    return !m_failed && keep(writeAll(m_descriptor, bytes, count));
}

std::optional<WriteFault> WholeFile::finish()
{
    const bool isOnDisk =
        !m_failed && keep(::fchmod(m_descriptor, m_permissions) == 0 && ::fsync(m_descriptor) == 0);
    // Closing may tell that the system could not keep what was written.
    if (!isOnDisk || !keep(::close(std::exchange(m_descriptor, -1)) == 0)
        || !keep(::rename(m_beside.constData(), m_target.constData()) == 0))
        return m_fault;
    m_beside.clear();
    if (!syncFolder(folderOf(m_target))) {
        m_fault.left = WriteFault::NewContent;
        fail(systemWords(errno));
        return m_fault;
    }
    return std::nullopt;
}

/// Makes the new file.
void WholeFile::open()
{
    m_beside = folderOf(m_target) + '/' + kUnfinished.toLatin1() + "XXXXXX";
    m_descriptor = ::mkostemp(m_beside.data(), O_CLOEXEC);
    if (m_descriptor >= 0)
        return;
    fail(systemWords(errno));
    m_beside.clear();
}

void WholeFile::fail(const QString& cause)
{
    m_fault.cause = cause;
    m_failed = true;
}

/// Takes note of a call that failed, in the words of errno. @return whether it was done.
bool WholeFile::keep(bool done)
{
    if (!done)
        fail(systemWords(errno));
    return done;
}

std::optional<WriteFault> writeWholeFile(const QString& path, const QByteArray& content)
{
    WholeFile file(path);
    file.append(content.constData(), static_cast<std::size_t>(content.size()));
    return file.finish();
}

void removeUnfinishedFiles(const QString& folder)
{
    QDir inside(folder);
    const QStringList names =
        inside.entryList({ kUnfinished + QStringLiteral("??????") }, QDir::Files | QDir::Hidden);
    for (const QString& name : names)
        inside.remove(name);
}

} // namespace base
