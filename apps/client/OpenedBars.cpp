#include "apps/client/OpenedBars.h"

#include "apps/chart/PriceTick.h"
#include "engine/BarFile.h"
#include "host/TC/CStockManager.h"
#include "host/WB/TextConversion.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/utils/CSingletonT.h"

#include <QFileInfo>

namespace client {

namespace {

constexpr int kMarketLength = 2;

ChartState::Instrument madeUpInstrument(const QString& key, const engine::BarSeries& bars)
{
    auto instrument = std::make_shared<ttservice::CInstrumentDetail>();
    instrument->market = WB::qsToS(key.left(kMarketLength));
    instrument->code = WB::qsToS(key.mid(kMarketLength));
    instrument->name = WB::qsToS(key);
    instrument->priceTick = chart::inferredPriceTick(bars.close);
    return instrument;
}

} // namespace

QString openBarsFile(const QString& path, OpenedBars& opened)
{
    std::string failure;
    std::optional<engine::BarSeries> bars = engine::readBars(path.toStdString(), failure);
    if (!bars)
        return QString::fromStdString(failure);
    const QString key = QFileInfo(path).baseName();
    opened.instrument = utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(key);
    if (!opened.instrument)
        opened.instrument = madeUpInstrument(key, *bars);
    opened.bars = std::make_shared<const engine::BarSeries>(std::move(*bars));
    return QString();
}

} // namespace client
