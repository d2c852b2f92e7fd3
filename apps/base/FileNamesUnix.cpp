// SPDX-License-Identifier: MIT
#include "apps/base/FileNames.h"

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

namespace base {

QStringList argumentsOf(int argc, char** argv)
{
    QStringList all;
    for (int i = 1; i < argc; ++i)
        all << nameFromBytes(argv[i]);
    return all;
}

std::filesystem::path pathOf(const QString& name)
{
    return bytesOfName(name).toStdString();
}

QString nameOf(const std::filesystem::path& path)
{
    return nameFromBytes(QByteArray::fromStdString(path.native()));
}

QString nameFromUrl(const QUrl& url)
{
    if (!url.isLocalFile())
        return QString();
    return nameFromBytes(QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()));
}

PlainlyNamed::PlainlyNamed(const QString& name)
    : m_name(name)
{
    const QByteArray bytes = bytesOfName(name);
    if (QString::fromUtf8(bytes).toUtf8() == bytes)
        return;
    m_folder = std::make_unique<QTemporaryDir>();
    const QString link = m_folder->filePath(QStringLiteral("file.") + QFileInfo(name).suffix());
    const QByteArray target =
        QFileInfo(name).isAbsolute() ? bytes : bytesOfName(QDir::currentPath()) + '/' + bytes;
    if (m_folder->isValid() && ::symlink(target.constData(), QFile::encodeName(link).constData()) == 0)
        m_name = link;
}

} // namespace base
