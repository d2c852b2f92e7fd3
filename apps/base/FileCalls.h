// SPDX-License-Identifier: MIT
#pragma once
/// @file The calls of the system on files of any name, one source a system.
///
/// Files are told apart by descriptors of the C library. Where a call fails, lastFault() tells why.

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <optional>

namespace base {

/// Opens a file of any name for reading; nobody else is kept from writing, replacing or removing it.
/// @return the descriptor, which the caller closes; -1 when it cannot be opened.
int openForReading(const QString& name);
/// @return false when the system could not keep what was written.
bool closeFile(int file);
/// Up to `count` bytes from an offset on; fewer at the end of the file, none when it cannot be read.
QByteArray readAt(int file, qint64 offset, qint64 count);

/// What tells one state of a file from another.
struct FileState
{
    quint64 device = 0, number = 0; ///< which file it is
    qint64 size = 0, changedNs = 0;
};
/// Nothing for what is no ordinary file.
std::optional<FileState> stateOf(int file);

/// The steps by which a file is written whole; see WholeFile.
namespace whole {

/// Where a path leads: itself, or the end of its links. Empty for a link that leads nowhere.
QString endOfLinks(const QString& path);
/// What the new file takes over of an old one: permissions, attributes. Nothing for what is no ordinary file.
std::optional<unsigned> permissionsFor(const QString& path);
/// Makes a new, empty file in the folder of a path. @return its descriptor and name; -1 when it cannot.
int createBeside(const QString& path, const QString& beginning, QString& name);
bool writeAll(int file, const char* bytes, std::size_t count);
bool bringToDisk(int file, unsigned permissions);
/// Lets a file take the place of another in one step.
bool replace(const QString& path, const QString& by, unsigned permissions);
/// Brings the entry of a file in its folder to the disk; what cannot do that is not asked twice.
bool syncFolderOf(const QString& path);
void remove(const QString& name);

/// Why the last call failed, in the words of the system.
QString lastFault();

} // namespace whole

} // namespace base
