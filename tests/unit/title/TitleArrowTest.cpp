// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"

#include "tests/support/Legend.h"
#include "tests/support/Trace.h"

#include <boost/make_shared.hpp>

#include <QDateTime>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

using TC::CDrawStyle;
using TC::CFormulaKey;
using test::FormulaBuilder;

namespace {

enum Arrow { None = 0, Up = 1, Down = 2 };

int arrow(const TC::RPCFormulaResultCache& cache, int bar, int output, const char* formula = "KLINE",
          int subLine = 0)
{
    return CDrawStyle::getTitleArrow(cache.result, cache.meta, bar,
                                     CFormulaKey(QStringLiteral("SH600000"), QString::fromLatin1(formula)),
                                     output, subLine);
}

/// Opens and closes as the first output; "涨跌" and "涨跌百分比" with a series that says the opposite.
TC::RPCFormulaResultCache closes(FormulaBuilder::Values open, FormulaBuilder::Values close)
{
    FormulaBuilder builder;
    const FormulaBuilder::Values falling { 9.0, 8.0, 7.0, 6.0 };
    builder.output("K线", 12, { open, { 99, 99, 99, 99 }, { 0, 0, 0, 0 }, close });
    return builder.output("涨跌", 0, { falling }).output("涨跌百分比", 0, { falling }).build();
}

long long localMs(int year, int month, int day)
{
    return QDateTime(QDate(year, month, day), QTime(12, 0)).toMSecsSinceEpoch();
}

} // namespace

TEST(TitleArrow, AValueComparesWithTheBarBefore)
{
    const auto cache = FormulaBuilder().line({ 1.0, 2.0, 2.0, 1.0 }).build();
    EXPECT_EQ(arrow(cache, 1, 0, "MA"), Up);
    EXPECT_EQ(arrow(cache, 2, 0, "MA"), None);
    EXPECT_EQ(arrow(cache, 3, 0, "MA"), Down);
}

TEST(TitleArrow, AValueHasNoToleranceAndNoArrowOnTheFirstBar)
{
    const auto cache = FormulaBuilder().line({ 1.0, 1.0 + 1e-12, 1.0 }).build();
    EXPECT_EQ(arrow(cache, 0, 0, "MA"), None);
    EXPECT_EQ(arrow(cache, -5, 0, "MA"), None);
    EXPECT_EQ(arrow(cache, 1, 0, "MA"), Up);
    EXPECT_EQ(arrow(cache, 2, 0, "MA"), Down);
}

TEST(TitleArrow, ANumberThatIsMissingHasNoArrow)
{
    const auto cache = FormulaBuilder().line({ 1.0, NAN, 2.0 }).build();
    EXPECT_EQ(arrow(cache, 1, 0, "MA"), None);
    EXPECT_EQ(arrow(cache, 2, 0, "MA"), None);
    EXPECT_EQ(arrow(cache, 3, 0, "MA"), None);
    EXPECT_EQ(arrow(cache, INT_MAX, 0, "MA"), None);
    EXPECT_EQ(arrow(cache, 1, 7, "MA"), None);
    EXPECT_EQ(arrow(cache, 1, -1, "MA"), None);
    EXPECT_EQ(arrow(cache, 1, 0, "MA", 3), None);
}

TEST(TitleArrow, ReadsTheSubLineThatIsAsked)
{
    const auto cache = FormulaBuilder().output("a", 42, { { 1.0, 2.0 }, { 2.0, 1.0 } }).build();
    EXPECT_EQ(arrow(cache, 1, 0, "MA", 0), Up);
    EXPECT_EQ(arrow(cache, 1, 0, "MA", 1), Down);
}

TEST(TitleArrow, ChangesOfCandlesCompareCloses)
{
    const auto cache = closes({ 5, 5, 5, 5 }, { 10.0, 11.0, 10.0, 10.0 });
    for (const int output : { 1, 2 }) {
        EXPECT_EQ(arrow(cache, 1, output), Up);
        EXPECT_EQ(arrow(cache, 2, output), Down);
        EXPECT_EQ(arrow(cache, 3, output), None);
    }
}

TEST(TitleArrow, TheFirstCandleComparesOpenWithClose)
{
    EXPECT_EQ(arrow(closes({ 5 }, { 6 }), 0, 1), Up);
    EXPECT_EQ(arrow(closes({ 6 }, { 5 }), 0, 1), Down);
    EXPECT_EQ(arrow(closes({ 6 }, { 6 }), 0, 1), None);
}

TEST(TitleArrow, ChangesOfCandlesWithinTheToleranceHaveNoArrow)
{
    const auto cache = closes({ 1, 1, 1 }, { 10.0, 10.000001, 10.000021 });
    EXPECT_EQ(arrow(cache, 1, 1), None);
    EXPECT_EQ(arrow(cache, 2, 1), Up);
}

TEST(TitleArrow, OnlyTheChangesOfCandlesCompareCloses)
{
    const auto cache = closes({ 5, 5 }, { 10.0, 11.0 });
    EXPECT_EQ(arrow(cache, 1, 1, "MA"), Down); // its own series falls
    EXPECT_EQ(arrow(cache, 1, 0), None);       // output 0 is its open: unchanged
}

TEST(TitleArrow, AnAmplitudeOfCandlesComparesItsOwnValues)
{
    FormulaBuilder builder;
    builder.output("K线", 12, { { 5, 5 }, { 12, 12 }, { 4, 4 }, { 10, 11 } }).output("振幅", 0, { { 2, 1 } });
    EXPECT_EQ(arrow(builder.build(), 1, 1), Down); // the close rises
}

TEST(TitleArrow, ChangesOfCandlesNeedFourPrices)
{
    auto cache = closes({ 5, 5 }, { 10.0, 11.0 });
    cache.meta.outputColumns[0].push_back(0);
    EXPECT_EQ(arrow(cache, 1, 1), None);
    cache.meta.outputColumns[0].resize(3);
    EXPECT_EQ(arrow(cache, 1, 1), None);
    cache.meta.outputColumns.clear();
    EXPECT_EQ(arrow(cache, 1, 1), None);
}

TEST(TitleArrow, ACandleOutsideTheSeriesHasNoArrow)
{
    const auto cache = closes({ 5, 5 }, { 10.0, 11.0 });
    for (const int bar : { INT_MIN, -1, 2, INT_MAX })
        EXPECT_EQ(arrow(cache, bar, 1), None) << bar;
}

TEST(FormulaText, AnEmptyFormulaLeavesTheTextAlone)
{
    QString text = QStringLiteral("kept");
    EXPECT_FALSE(CDrawStyle::getFormulaText(nullptr, text));
    EXPECT_EQ(text, QStringLiteral("kept"));
}

TEST(FormulaText, ListsNumbersThenTexts)
{
    auto formula = boost::make_shared<TC::CFormulaDetail>();
    formula->displayName = QStringLiteral("均线%1");
    formula->realName = QStringLiteral("MA");
    QString text;
    const auto heading = [&] {
        EXPECT_TRUE(CDrawStyle::getFormulaText(formula, text));
        return text;
    };
    EXPECT_EQ(heading(), QStringLiteral("均线%1"));
    formula->numberParams = { 5, 0.1, 1e7 };
    EXPECT_EQ(heading(), QStringLiteral("均线%1(5,0.1,1e+07)"));
    formula->stringParams = QStringList({ QStringLiteral("a"), QStringLiteral("%2") });
    EXPECT_EQ(heading(), QStringLiteral("均线%1(5,0.1,1e+07,a,%2)"));
    formula->numberParams.clear();
    EXPECT_EQ(heading(), QStringLiteral("均线%1(a,%2)"));
    formula->stringParams = QStringList(QString());
    EXPECT_EQ(heading(), QStringLiteral("均线%1()"));
}

TEST(PromptDay, IsAFridayFromTheTwentyFirstOn)
{
    EXPECT_FALSE(CDrawStyle::isPromptDay(localMs(2024, 9, 20))); // Friday
    EXPECT_TRUE(CDrawStyle::isPromptDay(localMs(2024, 6, 21)));  // Friday
    EXPECT_FALSE(CDrawStyle::isPromptDay(localMs(2024, 3, 28))); // Thursday
    EXPECT_TRUE(CDrawStyle::isPromptDay(localMs(2025, 1, 31)));  // Friday
}

TEST(PromptDay, IsJudgedByLocalTime)
{
    // 2024-06-20 17:00 UTC is Friday the 21st in Shanghai.
    const QDateTime utc(QDate(2024, 6, 20), QTime(17, 0), Qt::UTC);
    EXPECT_TRUE(CDrawStyle::isPromptDay(utc.toMSecsSinceEpoch()));
}

TEST(PromptDay, ReadsTimesBefore1970AsUnsignedSeconds)
{
    // Nine days before 1970 is a Tuesday; 2^32 seconds later it is Friday, 2106-01-29.
    EXPECT_TRUE(CDrawStyle::isPromptDay(-9LL * 86'400'000));
    // 1969-11-21 is a Friday; 2^32 seconds later it is Monday, 2105-12-28.
    EXPECT_FALSE(CDrawStyle::isPromptDay(localMs(1969, 11, 21)));
}

TEST(PromptDay, RepeatsEvery2To32SecondsUpToTheLimitsOfTime)
{
    constexpr long long period = 1LL << 32;
    for (const long long wild : { LLONG_MIN / 1000, LLONG_MAX / 1000, 1LL << 50, -1LL }) {
        const long long seconds = (wild % period + period) % period;
        EXPECT_EQ(CDrawStyle::isPromptDay(wild * 1000), CDrawStyle::isPromptDay(seconds * 1000)) << wild;
    }
}

TEST(PromptDay, TruncatesTowardZero)
{
    EXPECT_EQ(CDrawStyle::isPromptDay(-999), CDrawStyle::isPromptDay(0));
}
