// SPDX-License-Identifier: MIT
#include "apps/client/live/LiveFile.h"

#include <algorithm>

namespace client {

namespace {

constexpr int kLookMs = 200;
constexpr qint64 kTail = 256; // bytes: longer than a row

/// Up to so many bytes before an offset.
QByteArray bytesBefore(int file, qint64 offset)
{
    const qint64 count = std::min(offset, kTail);
    return base::readAt(file, offset - count, count);
}

} // namespace

LiveFile::LiveFile(QString path, QObject* parent)
    : QObject(parent)
    , m_path(std::move(path))
    , m_known(current())
{
    watch();
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &LiveFile::look);
    connect(&m_timer, &QTimer::timeout, this, &LiveFile::look);
    m_timer.start(kLookMs);
}

/// The watcher lets go of a file that was replaced.
void LiveFile::watch()
{
    if (m_known && m_watcher.files().isEmpty())
        m_watcher.addPath(m_path);
}

std::optional<LiveFile::State> LiveFile::current() const
{
    const int file = base::openForReading(m_path);
    if (file < 0)
        return std::nullopt;
    std::optional<State> state;
    if (const std::optional<base::FileState> found = base::stateOf(file))
        state = State { *found, bytesBefore(file, found->size) };
    base::closeFile(file);
    return state;
}

bool LiveFile::hasGrownFrom(const State& before, const State& now) const
{
    if (before.file.device != now.file.device || before.file.number != now.file.number
        || now.file.size < before.file.size)
        return false;
    const int file = base::openForReading(m_path);
    if (file < 0)
        return false;
    const bool isSame = bytesBefore(file, before.file.size) == before.tail;
    base::closeFile(file);
    return isSame;
}

void LiveFile::look()
{
    const std::optional<State> now = current();
    if (!now)
        return;
    const std::optional<State> before = std::exchange(m_known, now);
    watch();
    if (before && before->file.number == now->file.number && before->file.size == now->file.size
        && before->file.changedNs == now->file.changedNs)
        return;
    if (!before || !hasGrownFrom(*before, *now))
        Q_EMIT sigReplaced();
    else if (now->file.size > before->file.size)
        Q_EMIT sigGrown();
}

} // namespace client
