// SPDX-License-Identifier: MIT
/// @file The legend of a pane for one bar: composed, against formatting the same numbers alone; and shown on
/// a strip, against the plain way of composing it for every step and measuring every piece where it is asked
/// for.
///
/// Each round times both sides in processor time of the thread, so that the counters "compose/format" and
/// "plain/strip" are ratios within one run. A legend is shown on every move of the crosshair and must stay
/// far below a millisecond.

#include "data/IndexBaseData.h"
#include "draw/CDrawStyle.h"
#include "host/WB/CSimpleText.h"
#include "host/WB/CUiResource.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/utils/CSingletonT.h"
#include "title/CArrowColorSimpleText.h"
#include "title/CIndexTitleWidget.h"

#include <QApplication>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <random>
#include <vector>

namespace {

using Pane = QMap<TC::CFormulaKey, TC::RPCFormulaResultCache>;
using Stock = std::shared_ptr<ttservice::CInstrumentDetail>;

constexpr int kBars = 500;
constexpr int kStripWidth = 1600; // pixels

/// Processor time of this thread in milliseconds: other load does not count.
double threadMs()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

/// A low quantile of times: what other load does to the caches does not count either.
double low(std::vector<double> times)
{
    const auto place = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 5);
    std::nth_element(times.begin(), place, times.end());
    return *place;
}

TC::RPCFormulaResultCache randomFormula(std::mt19937& random, int outputs)
{
    std::uniform_real_distribution<double> value(1.0, 5000.0);
    TC::RPCFormulaResultCache cache;
    cache.result.barTimes.resize(kBars);
    cache.result.barValid.assign(kBars, 1);
    cache.meta.outputCount = outputs;
    for (int output = 0; output < outputs; ++output) {
        cache.meta.outputNames.push_back("OUT" + std::to_string(output));
        cache.meta.outputColumns.push_back({ output });
        cache.result.columnSeries.push_back(output);
        cache.result.numberSeries.emplace_back();
        for (int bar = 0; bar < kBars; ++bar)
            cache.result.numberSeries.back().push_back(value(random));
    }
    cache.result.columnType.assign(static_cast<std::size_t>(outputs), 0);
    for (auto member : { &se::RPCFormulaMetaResult::drawType, &se::RPCFormulaMetaResult::color,
                         &se::RPCFormulaMetaResult::colorSet, &se::RPCFormulaMetaResult::valueKind })
        (cache.meta.*member).assign(static_cast<std::size_t>(outputs), 0);
    return cache;
}

Pane paneOf(int formulas, int outputs)
{
    std::mt19937 random(20250407);
    Pane pane;
    for (int i = 0; i < formulas; ++i) {
        TC::CFormulaDetail formula;
        formula.displayName = formula.realName = QStringLiteral("FORMULA%1").arg(i);
        TC::embedded::setFormula(formula);
        pane[TC::CFormulaKey(QStringLiteral("SH600000"), formula.displayName)] =
            randomFormula(random, outputs);
    }
    return pane;
}

Stock stockOfPane()
{
    auto stock = std::make_shared<ttservice::CInstrumentDetail>();
    stock->market = "SH";
    stock->code = "600000";
    stock->name = "SH600000";
    stock->priceTick = 0.01;
    return stock;
}

/// Composes the legend of every formula; answers the number of pieces.
int compose(const Pane& pane, int bar, Stock& stock)
{
    QList<Stock> none;
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
    constexpr int formulas = 10, outputs = 10;
    const Pane pane = paneOf(formulas, outputs);
    Stock stock = stockOfPane();
    TC::CDrawStyle::resetDrawStyleColor();

    double composing = 0.0, formatting = 0.0;
    int bar = 0;
    for (auto _ : state) {
        bar = (bar + 1) % kBars;
        const double start = threadMs();
        const int pieces = compose(pane, bar, stock);
        const double middle = threadMs();
        benchmark::DoNotOptimize(format(pane, bar));
        formatting += threadMs() - middle;
        composing += middle - start;
        if (pieces != formulas * outputs)
            state.SkipWithError("the legend lacks pieces");
    }
    state.counters["compose/format"] = composing / formatting;
    state.counters["compose_ms"] = composing / static_cast<double>(state.iterations());
}

/// A data holder that the bench fills.
class PaneData : public TC::IndexBaseData
{
public:
    explicit PaneData(const Pane& pane)
        : IndexBaseData(nullptr)
    {
        m_data = pane;
    }
};

/// The plain way: the rows composed once for the layout and once for the painting, each piece measured for
/// the row's width, for the layout's clip, for the painter's step and for its place, and then painted.
void paintPlainly(QPainter& painter, const Pane& pane, int bar, Stock& stock)
{
    const QFont font =
        *utils::CSingletonT<WB::CUiResource>::instance()->getFont(QStringLiteral("fnt_index_title_text"));
    const auto widthOf = [&](const QString& text) { return WB::CSimpleText::getSize(text, font).width(); };
    QList<Stock> none;
    painter.setFont(font);
    for (int pass = 0; pass < 2; ++pass) {
        int x = 0;
        for (auto entry = pane.begin(); entry != pane.end(); ++entry) {
            TC::CArrowColorSimpleText text =
                TC::CDrawStyle::getTitleText(entry.key(), entry.value(), bar, stock, none, true, nullptr);
            for (const TC::ArrowColorTextData& piece : text.getTextColor()) {
                int width = widthOf(piece.text);
                if (pass == 0) { // the row's width, the clip's step and the clip's place
                    benchmark::DoNotOptimize(widthOf(piece.text));
                    benchmark::DoNotOptimize(width += widthOf(piece.text));
                    continue;
                }
                benchmark::DoNotOptimize(widthOf(piece.text)); // the painter's step
                if (x + width < kStripWidth) {
                    painter.setPen(piece.color);
                    painter.drawText(QRect(x, 0, width, 16),
                                     Qt::AlignCenter | Qt::TextDontClip | Qt::TextSingleLine, piece.text);
                }
                x += width;
            }
        }
    }
}

/// @param state  range 0: formulas, range 1: outputs of each.
void legendOnAStrip(benchmark::State& state)
{
    const Pane pane = paneOf(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    Stock stock = stockOfPane();
    TC::CDrawStyle::resetDrawStyleColor();
    PaneData data(pane);
    TC::CIndexTitleWidget strip(&data, TC::EIndexDisplay_Heading, TC::EIndexView_Module,
                                TC::EIndexView_Module, 0, 0, nullptr, nullptr);
    strip.setStock(stock);
    strip.setSubHeight(2);
    strip.resize(kStripWidth, strip.height());
    strip.grab(); // makes the buffer
    QPixmap plainBuffer(strip.size());

    std::vector<double> showing, plain;
    int bar = 0;
    for (auto _ : state) {
        bar = (bar + 1) % kBars;
        const double start = threadMs();
        strip.updateIndexId(bar);
        const double middle = threadMs();
        QPainter painter(&plainBuffer);
        painter.fillRect(plainBuffer.rect(), Qt::black);
        paintPlainly(painter, pane, bar, stock);
        painter.end();
        plain.push_back(threadMs() - middle);
        showing.push_back(middle - start);
    }
    state.counters["plain/strip"] = low(plain) / low(showing);
    state.counters["strip_ms"] = low(showing);
}

BENCHMARK(legendOfABusyPane)->Unit(benchmark::kMillisecond);
BENCHMARK(legendOnAStrip)->Args({ 1, 4 })->Args({ 3, 6 })->Args({ 10, 10 })->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
