// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

using TC::CDrawStyle;

TEST(BuildQuoteKey, RoundsHalfAwayFromZero)
{
    EXPECT_EQ(TC::buildQuoteKey(1.2345), 1235);
    EXPECT_EQ(TC::buildQuoteKey(-1.2345), -1235);
    EXPECT_EQ(TC::buildQuoteKey(0.0), 0);
}

TEST(BuildQuoteKey, SaturatesAndReadsNanAsZero)
{
    EXPECT_EQ(TC::buildQuoteKey(DBL_MAX), INT_MAX);
    EXPECT_EQ(TC::buildQuoteKey(-3e6), INT_MIN);
    EXPECT_EQ(TC::buildQuoteKey(NAN), 0);
}

TEST(PriceTick2Precision, CountsTheDecimalsOfTheTick)
{
    EXPECT_EQ(CDrawStyle::priceTick2Precision(0.01), 2);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(0.005), 3);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(0.2), 1);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(1.0), 0);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(5.0), 0);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(1e-9), 9);
}

TEST(PriceTick2Precision, TakesATickWithinTheToleranceOfOneAsWhole)
{
    EXPECT_EQ(CDrawStyle::priceTick2Precision(0.999991), 0);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(0.99999), 0);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(0.99998), 1);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(0.0999995), 1); // 0.999995 after one multiplication
}

TEST(PriceTick2Precision, AnswersTwoForTicksThatGiveNoPrecision)
{
    EXPECT_EQ(CDrawStyle::priceTick2Precision(1e-10), 2);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(0.0), 2);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(-0.01), 2);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(DBL_MAX), 2);
    EXPECT_EQ(CDrawStyle::priceTick2Precision(NAN), 2);
}

TEST(ToStringByPrec, ChoosesTheRenderingByPrecision)
{
    EXPECT_EQ(CDrawStyle::toStringByPrec(-1, 1.5, 0.001), QStringLiteral("1.500"));
    EXPECT_EQ(CDrawStyle::toStringByPrec(-2, 123456789.0, 0.01), QStringLiteral("1.23亿"));
    EXPECT_EQ(CDrawStyle::toStringByPrec(-3, 0.1234, 0.01), QStringLiteral("12.34%"));
    EXPECT_EQ(CDrawStyle::toStringByPrec(4, 1.5, 0.01), QStringLiteral("1.5000"));
    EXPECT_EQ(CDrawStyle::toStringByPrec(-4, 1.5, 0.01),
              QStringLiteral("2")); // an ordinary precision below 0
    EXPECT_EQ(CDrawStyle::toStringByPrec(2, NAN, 0.01), QStringLiteral("非法值"));
}

TEST(RemoveEndZero, CutsZerosBehindThePointOnly)
{
    const auto cut = [](QString text) {
        CDrawStyle::removeEndZero(text);
        return text;
    };
    EXPECT_EQ(cut(QStringLiteral("12.500")), QStringLiteral("12.5"));
    EXPECT_EQ(cut(QStringLiteral("3.000")), QStringLiteral("3"));
    EXPECT_EQ(cut(QStringLiteral("100")), QStringLiteral("100"));
    EXPECT_EQ(cut(QStringLiteral("1.2.0")), QStringLiteral("1.2."));
    EXPECT_EQ(cut(QStringLiteral(".")), QString());
    EXPECT_EQ(cut(QString()), QString());
}

TEST(IsCommodityFuturesMarket, KnowsTheFourExchangesByExactCode)
{
    for (const char* code : { "DF", "DCE", "ZF", "CZCE", "SF", "SHFE", "GF", "GFEX" })
        EXPECT_TRUE(CDrawStyle::isCommodityFuturesMarket(code)) << code;
    for (const char* code : { "IF", "CFFEX", "INE", "SH", "sf", "SF ", "" })
        EXPECT_FALSE(CDrawStyle::isCommodityFuturesMarket(code)) << code;
}
