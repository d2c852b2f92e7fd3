// SPDX-License-Identifier: MIT
#pragma once
/// @file Keeps the session while the client runs, so that little is lost however it ends.

#include "apps/client/session/Session.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace client {

/// Looks once a second at what the client shows and writes what has changed. GUI thread only.
class SessionKeeper : public QObject
{
    Q_OBJECT

public:
    /// @param current  what the client shows now.
    explicit SessionKeeper(std::function<Session()> current, QObject* parent = nullptr);

    /// The session of the last run; defaults where there was none or its file cannot be read.
    static Session last();

    /// From now on changes are written.
    void start();
    void stop() { m_timer.stop(); }
    /// Writes now what has changed, if keeping was started.
    void keep();

Q_SIGNALS:
    /// It is time to keep what other files hold as well.
    void sigKeep();
    /// The file cannot be written; told once for each cause.
    void sigMessage(const QString& text);

private:
    std::function<Session()> m_current;
    QTimer m_timer;
    QByteArray m_kept;
    QString m_told;
};

} // namespace client
