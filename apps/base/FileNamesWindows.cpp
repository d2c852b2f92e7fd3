// SPDX-License-Identifier: MIT
// Here names are texts: there are no bytes behind them.
#include "apps/base/FileNames.h"

#include <QCoreApplication>

namespace base {

/// Those of main() are in the code page of the machine, which does not hold every name.
QStringList argumentsOf(int, char**)
{
    return QCoreApplication::arguments().mid(1);
}

std::filesystem::path pathOf(const QString& name)
{
    return name.toStdWString();
}

QString nameOf(const std::filesystem::path& path)
{
    return QString::fromStdWString(path.generic_wstring());
}

QString nameFromUrl(const QUrl& url)
{
    return url.toLocalFile();
}

PlainlyNamed::PlainlyNamed(const QString& name)
    : m_name(name)
{
}

} // namespace base
