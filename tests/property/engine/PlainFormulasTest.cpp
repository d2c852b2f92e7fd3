// SPDX-License-Identifier: MIT
/// @file The built-in formulas against plain re-statements: every window summed anew in long double, every
/// recursion written out, on the bundled files and on random walks.

#include "tests/support/EngineBars.h"
#include "tests/support/Seeds.h"

#include <cfloat>
#include <cmath>

namespace {

using Series = std::vector<double>;
using Real = long double;

constexpr Real kGone = DBL_MAX;

Real plainMean(const Series& values, int bar, int period)
{
    Real sum = 0;
    for (int back = 0; back < period; ++back)
        sum += values[static_cast<std::size_t>(bar - back)];
    return sum / period;
}

/// Compares a computed series with `plain(bar)`, which is asked from `firstBar` on; before it all is missing.
template <class Plain>
void expectSeries(const Series& computed, int firstBar, Plain plain, const std::string& what)
{
    int wrong = 0;
    for (int bar = 0; bar < static_cast<int>(computed.size()) && wrong < 3; ++bar) {
        const Real expected = bar < firstBar ? kGone : plain(bar);
        const Real actual = computed[static_cast<std::size_t>(bar)];
        if (std::abs(actual - expected) > 1e-11L * std::max<Real>(1, std::abs(expected))) {
            ++wrong;
            ADD_FAILURE() << what << " at bar " << bar << ": " << static_cast<double>(actual)
                          << " instead of " << static_cast<double>(expected);
        }
    }
}

Series plainEma(const Series& values, int period)
{
    Series averages;
    for (const double value : values)
        averages.push_back(
            averages.empty()
                ? value
                : static_cast<double>((2.0L * value + (period - 1.0L) * averages.back()) / (period + 1.0L)));
    return averages;
}

Series plainSma(const Series& values, int period, int weight)
{
    Series averages;
    for (const double value : values)
        averages.push_back(
            averages.empty() ? value : (weight * value + (period - weight) * averages.back()) / period);
    return averages;
}

void checkMovingAverages(const engine::BarSeries& bars)
{
    const auto ma = test::computed("MA", bars);
    for (const int period : { 5, 10, 20, 60 })
        expectSeries(
            test::seriesOf(ma, "MA" + std::to_string(period)), period - 1,
            [&](int bar) { return plainMean(bars.close, bar, period); }, "MA");
    const auto vol = test::computed("VOL", bars);
    for (const int period : { 5, 10 })
        expectSeries(
            test::seriesOf(vol, "MA" + std::to_string(period)), period - 1,
            [&](int bar) { return plainMean(bars.volume, bar, period); }, "VOL");
}

void checkBollinger(const engine::BarSeries& bars)
{
    const auto deviation = [&](int bar) {
        const Real mean = plainMean(bars.close, bar, 20);
        Real squares = 0;
        for (int back = 0; back < 20; ++back) {
            const Real distance = bars.close[static_cast<std::size_t>(bar - back)] - mean;
            squares += distance * distance;
        }
        return std::sqrt(squares / 19);
    };
    const auto boll = test::computed("BOLL", bars);
    expectSeries(
        test::seriesOf(boll, "MID"), 19, [&](int bar) { return plainMean(bars.close, bar, 20); }, "MID");
    expectSeries(
        test::seriesOf(boll, "UPPER"), 19,
        [&](int bar) { return plainMean(bars.close, bar, 20) + 2 * deviation(bar); }, "UPPER");
    expectSeries(
        test::seriesOf(boll, "LOWER"), 19,
        [&](int bar) { return plainMean(bars.close, bar, 20) - 2 * deviation(bar); }, "LOWER");
}

void checkMacd(const engine::BarSeries& bars)
{
    const Series fast = plainEma(bars.close, 12), slow = plainEma(bars.close, 26);
    Series dif;
    for (std::size_t bar = 0; bar < bars.size(); ++bar)
        dif.push_back(fast[bar] - slow[bar]);
    const Series dea = plainEma(dif, 9);
    const auto macd = test::computed("MACD", bars);
    const auto at = [](const Series& s, int bar) {
        return static_cast<Real>(s[static_cast<std::size_t>(bar)]);
    };
    expectSeries(
        test::seriesOf(macd, "DIF"), 0, [&](int bar) { return at(dif, bar); }, "DIF");
    expectSeries(
        test::seriesOf(macd, "DEA"), 0, [&](int bar) { return at(dea, bar); }, "DEA");
    expectSeries(
        test::seriesOf(macd, "MACD"), 0, [&](int bar) { return 2 * (at(dif, bar) - at(dea, bar)); }, "MACD");
}

void checkKdj(const engine::BarSeries& bars)
{
    Series raw;
    for (std::size_t bar = 0; bar < bars.size(); ++bar) {
        double high = bars.high[bar], low = bars.low[bar];
        for (std::size_t back = 1; back < 9 && back <= bar; ++back) {
            high = std::max(high, bars.high[bar - back]);
            low = std::min(low, bars.low[bar - back]);
        }
        raw.push_back(high == low ? 50.0 : (bars.close[bar] - low) / (high - low) * 100.0);
    }
    const Series k = plainSma(raw, 3, 1), d = plainSma(k, 3, 1);
    const auto kdj = test::computed("KDJ", bars);
    const auto at = [](const Series& s, int bar) {
        return static_cast<Real>(s[static_cast<std::size_t>(bar)]);
    };
    expectSeries(
        test::seriesOf(kdj, "K"), 0, [&](int bar) { return at(k, bar); }, "K");
    expectSeries(
        test::seriesOf(kdj, "D"), 0, [&](int bar) { return at(d, bar); }, "D");
    expectSeries(
        test::seriesOf(kdj, "J"), 0, [&](int bar) { return 3 * at(k, bar) - 2 * at(d, bar); }, "J");
}

void checkRsi(const engine::BarSeries& bars)
{
    Series rises, sizes;
    for (std::size_t bar = 1; bar < bars.size(); ++bar) {
        rises.push_back(std::max(bars.close[bar] - bars.close[bar - 1], 0.0));
        sizes.push_back(std::abs(bars.close[bar] - bars.close[bar - 1]));
    }
    const auto rsi = test::computed("RSI", bars);
    for (const int period : { 6, 12, 24 }) {
        const Series up = plainSma(rises, period, 1), all = plainSma(sizes, period, 1);
        expectSeries(
            test::seriesOf(rsi, "RSI" + std::to_string(period)), 1,
            [&](int bar) {
                const auto change = static_cast<std::size_t>(bar - 1);
                return all[change] == 0.0 ? Real(50) : static_cast<Real>(up[change]) / all[change] * 100;
            },
            "RSI");
    }
}

/// The bars of a window that are there: all from the first one on.
int firstOf(int bar, int period)
{
    return std::max(0, bar + 1 - period);
}

void checkWilliams(const engine::BarSeries& bars)
{
    const auto wr = test::computed("WR", bars);
    for (const int period : { 10, 6 }) {
        const Series computed = test::seriesOf(wr, "WR" + std::to_string(period));
        for (int bar = 0; bar < static_cast<int>(bars.size()); ++bar) {
            const auto from = firstOf(bar, period);
            const Real high = *std::max_element(bars.high.begin() + from, bars.high.begin() + bar + 1);
            const Real low = *std::min_element(bars.low.begin() + from, bars.low.begin() + bar + 1);
            const auto at = static_cast<std::size_t>(bar);
            const Real expected = high == low ? kGone : 100 * (high - bars.close[at]) / (high - low);
            ASSERT_LE(std::abs(computed[at] - expected), 1e-9L * std::max<Real>(1, std::abs(expected)))
                << period << " at bar " << bar;
        }
    }
}

void checkDirectionalMovement(const engine::BarSeries& bars)
{
    constexpr int period = 14;
    const auto dmi = test::computed("DMI", bars);
    const Series up = test::seriesOf(dmi, "PDI"), down = test::seriesOf(dmi, "MDI");
    for (int bar = 0; bar < static_cast<int>(bars.size()); ++bar) {
        Real ranges = 0, rises = 0, falls = 0;
        for (int back = firstOf(bar, period); back <= bar; ++back) {
            const auto at = static_cast<std::size_t>(back);
            const Real high = bars.high[at], low = bars.low[at];
            const Real before = back > 0 ? bars.close[at - 1] : high;
            ranges += back > 0 ? std::max({ high - low, std::abs(high - before), std::abs(low - before) })
                               : high - low;
            const Real rise = back > 0 ? high - bars.high[at - 1] : 0;
            const Real fall = back > 0 ? bars.low[at - 1] - low : 0;
            rises += rise > 0 && rise > fall ? rise : 0;
            falls += fall > 0 && fall > rise ? fall : 0;
        }
        const auto at = static_cast<std::size_t>(bar);
        const bool isThere = bar > 0 && ranges > 0;
        for (const auto& [computed, moves] : { std::pair(up[at], rises), std::pair(down[at], falls) }) {
            const Real expected = isThere ? moves * 100 / ranges : kGone;
            ASSERT_LE(std::abs(computed - expected), 1e-9L * std::max<Real>(1, std::abs(expected)))
                << "at bar " << bar;
        }
    }
}

void checkAll(const engine::BarSeries& bars)
{
    checkMovingAverages(bars);
    checkBollinger(bars);
    checkMacd(bars);
    checkKdj(bars);
    checkRsi(bars);
    checkWilliams(bars);
    checkDirectionalMovement(bars);
}

TEST(BuiltInFormulas, AgreeWithTheirPlainFormOnTheBundledFiles)
{
    for (const char* name : { "SH000001", "SH600030", "SH510050", "SFCU00", "DFM00" }) {
        SCOPED_TRACE(name);
        checkAll(test::sampleBars(name));
    }
}

TEST(BuiltInFormulas, AgreeWithTheirPlainFormOnRandomWalks)
{
    for (const unsigned seed : test::seedsFor("engine_plain", 50)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        checkAll(test::randomBars(seed, 1 + seed % 300));
    }
}

} // namespace
