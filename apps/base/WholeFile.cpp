// SPDX-License-Identifier: MIT
#include "apps/base/WholeFile.h"

#include "apps/base/FileCalls.h"
#include "apps/base/FileNames.h"

#include <QDir>
#include <QStringList>

#include <utility>

namespace base {

namespace {

const QLatin1String kUnfinished(".indicatorui-"); // beginning of names of files in the making

} // namespace

QString WriteFault::english() const
{
    const QString state =
        left == OldContent ? QStringLiteral("nothing was written") : QStringLiteral("the file is written");
    return QStringLiteral("%1: %2; %3").arg(printable(path), cause, state);
}

QString WriteFault::chinese() const
{
    const QString state = left == OldContent ? QStringLiteral("未写入，原内容不变")
                                             : QStringLiteral("内容已写入，但可能经不起断电");
    return QStringLiteral("%1：%2（%3）").arg(printable(path), state, cause);
}

WholeFile::WholeFile(const QString& path)
    : m_target(whole::endOfLinks(path))
{
    m_fault.path = path;
    if (m_target.isEmpty()) {
        fail(whole::lastFault());
    } else if (const std::optional<unsigned> permissions = whole::permissionsFor(m_target)) {
        m_permissions = *permissions;
        m_descriptor = whole::createBeside(m_target, kUnfinished, m_beside);
        keep(m_descriptor >= 0);
    } else {
        fail(QStringLiteral("not an ordinary file"));
    }
}

WholeFile::~WholeFile()
{
    if (m_descriptor >= 0)
        closeFile(m_descriptor);
    if (!m_beside.isEmpty())
        whole::remove(m_beside);
}

bool WholeFile::append(const char* bytes, std::size_t count)
{
    return !m_failed && keep(whole::writeAll(m_descriptor, bytes, count));
}

std::optional<WriteFault> WholeFile::finish()
{
    const bool isOnDisk = !m_failed && keep(whole::bringToDisk(m_descriptor, m_permissions));
    // Closing may tell that the system could not keep what was written.
    if (!isOnDisk || !keep(closeFile(std::exchange(m_descriptor, -1)))
        || !keep(whole::replace(m_target, m_beside, m_permissions)))
        return m_fault;
    m_beside.clear();
    if (!whole::syncFolderOf(m_target)) {
        m_fault.left = WriteFault::NewContent;
        fail(whole::lastFault());
        return m_fault;
    }
    return std::nullopt;
}

void WholeFile::fail(const QString& cause)
{
    m_fault.cause = cause;
    m_failed = true;
}

/// Takes note of a call that failed, in the words of the system. @return whether it was done.
bool WholeFile::keep(bool done)
{
    if (!done)
        fail(whole::lastFault());
    return done;
}

std::optional<WriteFault> writeWholeFile(const QString& path, const QByteArray& content)
{
    WholeFile file(path);
    file.append(content.constData(), static_cast<std::size_t>(content.size()));
    return file.finish();
}

void removeUnfinishedFiles(const QString& folder)
{
    QDir inside(folder);
    const QStringList names =
        inside.entryList({ QString(kUnfinished) + QStringLiteral("??????") }, QDir::Files | QDir::Hidden);
    for (const QString& name : names)
        inside.remove(name);
}

} // namespace base
