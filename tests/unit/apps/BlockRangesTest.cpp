// SPDX-License-Identifier: MIT
#include "apps/chart/BlockRanges.h"

#include "apps/client/chart/ResultDifference.h"
#include "draw/CDrawStyle.h"
#include "host/se/RecordCodes.h"
#include "tests/support/FormulaBuilder.h"

#include <QRect>

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <random>

using chart::BlockRanges;

namespace {

constexpr int kTotal = 5 * BlockRanges::kBars + 77;

/// Numbers with gaps, zeros and, now and then, one far outside.
std::vector<double> someNumbers(std::mt19937& random, int count)
{
    std::vector<double> numbers;
    numbers.reserve(static_cast<std::size_t>(count));
    for (int bar = 0; bar < count; ++bar) {
        const auto dice = random() % 40;
        const double number = static_cast<double>(random() % 2001) - 1000.0;
        numbers.push_back(dice == 0       ? DBL_MAX
                              : dice == 1 ? std::nan("")
                              : dice == 2 ? 0.0
                              : dice == 3 ? number * 1e3
                                          : number);
    }
    return numbers;
}

/// A line, a flag, a stack and a gated text of so many bars; one in twenty bars is not valid.
TC::RPCFormulaResultCache someRecords(std::mt19937& random, int count)
{
    const auto numbers = [&] { return someNumbers(random, count); };
    std::vector<double> flags, gates;
    for (int bar = 0; bar < count; ++bar) {
        flags.push_back(bar / BlockRanges::kBars == 1 ? 1.0 : 0.0);
        gates.push_back(random() % 3 == 0 ? 1.0 : 0.0);
    }
    TC::RPCFormulaResultCache records =
        test::FormulaBuilder()
            .line(numbers())
            .output("flag", se::DrawType::BoolLine, { flags })
            .output("stack", se::DrawType::StackedVolume, { numbers(), numbers() })
            .output("text", se::DrawType::Text, { gates, numbers() })
            .build();
    records.result.columnType[1] = se::ColumnType::Flag;
    for (int& valid : records.result.barValid)
        valid = random() % 20 == 0 ? 0 : 1;
    return records;
}

std::optional<QPair<double, double>> scanned(TC::RPCFormulaResultCache& records, int first, int last,
                                             const BlockRanges::Rule& rule)
{
    double max = 0.0, min = 0.0;
    const bool counted = TC::CDrawStyle::calcMaxMin(max, min, first, last, records, QRect(), rule.countZero,
                                                    rule.useScale, rule.scale);
    return counted ? std::optional(qMakePair(max, min)) : std::nullopt;
}

void expectScanned(BlockRanges& ranges, TC::RPCFormulaResultCache& records, std::mt19937& random,
                   const BlockRanges::Rule& rule)
{
    for (int time = 0; time < 60; ++time) {
        const int first = static_cast<int>(random() % (kTotal + 10)) - 5;
        const int last = first + static_cast<int>(random() % kTotal) - 3;
        EXPECT_EQ(ranges.range(records, first, last, rule), scanned(records, first, last, rule))
            << first << " to " << last;
    }
}

} // namespace

TEST(BlockRanges, AreThoseOfAScanOfEveryBar)
{
    std::mt19937 random(7);
    for (const BlockRanges::Rule& rule : { BlockRanges::Rule { true, false, 1.0F },
                                           { false, false, 1.0F },
                                           { true, true, 0.5F },
                                           { false, true, -2.0F } }) {
        TC::RPCFormulaResultCache records = someRecords(random, kTotal);
        BlockRanges ranges;
        expectScanned(ranges, records, random, rule);
    }
}

TEST(BlockRanges, FollowWhatCountsWhenItChanges)
{
    std::mt19937 random(8);
    TC::RPCFormulaResultCache records = someRecords(random, kTotal);
    BlockRanges ranges;
    expectScanned(ranges, records, random, { true, false, 1.0F });
    expectScanned(ranges, records, random, { true, true, 0.25F });
}

TEST(BlockRanges, LookAtWholeBlocksOnce)
{
    std::mt19937 random(9);
    TC::RPCFormulaResultCache records = test::FormulaBuilder().line(someNumbers(random, kTotal)).build();
    BlockRanges ranges;
    const auto before = ranges.range(records, 0, kTotal - 1, {});
    records.result.numberSeries[0][BlockRanges::kBars + 5] = 1e9;
    EXPECT_EQ(ranges.range(records, 0, kTotal - 1, {}), before) << "the block is known";
    ranges.forget();
    EXPECT_EQ(ranges.range(records, 0, kTotal - 1, {})->first, 1e9);
}

TEST(BlockRanges, OfGrownResultsForgetTheBlocksThatDifferAndNoOthers)
{
    std::mt19937 random(10);
    const TC::RPCFormulaResultCache all = someRecords(random, kTotal);
    TC::RPCFormulaResultCache records = all;
    BlockRanges ranges;
    static_cast<void>(ranges.range(records, 0, kTotal - 1, {})); // every whole block
    int kept = 0, asked = 0;
    const auto replaceBy = [&](const TC::RPCFormulaResultCache& next) {
        ranges.forget([&](int first, int last) {
            const bool differs = client::differ(records.result, next.result, first, last);
            ++asked;
            kept += differs ? 0 : 1;
            return differs;
        });
        records = next;
    };
    TC::RPCFormulaResultCache grown = records; // the last bar changes, an old one as well, and one follows
    grown.result.numberSeries[0][kTotal - 1] = 4e9;
    grown.result.numberSeries[0][10] = -4e9;
    for (auto& series : grown.result.numberSeries)
        series.push_back(3.0);
    grown.result.barValid.push_back(1);
    grown.result.barTimes.push_back(grown.result.barTimes.back());
    replaceBy(grown);
    EXPECT_EQ(asked - kept, 1) << "the block of bar 10; that of the last bars is not whole";
    EXPECT_EQ(kept, 4);
    expectScanned(ranges, records, random, {});
    EXPECT_EQ(ranges.range(records, 0, kTotal, {}), qMakePair(4e9, -4e9));

    TC::RPCFormulaResultCache shorter = test::FormulaBuilder().line(someNumbers(random, 2000)).build();
    ranges.forget();
    records = shorter;
    expectScanned(ranges, records, random, {});
}
