// SPDX-License-Identifier: MIT
#include "host/TC/QReadFile.h"

#include "host/embedded/reading/TextDecoding.h"

#include <QFile>
#include <QFileInfo>

namespace TC {

namespace {

/// The bytes of a plain file of at most kLargestFile. @param[out] bytes  written only on success.
bool readPlainFile(const QString& path, QByteArray& bytes)
{
    const QFileInfo info(path);
    QFile file(path);
    if (!info.isFile() || info.size() > embedded::kLargestFile || !file.open(QIODevice::ReadOnly))
        return false;
    bytes = file.read(embedded::kLargestFile);
    return true;
}

} // namespace

bool QReadFile(QString& path, QList<QString>& lines, bool skipEmptyLines)
{
    lines.clear();
    QString text;
    {
        QByteArray bytes; // gone before the lines are made: both together would double the memory
        if (!readPlainFile(path, bytes))
            return false;
        text = embedded::decodeText(bytes);
    }
    return embedded::splitLines(text, skipEmptyLines, lines);
}

} // namespace TC
