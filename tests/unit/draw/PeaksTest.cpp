// SPDX-License-Identifier: MIT
#include "draw/internal/ink/Peaks.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

using TC::detail::lastOutside;
using TC::detail::peakOf;

namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();

/// The same, one number at a time.
std::size_t plainLastOutside(const std::vector<double>& values, double level)
{
    for (std::size_t i = values.size(); i-- > 0;) {
        if (!(values[i] >= 0.0 && values[i] <= level))
            return i;
    }
    return values.size();
}

std::vector<double> someNumbers(std::mt19937& random)
{
    const double odd[] = { 0.0, -0.0, std::nan(""), DBL_MAX, kEndless, -kEndless, 1e-300 };
    std::vector<double> values(std::uniform_int_distribution<std::size_t>(0, 23)(random));
    for (double& value : values) {
        const bool isOdd = std::uniform_int_distribution<int>(0, 9)(random) == 0;
        value = isOdd ? odd[std::uniform_int_distribution<int>(0, 6)(random)]
                      : std::uniform_real_distribution<double>(-0.2, 9.0)(random);
    }
    return values;
}

} // namespace

TEST(PeakOf, IsTheHighestNumberWhereverItStands)
{
    for (std::size_t count = 1; count < 12; ++count) {
        for (std::size_t place = 0; place < count; ++place) {
            std::vector<double> values(count, 2.5);
            values[place] = 7.0;
            EXPECT_EQ(peakOf(values.data(), count), 7.0) << place << " of " << count;
        }
    }
}

TEST(PeakOf, IsEndlessWhereverANumberLiesBelowZero)
{
    for (std::size_t count = 1; count < 12; ++count) {
        for (std::size_t place = 0; place < count; ++place) {
            std::vector<double> values(count, 2.5);
            values[place] = -1e-300;
            EXPECT_EQ(peakOf(values.data(), count), kEndless) << place << " of " << count;
        }
    }
}

TEST(PeakOf, IsZeroOverZeros)
{
    const std::vector<double> zeros(11, 0.0);
    for (std::size_t count = 0; count <= zeros.size(); ++count)
        EXPECT_EQ(peakOf(zeros.data(), count), 0.0) << count;
}

TEST(PeakOf, IsNoLowerThanAnyNumberBesideWhatIsNone)
{
    std::mt19937 random(11);
    for (int round = 0; round < 2000; ++round) {
        const std::vector<double> values = someNumbers(random);
        const double peak = peakOf(values.data(), values.size());
        for (const double value : values)
            EXPECT_TRUE(std::isnan(value) || (value >= 0.0 ? value <= peak : peak == kEndless)) << value;
    }
}

TEST(LastOutside, FindsWhatALookAtEachNumberFinds)
{
    std::mt19937 random(12);
    for (int round = 0; round < 5000; ++round) {
        const std::vector<double> values = someNumbers(random);
        const double level = round % 3 == 0 ? -1.0 : std::uniform_real_distribution<double>(4.0, 9.0)(random);
        EXPECT_EQ(lastOutside(values.data(), values.size(), level), plainLastOutside(values, level));
    }
}
