// SPDX-License-Identifier: MIT
#include "title/internal/RowCount.h"

#include "tests/support/Legend.h"

#include <gtest/gtest.h>

#include <climits>

using TC::detail::countRows;
using TC::detail::PieceSteps;

namespace {

/// Width as the count measures it: in the application's default font.
int w(const char* text)
{
    return WB::CSimpleText::getSize(QString::fromUtf8(text), QFont()).width();
}

TC::CArrowColorSimpleText object(std::initializer_list<const char*> texts, int arrow = 0)
{
    TC::CArrowColorSimpleText result;
    for (const char* text : texts)
        result.setTextColor(QString::fromUtf8(text), Qt::red, arrow);
    return result;
}

const PieceSteps kPlain {};

} // namespace

TEST(RowCount, AnEmptyLegendTakesOneRow)
{
    EXPECT_EQ(countRows({}, QRect(0, 0, 500, 16), kPlain), 1);
    EXPECT_EQ(countRows({}, QRect(0, 0, -500, 16), kPlain), 1);
}

TEST(RowCount, PiecesFlowAcrossObjects)
{
    TC::detail::LegendRows rows;
    rows.first = { object({ "aaaa" }), object({ "aaaa", "aaaa" }) };
    EXPECT_EQ(countRows(rows, QRect(0, 0, 3 * w("aaaa"), 16), kPlain), 1);
    EXPECT_EQ(countRows(rows, QRect(0, 0, 3 * w("aaaa") - 1, 16), kPlain), 2);
    EXPECT_EQ(countRows(rows, QRect(0, 0, 2 * w("aaaa") - 1, 16), kPlain), 3);
}

TEST(RowCount, ComparesWithTheWidthNotWithTheRightEdge)
{
    TC::detail::LegendRows rows;
    rows.first = { object({ "aaaa" }) };
    EXPECT_EQ(countRows(rows, QRect(30, 0, 30 + w("aaaa"), 16), kPlain), 1);
    EXPECT_EQ(countRows(rows, QRect(30, 0, 29 + w("aaaa"), 16), kPlain), 2);
}

TEST(RowCount, ArrowsAndGapsTakeRoomSpacesBetweenPiecesDoNot)
{
    TC::detail::LegendRows rows;
    rows.first = { object({ "aa" }, 1), object({ "aa" }, 2), object({ "aa" }, 0), object({ "aa" }, 3) };
    const PieceSteps steps { 5, 7, 11 };
    const int needed = 4 * w("aa") + 4 * 5 + 7 + 11;
    EXPECT_EQ(countRows(rows, QRect(0, 0, needed, 16), steps), 1);
    EXPECT_EQ(countRows(rows, QRect(0, 0, needed - 1, 16), steps), 2);
}

TEST(RowCount, TheSecondListStartsAtTheGapPlusOneAndGoesOnCounting)
{
    TC::detail::LegendRows rows;
    rows.second = { object({ "aa" }) };
    const PieceSteps steps { 5, 0, 0 };
    // 5 + 1, then the piece: 5 + its text
    EXPECT_EQ(countRows(rows, QRect(400, 0, 11 + w("aa"), 16), steps), 1);
    EXPECT_EQ(countRows(rows, QRect(400, 0, 10 + w("aa"), 16), steps), 2);
    rows.first = { object({ "aa", "aa" }) };
    EXPECT_EQ(countRows(rows, QRect(0, 0, 10 + w("aa"), 16), steps), 3);
}

TEST(RowCount, AFirstRowPieceWiderThanTheStripPushesTheNextOneDown)
{
    TC::detail::LegendRows rows;
    rows.first = { object({ "aaaaaaaa", "a" }) };
    EXPECT_EQ(countRows(rows, QRect(0, 0, w("a"), 16), kPlain), 3);
}

TEST(RowCount, ASecondRowPieceWiderThanTheStripLeavesThePenAtTheStart)
{
    TC::detail::LegendRows rows;
    rows.second = { object({ "aaaaaaaa", "a" }) };
    EXPECT_EQ(countRows(rows, QRect(0, 0, w("a"), 16), kPlain), 2);
}

TEST(RowCount, AWrappedSecondRowPieceTakesItsPlaceInTheNewRow)
{
    TC::detail::LegendRows rows;
    rows.second = { object({ "aaaa", "aaaa", "aaaa" }) };
    // 1, then a piece a row: the second and the third do not fit behind the one before
    EXPECT_EQ(countRows(rows, QRect(0, 0, 2 * w("aaaa") - 1, 16), kPlain), 3);
}

TEST(RowCount, MeasuresInTheDefaultFontNotInTheLegends)
{
    TC::embedded::setFont(QStringLiteral("fnt_index_title_text"), test::font(60));
    TC::embedded::setFont(QStringLiteral("fnt_default"), test::font(60));
    TC::detail::LegendRows rows;
    rows.first = { object({ "aaaa" }) };
    EXPECT_EQ(countRows(rows, QRect(0, 0, w("aaaa"), 16), kPlain), 1);
}

TEST(RowCount, WildGapsStayDefined)
{
    TC::detail::LegendRows rows;
    rows.first = rows.second = { object({ "a", "b" }, 1) };
    for (const int wild : { INT_MIN, INT_MAX })
        EXPECT_GE(countRows(rows, QRect(0, 0, 100, 16), { wild, wild, wild }), 1);
}
