// SPDX-License-Identifier: MIT
#include "title/internal/RecentTexts.h"

#include <gtest/gtest.h>

using TC::detail::RecentTexts;

namespace {

/// Counts what it is asked to make.
class Maker
{
public:
    int value(int number)
    {
        return m_texts.value(QString::number(number), [&](const QString& text) {
            ++made;
            return text.toInt();
        });
    }
    int made = 0;

private:
    RecentTexts<int> m_texts;
};

} // namespace

TEST(RecentTexts, MakesAValueOnce)
{
    Maker maker;
    for (int time = 0; time < 3; ++time)
        EXPECT_EQ(maker.value(7), 7);
    EXPECT_EQ(maker.made, 1);
}

TEST(RecentTexts, KeepsWhatIsAskedForAgainAndForgetsTheRest)
{
    constexpr int many = 5'000; // several generations
    Maker maker;
    maker.value(0);
    maker.value(1);
    for (int number = 2; number < many; ++number) {
        EXPECT_EQ(maker.value(number), number);
        if (number % 100 == 0) {
            EXPECT_EQ(maker.value(0), 0);
        }
    }
    EXPECT_EQ(maker.made, many);
    maker.value(1);
    EXPECT_EQ(maker.made, many + 1);
}
