// SPDX-License-Identifier: MIT
#include "host/embedded/instruments/InstrumentStore.h"

#include "host/embedded/text/OneLine.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <set>

namespace TC::embedded {

namespace {

/// Moves a damaged store, and what SQLite keeps beside it, to names of their own.
/// @return the store's new path; empty when it could not be moved.
QString setAside(const QString& path)
{
    const QString base = path + QStringLiteral(".damaged-")
        + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString aside = base;
    for (int copy = 2; QFileInfo::exists(aside); ++copy)
        aside = QStringLiteral("%1-%2").arg(base).arg(copy);
    if (!QFile::rename(path, aside))
        return QString();
    // A journal that stayed would be played back into the new store.
    for (const char* suffix : { "-journal", "-wal", "-shm" })
        QFile::rename(path + QLatin1String(suffix), aside + QLatin1String(suffix));
    return aside;
}

/// The instruments of the list that are missing from the others.
Instruments missingFrom(const Instruments& instruments, const Instruments& listed)
{
    std::set<std::pair<std::string, std::string>> known;
    for (const ttservice::CInstrumentDetail& instrument : instruments)
        known.insert({ instrument.market, instrument.code });
    Instruments missing;
    for (const ttservice::CInstrumentDetail& instrument : listed) {
        if (known.count({ instrument.market, instrument.code }) == 0)
            missing.push_back(instrument);
    }
    return missing;
}

/// What of the work could not be kept; empty when `failure` is.
QString notKept(const QString& failure)
{
    return failure.isEmpty() ? QString() : QStringLiteral("（未能写入磁盘：%1，仅本次有效）").arg(failure);
}

LoadedStore makeAnew(const QString& path, const QString& opening)
{
    LoadedStore loaded { listedInstruments(), opening };
    const QString lost = notKept(addToStore(path, loaded.instruments));
    if (!lost.isEmpty() || !opening.isEmpty())
        loaded.notice += QStringLiteral("已使用内置的证券列表%1").arg(lost);
    return loaded;
}

LoadedStore replace(const QString& path, const QString& reason)
{
    const QString opening = QStringLiteral("证券数据库已损坏（%1），").arg(reason);
    const QString aside = setAside(path);
    if (!aside.isEmpty())
        return makeAnew(path, opening + QStringLiteral("原文件保留为 %1；").arg(aside));
    return { listedInstruments(), opening + QStringLiteral("且无法移开；本次使用内置的证券列表") };
}

LoadedStore complete(const QString& path, Instruments instruments)
{
    const Instruments missing = missingFrom(instruments, listedInstruments());
    if (missing.empty())
        return { std::move(instruments), QString() };
    instruments.insert(instruments.end(), missing.begin(), missing.end());
    return { std::move(instruments),
             QStringLiteral("证券数据库缺少 %1 只证券，已由内置的证券列表补全%2")
                 .arg(missing.size())
                 .arg(notKept(addToStore(path, missing))) };
}

LoadedStore load(const QString& path)
{
    if (!QFileInfo::exists(path) && !QFileInfo(path).isSymLink())
        return makeAnew(path, QString());
    StoreContents found = readStore(path);
    switch (found.state) {
    case StoreContents::Empty: return makeAnew(path, QString());
    case StoreContents::Sound: return complete(path, std::move(found.instruments));
    case StoreContents::Damaged: return replace(path, found.reason);
    case StoreContents::Unreadable: break;
    }
    return { listedInstruments(),
             QStringLiteral("证券数据库 %1 无法读取（%2），本次使用内置的证券列表").arg(path, found.reason) };
}

} // namespace

LoadedStore loadInstrumentStore(const QString& path)
{
    LoadedStore loaded = load(path);
    loaded.notice = oneLine(loaded.notice);
    return loaded;
}

} // namespace TC::embedded
