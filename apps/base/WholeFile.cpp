// SPDX-License-Identifier: MIT
#include "apps/base/WholeFile.h"

#include "apps/base/FileNames.h"

#include <QDir>
#include <QStringList>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

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

/// A descriptor that is closed at the end.
class Descriptor
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

    /// Closes it now. @return false, with errno set, when the system could not keep what was written.
    bool close()
    {
        const int number = m_number;
        m_number = -1;
        return ::close(number) == 0;
    }

private:
    int m_number;
};

bool writeAll(int file, const QByteArray& content)
{
    for (int written = 0; written < content.size();) {
        const ssize_t count =
            ::write(file, content.constData() + written, static_cast<std::size_t>(content.size() - written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        written += static_cast<int>(count);
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
    const Descriptor open(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return !open.isOpen() || ::fsync(open.number()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

/// Writes the new file beside the old one. @return whether it is safe on the disk; else errno tells why.
bool writeBeside(QByteArray& beside, const QByteArray& content, mode_t permissions)
{
    Descriptor file(::mkostemp(beside.data(), O_CLOEXEC));
    if (!file.isOpen())
        return false;
    const bool done = writeAll(file.number(), content) && ::fchmod(file.number(), permissions) == 0
        && ::fsync(file.number()) == 0 && file.close();
    if (!done) {
        const int error = errno;
        ::unlink(beside.constData());
        errno = error;
    }
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

std::optional<WriteFault> writeWholeFile(const QString& path, const QByteArray& content)
{
    WriteFault fault { WriteFault::OldContent, path, QString() };
    const QByteArray target = endOfLinks(bytesOfName(path));
    if (target.isEmpty()) {
        fault.cause = systemWords(errno);
        return fault;
    }
    const std::optional<mode_t> permissions = permissionsFor(target);
    if (!permissions) {
        fault.cause = QStringLiteral("not an ordinary file");
        return fault;
    }
    const QByteArray folder = folderOf(target);
    QByteArray beside = folder + '/' + kUnfinished.toLatin1() + "XXXXXX";
    if (!writeBeside(beside, content, *permissions)) {
        fault.cause = systemWords(errno);
        return fault;
    }
    if (::rename(beside.constData(), target.constData()) != 0) {
        fault.cause = systemWords(errno);
        ::unlink(beside.constData());
        return fault;
    }
    if (!syncFolder(folder)) {
        fault.left = WriteFault::NewContent;
        fault.cause = systemWords(errno);
        return fault;
    }
    return std::nullopt;
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
