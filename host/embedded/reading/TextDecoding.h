// SPDX-License-Identifier: MIT
#pragma once
/// @file From the bytes of a text file to its lines.

#include "host/HostExport.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace TC::embedded {

constexpr qint64 kLargestFile = qint64 { 64 } << 20; ///< bytes
constexpr int kMostLines = 2'000'000;

/// The text of bytes of unknown encoding: byte-order mark, NUL parity, strict UTF-8, else GB18030.
INDICATORHOST_EXPORT QString decodeText(const QByteArray& bytes);

/// The lines of a text without their ends ("\n", "\r\n", "\r").
/// @return false, with `lines` empty, when there are more than kMostLines.
bool splitLines(const QString& text, bool skipEmptyLines, QList<QString>& lines);

} // namespace TC::embedded
