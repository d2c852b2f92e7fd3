// SPDX-License-Identifier: MIT
#pragma once
/// @file Programs with a library in front of all others.

#include <QFileInfo>
#include <QProcessEnvironment>

namespace test {

/// Has the loader put a library in front of all others in programs that get this environment. It would cut a
/// path at the blanks, so it is told name and folder.
inline void preload(QProcessEnvironment& environment, const QString& library)
{
    const QFileInfo file(library);
    QStringList folders { file.path() };
    const QString others = environment.value(QStringLiteral("LD_LIBRARY_PATH"));
    if (!others.isEmpty())
        folders << others;
    environment.insert(QStringLiteral("LD_PRELOAD"), file.fileName());
    environment.insert(QStringLiteral("LD_LIBRARY_PATH"), folders.join(QLatin1Char(':')));
}

} // namespace test
