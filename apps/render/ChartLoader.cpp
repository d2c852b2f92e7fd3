#include "apps/render/ChartLoader.h"

#include "apps/chart/BarPeriod.h"
#include "apps/chart/NamedFormula.h"
#include "apps/chart/OpenedBars.h"
#include "apps/chart/TickFormulaNames.h"
#include "apps/render/FormulaFile.h"
#include "engine/language/Formula.h"
#include "engine/TickFormulas.h"
#include "host/TC/Instruments.h"
#include "host/TC/PeriodNames.h"
#include "host/embedded/FormulaSetup.h"

#include <algorithm>

namespace render {

namespace {

/// Adds a formula to the last pane of the chart.
void addFormula(LoadedChart& chart, const QString& name, engine::FormulaRecords records)
{
    const TC::CFormulaKey key(TC::getDetailQsKey(chart.picture.instrument), name);
    chart.results.back().add(key, std::move(records));
}

/// Starts another pane of the chart.
void addPane(LoadedChart& chart)
{
    chart.results.emplace_back();
    chart.picture.panes.emplace_back();
}

/// Points the last pane at its results, in display order.
void finishPane(LoadedChart& chart, bool bookRule)
{
    chart::PaneResults& results = chart.results.back();
    chart::PicturePane& pane = chart.picture.panes.back();
    pane.results = &results;
    pane.content = results.content(chart.picture.instrument);
    pane.content.bookRule = bookRule;
}

/// The panes when none are asked for.
std::vector<QStringList> usualPanes(const QString& formula)
{
    const QString candles = QStringLiteral("KLINE");
    if (formula.isEmpty())
        return { { candles, QStringLiteral("MA") }, { QStringLiteral("VOL") }, { QStringLiteral("MACD") } };
    switch (TC::embedded::resolveFormula(formula)->formula->kind()) {
    case 2: return { { formula } };
    case 1: return { { candles, formula } };
    default: return { { candles }, { formula } };
    }
}

QString loadBars(const Options& options, LoadedChart& chart)
{
    QString formula;
    if (!options.formula.isEmpty()) {
        const QStringList problems = openFormulaFile(options.formula, formula);
        if (!problems.isEmpty())
            return problems.front();
    }
    chart::OpenedBars opened;
    const QString failure = chart::openBarsFile(options.bars, options.instrument, opened);
    if (!failure.isEmpty())
        return failure;
    chart.picture.instrument = opened.instrument;
    chart.picture.times = opened.bars->timeMs;
    const TC::EFormulaPeriod period = chart::barPeriod(opened.bars->timeMs);
    chart.picture.periodName = TC::getCycleName(TC::getPeriodIndex(period));
    for (const QStringList& names : options.panes.empty() ? usualPanes(formula) : options.panes) {
        addPane(chart);
        for (const QString& name : names) {
            std::optional<engine::FormulaRecords> records = chart::computeNamed(name, *opened.bars);
            if (!records)
                return QStringLiteral("--pane: unknown formula \"%1\"; known are %2")
                    .arg(name, TC::embedded::formulaNames().join(QStringLiteral(", ")));
            addFormula(chart, name, std::move(*records));
        }
        finishPane(chart, false);
        chart.picture.panes.back().content.periodSeconds = period;
    }
    return QString();
}

QString loadTicks(const Options& options, LoadedChart& chart)
{
    chart::OpenedTicks opened;
    const QString failure = chart::openTicksFile(options.ticks, options.instrument, opened);
    if (!failure.isEmpty())
        return failure;
    chart.picture.instrument = opened.instrument;
    chart.picture.times = opened.ticks->timeMs;
    chart.picture.periodName = TC::getCycleName(TC::getPeriodIndex(TC::EFormulaPeriod_Tick));
    chart::registerTickFormulas();
    engine::TickRecords records = engine::computeTicks(*opened.ticks);
    addPane(chart);
    addFormula(chart, QString::fromLatin1(chart::kTickPrices), std::move(records.prices));
    finishPane(chart, false);
    addPane(chart);
    addFormula(chart, QString::fromLatin1(chart::kTickVolumes), std::move(records.volumes));
    finishPane(chart, options.bookRule);
    return QString();
}

} // namespace

QString loadChart(const Options& options, LoadedChart& chart)
{
    const QString failure = options.ticks.isEmpty() ? loadBars(options, chart) : loadTicks(options, chart);
    if (!failure.isEmpty())
        return failure;
    const int total = static_cast<int>(chart.picture.times.size());
    if (options.from >= total)
        return QStringLiteral("--from %1: %2 has only %3 bars")
            .arg(options.from)
            .arg(options.bars + options.ticks)
            .arg(total);
    chart.picture.first = options.from >= 0 ? options.from : std::max(0, total - options.count);
    chart.picture.last = std::min(total - chart.picture.first, options.count) + chart.picture.first - 1;
    return QString();
}

} // namespace render
