// SPDX-License-Identifier: MIT
#include "apps/client/live/FollowedFile.h"

#include "apps/base/FileNames.h"

#include <QFileInfo>

namespace client {

FollowedFile::FollowedFile(QString path, QObject* parent)
    : QObject(parent)
    , m_path(std::move(path))
    , m_file(m_path)
{
    connect(&m_file, &LiveFile::sigGrown, this, &FollowedFile::readOn);
    connect(&m_file, &LiveFile::sigReplaced, this, &FollowedFile::startAgain);
}

base::Result<void> FollowedFile::open()
{
    base::Result<void> started = start();
    if (started.isGood())
        handOut(true);
    return started;
}

/// Makes a reader of the kind that the header names, and reads what is there.
base::Result<void> FollowedFile::start()
{
    const std::string name = base::bytesOfName(m_path).toStdString();
    m_ticks.reset();
    m_bars = std::make_unique<engine::BarFollower>(name);
    if (m_bars->failure().empty()) {
        m_bars->read();
        return {};
    }
    const base::Failure noBars { failure() };
    m_ticks = std::make_unique<engine::TickFollower>(name);
    if (m_ticks->failure().empty()) {
        m_bars.reset();
        m_ticks->read();
        return {};
    }
    m_ticks.reset();
    m_bars.reset();
    return noBars;
}

QString FollowedFile::failure() const
{
    const std::string text = m_bars ? m_bars->failure() : m_ticks ? m_ticks->failure() : std::string();
    return base::nameFromBytes(QByteArray::fromStdString(text));
}

void FollowedFile::readOn()
{
    if (!m_bars && !m_ticks) // the header was not whole
        return startAgain();
    if (!failure().isEmpty())
        return; // told before
    const std::size_t rows = m_bars ? m_bars->read() : m_ticks->read();
    if (!failure().isEmpty())
        Q_EMIT sigMessage(tr("不再跟随，文件被替换后重新读取：%1").arg(failure()));
    if (rows > 0)
        handOut(false);
}

void FollowedFile::startAgain()
{
    if (!start().isGood())
        return; // it may be written at this moment: its next change is looked at
    Q_EMIT sigMessage(tr("%1 已被截断或替换，重新读取").arg(QFileInfo(m_path).fileName()));
    handOut(true);
}

void FollowedFile::handOut(bool anew)
{
    if (m_bars) {
        auto bars = std::make_shared<engine::BarSeries>(m_bars->bars());
        if (anew)
            m_instrument = chart::instrumentOfFile(m_path, QString(), bars->close);
        chart::takeShares(*bars, m_instrument);
        Q_EMIT sigBars({ m_instrument, bars }, anew);
    } else {
        auto ticks = std::make_shared<const engine::TickSeries>(m_ticks->ticks());
        if (anew)
            m_instrument = chart::instrumentOfFile(m_path, QString(), ticks->price);
        Q_EMIT sigTicks({ m_instrument, ticks }, anew);
    }
}

} // namespace client
