// SPDX-License-Identifier: MIT
#pragma once
/// @file A program's options.

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

namespace base {

/// Reads the arguments of a program. An option that is given twice counts as it stands last, but for those
/// whose values() are asked for. --help and --version are among every program's options.
class CommandLine
{
public:
    /// @param description  one line for --help.
    explicit CommandLine(const char* description);

    /// Adds an option. @param value  what its value stands for; empty: it takes none.
    void add(const char* name, const char* value, const char* description);
    /// Adds an option that has a letter as well, with a value.
    void add(const char* letter, const char* name, const char* value, const char* description);
    /// Lets arguments that are no options name files. @param name,description  for --help.
    void takeFiles(const char* name, const char* description);

    /// @param arguments  without the program's name.
    /// @return whether every argument is a known option with its value, or a file; else wrong() tells.
    bool parse(const QStringList& arguments);
    /// One line on the first wrong argument.
    QString wrong() const;

    bool has(const char* name) const { return m_parser.isSet(QString::fromLatin1(name)); }
    QString value(const char* name) const { return m_parser.value(QString::fromLatin1(name)); }
    QStringList values(const char* name) const { return m_parser.values(QString::fromLatin1(name)); }
    QStringList files() const { return m_parser.positionalArguments(); }
    /// Text of --help.
    QString help();

private:
    void addUsual();

    QCommandLineParser m_parser;
    bool m_takesFiles = false;
    bool m_hasUsual = false; ///< --help and --version stand, behind the others
};

} // namespace base
