// SPDX-License-Identifier: MIT
#include "apps/chart/OpenedBars.h"

#include "apps/base/FileNames.h"
#include "apps/chart/PriceTick.h"
#include "engine/files/BarFile.h"
#include "engine/files/TickFile.h"
#include "host/TC/CStockManager.h"
#include "host/WB/TextConversion.h"
#include "host/embedded/InstrumentSetup.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/utils/CSingletonT.h"

#include <QFileInfo>

#include <limits>

namespace chart {

namespace {

constexpr int kMarketLength = 2;

/// A number of shares that the instrument database knows; NaN when it does not.
double sharesOf(const Instrument& instrument, int field)
{
    const double shares = instrument->getNumber(field);
    return shares > 0.0 ? shares : std::numeric_limits<double>::quiet_NaN();
}

/// What the engine says of a file, whose name may hold any bytes.
base::Failure failureOf(const std::string& text)
{
    return { base::nameFromBytes(QByteArray::fromStdString(text)) };
}

} // namespace

Instrument instrumentOfFile(const QString& path, const QString& chosen, const std::vector<double>& prices)
{
    const QString key = chosen.isEmpty() ? QFileInfo(path).baseName() : chosen;
    if (Instrument known = utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(key))
        return known;
    auto instrument = std::make_shared<ttservice::CInstrumentDetail>();
    instrument->market = WB::qsToS(key.left(kMarketLength));
    instrument->code = WB::qsToS(key.mid(kMarketLength));
    instrument->name = WB::qsToS(key);
    instrument->priceTick = inferredPriceTick(prices);
    return instrument;
}

void takeShares(engine::BarSeries& bars, const Instrument& instrument)
{
    bars.floatingShares = sharesOf(instrument, TC::embedded::kFloatingSharesField);
    bars.totalShares = sharesOf(instrument, TC::embedded::kTotalSharesField);
}

base::Result<OpenedBars> openBarsFile(const QString& path, const QString& key)
{
    std::string failure;
    std::optional<engine::BarSeries> bars = engine::readBars(base::bytesOfName(path).toStdString(), failure);
    if (!bars)
        return failureOf(failure);
    return withInstrument(std::move(*bars), path, key);
}

OpenedBars withInstrument(engine::BarSeries bars, const QString& path, const QString& key)
{
    const Instrument instrument = instrumentOfFile(path, key, bars.close);
    takeShares(bars, instrument);
    return { instrument, std::make_shared<engine::BarSeries>(std::move(bars)) };
}

base::Result<OpenedTicks> openTicksFile(const QString& path, const QString& key)
{
    std::string failure;
    std::optional<engine::TickSeries> ticks =
        engine::readTicks(base::bytesOfName(path).toStdString(), failure);
    if (!ticks)
        return failureOf(failure);
    return OpenedTicks { instrumentOfFile(path, key, ticks->price),
                         std::make_shared<const engine::TickSeries>(std::move(*ticks)) };
}

} // namespace chart
