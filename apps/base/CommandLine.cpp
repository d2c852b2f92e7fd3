// SPDX-License-Identifier: MIT
#include "apps/base/CommandLine.h"

namespace base {

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

CommandLine::CommandLine(const char* description)
{
    m_parser.setApplicationDescription(text(description));
}

void CommandLine::add(const char* name, const char* value, const char* description)
{
    m_parser.addOption({ text(name), text(description), text(value) });
}

void CommandLine::add(const char* letter, const char* name, const char* value, const char* description)
{
    m_parser.addOption({ { text(letter), text(name) }, text(description), text(value) });
}

void CommandLine::takeFiles(const char* name, const char* description)
{
    m_takesFiles = true;
    m_parser.addPositionalArgument(text(name), text(description), QStringLiteral("[%1 ...]").arg(text(name)));
}

void CommandLine::addUsual()
{
    if (m_hasUsual)
        return;
    m_hasUsual = true;
    m_parser.addOption({ { text("h"), text("help") }, text("show this text") });
    m_parser.addOption({ text("version"), text("show the version") });
}

bool CommandLine::parse(const QStringList& arguments)
{
    addUsual();
    return m_parser.parse(QStringList(QString()) + arguments)
        && (m_takesFiles || m_parser.positionalArguments().isEmpty());
}

QString CommandLine::wrong() const
{
    if (!m_parser.unknownOptionNames().isEmpty()) {
        const QString name = m_parser.unknownOptionNames().constFirst();
        return QStringLiteral("unknown argument %1%2; see --help")
            .arg(name.size() > 1 ? QStringLiteral("--") : QStringLiteral("-"), name);
    }
    if (!m_takesFiles && !m_parser.positionalArguments().isEmpty())
        return QStringLiteral("unknown argument %1; see --help")
            .arg(m_parser.positionalArguments().constFirst());
    return QStringLiteral("%1 See --help.").arg(m_parser.errorText());
}

QString CommandLine::help()
{
    addUsual();
    return m_parser.helpText();
}

} // namespace base
