#include "apps/chart/OpenedBars.h"

#include "apps/chart/PriceTick.h"
#include "engine/files/BarFile.h"
#include "engine/files/TickFile.h"
#include "host/TC/CStockManager.h"
#include "host/WB/TextConversion.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/utils/CSingletonT.h"

#include <QFileInfo>

namespace chart {

namespace {

constexpr int kMarketLength = 2;

/// The instrument of a key, or one made up from it.
Instrument instrumentOf(const QString& path, const QString& chosen, const std::vector<double>& prices)
{
    const QString key = chosen.isEmpty() ? QFileInfo(path).baseName() : chosen;
    if (const Instrument known = utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(key))
        return known;
    auto instrument = std::make_shared<ttservice::CInstrumentDetail>();
    instrument->market = WB::qsToS(key.left(kMarketLength));
    instrument->code = WB::qsToS(key.mid(kMarketLength));
    instrument->name = WB::qsToS(key);
    instrument->priceTick = inferredPriceTick(prices);
    return instrument;
}

} // namespace

QString openBarsFile(const QString& path, const QString& key, OpenedBars& opened)
{
    std::string failure;
    std::optional<engine::BarSeries> bars = engine::readBars(path.toStdString(), failure);
    if (!bars)
        return QString::fromStdString(failure);
    opened.instrument = instrumentOf(path, key, bars->close);
    opened.bars = std::make_shared<const engine::BarSeries>(std::move(*bars));
    return QString();
}

QString openTicksFile(const QString& path, const QString& key, OpenedTicks& opened)
{
    std::string failure;
    std::optional<engine::TickSeries> ticks = engine::readTicks(path.toStdString(), failure);
    if (!ticks)
        return QString::fromStdString(failure);
    opened.instrument = instrumentOf(path, key, ticks->price);
    opened.ticks = std::make_shared<const engine::TickSeries>(std::move(*ticks));
    return QString();
}

} // namespace chart
