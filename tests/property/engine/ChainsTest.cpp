// SPDX-License-Identifier: MIT
/// @file Recursive averages that are computed beside one another, against one that is computed alone: the
/// same bits over bars with gaps and with values near the limits of double.

#include "engine/Formulas.h"
#include "engine/evaluation/FormulaEvaluation.h"
#include "engine/series/Series.h"
#include "tests/support/Seeds.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

using engine::BarSeries;
using engine::FormulaEvaluation;
using Series = std::vector<double>;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

BarSeries randomBars(unsigned seed)
{
    std::mt19937 random(seed);
    const auto upTo = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    BarSeries bars;
    const int gapEvery = upTo(1) == 0 ? 100'000 : 150, hugeEvery = upTo(2) == 0 ? 200 : 100'000;
    for (int bar = 0; bar < 2300; ++bar) {
        bars.timeMs.push_back(bar * 60'000LL);
        const double value = 20.0 + upTo(1000) / 100.0;
        const double wild = upTo(hugeEvery) == 0 ? (upTo(1) == 0 ? 1.6e308 : -1.6e308) : value;
        bars.close.push_back(bar < 5 || upTo(gapEvery) == 0 ? kNone : wild);
    }
    bars.open = bars.high = bars.low = bars.close;
    bars.volume.assign(bars.close.size(), 1.0);
    return bars;
}

/// One step of an average as it is documented; state and value may be missing.
double next(double average, double value, double weight)
{
    if (std::isnan(average))
        return value;
    const double stepped = average + weight * (value - average);
    return std::isfinite(stepped) ? stepped : weight * value + (1.0 - weight) * average;
}

Series averageOf(const Series& values, double period)
{
    Series averages;
    double average = kNone;
    for (const double value : values) {
        average = std::isnan(value) ? average : next(average, value, 2.0 / (period + 1.0));
        averages.push_back(std::isnan(value) || !(std::abs(average) < engine::kMissingMarker) ? kNone
                                                                                              : average);
    }
    return averages;
}

Series differenceOf(const Series& a, const Series& b)
{
    Series difference;
    for (std::size_t bar = 0; bar < a.size(); ++bar)
        difference.push_back(engine::valueOrMissing(a[bar] - b[bar]));
    return difference;
}

void expectSame(const Series& own, const Series& plain, const std::string& what)
{
    ASSERT_EQ(own.size(), plain.size()) << what;
    for (std::size_t bar = 0; bar < own.size(); ++bar) {
        if (std::isnan(plain[bar]))
            ASSERT_TRUE(std::isnan(own[bar])) << what << ", bar " << bar;
        else
            ASSERT_TRUE(own[bar] == plain[bar] && std::signbit(own[bar]) == std::signbit(plain[bar]))
                << what << ", bar " << bar << ": " << own[bar] << " instead of " << plain[bar];
    }
}

constexpr const char* kText = "A:EMA(C,12),NODRAW;B:EMA(C,26),NODRAW;D:A-B,NODRAW;E:EMA(D,9),NODRAW;"
                              "F:EMA(A,5),NODRAW;G:EMA(F,3),NODRAW;H:EMA(G,4),NODRAW;";

/// The series of the outputs of that text.
std::vector<Series> plainAverages(const BarSeries& bars)
{
    const Series a = averageOf(bars.close, 12), b = averageOf(bars.close, 26), d = differenceOf(a, b);
    const Series e = averageOf(d, 9), f = averageOf(a, 5), g = averageOf(f, 3), h = averageOf(g, 4);
    return { a, b, d, e, f, g, h };
}

void expectSame(const FormulaEvaluation& evaluation, const std::vector<Series>& plain,
                const std::string& what)
{
    const std::vector<Series>& own = evaluation.records().result.numberSeries;
    ASSERT_EQ(own.size(), plain.size());
    for (std::size_t output = 0; output < own.size(); ++output)
        expectSame(own[output], plain[output], what + ", output " + std::to_string(output));
}

TEST(Chains, SayBesideOneAnotherWhatEachSaysAlone)
{
    const auto formula = engine::readFormula(kText).formula;
    ASSERT_TRUE(formula);
    for (const unsigned seed : test::seedsFor("Chains", 30)) {
        const BarSeries bars = randomBars(seed);
        const std::string what = "seed " + std::to_string(seed);
        for (const auto mode : { FormulaEvaluation::Mode::Once, FormulaEvaluation::Mode::Follow }) {
            FormulaEvaluation evaluation(formula, {}, mode);
            ASSERT_TRUE(evaluation.update(bars));
            expectSame(evaluation, plainAverages(bars), what);
        }
    }
}

TEST(Chains, GoOnFromEveryBar)
{
    const auto formula = engine::readFormula(kText).formula;
    ASSERT_TRUE(formula);
    for (const unsigned seed : test::seedsFor("ChainsGrown", 10)) {
        const BarSeries bars = randomBars(seed);
        FormulaEvaluation evaluation(formula);
        BarSeries grown;
        for (const std::size_t count : { 1, 2, 3, 60, 61, 126, 127, 128, 400, 1500, 1501, 2300 }) {
            grown = bars;
            grown.timeMs.resize(count);
            for (Series* column : { &grown.open, &grown.high, &grown.low, &grown.close, &grown.volume })
                column->resize(count);
            grown.close.back() += 1.0; // changes once more
            ASSERT_TRUE(evaluation.update(grown));
            grown.close.back() = bars.close[count - 1];
            ASSERT_TRUE(evaluation.update(grown));
            expectSame(evaluation, plainAverages(grown),
                       "seed " + std::to_string(seed) + ", " + std::to_string(count) + " bars");
        }
    }
}

} // namespace
