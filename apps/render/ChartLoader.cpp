#include "apps/render/ChartLoader.h"

#include "apps/chart/PriceTick.h"
#include "engine/BarFile.h"
#include "engine/Formulas.h"

#include <QFileInfo>

#include <algorithm>

namespace render {

namespace {

QString knownNames()
{
    QStringList names;
    for (const engine::FormulaDescription& formula : engine::builtInFormulas())
        names << QString::fromStdString(formula.name);
    return names.join(QStringLiteral(", "));
}

QString loadPane(const QStringList& names, const engine::BarSeries& bars, const QString& instrument,
                 LoadedChart::Results& results, chart::PaneContent& pane)
{
    for (const QString& name : names) {
        std::optional<engine::FormulaRecords> records = engine::computeFormula(name.toStdString(), bars);
        if (!records)
            return QStringLiteral("--pane: unknown formula \"%1\"; known are %2").arg(name, knownNames());
        TC::RPCFormulaResultCache& cache = results[TC::CFormulaKey(instrument, name)];
        cache.meta = std::move(records->meta);
        cache.result = std::move(records->result);
    }
    for (const QString& name : names) {
        const TC::CFormulaKey key(instrument, name);
        pane.formulas.push_back({ key, &results[key] });
        pane.showsPrices = pane.showsPrices || name == QLatin1String("KLINE");
    }
    pane.priceTick = chart::inferredPriceTick(bars.close);
    return QString();
}

} // namespace

QString loadChart(const Options& options, LoadedChart& chart)
{
    std::string unread;
    const std::optional<engine::BarSeries> bars = engine::readBars(options.bars.toStdString(), unread);
    if (!bars)
        return QString::fromStdString(unread);

    const int total = static_cast<int>(bars->size());
    if (options.from >= total)
        return QStringLiteral("--from %1: %2 has only %3 bars")
            .arg(options.from)
            .arg(options.bars)
            .arg(total);
    chart.picture.times = bars->timeMs;
    chart.picture.first = options.from >= 0 ? options.from : std::max(0, total - options.count);
    chart.picture.last = std::min(total - chart.picture.first, options.count) + chart.picture.first - 1;

    const QString instrument =
        options.instrument.isEmpty() ? QFileInfo(options.bars).baseName() : options.instrument;
    for (const QStringList& names : options.panes) {
        chart.results.emplace_back();
        chart.picture.panes.emplace_back();
        const QString failure =
            loadPane(names, *bars, instrument, chart.results.back(), chart.picture.panes.back());
        if (!failure.isEmpty())
            return failure;
    }
    return QString();
}

} // namespace render
