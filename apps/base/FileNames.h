// SPDX-License-Identifier: MIT
#pragma once
/// @file Names of files, of whatever bytes they are made.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>

#include <filesystem>
#include <memory>

namespace base {

/// The name as a text that loses nothing: a byte that is no UTF-8 becomes a lone low surrogate, U+DC00 plus
/// the byte, which no valid name holds.
QString nameFromBytes(const QByteArray& bytes);

/// The bytes of a name, whether it comes from nameFromBytes() or from Qt.
QByteArray bytesOfName(const QString& name);

/// The arguments of a program behind its own name, from those that main() was given. The application object
/// must exist; it takes out what is its own.
QStringList argumentsOf(int argc, char** argv);

/// A name for the standard library, and back.
std::filesystem::path pathOf(const QString& name);
QString nameOf(const std::filesystem::path& path);

/// A text as one line of a message: control characters, line ends of any kind and bytes that are no text are
/// written as \n, \t or \xNN, marks that turn the direction of writing as \uNNNN.
QString printable(const QString& text);

/// The name of the file that a dropped or pasted address means; empty when it is no local file.
QString nameFromUrl(const QUrl& url);

/// A file of any name under one that Qt opens as well: its own, or, where that holds bytes that are no text,
/// a link in a folder that goes with this object.
class PlainlyNamed
{
public:
    explicit PlainlyNamed(const QString& name);

    /// @return the name for Qt; @p name of the constructor when no link could be made.
    QString name() const { return m_name; }

private:
    QString m_name;
    std::unique_ptr<QTemporaryDir> m_folder; ///< null when no link is needed
};

} // namespace base
