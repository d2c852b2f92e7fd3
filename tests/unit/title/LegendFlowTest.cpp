// SPDX-License-Identifier: MIT
#include "title/internal/LegendFlow.h"

#include "tests/support/Legend.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

using namespace TC::detail;

namespace {

int w(const char* text)
{
    return test::widthOf(QString::fromUtf8(text));
}

TC::CArrowColorSimpleText object(std::initializer_list<const char*> texts, int arrow = 0)
{
    TC::CArrowColorSimpleText result(QStringLiteral("fnt_index_title_text"));
    for (const char* text : texts)
        result.setTextColor(QString::fromUtf8(text), Qt::red, arrow);
    return result;
}

/// "text x,y" of every piece.
QStringList flow(const LegendRows& rows, const QRect& area)
{
    QStringList lines;
    for (const FlowPiece& piece : flowPieces(rows, area))
        lines << piece.text.getTextColor().value(0).text
                + QStringLiteral(" %1,%2").arg(piece.position.x()).arg(piece.position.y());
    return lines;
}

QString at(const char* text, int x, int y)
{
    return QString::fromUtf8(text) + QStringLiteral(" %1,%2").arg(x).arg(y);
}

class LegendFlow : public testing::Test
{
protected:
    void SetUp() override { test::setArrows(QSize(9, 10), QSize(9, 10)); }
};

} // namespace

TEST_F(LegendFlow, PiecesKeepTheirDistancesInARow)
{
    LegendRows rows;
    rows.first = { object({ "aa", "bb" }), object({ "cc" }) };
    const int second = 7 + w("aa") + 9 + 3, third = second + w("bb") + 9 + 3 + 3;
    EXPECT_EQ(flow(rows, QRect(7, 0, 1000, 16)),
              QStringList({ at("aa", 7, 0), at("bb", second, 0), at("cc", third, 0) }));
    EXPECT_EQ(legendWidth(rows), third + w("cc") + 9 + 3 + 3 - 7);
}

TEST_F(LegendFlow, WrapsBetweenPiecesAndStopsAtTheLastWholeRow)
{
    LegendRows rows;
    rows.first = { object({ "aaaa", "bbbb", "cccc", "dddd" }, 1) };
    const int room = w("bbbb") + 9; // each piece with its arrow, one a row
    EXPECT_EQ(flow(rows, QRect(7, 0, room, 48)),
              QStringList({ at("aaaa", 7, 0), at("bbbb", 7, 16), at("cccc", 7, 32) }));
    EXPECT_EQ(flow(rows, QRect(7, 0, room, 47)).size(), 2);
    EXPECT_EQ(flow(rows, QRect(7, 0, room, 15)).size(), 0);
}

TEST_F(LegendFlow, AHeadingStaysWithItsFirstValue)
{
    LegendRows rows;
    rows.second = { object({ "H1" }), object({ "v" }), object({ "H2" }), object({ "value" }) };
    const int first = w("H1") + 9 + 3 + 3 + w("v") + 9 + 3 + 3;
    const int room = first + w("H2") + 9 + 3 + 3 + w("value") - 1; // "value" lacks a pixel behind "H2"
    const QStringList lines = flow(rows, QRect(0, 0, room, 32));
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[2], at("H2", 0, 16));
    EXPECT_TRUE(lines[3].endsWith(QStringLiteral(",16")));
    EXPECT_EQ(flow(rows, QRect(0, 0, room + 1, 32))[2], at("H2", first, 0));
}

TEST_F(LegendFlow, APieceThatNoRowHoldsIsLeftOut)
{
    LegendRows rows;
    rows.first = { object({ "a", "wwwwwwwwwwwwww", "b" }) };
    const QStringList lines = flow(rows, QRect(0, 0, w("a") + 9 + 3 + w("b"), 32));
    EXPECT_EQ(lines, QStringList({ at("a", 0, 0), at("b", w("a") + 9 + 3, 0) }));
}

TEST_F(LegendFlow, NothingFitsIntoNothing)
{
    LegendRows rows;
    rows.first = rows.second = { object({ "a" }) };
    EXPECT_EQ(flow(rows, QRect()), QStringList());
    EXPECT_EQ(flow(rows, QRect(10, 0, -50, 32)), QStringList());
}
