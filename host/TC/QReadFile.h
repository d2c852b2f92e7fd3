// SPDX-License-Identifier: MIT
#pragma once
/// @file Reading of text files of unknown encoding.

#include "host/HostExport.h"

#include <QList>
#include <QString>

namespace TC {

/// Reads the lines of a text file. The encoding is found by rule: a byte-order mark (UTF-8, UTF-16), else the
/// side on which NUL bytes stand (UTF-16 without mark), else UTF-8 when every byte fits it, else GB18030.
/// Line ends of every platform ("\n", "\r\n", "\r") are removed; nothing else is trimmed.
///
/// @param path  not changed.
/// @param[out] lines  replaced; the line behind a last line end counts only when it is not empty.
/// @param skipEmptyLines  true leaves out lines without a character.
/// @return whether the file was read. False, with `lines` empty: no plain file, no permission, or larger
///        than the host reads.
INDICATORHOST_EXPORT bool QReadFile(QString& path, QList<QString>& lines, bool skipEmptyLines);

} // namespace TC
