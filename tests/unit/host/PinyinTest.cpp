// SPDX-License-Identifier: MIT
#include "host/TC/Pinyin.h"

#include <gtest/gtest.h>

namespace {

bool finds(const char* text, const char* filter)
{
    return TC::isInByPy(QString::fromUtf8(text), QString::fromUtf8(filter));
}

} // namespace

TEST(IsInByPy, AcceptsEveryReadingOfACharacter)
{
    EXPECT_TRUE(finds("浦发银行", "pfyh")); // háng
    EXPECT_TRUE(finds("浦发银行", "pfyx")); // xíng
    EXPECT_TRUE(finds("重庆啤酒", "cqpj")); // chóng
    EXPECT_TRUE(finds("重庆啤酒", "zqpj")); // zhòng
    EXPECT_TRUE(finds("长江电力", "cjdl")); // cháng
    EXPECT_FALSE(finds("浦发银行", "pfyz"));
}

TEST(IsInByPy, FindsARunAnywhereInTheText)
{
    EXPECT_TRUE(finds("浦发银行", "yh"));
    EXPECT_TRUE(finds("浦发银行", "f"));
    EXPECT_FALSE(finds("浦发银行", "py")); // no run: a character lies between
    EXPECT_FALSE(finds("浦发银行", "pfyhx"));
}

TEST(IsInByPy, DoesNotLookAtCase)
{
    EXPECT_TRUE(finds("浦发银行", "PfYh"));
    EXPECT_TRUE(finds("TCL科技", "tclkj"));
    EXPECT_TRUE(finds("*st京蓝", "ST"));
}

TEST(IsInByPy, LetsEveryOtherCharacterStandForItself)
{
    EXPECT_TRUE(finds("浦发银行", "浦f银h"));
    EXPECT_TRUE(finds("50ETF", "0e"));
    EXPECT_FALSE(finds("50ETF", "wsetf"));
    EXPECT_FALSE(finds("", "a"));
    EXPECT_TRUE(finds("", ""));
    EXPECT_TRUE(finds("浦发银行", ""));
}

TEST(IsInByPy, ReachesBothEndsOfTheTable)
{
    EXPECT_TRUE(finds("一", "y"));                // U+4E00, the first
    EXPECT_FALSE(finds("\xE9\xBF\xBF", "a"));     // U+9FFF, the last: no reading known
    EXPECT_FALSE(finds("\xE4\xB7\xBF", "a"));     // U+4DFF, before the first
    EXPECT_FALSE(finds("\xEA\x80\x80", "a"));     // U+A000, behind the last
    EXPECT_FALSE(finds("\xF0\xA0\x80\x80", "a")); // beyond the basic plane
    EXPECT_TRUE(finds("\xF0\xA0\x80\x80"
                      "a",
                      "a"));
}
