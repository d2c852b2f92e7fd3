// SPDX-License-Identifier: MIT
#pragma once
/// @file The one way in which the programs write files.

#include <QByteArray>
#include <QString>

#include <cstddef>
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

/// A file that is written whole: into a new file beside it, which is brought to the disk and takes the place
/// of the old one only when it is finished. Whatever call of the system fails, and when the program is ended
/// at any of them, the file holds the old content or the new one, never a part. A link is followed. What is
/// no ordinary file (a folder, a pipe, a device) is refused and left alone. Permissions of an old file are
/// kept.
class WholeFile
{
public:
    explicit WholeFile(const QString& path);
    /// Leaves the old content unless finish() was called.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// Writes a block behind the others. @return false after a failure, which finish() tells.
    bool append(const char* bytes, std::size_t count);

    /// Lets the blocks take the place of the old content. @return nothing on success.
    std::optional<WriteFault> finish();

private:
    void fail(const QString& cause);
    bool keep(bool done);

    WriteFault m_fault { WriteFault::OldContent, QString(), QString() };
    bool m_failed = false;
    QString m_target; ///< where the path leads
    QString m_beside; ///< the new file; empty while there is none
    int m_descriptor = -1;
    unsigned m_permissions = 0;
};

/// Writes a file whole, in one block. @return nothing on success.
std::optional<WriteFault> writeWholeFile(const QString& path, const QByteArray& content);

/// Removes what a WholeFile left in a folder when the program was ended in the middle of it. Nobody may
/// be writing there.
void removeUnfinishedFiles(const QString& folder);

} // namespace base
