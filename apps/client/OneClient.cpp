// SPDX-License-Identifier: MIT
#include "apps/client/OneClient.h"

#include "host/TC/Folders.h"

namespace client {

QString OneClient::enter()
{
    m_lock = std::make_unique<QLockFile>(TC::getConfigDir() + QStringLiteral("/client.lock"));
    m_lock->setStaleLockTime(0); // however long the other one runs; one that is dead holds nothing
    qint64 process = 0;
    QString machine, program;
    m_isFirst = m_lock->tryLock(0) || m_lock->error() != QLockFile::LockFailedError;
    // A client that was killed before it could write its name into the lock; one that lives cannot lose it
    // so.
    if (!m_isFirst && !m_lock->getLockInfo(&process, &machine, &program))
        m_isFirst = m_lock->removeStaleLockFile() && m_lock->tryLock(0);
    if (m_isFirst)
        return QString();
    return tr("另一个客户端正在运行（进程 %1）：本窗口的面板布局不会保存。").arg(process);
}

} // namespace client
