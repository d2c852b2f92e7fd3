// SPDX-License-Identifier: MIT
#include "apps/base/FileCalls.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <string>

#include <fcntl.h>
#include <io.h>

namespace base {

namespace {

/// The name for the system: whole, with separators of its own, and of any length.
std::wstring wide(const QString& name)
{
    if (name.startsWith(QLatin1String("\\\\")) || name.startsWith(QLatin1String("//")))
        return QDir::toNativeSeparators(name).toStdWString(); // a share, or prefixed already
    const QString path = QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(name).absoluteFilePath()));
    return (QStringLiteral("\\\\?\\") + path).toStdWString();
}

HANDLE handleOf(int file)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(file));
}

HANDLE openAnyKind(const std::wstring& name, DWORD access, DWORD how, DWORD flags)
{
    return CreateFileW(name.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                       how, flags, nullptr);
}

int descriptorOf(HANDLE handle, int flags)
{
    if (handle == INVALID_HANDLE_VALUE)
        return -1;
    const int file =
        _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), flags | _O_BINARY | _O_NOINHERIT);
    if (file < 0)
        CloseHandle(handle);
    return file;
}

qint64 inOne(DWORD high, DWORD low)
{
    return static_cast<qint64>(quint64 { high } << 32 | low);
}

bool isMissing(DWORD error)
{
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

/// Virus scanners and indexers hold files for moments.
bool isForAMoment(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_ACCESS_DENIED;
}

} // namespace

int openForReading(const QString& name)
{
    const HANDLE handle = openAnyKind(wide(name), GENERIC_READ, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    if (handle == INVALID_HANDLE_VALUE)
        errno = isMissing(GetLastError()) ? ENOENT : EACCES;
    return descriptorOf(handle, _O_RDONLY);
}

bool closeFile(int file)
{
    return _close(file) == 0;
}

QByteArray readAt(int file, qint64 offset, qint64 count)
{
    QByteArray bytes(static_cast<int>(count), '\0');
    OVERLAPPED from = {};
    from.Offset = static_cast<DWORD>(offset & 0xFFFFFFFF);
    from.OffsetHigh = static_cast<DWORD>(offset >> 32);
    DWORD got = 0;
    if (!ReadFile(handleOf(file), bytes.data(), static_cast<DWORD>(bytes.size()), &got, &from))
        got = 0;
    bytes.truncate(static_cast<int>(got));
    return bytes;
}

std::optional<FileState> stateOf(int file)
{
    BY_HANDLE_FILE_INFORMATION found = {};
    if (GetFileType(handleOf(file)) != FILE_TYPE_DISK || !GetFileInformationByHandle(handleOf(file), &found))
        return std::nullopt;
    const FILETIME& changed = found.ftLastWriteTime; // in units of 100 ns
    return FileState { found.dwVolumeSerialNumber,
                       static_cast<quint64>(inOne(found.nFileIndexHigh, found.nFileIndexLow)),
                       inOne(found.nFileSizeHigh, found.nFileSizeLow),
                       inOne(changed.dwHighDateTime, changed.dwLowDateTime) };
}

namespace whole {

QString endOfLinks(const QString& path)
{
    const std::wstring name = wide(path);
    const DWORD attributes = GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return path;
    const HANDLE end = openAnyKind(name, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (end == INVALID_HANDLE_VALUE)
        return QString();
    std::wstring found(32'768, L'\0'); // the longest path that the system has
    const DWORD length = GetFinalPathNameByHandleW(end, found.data(), static_cast<DWORD>(found.size()), 0);
    CloseHandle(end);
    found.resize(std::min<std::size_t>(length, found.size()));
    return QString::fromStdWString(found);
}

std::optional<unsigned> permissionsFor(const QString& path)
{
    // Without the prefix for long names, under which "NUL" would be a file.
    const std::wstring plain = QDir::toNativeSeparators(path).toStdWString();
    const HANDLE old = openAnyKind(plain, FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (old != INVALID_HANDLE_VALUE) {
        const bool isOnDisk = GetFileType(old) == FILE_TYPE_DISK;
        CloseHandle(old);
        if (!isOnDisk)
            return std::nullopt;
    }
    const DWORD attributes = GetFileAttributesW(wide(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return FILE_ATTRIBUTE_NORMAL;
    return attributes & FILE_ATTRIBUTE_DIRECTORY ? std::nullopt : std::optional<unsigned>(attributes);
}

int createBeside(const QString& path, const QString& beginning, QString& name)
{
    constexpr int attempts = 100;
    const QString folder = QFileInfo(path).path() + QLatin1Char('/') + beginning;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const quint32 number = QRandomGenerator::system()->generate() & 0xFFFFFF;
        name = folder + QString::number(number, 16).rightJustified(6, QLatin1Char('0'));
        const int file = descriptorOf(
            openAnyKind(wide(name), GENERIC_WRITE, CREATE_NEW, FILE_ATTRIBUTE_NORMAL), _O_WRONLY);
        if (file >= 0 || GetLastError() != ERROR_FILE_EXISTS)
            return file;
    }
    return -1;
}

bool writeAll(int file, const char* bytes, std::size_t count)
{
    constexpr std::size_t most = 1 << 30; // the system counts in 32 bits
    while (count > 0) {
        DWORD written = 0;
        if (!WriteFile(handleOf(file), bytes, static_cast<DWORD>(std::min(count, most)), &written, nullptr))
            return false;
        bytes += written;
        count -= written;
    }
    return true;
}

bool bringToDisk(int file, unsigned)
{
    return FlushFileBuffers(handleOf(file)) != 0;
}

bool replace(const QString& path, const QString& by, unsigned permissions)
{
    constexpr int attempts = 20;
    constexpr DWORD pauseMs = 50;
    if (permissions & FILE_ATTRIBUTE_READONLY) { // not every file system refuses it by itself
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    const std::wstring from = wide(by), to = wide(path);
    if (!SetFileAttributesW(from.c_str(), permissions))
        return false;
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return true;
        if (attempt == attempts || !isForAMoment(GetLastError()))
            return false;
        Sleep(pauseMs);
    }
}

/// MoveFileExW has written through.
bool syncFolderOf(const QString&)
{
    return true;
}

void remove(const QString& name)
{
    DeleteFileW(wide(name).c_str());
}

QString lastFault()
{
    return qt_error_string(static_cast<int>(GetLastError()));
}

} // namespace whole

} // namespace base
