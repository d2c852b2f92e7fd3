// SPDX-License-Identifier: MIT
#include "tests/widget/stocklist/BasketTable.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

using test::BasketTable;
using test::stock;

namespace {

/// Lets two stocks be known, with these figures 3015 and 3016.
void setFigures(double a3015, double b3015, double a3016 = 0.0, double b3016 = 0.0)
{
    ttservice::CInstrumentDetail a, b;
    a.market = b.market = "SH";
    a.kind = b.kind = "stock";
    a.code = "600000";
    b.code = "600036";
    a.figures = { { 3015, a3015 }, { 3016, a3016 } };
    b.figures = { { 3015, b3015 }, { 3016, b3016 } };
    TC::embedded::setInstruments({ a, b });
}

} // namespace

TEST(StockWeights, StartAsEntered)
{
    BasketTable table;
    EXPECT_EQ(table.getWeightType(), 1);
    table.add({ stock("600000", 1.0), stock("600036", 3.0) });
    EXPECT_EQ(table.weights(), QStringLiteral("1 3 | 0.25 0.75"));
    EXPECT_EQ(table.columnText(4), QStringLiteral("25 75"));
}

TEST(StockWeights, UnknownTypesCountAsEntered)
{
    BasketTable table;
    table.add({ stock("600000", 1.0), stock("600036", 3.0) });
    for (const int type : { -1, 6, 99 }) {
        table.setWeightType(type);
        EXPECT_EQ(table.weights(), QStringLiteral("1 3 | 0.25 0.75"));
    }
}

TEST(StockWeights, AsEnteredDividesByTheSumInSinglePrecision)
{
    // 16777216 + 1 is 16777216 as float, so the stocks' weights add up to more than 1: the float sum is used.
    BasketTable table;
    table.add({ stock("600000", 16777216.0), stock("600036", 1.0) });
    EXPECT_EQ(table.weights(), QStringLiteral("1.67772e+07 1 | 1 5.96046e-08"));
    EXPECT_EQ(table.statText(4), QStringLiteral("100.0%"));
}

TEST(StockWeights, AsEnteredDividesTheStocksOwnWeightInDoublePrecision)
{
    BasketTable table;
    // as float 1.00000012: the stock keeps 1.00000007 / 1.00000012, the vector holds 1.00000012 / 1.00000012
    table.add({ stock("600000", 1.00000007) });
    QVector<float> relative, absolute;
    table.getWeightValue(relative, absolute);
    EXPECT_EQ(absolute, QVector<float> { 1.0f });
    table.setWeightType(4); // hands out the stocks' own
    absolute.clear();
    table.getWeightValue(relative, absolute);
    EXPECT_EQ(absolute, QVector<float> { 0.99999994f });
}

TEST(StockWeights, EqualGivesEachStockTheSame)
{
    BasketTable table;
    table.setWeightType(0);
    table.add({ stock("600000", 7.0), stock("600036", 8.0), stock("000001", 9.0), stock("000002", 1.0) });
    EXPECT_EQ(table.weights(), QStringLiteral("1 1 1 1 | 0.25 0.25 0.25 0.25"));
    EXPECT_EQ(table.columnText(3), QStringLiteral("1 1 1 1"));
    EXPECT_EQ(table.columnText(4), QStringLiteral("25 25 25 25"));
}

TEST(StockWeights, BySharesCountsWholeLots)
{
    BasketTable table;
    table.setWeightType(5);
    table.add({ stock("600000", 7.0, 0.0, 150), stock("600036", 8.0, 0.0, 50) });
    EXPECT_EQ(table.weights(), QStringLiteral("1 0 | 0.75 0.25")); // 150 / 100 and 50 / 100 without the rest
    EXPECT_EQ(table.columnText(3), QStringLiteral("1 0"));
    EXPECT_EQ(table.columnText(4), QStringLiteral("75 25"));
}

TEST(StockWeights, BySharesDoesNotOverflow)
{
    BasketTable table;
    table.setWeightType(5);
    table.add({ stock("600000", 1.0, 0.0, INT_MAX), stock("600036", 1.0, 0.0, INT_MAX) });
    EXPECT_EQ(table.weights(), QStringLiteral("2.14748e+07 2.14748e+07 | 0.5 0.5"));
}

TEST(StockWeights, ByFigureVectorsAreTruncatedAndStocksAreNot)
{
    setFigures(104.9, 0.9);
    BasketTable table;
    table.setWeightType(2);
    table.add({ stock("600000", 7.0), stock("600036", 8.0) });
    // total 104 + 0; vectors 104 / 100 = 1, 0 / 100 = 0, 104 / 104, 0 / 104
    EXPECT_EQ(table.weights(), QStringLiteral("1 0 | 1 0"));
    // stocks 104.9 / 100 + 0.9 / 100 = 1.058 and 105.8 / 104 = 1.0173; truncated it were 1.04 and 1
    EXPECT_EQ(table.statText(3), QStringLiteral("1.1"));
    EXPECT_EQ(table.statText(4), QStringLiteral("101.7%"));
}

TEST(StockWeights, TypeThreeTakesTheOtherFigure)
{
    setFigures(1000.0, 1000.0, 100.0, 300.0);
    BasketTable table;
    table.setWeightType(3);
    table.add({ stock("600000", 7.0), stock("600036", 8.0) });
    EXPECT_EQ(table.weights(), QStringLiteral("1 3 | 0.25 0.75"));
}

TEST(StockWeights, WildFiguresSaturate)
{
    setFigures(1e300, NAN);
    BasketTable table;
    table.setWeightType(2);
    table.add({ stock("600000", 7.0), stock("600036", 8.0) });
    // 1e300 counts as 2^63 - 1, NaN as 0
    EXPECT_EQ(table.weights(), QStringLiteral("9.22337e+16 0 | 1 0"));
    setFigures(DBL_MAX, INFINITY);
    BasketTable both;
    both.setWeightType(2);
    both.add({ stock("600000", 7.0), stock("600036", 8.0) });
    EXPECT_EQ(both.weights(), QStringLiteral("9.22337e+16 9.22337e+16 | 1 1")); // the sum saturates as well
    setFigures(INFINITY, 1.0);
    BasketTable oneBeyond;
    oneBeyond.setWeightType(2);
    oneBeyond.add({ stock("600000", 7.0), stock("600036", 8.0) });
    EXPECT_EQ(oneBeyond.weights(), QStringLiteral("9.22337e+16 0 | 1 1.0842e-19"));
    setFigures(-INFINITY, -DBL_MAX);
    BasketTable negative;
    negative.setWeightType(2);
    negative.add({ stock("600000", 7.0), stock("600036", 8.0) });
    EXPECT_EQ(negative.weights(), QStringLiteral("-9.22337e+16 -9.22337e+16 | 1 1"));
}

TEST(StockWeights, ASumOfZeroGivesInvalidWeights)
{
    for (const int type : { 1, 2, 5 }) {
        setFigures(0.0, 0.0);
        BasketTable table;
        table.setWeightType(type);
        table.add({ stock("600000", 0.0), stock("600036", 0.0) });
        EXPECT_EQ(table.weights(), QStringLiteral("0 0 | nan nan")) << type;
        EXPECT_EQ(table.statText(4), QStringLiteral("非法值")) << type;
        EXPECT_EQ(table.columnText(4), QStringLiteral("非法值 非法值")) << type;
    }
}

TEST(StockWeights, OppositeWeightsGiveInfinities)
{
    BasketTable table;
    table.add({ stock("600000", 2.0), stock("600036", -2.0) });
    EXPECT_EQ(table.weights(), QStringLiteral("2 -2 | inf -inf"));
    EXPECT_EQ(table.statText(4), QStringLiteral("非法值"));
}

TEST(StockWeights, WeightsBeyondSinglePrecisionBecomeInfinite)
{
    BasketTable table;
    table.add({ stock("600000", 1e300), stock("600036", -1e300) });
    EXPECT_EQ(table.weights(), QStringLiteral("inf -inf | nan nan"));
}

TEST(StockWeights, AbsoluteAsEnteredAppendsAndWritesNothingBack)
{
    BasketTable table;
    table.add({ stock("600000", 1.0), stock("600036", 3.0) });
    table.setWeightType(4);
    QVector<float> relative { 9.0f }, absolute { 8.0f };
    table.getWeightValue(relative, absolute);
    EXPECT_EQ(relative, QVector<float>({ 9.0f }));
    EXPECT_EQ(absolute, QVector<float>({ 8.0f, 0.25f, 0.75f }));
    EXPECT_EQ(table.columnText(3), QStringLiteral("1 3"));
}

TEST(StockWeights, OtherTypesSetTheSizeOfTheVectors)
{
    BasketTable table;
    table.add({ stock("600000", 1.0) });
    for (const int type : { 0, 1, 2, 3, 5 }) {
        QVector<float> relative(5), absolute;
        table.setWeightType(type);
        table.getWeightValue(relative, absolute);
        EXPECT_EQ(relative.size(), 1) << type;
        EXPECT_EQ(absolute.size(), 1) << type;
    }
}

TEST(StockWeights, AnEmptyBasketHasNone)
{
    for (int type = 0; type < 6; ++type) {
        BasketTable table;
        table.setWeightType(type);
        EXPECT_EQ(table.weights(), QStringLiteral(" | "));
        table.reCalc();
        EXPECT_EQ(table.statText(3), QStringLiteral("0.0"));
        EXPECT_EQ(table.statText(4), QStringLiteral("0.0%"));
    }
}

TEST(StockWeights, SumsCountAllStocksWhateverTheFilterShows)
{
    BasketTable table;
    table.add({ stock("600000", 1.0), stock("600036", 3.0) });
    table.setColumnFilter(1, QStringLiteral("600036"));
    table.reCalc();
    EXPECT_EQ(table.rowCount(), 1);
    EXPECT_EQ(table.statText(3), QStringLiteral("4.0"));
    EXPECT_EQ(table.statText(4), QStringLiteral("100.0%"));
}

TEST(StockWeights, SettingTheTypeDoesNotRecalculate)
{
    BasketTable table;
    table.add({ stock("600000", 1.0), stock("600036", 3.0) });
    table.setWeightType(0);
    EXPECT_EQ(table.columnText(4), QStringLiteral("25 75"));
    table.reCalc();
    EXPECT_EQ(table.columnText(4), QStringLiteral("50 50"));
}
