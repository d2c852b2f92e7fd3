// SPDX-License-Identifier: MIT
#include "apps/render/ChartLoader.h"

#include "apps/chart/BarAlignment.h"
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
#include <utility>

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

/// Chooses the bars that the picture shows, of which there are `total`.
base::Result<void> chooseBars(const Options& options, std::size_t total, LoadedChart& chart)
{
    const int count = static_cast<int>(total);
    if (options.from >= count)
        return base::Failure { QStringLiteral("--from %1: %2 has only %3 bars")
                                   .arg(QString::number(options.from), options.bars + options.ticks,
                                        QString::number(count)) };
    chart.picture.first = options.from >= 0 ? options.from : std::max(0, count - options.count);
    chart.picture.last = std::min(count - chart.picture.first, options.count) + chart.picture.first - 1;
    return {};
}

/// What the picture needs of the bars, [first, end): those that it shows and the one before, which candles,
/// sticks and legends look at.
std::pair<std::size_t, std::size_t> neededBars(const chart::ChartPicture& picture)
{
    return { static_cast<std::size_t>(std::max(0, picture.first - 1)),
             static_cast<std::size_t>(picture.last + 1) };
}

/// Lets the picture hold the times of the bars that it needs and count them from the first of those.
void keepNeeded(const std::vector<std::int64_t>& times, chart::ChartPicture& picture)
{
    const auto [first, end] = neededBars(picture);
    picture.times.assign(times.begin() + static_cast<std::ptrdiff_t>(first),
                         times.begin() + static_cast<std::ptrdiff_t>(end));
    picture.first -= static_cast<int>(first);
    picture.last -= static_cast<int>(first);
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

/// The formula of a file, made known; no name without a file.
base::Result<QString> ownFormula(const QString& file)
{
    QString name;
    const QStringList problems = file.isEmpty() ? QStringList() : openFormulaFile(file, name);
    if (!problems.isEmpty())
        return base::Failure { problems.front() };
    return name;
}

/// Computes the formulas of one pane more.
base::Result<void> loadPane(const QStringList& names, const engine::BarSeries& bars, LoadedChart& chart)
{
    addPane(chart);
    const auto [first, end] = neededBars(chart.picture);
    for (const QString& name : names) {
        std::optional<engine::FormulaRecords> records = chart::computeNamed(name, bars, first, end);
        if (!records && chart::evaluationOfNamed(name))
            return base::Failure { QStringLiteral("--pane: formula \"%1\" takes too much memory").arg(name) };
        if (!records)
            return base::Failure { QStringLiteral("--pane: unknown formula \"%1\"; known are %2")
                                       .arg(name, TC::embedded::formulaNames().join(QStringLiteral(", "))) };
        addFormula(chart, name, std::move(*records));
    }
    finishPane(chart, false);
    return {};
}

/// The bars, with the index beside them that the options name.
base::Result<chart::OpenedBars> openBars(const Options& options)
{
    base::Result<chart::OpenedBars> opened = chart::openBarsFile(options.bars, options.instrument);
    if (!opened.isGood() || options.index.isEmpty())
        return opened;
    base::Result<chart::OpenedBars> index = chart::openBarsFile(options.index, {});
    if (!index.isGood())
        return index.failure();
    opened->bars->index = index->bars;
    return opened;
}

/// Lays the instrument of a file over the first pane, on the times of its bars.
base::Result<void> loadOverlay(const QString& file, const engine::BarSeries& bars, LoadedChart& chart)
{
    base::Result<chart::OpenedBars> opened = chart::openBarsFile(file, {});
    if (!opened.isGood())
        return opened.failure();
    const TC::CFormulaKey key(TC::getDetailQsKey(opened->instrument), QStringLiteral("KLINE"));
    if (key.instrumentKey == TC::getDetailQsKey(chart.picture.instrument))
        return base::Failure {
            QStringLiteral("--overlay %1: the chart shows %2 already").arg(file, key.instrumentKey)
        };
    const engine::BarSeries other = chart::alignedTo(bars.timeMs, *opened->bars);
    const auto [first, end] = neededBars(chart.picture);
    std::optional<engine::FormulaRecords> records = chart::computeNamed(key.formulaName, other, first, end);
    if (!records)
        return base::Failure { QStringLiteral("--overlay %1: takes too much memory").arg(file) };
    chart.results.front().overlay(key, std::move(*records));
    chart.picture.overlaid.push_back(opened->instrument);
    chart::PaneContent& content = chart.picture.panes.front().content;
    const std::vector<chart::PaneFormula> before = content.formulas;
    content.formulas = chart.results.front().content(chart.picture.instrument).formulas;
    for (std::size_t known = 0; known < before.size() && known < content.formulas.size(); ++known)
        content.formulas[known].scale = before[known].scale;
    content.formulas.back().scale = chart::meetingFactor(bars.close, other.close, chart.picture.first);
    return {};
}

base::Result<void> loadBars(const Options& options, LoadedChart& chart)
{
    base::Result<QString> formula = ownFormula(options.formula);
    if (!formula.isGood())
        return formula.failure();
    base::Result<chart::OpenedBars> opened = openBars(options);
    if (!opened.isGood())
        return opened.failure();
    chart.ownFormula = *formula;
    chart.picture.instrument = opened->instrument;
    base::Result<void> chosen = chooseBars(options, opened->bars->size(), chart);
    if (!chosen.isGood())
        return chosen;
    const TC::EFormulaPeriod period = chart::barPeriod(opened->bars->timeMs);
    chart.picture.periodName = TC::getCycleName(TC::getPeriodIndex(period));
    for (const QStringList& names : options.panes.empty() ? usualPanes(*formula) : options.panes) {
        base::Result<void> loaded = loadPane(names, *opened->bars, chart);
        if (!loaded.isGood())
            return loaded;
        chart.picture.panes.back().content.periodSeconds = period;
    }
    for (const QString& file : options.overlays) {
        base::Result<void> laid = loadOverlay(file, *opened->bars, chart);
        if (!laid.isGood())
            return laid;
    }
    keepNeeded(opened->bars->timeMs, chart.picture);
    if (!options.exportTo.isEmpty())
        chart.bars = opened->bars;
    return {};
}

base::Result<void> loadTicks(const Options& options, LoadedChart& chart)
{
    base::Result<chart::OpenedTicks> opened = chart::openTicksFile(options.ticks, options.instrument);
    if (!opened.isGood())
        return opened.failure();
    chart.picture.instrument = opened->instrument;
    chart.picture.times = opened->ticks->timeMs;
    base::Result<void> chosen = chooseBars(options, opened->ticks->size(), chart);
    if (!chosen.isGood())
        return chosen;
    chart.picture.periodName = TC::getCycleName(TC::getPeriodIndex(TC::EFormulaPeriod_Tick));
    chart::registerTickFormulas();
    engine::TickRecords records = engine::computeTicks(*opened->ticks);
    addPane(chart);
    addFormula(chart, QString::fromLatin1(chart::kTickPrices), std::move(records.prices));
    finishPane(chart, false);
    addPane(chart);
    addFormula(chart, QString::fromUtf8(chart::kTickVolumes), std::move(records.volumes));
    finishPane(chart, options.bookRule);
    return {};
}

} // namespace

base::Result<LoadedChart> loadChart(const Options& options)
{
    LoadedChart chart;
    const base::Result<void> loaded =
        options.ticks.isEmpty() ? loadBars(options, chart) : loadTicks(options, chart);
    if (!loaded.isGood())
        return loaded.failure();
    return base::Result<LoadedChart>(std::move(chart));
}

} // namespace render
