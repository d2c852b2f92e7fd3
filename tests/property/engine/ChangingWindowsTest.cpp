// SPDX-License-Identifier: MIT
/// @file Windows whose length is a series, beside plain loops over every window: lengths that jump, grow with
/// the bars since an event, stay, reach beyond the first bar or are none.

#include "engine/Formulas.h"
#include "engine/evaluation/FormulaEvaluation.h"
#include "tests/support/Seeds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

using engine::BarSeries;
using engine::FormulaEvaluation;
using Series = std::vector<double>;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t kBars = 2600; // more than two blocks of the evaluation

/// Closes are the values, volumes the lengths.
BarSeries randomBars(unsigned seed)
{
    std::mt19937 random(seed);
    const auto upTo = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    BarSeries bars;
    int kind = 0, longest = 1;
    double length = 1.0;
    for (std::size_t bar = 0; bar < kBars; ++bar) {
        if (bar % 100 == 0) {
            kind = upTo(4);
            longest = 1 << upTo(11);
        }
        if (kind == 0)
            length = upTo(longest);
        else if (kind == 1)
            length = upTo(30) == 0 ? 1.0 : length + 1.0; // since an event
        else if (kind == 2)
            length = longest;
        else
            length = std::max(0.0, length + upTo(4) - 2.0);
        const int odd = upTo(60);
        const double given = odd == 0 ? kNone : odd == 1 ? -length : odd == 2 ? 1e300 : length + odd / 100.0;
        bars.timeMs.push_back(static_cast<std::int64_t>(bar) * 60'000);
        const double value = upTo(40) == 0 ? -0.0 : upTo(200) / 7.0 - 9.0;
        bars.close.push_back(bar % 700 > 500 && upTo(20) == 0 ? kNone : upTo(400) == 0 ? 1e17 : value);
        bars.volume.push_back(given);
    }
    bars.open = bars.high = bars.low = bars.close;
    return bars;
}

/// The values of the window that ends at a bar, oldest first.
/// @param takesFewer  whether those that are there do.
Series windowAt(const BarSeries& bars, std::size_t bar, bool takesFewer)
{
    const double asked = bars.volume[bar];
    if (!(asked >= 1.0) || std::isnan(bars.close[bar]))
        return {};
    if (!takesFewer && asked >= static_cast<double>(bar + 2))
        return {};
    const auto length = static_cast<std::size_t>(std::min(std::trunc(asked), static_cast<double>(bar + 1)));
    Series window(bars.close.begin() + static_cast<std::ptrdiff_t>(bar + 1 - length),
                  bars.close.begin() + static_cast<std::ptrdiff_t>(bar + 1));
    const auto gaps =
        std::remove_if(window.begin(), window.end(), [](double value) { return std::isnan(value); });
    if (!takesFewer && gaps != window.end())
        return {};
    window.erase(gaps, window.end());
    return window;
}

double sumOf(const Series& window)
{
    long double sum = 0;
    for (const double value : window)
        sum += value;
    return static_cast<double>(sum);
}

double meanOf(const Series& window)
{
    return sumOf(window) / static_cast<double>(window.size());
}

double meanDistanceOf(const Series& window)
{
    long double distances = 0;
    for (const double value : window)
        distances += std::abs(static_cast<long double>(value) - meanOf(window));
    return static_cast<double>(distances / static_cast<long double>(window.size()));
}

double greatestOf(const Series& window)
{
    double greatest = window.front();
    for (const double value : window)
        greatest = value >= greatest ? value : greatest; // of equal ones the last: zeros have signs
    return greatest;
}

double leastOf(const Series& window)
{
    double least = window.front();
    for (const double value : window)
        least = value <= least ? value : least;
    return least;
}

struct Case
{
    const char* name;
    double (*plain)(const Series& window);
    bool takesFewer, isExact;
};

constexpr Case kCases[] = { { "HHV", greatestOf, true, true },
                            { "LLV", leastOf, true, true },
                            { "SUM", sumOf, true, false },
                            { "MA", meanOf, false, false },
                            { "AVEDEV", meanDistanceOf, false, false } };

Series valuesOf(const FormulaEvaluation& evaluation)
{
    return evaluation.records().result.numberSeries.at(0);
}

Series computed(const Case& asked, const BarSeries& bars, FormulaEvaluation::Mode mode)
{
    const auto formula = engine::readFormula("X:" + std::string(asked.name) + "(CLOSE,VOL),NODRAW;").formula;
    FormulaEvaluation evaluation(formula, {}, mode);
    EXPECT_TRUE(evaluation.update(bars));
    return valuesOf(evaluation);
}

BarSeries firstBars(BarSeries bars, std::size_t count)
{
    bars.timeMs.resize(count);
    for (Series* column : { &bars.open, &bars.high, &bars.low, &bars.close, &bars.volume })
        column->resize(count);
    return bars;
}

bool areSame(const Series& a, const Series& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

TEST(ChangingWindows, SayWhatPlainLoopsSay)
{
    for (const unsigned seed : test::seedsFor("ChangingWindows", 6)) {
        const BarSeries bars = randomBars(seed);
        for (const Case& asked : kCases) {
            const Series values = computed(asked, bars, FormulaEvaluation::Mode::Once);
            int answered = 0;
            for (std::size_t bar = 0; bar < kBars; ++bar) {
                const Series window = windowAt(bars, bar, asked.takesFewer);
                ASSERT_EQ(std::isnan(values[bar]), window.empty()) << asked.name << ", bar " << bar;
                if (window.empty())
                    continue;
                const double plain = asked.plain(window);
                const double tolerance = asked.isExact ? 0.0 : 1e-12 * std::max(1.0, std::abs(plain));
                ASSERT_LE(std::abs(values[bar] - plain), tolerance)
                    << asked.name << ", bar " << bar << ", window " << window.size();
                ASSERT_TRUE(!asked.isExact || std::signbit(values[bar]) == std::signbit(plain)) << bar;
                ++answered;
            }
            EXPECT_GT(answered, 500) << asked.name;
        }
    }
}

TEST(ChangingWindows, AnswerBarByBarWhatTheyAnswerAtOnce)
{
    for (const unsigned seed : test::seedsFor("ChangingWindowsGrown", 3)) {
        const BarSeries bars = randomBars(seed);
        for (const Case& asked : kCases) {
            const auto formula =
                engine::readFormula("X:" + std::string(asked.name) + "(CLOSE,VOL),NODRAW;").formula;
            FormulaEvaluation evaluation(formula);
            for (std::size_t count = 1000; count <= 1100; ++count) {
                BarSeries grown = firstBars(bars, count);
                grown.close.back() = 5e5; // will change when the next bar comes
                ASSERT_TRUE(evaluation.update(grown));
            }
            const BarSeries last = firstBars(bars, 1100);
            ASSERT_TRUE(evaluation.update(last));
            ASSERT_TRUE(areSame(valuesOf(evaluation), computed(asked, last, FormulaEvaluation::Mode::Follow)))
                << asked.name << ", seed " << seed;
            ASSERT_TRUE(areSame(valuesOf(evaluation), computed(asked, last, FormulaEvaluation::Mode::Once)))
                << asked.name << ", seed " << seed;
        }
    }
}

} // namespace
