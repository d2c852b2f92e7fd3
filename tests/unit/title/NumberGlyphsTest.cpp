// SPDX-License-Identifier: MIT
#include "title/internal/NumberGlyphs.h"

#include "tests/support/TestFont.h"

#include <gtest/gtest.h>

using TC::detail::NumberGlyphs;

TEST(NumberGlyphs, KnowThePixelsThatTheirOutlinesLeadTo)
{
    const NumberGlyphs numbers(test::font(16), QStringLiteral("a"));
    ASSERT_TRUE(numbers.areKnown());
    ASSERT_TRUE(numbers.pixels());
    EXPECT_FALSE(numbers.pixels()->isEmpty());
    EXPECT_TRUE(numbers.ink().toAlignedRect().adjusted(-1, -1, 1, 1).contains(*numbers.pixels()));
}

TEST(NumberGlyphs, AreNotKnownInAFontThatSetsNumbersByWhatStandsAround)
{
    EXPECT_FALSE(NumberGlyphs(test::unusualFont(QStringLiteral("Joined"), 16), QString()).areKnown());
}
