// SPDX-License-Identifier: MIT
#include "draw/internal/ink/Extremes.h"
#include "draw/internal/ink/PriceRuns.h"
#include "tests/support/InkScene.h"
#include "tests/support/Seeds.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

using namespace TC::detail;
using test::Dice;

namespace {

/// Numbers with a good part of those that are hard to tell apart.
std::vector<double> hardNumbers(Dice& dice, std::size_t count)
{
    static const double hard[] = { 0.0,      -0.0,     1e-5,      -1e-5, 1.1e-5,      DBL_MAX,
                                   -DBL_MAX, INFINITY, -INFINITY, NAN,   DBL_MAX / 2, INT_MAX };
    std::vector<double> values;
    const int rarity = dice.pick(1, 30);
    while (values.size() < count)
        values.push_back(dice.oneIn(rarity) ? hard[dice.pick(0, 11)] : dice.real(90.0, 100.0));
    return values;
}

bool sameBits(double a, double b)
{
    return a == b && std::signbit(a) == std::signbit(b);
}

} // namespace

TEST(Extremes, AreTheSameWithAndWithoutVectorInstructions)
{
    for (const unsigned seed : test::seedsFor("extremes", 3000)) {
        Dice dice(seed);
        const auto count = static_cast<std::size_t>(dice.pick(0, 40));
        const std::vector<double> values = hardNumbers(dice, count);
        const std::vector<int> flags = test::randomFlags(dice, static_cast<int>(count));
        static const double factors[] = { 1.0, -1.0, 0.5, 2.0, 0.0, INFINITY };
        const CountRule rule { factors[dice.pick(0, 5)], dice.oneIn(2), dice.oneIn(2) ? 1e-5 : -1.0 };

        const Extremes fast = extremesOf(values.data(), flags.data(), count, rule);
        const Extremes plain = plainExtremesOf(values.data(), flags.data(), count, rule);

        EXPECT_EQ(fast.hasGaps, plain.hasGaps) << "seed " << seed;
        EXPECT_TRUE(sameBits(fast.lowest, plain.lowest) && sameBits(fast.highest, plain.highest))
            << "seed " << seed << ": " << fast.lowest << ".." << fast.highest << " instead of "
            << plain.lowest << ".." << plain.highest;
    }
}

TEST(PriceRuns, MergeTheSameWithAndWithoutVectorInstructionsAndBarByBar)
{
    for (const unsigned seed : test::seedsFor("price_runs", 3000)) {
        Dice dice(seed);
        const auto count = static_cast<std::size_t>(dice.pick(1, 30));
        std::vector<double> columns[4];
        for (auto& column : columns)
            column = dice.oneIn(2) ? hardNumbers(dice, count) : std::vector<double>(count, dice.real(90, 95));
        const std::vector<int> flags =
            dice.oneIn(4) ? test::randomFlags(dice, static_cast<int>(count)) : std::vector<int>(count, 1);
        const PriceRun run { columns[0].data(), columns[1].data(), columns[2].data(),
                             columns[3].data(), flags.data(),      count };
        const double factor = dice.oneIn(3) ? dice.real(-1.0, 3.0) : 1.0;
        const int period = dice.oneIn(2) ? kMinutePeriod : 86400;

        const std::optional<Prices> fast = mergePrices(run, factor, period);
        const std::optional<Prices> plain = mergePricesPlainly(run, factor, period);
        ASSERT_EQ(fast.has_value(), plain.has_value()) << "seed " << seed;
        if (!fast)
            continue;
        CandleBuilder builder(period);
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_FALSE(builder.add(7,
                                     { columns[0][i] * factor, columns[1][i] * factor, columns[2][i] * factor,
                                       columns[3][i] * factor }))
                << "seed " << seed;
        }
        const Prices expected = builder.finish()->prices;
        for (const Prices& merged : { *fast, *plain }) {
            EXPECT_TRUE(merged.open == expected.open && merged.high == expected.high
                        && merged.low == expected.low && merged.close == expected.close)
                << "seed " << seed;
        }
    }
}
