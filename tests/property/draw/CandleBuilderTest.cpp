// SPDX-License-Identifier: MIT
#include "draw/internal/CandleBuilder.h"
#include "tests/support/Seeds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

using TC::detail::Candle;
using TC::detail::CandleBuilder;
using TC::detail::Prices;

struct Bar
{
    int column;
    Prices prices;
};

/// Bars denser than pixels, with jumps of every size about the two limits.
std::vector<Bar> randomBars(std::mt19937& random)
{
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const int count = std::uniform_int_distribution<int>(0, 200)(random);
    const double pixelsPerBar = unit(random) * 2.0;
    const double jumpChance = unit(random) * 0.5;
    std::vector<Bar> bars;
    double close = 100.0;
    for (int bar = 0; bar < count; ++bar) {
        const double open = close;
        const double change =
            unit(random) < jumpChance ? 0.7 + 0.6 * unit(random) : 0.97 + 0.06 * unit(random);
        close = std::max(open * change, 0.01);
        const double high = std::max(open, close) + unit(random), low = std::min(open, close) - unit(random);
        bars.push_back({ static_cast<int>(bar * pixelsPerBar), { open, high, low, close } });
    }
    return bars;
}

bool jumps(double before, double now, int period)
{
    const bool falls = before > 1.2 * now + 1e-5;
    const bool moves = before > 1.02 * now || before < 0.98 * now;
    return falls || (period == 60 && moves);
}

/// The rule in plain words: cut the bars wherever the column changes or the price jumps; each run is a
/// candle, one pixel to the right when a jump began it.
std::vector<Candle> plainCandles(const std::vector<Bar>& bars, int period)
{
    std::vector<Candle> candles;
    for (std::size_t first = 0; first < bars.size();) {
        std::size_t end = first + 1;
        while (end < bars.size() && bars[end].column == bars[first].column
               && !jumps(bars[end - 1].prices.close, bars[end].prices.close, period))
            ++end;
        const bool sameColumnBefore = first > 0 && bars[first - 1].column == bars[first].column;
        Prices all { bars[first].prices.open, -1e9, 1e9, bars[end - 1].prices.close };
        for (std::size_t bar = first; bar < end; ++bar) {
            all.high = std::max(all.high, bars[bar].prices.high);
            all.low = std::min(all.low, bars[bar].prices.low);
        }
        candles.push_back({ bars[first].column + (sameColumnBefore ? 1 : 0), all });
        first = end;
    }
    return candles;
}

std::vector<Candle> builtCandles(const std::vector<Bar>& bars, int period)
{
    std::vector<Candle> candles;
    CandleBuilder builder(period);
    for (const Bar& bar : bars) {
        if (const auto closed = builder.add(bar.column, bar.prices))
            candles.push_back(*closed);
    }
    if (const auto last = builder.finish())
        candles.push_back(*last);
    return candles;
}

} // namespace

TEST(CandleBuilder, AgreesWithAPlainRestatement)
{
    std::size_t merged = 0, shifted = 0;
    for (const unsigned seed : test::seedsFor("candle_builder", 1000)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        const std::vector<Bar> bars = randomBars(random);
        const int period = seed % 2 == 0 ? 60 : 86400;
        const auto expected = plainCandles(bars, period), actual = builtCandles(bars, period);

        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t k = 0; k < actual.size(); ++k) {
            EXPECT_EQ(actual[k].x, expected[k].x);
            EXPECT_EQ(actual[k].prices.open, expected[k].prices.open);
            EXPECT_EQ(actual[k].prices.high, expected[k].prices.high);
            EXPECT_EQ(actual[k].prices.low, expected[k].prices.low);
            EXPECT_EQ(actual[k].prices.close, expected[k].prices.close);
            shifted += k > 0 && actual[k].x == actual[k - 1].x;
        }
        merged += bars.size() - actual.size();
    }
    // the seeds do reach merged bars, and candles that share a pixel
    EXPECT_GT(merged, 1000u);
    EXPECT_GT(shifted, 100u);
}
