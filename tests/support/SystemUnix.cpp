// SPDX-License-Identifier: MIT
#include "tests/support/SmallFiles.h"
#include "tests/support/System.h"

#include <QFile>

#include <csignal>
#include <ctime>
#include <utility>

#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace test {

namespace {

mode_t modeOf(const QString& path)
{
    struct stat state = {};
    return ::stat(QFile::encodeName(path).constData(), &state) == 0 ? state.st_mode : 0;
}

} // namespace

bool makePipe(const QString& path)
{
    return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

bool isPipe(const QString& path)
{
    return S_ISFIFO(modeOf(path));
}

bool isDevice(const QString& path)
{
    return S_ISCHR(modeOf(path));
}

bool setPermissions(const QString& path, unsigned permissions)
{
    return ::chmod(QFile::encodeName(path).constData(), permissions) == 0;
}

unsigned permissionsOf(const QString& path)
{
    return modeOf(path) & 07777;
}

bool becomeStranger()
{
    return ::geteuid() != 0 || ::seteuid(65534) == 0;
}

void becomeOneself()
{
    [[maybe_unused]] const int done = ::seteuid(::getuid());
}

bool lockFile(int file)
{
    return ::flock(file, LOCK_EX) == 0;
}

SmallFiles::SmallFiles(quint64 bytes)
    : m_handler(std::signal(SIGXFSZ, SIG_IGN))
{
    rlimit limit {};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    m_former = std::exchange(limit.rlim_cur, bytes);
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

SmallFiles::~SmallFiles()
{
    rlimit limit {};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = m_former;
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, m_handler);
}

void blendTextsAsElsewhere() { }

void setTimeZone(const QByteArray& name)
{
    qputenv("TZ", name);
    ::tzset();
}

bool isTimeZone(const QByteArray&)
{
    return true; // what names no file is a rule, or UTC
}

std::optional<std::tm> systemTime(std::int64_t seconds)
{
    const auto time = static_cast<std::time_t>(seconds);
    std::tm local {};
    return localtime_r(&time, &local) ? std::optional(local) : std::nullopt;
}

} // namespace test
