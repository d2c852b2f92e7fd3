// SPDX-License-Identifier: MIT
#include "data/internal/NumberText.h"
#include "tests/support/Seeds.h"
#include "tests/support/System.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iomanip>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <vector>

namespace {

/// The stream that both functions must agree with.
std::string streamed(double value, bool fixed)
{
    if (!test::isUnix() && std::isnan(value)) // the C library of Windows has no sign for it
        return std::signbit(value) ? "-nan" : "nan";
    std::ostringstream out;
    out.imbue(std::locale::classic());
    if (fixed)
        out << std::fixed << std::setprecision(4);
    out << value;
    return out.str();
}

/// Compares both texts of a number and of its negative. @return whether they agree.
bool agrees(double value)
{
    bool same = true;
    for (const double number : { value, -value }) {
        std::string fixed, general;
        TC::detail::appendFixed4(fixed, number);
        TC::detail::appendGeneral6(general, number);
        EXPECT_EQ(fixed, streamed(number, true));
        EXPECT_EQ(general, streamed(number, false));
        same = same && fixed == streamed(number, true) && general == streamed(number, false);
    }
    return same;
}

double fromBits(std::uint64_t bits)
{
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// The number and those beside it.
bool agreesAround(double value)
{
    double below = value, above = value;
    bool same = agrees(value);
    for (int step = 0; step < 3; ++step) {
        below = std::nextafter(below, -INFINITY);
        above = std::nextafter(above, INFINITY);
        same = same && agrees(below) && agrees(above);
    }
    return same;
}

} // namespace

TEST(NumberText, AgreesWithTheStreamOnSpecialNumbers)
{
    const std::vector<double> special { 0.0,          DBL_MAX,
                                        DBL_MIN,      DBL_TRUE_MIN,
                                        INFINITY,     std::numeric_limits<double>::quiet_NaN(),
                                        2147483647,   1e6,
                                        999'999.5,    999'999.4999999,
                                        100'000,      0.0001,
                                        0.00009999,   0.000099999,
                                        0.0000999999, 9.999995e15,
                                        1e16,         0.5,
                                        0.00005,      0.00015,
                                        0.99995,      999.99995,
                                        1e15,         9'007'199'254'740'993.0 };
    for (const double value : special)
        agreesAround(value);
}

TEST(NumberText, AgreesWithTheStreamAroundPowersOfTenAndTwo)
{
    for (int power = -12; power <= 24; ++power)
        ASSERT_TRUE(agreesAround(std::pow(10.0, power))) << power;
    for (int power = -1074; power <= 1023; ++power)
        ASSERT_TRUE(agreesAround(std::ldexp(1.0, power))) << power;
}

// A tie needs an odd multiple of half the last place: k + 1/2 in the seventh digit, or n/32 and so on behind
// the fourth decimal.
TEST(NumberText, AgreesWithTheStreamOnTies)
{
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        const int sixDigits = std::uniform_int_distribution<int>(100'000, 999'999)(random);
        ASSERT_TRUE(agreesAround(sixDigits + 0.5));
        ASSERT_TRUE(agreesAround(sixDigits * 10.0 + 5.0));
        ASSERT_TRUE(agreesAround(sixDigits * 1e6 + 5e5));
        ASSERT_TRUE(agreesAround(sixDigits / 32.0));
        ASSERT_TRUE(agreesAround(sixDigits / 1024.0));
        ASSERT_TRUE(agreesAround(std::ldexp(sixDigits, -40)));
    }
}

// Decimal texts that end in 5 lie just beside a tie.
TEST(NumberText, AgreesWithTheStreamBesideTies)
{
    std::mt19937 random(8);
    for (int round = 0; round < 3000; ++round) {
        const int digits = std::uniform_int_distribution<int>(1'000'000, 9'999'999)(random) / 10 * 10 + 5;
        for (int places = 0; places <= 11; ++places)
            ASSERT_TRUE(agreesAround(digits / std::pow(10.0, places)));
    }
}

TEST(NumberText, AgreesWithTheStreamOnRandomBits)
{
    for (const unsigned seed : test::seedsFor("number_text", 20)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937_64 random(seed);
        for (int round = 0; round < 1000; ++round)
            ASSERT_TRUE(agrees(fromBits(random())));
    }
}

TEST(NumberText, AgreesWithTheStreamOnMarketNumbers)
{
    for (const unsigned seed : test::seedsFor("number_text", 20)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937_64 random(seed);
        std::uniform_real_distribution<double> power(-6.0, 18.0);
        for (int round = 0; round < 1000; ++round) {
            const double value = std::pow(10.0, power(random));
            ASSERT_TRUE(agrees(value));
            ASSERT_TRUE(agrees(std::round(value)));
            ASSERT_TRUE(agrees(std::round(value * 100.0) / 100.0));
        }
    }
}
