/// @file The legend of a busy pane, composed for one bar, against formatting the same numbers alone.
///
/// Each round times both, so that the counter "compose/format" is a ratio within one run. A legend is
/// composed on every move of the crosshair and must stay far below a millisecond.

#include "draw/CDrawStyle.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "title/CArrowColorSimpleText.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include <chrono>
#include <random>

namespace {

using Clock = std::chrono::steady_clock;
using Pane = QMap<TC::CFormulaKey, TC::RPCFormulaResultCache>;

constexpr int kFormulas = 10, kOutputs = 10, kBars = 500;

TC::RPCFormulaResultCache randomFormula(std::mt19937& random)
{
    std::uniform_real_distribution<double> value(1.0, 5000.0);
    TC::RPCFormulaResultCache cache;
    cache.result.barTimes.resize(kBars);
    cache.result.barValid.assign(kBars, 1);
    cache.meta.outputCount = kOutputs;
    for (int output = 0; output < kOutputs; ++output) {
        cache.meta.outputNames.push_back("OUT" + std::to_string(output));
        cache.meta.outputColumns.push_back({ output });
        cache.result.columnSeries.push_back(output);
        cache.result.numberSeries.emplace_back();
        for (int bar = 0; bar < kBars; ++bar)
            cache.result.numberSeries.back().push_back(value(random));
    }
    cache.result.columnType.assign(kOutputs, 0);
    for (auto member : { &se::RPCFormulaMetaResult::drawType, &se::RPCFormulaMetaResult::color,
                         &se::RPCFormulaMetaResult::colorSet, &se::RPCFormulaMetaResult::valueKind })
        (cache.meta.*member).assign(kOutputs, 0);
    return cache;
}

Pane busyPane()
{
    std::mt19937 random(20250407);
    Pane pane;
    for (int i = 0; i < kFormulas; ++i) {
        TC::CFormulaDetail formula;
        formula.displayName = formula.realName = QStringLiteral("FORMULA%1").arg(i);
        TC::embedded::setFormula(formula);
        pane[TC::CFormulaKey(QStringLiteral("SH600000"), formula.displayName)] = randomFormula(random);
    }
    return pane;
}

/// Composes the legend of every formula; answers the number of pieces.
int compose(const Pane& pane, int bar, std::shared_ptr<ttservice::CInstrumentDetail>& stock)
{
    QList<std::shared_ptr<ttservice::CInstrumentDetail>> none;
    int pieces = 0;
    for (auto entry = pane.begin(); entry != pane.end(); ++entry) {
        const TC::CArrowColorSimpleText text =
            TC::CDrawStyle::getTitleText(entry.key(), entry.value(), bar, stock, none, true, nullptr);
        pieces += text.getTextColor().size();
    }
    return pieces;
}

/// Formats the same numbers; answers the number of characters.
int format(const Pane& pane, int bar)
{
    int characters = 0;
    for (const TC::RPCFormulaResultCache& cache : pane) {
        for (const auto& series : cache.result.numberSeries)
            characters += QString::number(series[static_cast<std::size_t>(bar)], 'f', 2).size();
    }
    return characters;
}

void legendOfABusyPane(benchmark::State& state)
{
    const Pane pane = busyPane();
    auto stock = std::make_shared<ttservice::CInstrumentDetail>();
    stock->market = "SH";
    stock->code = "600000";
    stock->priceTick = 0.01;
    TC::CDrawStyle::resetDrawStyleColor();

    Clock::duration composing {}, formatting {};
    int bar = 0;
    for (auto _ : state) {
        bar = (bar + 1) % kBars;
        const auto start = Clock::now();
        const int pieces = compose(pane, bar, stock);
        const auto middle = Clock::now();
        benchmark::DoNotOptimize(format(pane, bar));
        formatting += Clock::now() - middle;
        composing += middle - start;
        if (pieces != kFormulas * kOutputs)
            state.SkipWithError("the legend lacks pieces");
    }
    const double rounds = static_cast<double>(state.iterations());
    state.counters["compose/format"] =
        std::chrono::duration<double>(composing) / std::chrono::duration<double>(formatting);
    state.counters["compose_ms"] = std::chrono::duration<double, std::milli>(composing).count() / rounds;
}

BENCHMARK(legendOfABusyPane)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
