// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "draw/internal/Pens.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

using TC::CDrawStyle;

namespace {

QString paletteKey(int number)
{
    return QStringLiteral("ic_clr_index_output_var%1").arg(number);
}

class Palette : public testing::Test
{
protected:
    void SetUp() override
    {
        TC::embedded::clearSkin();
        for (int number = 1; number <= 10; ++number)
            TC::embedded::setColor(paletteKey(number), QColor(number, 20, 30, 128));
        CDrawStyle::resetDrawStyleColor();
    }
};

} // namespace

TEST_F(Palette, HoldsTenColoursPackedWithRedInTheLowByte)
{
    ASSERT_EQ(CDrawStyle::m_colorList.size(), 10);
    EXPECT_EQ(CDrawStyle::m_colorList[0], 0x1E1401);
    EXPECT_EQ(CDrawStyle::m_colorList[9], 0x1E140A);
}

TEST_F(Palette, ClosesTheGapOfAMissingKey)
{
    TC::embedded::removeSkinKey(paletteKey(2));
    TC::embedded::setColor(QStringLiteral("ic_clr_index_output_var11"), Qt::red); // keys end at 10
    CDrawStyle::resetDrawStyleColor();
    ASSERT_EQ(CDrawStyle::m_colorList.size(), 9);
    EXPECT_EQ(CDrawStyle::m_colorList[1], 0x1E1403);
}

TEST_F(Palette, KeepsTheTransparencyOfTheGradient)
{
    TC::embedded::setColor(QStringLiteral("ic_clr_index_gradient1"), QColor(1, 2, 3, 4));
    CDrawStyle::resetDrawStyleColor();
    EXPECT_EQ(CDrawStyle::m_colorListGradient,
              QList<QColor> { QColor(1, 2, 3, 4) }); // the second key is missing
    TC::embedded::setColor(QStringLiteral("ic_clr_index_gradient2"), QColor(5, 6, 7, 8));
    CDrawStyle::resetDrawStyleColor();
    EXPECT_EQ(CDrawStyle::m_colorListGradient.size(), 2);
}

TEST_F(Palette, IsReplacedWholeByTheHostAndReloadedByEveryNewObject)
{
    CDrawStyle::initColorList({ 1, 2 });
    CDrawStyle::initColorListGradient({ Qt::red });
    EXPECT_EQ(CDrawStyle::m_colorList, (QList<int> { 1, 2 }));
    EXPECT_EQ(CDrawStyle::m_colorListGradient.size(), 1);
    const CDrawStyle style;
    EXPECT_EQ(CDrawStyle::m_colorList.size(), 10);
    EXPECT_TRUE(CDrawStyle::m_colorListGradient.isEmpty());
}

TEST_F(Palette, GivesAnOutputItsOwnColourWhenTheFormulaSetOne)
{
    EXPECT_EQ(CDrawStyle::getIndexOutPutColorKey(3, 1, 0), 0); // black is a colour too
    EXPECT_EQ(CDrawStyle::getIndexOutPutColorKey(3, 7, 0x123456), 0x123456);
}

TEST_F(Palette, GivesTheEntryOfTheOutputsPositionOtherwise)
{
    EXPECT_EQ(CDrawStyle::getIndexOutPutColorKey(3, 0, 0x123456), 0x1E1404);
    EXPECT_EQ(CDrawStyle::getIndexOutPutColorKey(3, -1, 0x123456), 0x1E1404); // set means above 0
}

TEST_F(Palette, GivesTheFirstEntryBeyondThePaletteAndDoesNotWrap)
{
    EXPECT_EQ(CDrawStyle::getIndexOutPutColorKey(10, 0, 0), 0x1E1401);
    EXPECT_EQ(CDrawStyle::getIndexOutPutColorKey(11, 0, 0), 0x1E1401);
    EXPECT_EQ(CDrawStyle::getIndexOutPutColorKey(-1, 0, 0), 0x1E1401);
}

TEST_F(Palette, IsBlackWhenEmpty)
{
    CDrawStyle::initColorList({});
    EXPECT_EQ(CDrawStyle::getIndexOutPutColorKey(0, 0, 0x123456), 0);
}

TEST(ColorName, KnowsTheConstantsOfTheFormulaLanguage)
{
    const std::pair<int, const char*> table[] = { { 0xFF0000, "blue" },  { 0x004080, "brown" },
                                                  { 0xFFFF54, "cyan" },  { 0x808080, "gray" },
                                                  { 0x00FF00, "green" }, { 0xFF00FF, "magenta" },
                                                  { 0x0000FF, "red" },   { 0xFFFFFF, "white" },
                                                  { 0x00FFFF, "yellow" } };
    for (const auto& [value, name] : table)
        EXPECT_EQ(CDrawStyle::colorName(value), name);
}

TEST(ColorName, IsWhiteForEverythingElse)
{
    for (int value : { 0, 0xFFFF00, 0x123456, -1, 0x010000FF })
        EXPECT_EQ(CDrawStyle::colorName(value), "white") << value;
}

TEST(LineStyle, FollowsTheCodeOfTheOutput)
{
    se::RPCFormulaMetaResult meta;
    meta.lineStyle = { 0, 15, 16, 17 };
    const Qt::PenStyle expected[] = { Qt::SolidLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine };
    for (int output = 0; output < 4; ++output) {
        int style = Qt::NoPen;
        TC::detail::applyLineStyle(style, meta, output);
        EXPECT_EQ(style, expected[output]);
    }
}

TEST(LineStyle, StaysAsItWasForUnknownCodesAndMissingEntries)
{
    se::RPCFormulaMetaResult meta;
    meta.lineStyle = { 1, 14, 18, -1 };
    for (int output : { 0, 1, 2, 3, 4, -1 }) {
        int style = Qt::DashLine;
        TC::detail::applyLineStyle(style, meta, output);
        EXPECT_EQ(style, Qt::DashLine) << output;
    }
}

TEST(LinePen, HasASquareCapAndABevelJoin)
{
    const QPen pen = TC::detail::linePen(QColor(1, 2, 3), 2.0, Qt::DotLine);
    EXPECT_EQ(pen.capStyle(), Qt::SquareCap);
    EXPECT_EQ(pen.joinStyle(), Qt::BevelJoin);
    EXPECT_EQ(test::penText(pen), QStringLiteral("#010203/2/dot"));
}

TEST(LinePen, PackedColoursAreOpaqueWithRedInTheLowByte)
{
    EXPECT_EQ(TC::detail::fromPacked(0x030201), QColor(1, 2, 3, 255));
    EXPECT_EQ(TC::detail::fromPacked(-1), QColor(255, 255, 255, 255)); // the top byte is not read
}
