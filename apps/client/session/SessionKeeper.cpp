// SPDX-License-Identifier: MIT
#include "apps/client/session/SessionKeeper.h"

#include "apps/base/WholeFile.h"
#include "apps/client/language/Language.h"

#include <QFile>

namespace client {

namespace {

constexpr int kInterval = 1000; // milliseconds; with the time of writing below two seconds
constexpr qint64 kMostBytes = qint64 { 1 } << 20;

} // namespace

SessionKeeper::SessionKeeper(std::function<Session()> current, QObject* parent)
    : QObject(parent)
    , m_current(std::move(current))
{
    connect(&m_timer, &QTimer::timeout, this, &SessionKeeper::keep);
}

Session SessionKeeper::last()
{
    QFile file(Session::path());
    return file.open(QIODevice::ReadOnly) ? Session::fromJson(file.read(kMostBytes)) : Session();
}

void SessionKeeper::start()
{
    m_kept = m_current().toJson();
    m_timer.start(kInterval);
}

void SessionKeeper::keep()
{
    if (!m_timer.isActive())
        return;
    const QByteArray now = m_current().toJson();
    if (now != m_kept) {
        const auto fault = base::writeWholeFile(Session::path(), now);
        m_kept = now; // a file that cannot be written is tried again with the next change
        const QString cause = fault ? ownWords(*fault) : QString();
        if (!cause.isEmpty() && cause != m_told)
            Q_EMIT sigMessage(cause);
        m_told = cause;
    }
    Q_EMIT sigKeep();
}

} // namespace client
