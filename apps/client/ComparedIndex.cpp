// SPDX-License-Identifier: MIT
#include "apps/client/ComparedIndex.h"

#include "apps/base/FileNames.h"
#include "apps/base/WholeFile.h"
#include "apps/client/language/Language.h"
#include "host/TC/Folders.h"
#include "host/TC/Instruments.h"

#include <QFile>
#include <QFileInfo>

namespace client {

namespace {

constexpr qint64 kLongestName = 4096; // bytes

QString notePath()
{
    return TC::getConfigDir() + QStringLiteral("/comparedIndex");
}

base::Result<void> keep(const QString& path)
{
    if (const auto fault = base::writeWholeFile(notePath(), base::bytesOfName(path)))
        return base::Failure { ComparedIndex::tr("对照指数的设置未能保存：%1").arg(ownWords(*fault)) };
    return {};
}

} // namespace

base::Result<void> ComparedIndex::choose(const QString& path)
{
    base::Result<chart::OpenedBars> opened = chart::openBarsFile(path);
    if (!opened.isGood())
        return opened.failure();
    m_index = *opened;
    return keep(QFileInfo(path).absoluteFilePath());
}

base::Result<void> ComparedIndex::restore()
{
    QFile note(notePath());
    if (!note.open(QIODevice::ReadOnly))
        return {};
    const QString path = base::nameFromBytes(note.read(kLongestName));
    if (path.isEmpty())
        return {};
    base::Result<chart::OpenedBars> opened = chart::openBarsFile(path);
    if (!opened.isGood())
        return base::Failure { tr("对照指数打不开：%1").arg(opened.reason()) };
    m_index = *opened;
    return {};
}

base::Result<void> ComparedIndex::forget()
{
    m_index = {};
    return keep(QString());
}

QString ComparedIndex::name() const
{
    if (!m_index.instrument)
        return QString();
    return TC::getDetailQsKey(m_index.instrument) + QLatin1Char(' ')
        + TC::getDetailQsName(m_index.instrument);
}

std::shared_ptr<const engine::BarSeries> ComparedIndex::beside(
    const std::shared_ptr<const engine::BarSeries>& bars) const
{
    if (!bars || bars->index == m_index.bars)
        return bars;
    auto both = std::make_shared<engine::BarSeries>(*bars);
    both->index = m_index.bars;
    return both;
}

} // namespace client
