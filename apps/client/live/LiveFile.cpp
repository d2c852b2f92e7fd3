// SPDX-License-Identifier: MIT
#include "apps/client/live/LiveFile.h"

#include "apps/base/FileNames.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace client {

namespace {

constexpr int kLookMs = 200;
constexpr qint64 kTail = 256; // bytes: longer than a row

/// Up to so many bytes before an offset.
QByteArray bytesBefore(int file, qint64 offset)
{
    QByteArray bytes(static_cast<int>(std::min(offset, kTail)), '\0');
    const ssize_t count = pread(file, bytes.data(), static_cast<size_t>(bytes.size()), offset - bytes.size());
    bytes.truncate(static_cast<int>(std::max<ssize_t>(0, count)));
    return bytes;
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
    struct stat found = {};
    std::optional<State> state;
    if (fstat(file, &found) == 0 && S_ISREG(found.st_mode)) {
        constexpr qint64 nsPerSecond = 1'000'000'000;
        state = State { found.st_dev, found.st_ino, found.st_size,
                        found.st_mtim.tv_sec * nsPerSecond + found.st_mtim.tv_nsec,
                        bytesBefore(file, found.st_size) };
    }
    close(file);
    return state;
}

bool LiveFile::hasGrownFrom(const State& before, const State& now) const
{
    if (before.device != now.device || before.number != now.number || now.size < before.size)
        return false;
    const int file = base::openForReading(m_path);
    if (file < 0)
        return false;
    const bool isSame = bytesBefore(file, before.size) == before.tail;
    close(file);
    return isSame;
}

void LiveFile::look()
{
    const std::optional<State> now = current();
    if (!now)
        return;
    const std::optional<State> before = std::exchange(m_known, now);
    watch();
    if (before && before->number == now->number && before->size == now->size
        && before->changedNs == now->changedNs)
        return;
    if (!before || !hasGrownFrom(*before, *now))
        Q_EMIT sigReplaced();
    else if (now->size > before->size)
        Q_EMIT sigGrown();
}

} // namespace client
