// SPDX-License-Identifier: MIT
/// @file Whatever bars and parameters the engine is given, its records are sound.

#include "tests/support/EngineBars.h"
#include "tests/support/Seeds.h"

#include <cfloat>
#include <cmath>

namespace {

double wildNumber(std::mt19937& random)
{
    static const double wild[] = { NAN,    INFINITY, -INFINITY, DBL_MAX, -DBL_MAX, 1e308,
                                   -1e308, 5e-324,   0.0,       -0.0,    1e18,     -1.0 };
    return wild[random() % std::size(wild)];
}

/// A walk with a share of wild numbers in it, and now and then a vector that is too short or too long.
engine::BarSeries wildBars(unsigned seed)
{
    static const std::size_t lengths[] = { 0, 1, 2, 7, 60, 61, 250 };
    std::mt19937 random(seed);
    engine::BarSeries bars = test::randomBars(seed, lengths[random() % std::size(lengths)]);
    if (random() % 2)
        bars.amount = bars.volume;
    if (random() % 2)
        bars.openInterest = bars.volume;
    const unsigned share = random() % 4; // none, few, half, all
    for (auto* values :
         { &bars.open, &bars.high, &bars.low, &bars.close, &bars.volume, &bars.amount, &bars.openInterest }) {
        for (double& value : *values) {
            if (share == 3 || (share == 2 && random() % 2) || (share == 1 && random() % 20 == 0))
                value = wildNumber(random);
        }
        if (random() % 12 == 0)
            values->resize(values->size() / 2);
        else if (random() % 12 == 0)
            values->resize(values->size() + 3, 1.0);
    }
    return bars;
}

void expectSound(const engine::FormulaRecords& records, std::size_t bars)
{
    const auto& meta = records.meta;
    const auto& result = records.result;
    const auto outputs = static_cast<std::size_t>(meta.outputCount);
    for (const std::size_t size : { meta.outputNames.size(), meta.outputColumns.size(), meta.drawType.size(),
                                    meta.color.size(), meta.colorSet.size(), meta.lineStyle.size(),
                                    meta.lineWidth.size(), meta.position.size(), meta.valueKind.size() })
        EXPECT_EQ(size, outputs);
    EXPECT_EQ(result.barTimes.size(), bars);
    EXPECT_EQ(result.barValid.size(), bars);
    EXPECT_EQ(result.columnType.size(), result.columnSeries.size());
    EXPECT_EQ(result.columnNeedsAxis.size(), result.columnSeries.size());
    for (const auto& columns : meta.outputColumns) {
        EXPECT_FALSE(columns.empty());
        for (const int column : columns)
            EXPECT_LT(static_cast<std::size_t>(column), result.columnSeries.size());
    }
    for (std::size_t column = 0; column < result.columnSeries.size(); ++column) {
        const std::size_t series =
            result.columnType[column] == 3 ? result.textSeries.size() : result.numberSeries.size();
        EXPECT_LT(static_cast<std::size_t>(result.columnSeries[column]), series);
    }
    for (const auto& texts : result.textSeries)
        EXPECT_EQ(texts.size(), bars);
    for (const auto& values : result.numberSeries) {
        EXPECT_EQ(values.size(), bars);
        for (const double value : values)
            EXPECT_TRUE(!std::isinf(value) && value != -DBL_MAX) << value;
    }
}

TEST(ComputeFormula, AnswersWithSoundRecordsOnWildBarsAndParameters)
{
    for (const unsigned seed : test::seedsFor("engine_wild", 400)) {
        const engine::BarSeries bars = wildBars(seed);
        std::mt19937 random(seed ^ 0x5EEDu);
        for (const auto& formula : engine::builtInFormulas()) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << " formula " << formula.name);
            std::vector<double> parameters(random() % 6);
            for (double& parameter : parameters)
                parameter = random() % 2 ? wildNumber(random) : 1.0 + static_cast<double>(random() % 70);
            expectSound(test::computed(formula.name, bars, parameters), bars.size());
        }
    }
}

TEST(ComputeFormula, AnswersWithSoundRecordsOnNoBarAndOnOneBar)
{
    for (const auto& formula : engine::builtInFormulas()) {
        expectSound(test::computed(formula.name, engine::BarSeries()), 0);
        expectSound(test::computed(formula.name, test::barsOf({ 5.0 })), 1);
    }
}

TEST(ComputeFormula, HasNothingToShowWhereEveryPriceIsMissing)
{
    const auto records = test::computed("MA", test::barsOf(std::vector<double>(80, DBL_MAX)));
    EXPECT_EQ(records.result.barValid, std::vector<int>(80, 0));
    EXPECT_EQ(test::seriesOf(records, "MA5"), std::vector<double>(80, DBL_MAX));
}

} // namespace
