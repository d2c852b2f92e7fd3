// SPDX-License-Identifier: MIT
#pragma once
/// @file The one way in which the programs write files.

#include <QByteArray>
#include <QString>

#include <optional>

namespace base {

/// Why a file was not written, and what it holds now.
struct WriteFault
{
    enum Left {
        OldContent, ///< what it held before, or there is still no such file
        NewContent, ///< what was to be written, though perhaps not yet safe from a loss of power
    };
    Left left = OldContent;
    QString path;
    QString cause; ///< in the words of the system

    /// One line each; control characters of the name are escaped.
    QString english() const;
    QString chinese() const;
};

/// Writes a file whole: into a new file beside it, which is brought to the disk and takes the place of the
/// old one only then. Whatever call of the system fails, and when the program is ended at any of them, the
/// file holds the old content or the new one, never a part. A link is followed. What is no ordinary file (a
/// folder, a pipe, a device) is refused and left alone. Permissions of an old file are kept.
/// @return nothing on success.
std::optional<WriteFault> writeWholeFile(const QString& path, const QByteArray& content);

/// Removes what writeWholeFile() left in a folder when the program was ended in the middle of it. Nobody may
/// be writing there.
void removeUnfinishedFiles(const QString& folder);

} // namespace base
