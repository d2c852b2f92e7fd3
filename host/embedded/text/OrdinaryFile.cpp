// SPDX-License-Identifier: MIT
#include "host/embedded/text/OrdinaryFile.h"

#include <QFile>
#include <QFileInfo>

namespace TC::embedded {

QString readOrdinaryFile(const QString& path, int most, QByteArray& bytes)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return QStringLiteral("is no ordinary file");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    const QByteArray read = file.read(most + qint64 { 1 }); // the size that a file claims may be another
    if (file.error() != QFileDevice::NoError)
        return file.errorString();
    if (read.size() > most)
        return QStringLiteral("is larger than %1 bytes").arg(most);
    bytes = read;
    return QString();
}

} // namespace TC::embedded
