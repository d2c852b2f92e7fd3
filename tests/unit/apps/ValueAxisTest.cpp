// SPDX-License-Identifier: MIT
#include "apps/chart/ValueAxis.h"

#include "apps/chart/MappedRecords.h"
#include "apps/chart/PaneScale.h"
#include "apps/chart/ValueMarks.h"
#include "host/se/RecordCodes.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

using chart::AxisKind;
using chart::ValueAxis;

namespace {

chart::PaneContent pricesOn(AxisKind kind, double reference)
{
    chart::PaneContent pane;
    pane.showsPrices = true;
    pane.axis = { kind, reference };
    return pane;
}

} // namespace

TEST(ValueAxis, FindsTheValueOfAPlaceAgain)
{
    for (const AxisKind kind :
         { AxisKind::Linear, AxisKind::Logarithmic, AxisKind::Percent, AxisKind::Indexed }) {
        const ValueAxis axis { kind, 8.0 };
        EXPECT_NEAR(axis.valueAt(axis.placeOf(26.35)), 26.35, 1e-12);
        EXPECT_NEAR(axis.valueOfTold(axis.told(26.35)), 26.35, 1e-12);
    }
    EXPECT_TRUE(std::isnan(ValueAxis { AxisKind::Logarithmic }.placeOf(0.0)));
    EXPECT_TRUE(std::isnan(ValueAxis { AxisKind::Logarithmic }.placeOf(-3.0)));
}

TEST(ValueAxis, TellsPercentAndPointsOfItsReference)
{
    EXPECT_DOUBLE_EQ((ValueAxis { AxisKind::Percent, 8.0 }.told(10.0)), 25.0);
    EXPECT_DOUBLE_EQ((ValueAxis { AxisKind::Indexed, 8.0 }.told(10.0)), 125.0);
    EXPECT_DOUBLE_EQ((ValueAxis { AxisKind::Percent, 0.0 }.told(10.0)), 10.0) << "without a reference";
}

TEST(ValueMarks, OfALogarithmicAxisAreRoundPricesWhoseDistancesGrow)
{
    const std::pair<double, double> extents[] = {
        { 1.0, 100.0 }, { 0.6, 35.0 }, { 20.0, 33.0 }, { 26.1, 26.9 }, { 900.0, 90'000.0 }
    };
    for (const auto& [low, high] : extents) {
        const chart::PaneContent pane = pricesOn(AxisKind::Logarithmic, 1.0);
        const QPair<double, double> range { pane.axis.placeOf(high), pane.axis.placeOf(low) };
        for (int height : { 80, 150, 430, 900 }) {
            const auto marks = chart::valueMarks(range, height, 38, pane);
            EXPECT_GE(marks.size(), 3u) << low << " to " << high << " on " << height;
            EXPECT_LE(marks.size(), 8u) << low << " to " << high << " on " << height;
            for (std::size_t mark = 0; mark < marks.size(); ++mark) {
                EXPECT_GE(marks[mark].value, low);
                EXPECT_LE(marks[mark].value, high);
                if (mark > 0) {
                    EXPECT_GT(marks[mark].value, marks[mark - 1].value);
                }
                if (mark > 1) {
                    EXPECT_GE(marks[mark].value - marks[mark - 1].value,
                              (marks[mark - 1].value - marks[mark - 2].value) * 0.49);
                }
            }
        }
    }
}

TEST(ValueMarks, OfAPercentAxisStandAtRoundPercents)
{
    const auto marks = chart::valueMarks({ 12.0, 7.0 }, 300, 38, pricesOn(AxisKind::Percent, 8.0));
    ASSERT_GE(marks.size(), 3u);
    bool hasZero = false;
    for (const chart::AxisMark& mark : marks) {
        hasZero = hasZero || (mark.text == QStringLiteral("0%") && std::abs(mark.value - 8.0) < 1e-9);
        EXPECT_TRUE(mark.text.endsWith(QLatin1Char('%')));
    }
    EXPECT_TRUE(hasZero);
    EXPECT_EQ(chart::valueText(10.0, pricesOn(AxisKind::Percent, 8.0), 0.01), QStringLiteral("+25.00%"));
    EXPECT_EQ(chart::valueText(6.0, pricesOn(AxisKind::Indexed, 8.0), 0.01), QStringLiteral("75.00"));
}

TEST(MappedPrices, MapPricesAndLeaveConditionsAlone)
{
    TC::RPCFormulaResultCache records;
    records.meta.drawType = { se::DrawType::Line, se::DrawType::Icon };
    records.meta.outputColumns = { { 0 }, { 1, 2 } };
    records.result.columnSeries = { 0, 1, 0 }; // the icon stands at the line's prices
    records.result.columnType = { se::ColumnType::Integer, 0, 0 };
    records.result.numberSeries = { { 1.0, std::exp(1.0), DBL_MAX, -1.0 }, { 1.0, 0.0, 1.0, 0.0 } };
    const auto mapped = chart::mappedPrices(records, { AxisKind::Logarithmic });
    const auto seriesOf = [&](std::size_t column) {
        return mapped.result.numberSeries[static_cast<std::size_t>(mapped.result.columnSeries[column])];
    };
    EXPECT_EQ(seriesOf(0)[0], 0.0);
    EXPECT_DOUBLE_EQ(seriesOf(0)[1], ValueAxis::kLogUnit);
    EXPECT_TRUE(std::isnan(seriesOf(0)[2]));
    EXPECT_TRUE(std::isnan(seriesOf(0)[3]));
    EXPECT_EQ(seriesOf(1), records.result.numberSeries[1]);
    EXPECT_EQ(mapped.result.columnSeries[0], mapped.result.columnSeries[2]);
    EXPECT_EQ(mapped.result.columnType[0], se::ColumnType::Number) << "places are no whole numbers";
}

TEST(MappedPrices, SurviveColumnsThatDoNotExist)
{
    TC::RPCFormulaResultCache records;
    records.meta.drawType = { se::DrawType::Candle };
    records.meta.outputColumns = { { 0, 7, -1, 2 } };
    records.result.columnSeries = { 5, -2, 0 };
    EXPECT_TRUE(chart::mappedPrices(records, {}).result.numberSeries.empty());
}

TEST(Stretched, KeepsTheMiddleOrZero)
{
    EXPECT_EQ(chart::stretched({ 12.0, 8.0 }, 2.0, false), qMakePair(14.0, 6.0));
    EXPECT_EQ(chart::stretched({ 12.0, 0.0 }, 2.0, true), qMakePair(24.0, 0.0));
}
