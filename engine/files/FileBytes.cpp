// SPDX-License-Identifier: MIT
#include "engine/files/FileBytes.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#ifdef _WIN32
#include <QString>

#include <windows.h>

#include <io.h>
#else
#include <unistd.h>
#endif

namespace engine {

namespace {

/// The calls of the platform under one name each.
#ifdef _WIN32
using State = struct _stat64;
constexpr int kFolder = _S_IFDIR, kOrdinary = _S_IFREG, kKinds = _S_IFMT;

int openFile(const std::string& path)
{
    const std::wstring name = QString::fromStdString(path).toStdWString();
    const int file = ::_wopen(name.c_str(), _O_RDONLY | _O_BINARY);
    State state = {};
    if (file < 0 && errno == EACCES && ::_wstat64(name.c_str(), &state) == 0
        && (state.st_mode & kKinds) == kFolder)
        errno = EISDIR;
    return file;
}
int stateOf(int file, State& state)
{
    return ::_fstat64(file, &state);
}
int closeFile(int file)
{
    return ::_close(file);
}
std::int64_t readFile(int file, char* bytes, unsigned count)
{
    // Not the C library's call: some remember the end of a file and do not see it grow.
    DWORD got = 0;
    if (::ReadFile(reinterpret_cast<HANDLE>(::_get_osfhandle(file)), bytes, count, &got, nullptr))
        return got;
    errno = EIO;
    return -1;
}
bool seekFile(int file, std::int64_t offset)
{
    return ::_lseeki64(file, offset, SEEK_SET) == offset;
}
#else
using State = struct stat;
constexpr unsigned kFolder = S_IFDIR, kOrdinary = S_IFREG, kKinds = S_IFMT;

/// Does not wait for the other end of a pipe.
int openFile(const std::string& path)
{
    return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}
int stateOf(int file, State& state)
{
    return ::fstat(file, &state);
}
int closeFile(int file)
{
    return ::close(file);
}
std::int64_t readFile(int file, char* bytes, unsigned count)
{
    return ::read(file, bytes, count);
}
bool seekFile(int file, std::int64_t offset)
{
    return ::lseek(file, static_cast<off_t>(offset), SEEK_SET) == offset;
}
#endif

std::string systemWords(int error)
{
    return std::generic_category().message(error);
}

} // namespace

FileBytes::~FileBytes()
{
    if (m_file >= 0)
        closeFile(m_file);
}

bool FileBytes::moveTo(std::int64_t offset)
{
    return m_file >= 0 && seekFile(m_file, offset);
}

bool FileBytes::open(const std::string& path)
{
    State state {};
    m_file = openFile(path);
    if (m_file < 0 || stateOf(m_file, state) != 0)
        m_reason = systemWords(errno);
    else if ((state.st_mode & kKinds) == kFolder)
        m_reason = systemWords(EISDIR);
    else if ((state.st_mode & kKinds) != kOrdinary)
        m_reason = "not an ordinary file";
    m_size = state.st_size;
    return m_reason.empty();
}

std::size_t FileBytes::read(char* bytes, std::size_t count)
{
    constexpr std::size_t most = 1 << 20;
    std::int64_t got = 0;
    do {
        got = readFile(m_file, bytes, static_cast<unsigned>(std::min(count, most)));
    } while (got < 0 && errno == EINTR);
    if (got < 0)
        m_reason = systemWords(errno);
    return got > 0 ? static_cast<std::size_t>(got) : 0;
}

} // namespace engine
