// SPDX-License-Identifier: MIT
#include "host/WB/NumberFormat.h"
#include "tests/support/Trace.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

namespace {

const QString kInvalid = QStringLiteral("非法值");

QString plain(double value, int precision)
{
    return WB::formatDoubleNumber(value, precision, {}, true, kInvalid);
}

QString large(double value, int precision)
{
    return WB::formatDoubleNumber(value, precision, utils::EFormatNumber_Large, false, kInvalid);
}

} // namespace

TEST(FormatDoubleNumber, WritesFixedNotationWithTheGivenDecimals)
{
    EXPECT_EQ(plain(1234.5, 2), QStringLiteral("1234.50"));
    EXPECT_EQ(plain(1e15, 0), QStringLiteral("1000000000000000"));
    EXPECT_EQ(plain(0.126, 2), QStringLiteral("0.13"));
}

TEST(FormatDoubleNumber, NeverWritesANegativeZero)
{
    EXPECT_EQ(plain(-0.0, 2), QStringLiteral("0.00"));
    EXPECT_EQ(plain(-0.001, 2), QStringLiteral("0.00"));
    EXPECT_EQ(plain(-0.006, 2), QStringLiteral("-0.01"));
}

TEST(FormatDoubleNumber, GivesTheInvalidTextForWhatIsNoNumber)
{
    for (double value :
         { static_cast<double>(NAN), static_cast<double>(INFINITY), -static_cast<double>(INFINITY), DBL_MAX })
        EXPECT_EQ(plain(value, 2), kInvalid);
}

TEST(FormatDoubleNumber, ReadsPercentStyleAsAFraction)
{
    EXPECT_EQ(WB::formatDoubleNumber(0.0525, 2, utils::EFormatNumber_Percent, true, kInvalid),
              QStringLiteral("5.25%"));
    EXPECT_EQ(WB::formatDoubleNumber(1.0, 1, utils::EFormatNumber_Percent, false, kInvalid),
              QStringLiteral("100.0%"));
}

TEST(FormatDoubleNumber, ShortensLargeNumbersByUnit)
{
    EXPECT_EQ(large(9999.0, 2), QStringLiteral("9999"));
    EXPECT_EQ(large(10000.0, 2), QStringLiteral("1万"));
    EXPECT_EQ(large(12345678.0, 2), QStringLiteral("1234.57万"));
    EXPECT_EQ(large(1e8, 2), QStringLiteral("1亿"));
    EXPECT_EQ(large(-123456789012.0, 3), QStringLiteral("-1234.568亿"));
}

TEST(FormatDoubleNumber, TreatsTheTrimSwitchAlike)
{
    EXPECT_EQ(WB::formatDoubleNumber(1.5, 3, {}, true, kInvalid),
              WB::formatDoubleNumber(1.5, 3, {}, false, kInvalid));
}

TEST(FormatDoubleNumber, LimitsTheDecimals)
{
    EXPECT_EQ(plain(1.5, -3), QStringLiteral("2"));
    EXPECT_EQ(plain(1.0, 1000).size(), 22);
}

TEST(FormatDoubleNumber, DoesNotFollowTheLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(plain(1234.5, 1), QStringLiteral("1234.5"));
    QLocale::setDefault(before);
}

TEST(FormatIntNumber, WritesPlainDecimal)
{
    EXPECT_EQ(WB::formatIntNumber(-1234567, 0, {}), QStringLiteral("-1234567"));
}

TEST(FormatPriceDoubleNumber, HasTheDecimalsOfTheTick)
{
    EXPECT_EQ(WB::formatPriceDoubleNumber(3.14159, 0.01), QStringLiteral("3.14"));
    EXPECT_EQ(WB::formatPriceDoubleNumber(3.14159, 0.001), QStringLiteral("3.142"));
    EXPECT_EQ(WB::formatPriceDoubleNumber(3.14159, 5.0), QStringLiteral("3"));
    EXPECT_EQ(WB::formatPriceDoubleNumber(3.14159, 0.0), QStringLiteral("3.14"));
    EXPECT_EQ(WB::formatPriceDoubleNumber(3.14159, DBL_MAX), QStringLiteral("3.14")); // no tick is known
    EXPECT_EQ(WB::formatPriceDoubleNumber(NAN, 0.01), kInvalid);
}
