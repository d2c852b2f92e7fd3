// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/TestFont.h"
#include "tests/support/Trace.h"

#include <QFontMetrics>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

using TC::CDrawStyle;
using test::FormulaBuilder;
using test::traceOf;
using Values = FormulaBuilder::Values;

namespace {

class DrawText : public testing::Test
{
protected:
    static FormulaBuilder signal(const Values& condition, const Values& prices,
                                 const std::vector<std::string>& texts)
    {
        FormulaBuilder builder;
        builder.output("signal", 13, { condition, prices }).texts(texts).color(Qt::red).position(1);
        return builder;
    }

    /// A text at bar 0 at price 5 with a position code.
    static TC::RPCFormulaResultCache at(int position)
    {
        return signal({ 1.0 }, { 5.0 }, { "buy" }).position(position).build();
    }

    QStringList drawn(TC::RPCFormulaResultCache cache)
    {
        return traceOf([&](QPainter& painter) {
            CDrawStyle().drawText(&painter, pane, cache, range, output, start, end, xOffset, barCount);
        });
    }

    static QString text(int x, int y, const char* words = "buy", const char* color = "#ff0000")
    {
        return QStringLiteral("text %1,%2 \"%3\" %4 12px")
            .arg(x)
            .arg(y)
            .arg(QString::fromUtf8(words), QLatin1String(color));
    }

    const QFontMetrics metrics { test::font(12) };
    const int width = metrics.horizontalAdvance(QStringLiteral("buy"));
    const int height = metrics.height();

    // 4 + 1 slots of 20; bottom() is 119; 100 rows over 10 units are 10 rows a unit: price 5 on row 69.
    QRect pane { 30, 20, 100, 100 };
    QPair<double, double> range { 10.0, 0.0 };
    int output = 0, start = 0, end = 99, xOffset = 50, barCount = 4;
};

} // namespace

TEST_F(DrawText, CentresTheTextOnThePointUnderCode0)
{
    EXPECT_EQ(drawn(at(0)), QStringList(text(50 - width / 2, 69 - height / 2)));
}

TEST_F(DrawText, StartsTheTextAtThePointUnderCode1)
{
    EXPECT_EQ(drawn(at(1)), QStringList(text(50, 69)));
}

TEST_F(DrawText, EndsTheTextAtThePointUnderCode2)
{
    EXPECT_EQ(drawn(at(2)), QStringList(text(50 - width, 69)));
}

TEST_F(DrawText, PutsTheTextOnHalfThePanesHeightWithoutItsTopUnderCode3)
{
    EXPECT_EQ(drawn(at(3)), QStringList(text(50 - width / 2, 50 - height / 2)));
}

TEST_F(DrawText, PutsTheTextBelowThePanesTopUnderCode4)
{
    EXPECT_EQ(drawn(at(4)), QStringList(text(50 - width / 2, 20 + 3 + height)));
}

TEST_F(DrawText, PutsTheTextAboveThePanesBottomUnderCode5)
{
    EXPECT_EQ(drawn(at(5)), QStringList(text(50 - width / 2, 119 - 3)));
}

TEST_F(DrawText, TakesUnknownCodesAsCode1)
{
    for (int code : { 6, -1, INT_MAX, INT_MIN })
        EXPECT_EQ(drawn(at(code)), QStringList(text(50, 69))) << code;
}

TEST_F(DrawText, ReadsThePositionOfTheFirstOutputWhateverOutputItDraws)
{
    auto cache = signal({ 1.0 }, { 9.0 }, { "other" })
                     .position(5)
                     .output("signal", 13, { { 1.0 }, { 5.0 } })
                     .texts({ "buy" })
                     .color(Qt::red)
                     .position(1)
                     .build();
    output = 1;

    EXPECT_EQ(drawn(cache), QStringList(text(50 - width / 2, 116)));
}

TEST_F(DrawText, TakesAnEmptyPositionListAsCode1)
{
    auto cache = at(5);
    cache.meta.position.clear();

    EXPECT_EQ(drawn(cache), QStringList(text(50, 69)));
}

TEST_F(DrawText, StandsInTheSlotOfItsBarWithoutThePanesLeftEdge)
{
    // x = 20 * k + 50; the pane's left edge of 30 plays no part.
    EXPECT_EQ(drawn(signal({ 1.0, 0.0, 1.0, 1.0 }, Values(4, 5.0), { "a", "b", "c", "d" }).build()),
              QStringList({ text(50, 69, "a"), text(90, 69, "c"), text(110, 69, "d") }));
}

TEST_F(DrawText, TruncatesTowardZero)
{
    barCount = 2; // 3 slots of 33.33
    xOffset = -50;
    EXPECT_EQ(drawn(signal({ 0.0, 1.0, 1.0 }, { 0.0, 5.05, 5.05 }, { "", "b", "c" }).build()),
              QStringList({ text(-16, 68, "b"), text(16, 68, "c") })); // -16.67, 16.67; 119 - 50.5
}

TEST_F(DrawText, DrawsForEveryConditionButExactlyZero)
{
    EXPECT_EQ(drawn(signal({ 1e-9, -2.0, 0.0, -0.0 }, Values(4, 5.0), { "a", "b", "c", "d" }).build()),
              QStringList({ text(50, 69, "a"), text(70, 69, "b") }));
}

TEST_F(DrawText, DrawsNothingWhereTheConditionIsMissing)
{
    EXPECT_EQ(drawn(signal({ DBL_MAX, NAN, INFINITY }, Values(4, 5.0), { "a", "b", "c", "d" }).build()),
              QStringList()); // nor at bar 3, past the end of the conditions
}

TEST_F(DrawText, LeavesOutInvalidBars)
{
    auto cache = signal({ 1.0, 1.0 }, { 5.0, 5.0 }, { "a", "b" }).valid({ 0, 1 }).build();

    EXPECT_EQ(drawn(cache), QStringList(text(70, 69, "b")));
}

TEST_F(DrawText, LeavesOutBlankTexts)
{
    EXPECT_EQ(drawn(signal(Values(4, 1.0), Values(4, 5.0), { "", "  ", "\t\n", "d" }).build()),
              QStringList(text(110, 69, "d")));
}

TEST_F(DrawText, DrawsTheTextWithItsBlanks)
{
    EXPECT_EQ(drawn(signal({ 1.0 }, { 5.0 }, { " buy " }).build()), QStringList(text(50, 69, " buy ")));
}

TEST_F(DrawText, ReadsTextsAsUtf8)
{
    EXPECT_EQ(drawn(signal({ 1.0 }, { 5.0 }, { "买" }).build()), QStringList(text(50, 69, "买")));
}

TEST_F(DrawText, WalksFromBarZeroWhenTheResultHasFewerBarsThanSlots)
{
    // 3 bars, 4 slots: bars 0 and 1 stand left of bar 2, which has the first slot.
    auto cache = signal(Values(3, 1.0), Values(3, 5.0), { "a", "b", "c" }).build();
    start = 2;
    EXPECT_EQ(drawn(cache), QStringList({ text(10, 69, "a"), text(30, 69, "b"), text(50, 69, "c") }));

    barCount = 3; // as many bars as slots: 4 slots of 25, from bar 2 on
    EXPECT_EQ(drawn(cache), QStringList(text(50, 69, "c")));
}

TEST_F(DrawText, ScalesAFlatRangeByItsMaximum)
{
    // 100 / 5 rows a unit from the minimum of 5: price 6 on row 119 - 20.
    range = { 5.0, 5.0 };
    EXPECT_EQ(drawn(signal({ 1.0 }, { 6.0 }, { "buy" }).build()), QStringList(text(50, 99)));
}

TEST_F(DrawText, ScalesAFlatRangeAtZeroByOneRowAUnit)
{
    range = { 0.0, 0.0 };
    EXPECT_EQ(drawn(signal({ 1.0 }, { 7.0 }, { "buy" }).build()), QStringList(text(50, 112)));
    range = { 0.000009, 0.0 }; // zero within the tolerance
    EXPECT_EQ(drawn(signal({ 1.0 }, { 7.0 }, { "buy" }).build()), QStringList(text(50, 112)));
}

TEST_F(DrawText, NeedsAPriceOnlyWhereThePositionCodeUsesTheRow)
{
    for (double missing : { DBL_MAX, double(NAN), double(-INFINITY) }) {
        for (int code : { 0, 1, 2, 6 })
            EXPECT_EQ(drawn(signal({ 1.0 }, { missing }, { "buy" }).position(code).build()), QStringList());
        EXPECT_EQ(drawn(signal({ 1.0 }, { missing }, { "buy" }).position(5).build()),
                  QStringList(text(50 - width / 2, 116)));
    }
}

TEST_F(DrawText, TakesThePaletteColourWhenTheFormulaSetNone)
{
    auto cache = signal({ 1.0 }, { 5.0 }, { "buy" }).paletteColor().build();
    CDrawStyle style; // loads the skin's palette, as the painter's caller does
    CDrawStyle::initColorList({ 0x00FF00 });
    const QStringList lines = traceOf([&](QPainter& painter) {
        style.drawText(&painter, pane, cache, range, output, start, end, xOffset, barCount);
    });

    EXPECT_EQ(lines, QStringList(text(50, 69, "buy", "#00ff00")));
}

TEST_F(DrawText, TakesTheColourEntryOfAnOutputOfFourColumnsEvenWhenTheFormulaSetNone)
{
    auto builder = signal({ 1.0 }, { 5.0 }, { "buy" }).paletteColor();
    EXPECT_EQ(drawn(builder.column({ 0.0 }).build()), QStringList(text(50, 69, "buy", "#ff0000")));
}

TEST_F(DrawText, DrawsNothingAtLineWidth0)
{
    EXPECT_EQ(drawn(signal({ 1.0 }, { 5.0 }, { "buy" }).width(0).build()), QStringList());
}

TEST_F(DrawText, DrawsNothingWithoutSeriesOrTextLists)
{
    auto cache = at(3);
    cache.result.textSeries.clear();
    EXPECT_EQ(drawn(cache), QStringList());

    cache = at(3);
    cache.result.numberSeries.clear();
    EXPECT_EQ(drawn(cache), QStringList());
}

TEST_F(DrawText, DrawsNothingPastTheEndOfTheTexts)
{
    EXPECT_EQ(drawn(signal({ 1.0, 1.0 }, { 5.0, 5.0 }, { "a" }).build()), QStringList(text(50, 69, "a")));
}

TEST_F(DrawText, DrawsNothingWhereABarHasNoSlot)
{
    barCount = -1; // no slots: bar 0 is at 0 times infinity
    EXPECT_EQ(drawn(at(3)), QStringList());
}

TEST_F(DrawText, LeavesItsPenAndTheTitleFontOnThePainter)
{
    TC::embedded::setFont(QStringLiteral("fnt_index_title_text"), test::font(17));
    auto cache = signal({ 1.0 }, { 5.0 }, { "buy" }).width(3).build();
    traceOf([&](QPainter& painter) {
        CDrawStyle().drawText(&painter, pane, cache, range, 0, 0, 0, 0, 4);
        EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
        EXPECT_EQ(painter.pen().width(), 3);
        EXPECT_EQ(painter.font().pixelSize(), 17);
    });
}

TEST_F(DrawText, KeepsThePaintersFontWithoutATitleFont)
{
    TC::embedded::clearSkin();
    auto cache = at(1);
    const QStringList lines = traceOf([&](QPainter& painter) {
        painter.setFont(test::font(15));
        CDrawStyle().drawText(&painter, pane, cache, range, 0, 0, 0, 50, 4);
    });

    EXPECT_EQ(lines, QStringList(QStringLiteral("text 50,69 \"buy\" #ff0000 15px")));
}
