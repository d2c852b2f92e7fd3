// SPDX-License-Identifier: MIT
#pragma once
/// @file Which of the clients that run at once may write the shared files of the configuration.

#include <QCoreApplication>
#include <QLockFile>
#include <QString>

#include <memory>

namespace client {

/// The first client holds a lock until it ends, in whatever way. Those that start meanwhile work like it, but
/// leave the arrangement's file, the mark of a running client and unfinished work of others alone.
class OneClient
{
    Q_DECLARE_TR_FUNCTIONS(client::OneClient)

public:
    /// Takes the lock if nobody has it. @return what to tell the user; empty for the first client.
    QString enter();
    void leave() { m_lock.reset(); }

    /// Whether this is the first client. A folder where no lock can be made counts as nobody else's.
    bool isFirst() const { return m_isFirst; }

private:
    std::unique_ptr<QLockFile> m_lock;
    bool m_isFirst = true;
};

} // namespace client
