// SPDX-License-Identifier: MIT
#include "host/TC/CStockManager.h"

#include "host/TC/Folders.h"
#include "host/TC/Instruments.h"
#include "host/TC/ParserStockDetail.h"
#include "host/WB/TextConversion.h"
#include "host/embedded/InstrumentSetup.h"
#include "host/embedded/instruments/InstrumentLines.h"
#include "host/embedded/instruments/InstrumentStore.h"
#include "host/embedded/instruments/InstrumentTable.h"
#include "host/embedded/reading/TextDecoding.h"
#include "host/embedded/text/OneLine.h"
#include "host/embedded/text/OrdinaryFile.h"
#include "host/ttservice/StockTypeCenter.h"
#include "host/utils/CSingletonT.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr int kLargestList = 16 * 1024 * 1024; // bytes of the user's own list

/// Place of a market in the order in which a bare code is looked for; unknown markets come last.
int marketRank(const TC::CStockManager::Detail& detail)
{
    static const char* const order[] = { "SH", "SZ", "BJ", "SF", "DF", "ZF", "GF", "IF" };
    const auto found = std::find(std::begin(order), std::end(order), detail->market);
    return static_cast<int>(found - std::begin(order));
}

bool isShareOfMainland(const TC::CStockManager::Detail& detail)
{
    return detail && detail->kind == "stock"
        && (detail->market == "SH" || detail->market == "SZ" || detail->market == "BJ");
}

/// The instruments that are loaded.
TC::embedded::InstrumentTable& instrumentTable()
{
    static TC::embedded::InstrumentTable table;
    return table;
}

/// The instruments, loaded at the first call.
TC::embedded::InstrumentTable& instruments()
{
    TC::embedded::InstrumentTable& table = instrumentTable();
    table.load();
    return table;
}

} // namespace

namespace TC {

QString ParserStockDetail::key() const
{
    return getDetailQsKey(instrument);
}

void embedded::InstrumentTable::load()
{
    if (loaded)
        return;
    loaded = true;
    LoadedStore store = loadInstrumentStore(instrumentStorePath());
    notice = store.notice;
    for (ttservice::CInstrumentDetail& instrument : store.instruments)
        add(std::make_shared<ttservice::CInstrumentDetail>(std::move(instrument)));
    readOwnList(QDir(getUserRootDir()).filePath(QStringLiteral("instruments.csv")));
}

void embedded::InstrumentTable::readOwnList(const QString& path)
{
    if (!QFileInfo::exists(path))
        return;
    QByteArray bytes;
    const QString failure = readOrdinaryFile(path, kLargestList, bytes);
    InstrumentLines lines { {}, { path + QStringLiteral(": ") + failure } };
    if (failure.isEmpty())
        lines = readInstrumentLines(decodeText(bytes).toUtf8(), path,
                                    [this](const std::string& market, const std::string& code) {
                                        return byKey.value(qnStockKey(market, code)).get();
                                    });
    for (ttservice::CInstrumentDetail& instrument : lines.instruments)
        add(std::make_shared<ttservice::CInstrumentDetail>(std::move(instrument)));
    if (lines.problems.isEmpty())
        return;
    const QString faults = QStringLiteral("证券列表有误的行未载入（共 %1 处）：%2")
                               .arg(lines.problems.size())
                               .arg(lines.problems.first());
    notice = oneLine(notice.isEmpty() ? faults : notice + QStringLiteral("；") + faults);
}

void embedded::InstrumentTable::add(const Detail& detail)
{
    byKey[getDetailQsKey(detail)] = detail;
    QVector<Detail>& sameCode = byCode[WB::sToQs(detail->code)];
    sameCode.erase(std::remove_if(sameCode.begin(), sameCode.end(),
                                  [&](const Detail& known) { return known->market == detail->market; }),
                   sameCode.end());
    const auto place =
        std::upper_bound(sameCode.begin(), sameCode.end(), detail,
                         [](const Detail& a, const Detail& b) { return marketRank(a) < marketRank(b); });
    sameCode.insert(place, detail);
}

CStockManager::Detail CStockManager::getInstrumentDetail(const QString& keyOrCode) const
{
    const embedded::InstrumentTable& known = instruments();
    if (Detail byKey = known.byKey.value(keyOrCode))
        return byKey;
    const QVector<Detail> sameCode = known.byCode.value(keyOrCode);
    const auto share = std::find_if(sameCode.begin(), sameCode.end(), isShareOfMainland);
    if (share != sameCode.end())
        return *share;
    return sameCode.isEmpty() ? Detail() : sameCode.first();
}

CStockManager::Detail CStockManager::getInstrumentDetail(const QString& market, const QString& code) const
{
    return instruments().byKey.value(market + code);
}

bool CStockManager::getMultiStockDetail(const QString& code, QVector<Detail>& details) const
{
    details = instruments().byCode.value(code);
    return !details.isEmpty();
}

namespace embedded {

void setInstrument(const ttservice::CInstrumentDetail& instrument)
{
    instruments().add(std::make_shared<ttservice::CInstrumentDetail>(instrument));
}

void setInstruments(const QVector<ttservice::CInstrumentDetail>& list)
{
    reloadInstruments();
    instrumentTable().loaded = true;
    for (const ttservice::CInstrumentDetail& instrument : list)
        instruments().add(std::make_shared<ttservice::CInstrumentDetail>(instrument));
}

void reloadInstruments()
{
    instrumentTable() = InstrumentTable();
}

QString instrumentStoreNotice()
{
    return instruments().notice;
}

QString instrumentStorePath()
{
    return QDir(getUserRootDir()).filePath(QStringLiteral("instruments.sqlite"));
}

} // namespace embedded
} // namespace TC

namespace ttservice {

bool StockTypeCenter::isTypedStock(int type, const std::string& market, const std::string& code) const
{
    constexpr int aShare = 100003, starMarket = 277, growthMarket = 10006;
    const auto begins = [&](const char* prefix) { return code.compare(0, 3, prefix) == 0; };
    switch (type) {
    case aShare:
        return isShareOfMainland(utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(
            WB::sToQs(market), WB::sToQs(code)));
    case starMarket: return market == "SH" && begins("688");
    case growthMarket: return market == "SZ" && (begins("300") || begins("301"));
    default: return false;
    }
}

} // namespace ttservice
