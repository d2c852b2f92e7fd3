// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/TestFont.h"
#include "tests/support/Trace.h"

#include <QFontMetrics>

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

using TC::CDrawStyle;
using test::FormulaBuilder;
using test::traceOf;
using Values = FormulaBuilder::Values;

namespace {

class DrawNumber : public testing::Test
{
protected:
    static FormulaBuilder numbers(const Values& condition, const Values& prices, const Values& values,
                                  const Values& decimals)
    {
        FormulaBuilder builder;
        builder.output("number", 26, { condition, prices, values, decimals }).color(Qt::red).position(1);
        return builder;
    }

    /// The number 1.25 at bar 0 at price 5 with a position code.
    static TC::RPCFormulaResultCache at(int position)
    {
        return numbers({ 1.0 }, { 5.0 }, { 1.25 }, { 2.0 }).position(position).build();
    }

    QStringList drawn(TC::RPCFormulaResultCache cache)
    {
        return traceOf([&](QPainter& painter) {
            painter.setFont(test::font(16));
            CDrawStyle().drawNumber(&painter, pane, range, cache, start, end, output, xOffset, fullWidth,
                                    barCount);
        });
    }

    /// What is printed for one number.
    QString printed(double value, double decimals)
    {
        const QStringList lines = drawn(numbers({ 1.0 }, { 5.0 }, { value }, { decimals }).build());
        return lines.value(0).section(QLatin1Char('"'), 1, 1);
    }

    static QString text(int x, int y, const char* words = "1.25", const char* color = "#ff0000")
    {
        return QStringLiteral("text %1,%2 \"%3\" %4 16px")
            .arg(x)
            .arg(y)
            .arg(QString::fromUtf8(words), QLatin1String(color));
    }

    const QFontMetrics metrics { test::font(16) };
    const int width = metrics.horizontalAdvance(QStringLiteral("1.25"));
    const int height = metrics.height();

    // 4 + 1 slots of 20; bottom() is 119; 10 rows a unit: price 5 on row 69.
    QRect pane { 30, 20, 100, 100 };
    QPair<double, double> range { 10.0, 0.0 };
    int output = 0, start = 0, end = 99, xOffset = 50, barCount = 4;
    bool fullWidth = false;
};

} // namespace

TEST_F(DrawNumber, FollowsThePositionCodeInThePaintersFont)
{
    const int centred = 50 - width / 2;
    EXPECT_EQ(drawn(at(0)), QStringList(text(centred, 69 - height / 2)));
    EXPECT_EQ(drawn(at(1)), QStringList(text(50, 69)));
    EXPECT_EQ(drawn(at(2)), QStringList(text(50 - width, 69)));
    EXPECT_EQ(drawn(at(3)), QStringList(text(centred, 50 - height / 2)));
    EXPECT_EQ(drawn(at(4)), QStringList(text(centred, 20 + 3 + height)));
    EXPECT_EQ(drawn(at(5)), QStringList(text(centred, 119 - 3)));
    EXPECT_EQ(drawn(at(6)), QStringList(text(50, 69)));
}

TEST_F(DrawNumber, ReadsThePositionOfTheFirstOutputWhateverOutputItDraws)
{
    auto cache = numbers({ 1.0 }, { 9.0 }, { 7.0 }, { 0.0 })
                     .position(5)
                     .output("number", 26, { { 1.0 }, { 5.0 }, { 1.25 }, { 2.0 } })
                     .color(Qt::red)
                     .position(1)
                     .build();
    output = 1;
    EXPECT_EQ(drawn(cache), QStringList(text(50 - width / 2, 116)));

    cache.meta.position.clear(); // no list: at the point
    EXPECT_EQ(drawn(cache), QStringList(text(50, 69)));
}

TEST_F(DrawNumber, DividesThePaneByTheSlotsWithOrWithoutASpareOne)
{
    auto cache = numbers({ 0, 1 }, { 5, 5 }, { 1.25, 1.25 }, { 2, 2 }).build();
    EXPECT_EQ(drawn(cache), QStringList(text(70, 69))); // 100 / 5
    fullWidth = true;
    EXPECT_EQ(drawn(cache), QStringList(text(75, 69))); // 100 / 4
}

TEST_F(DrawNumber, CountsSlotsFromTheStartOfTheWindow)
{
    // Fewer bars than slots do not move the start here.
    start = 1;
    EXPECT_EQ(drawn(numbers({ 1, 1 }, { 5, 5 }, { 9.0, 1.25 }, { 2, 2 }).build()), QStringList(text(50, 69)));
}

TEST_F(DrawNumber, TakesConditionsWithinTheToleranceOfZeroAsOff)
{
    EXPECT_EQ(drawn(numbers({ 0.0, 1e-5, -1e-5, 2e-5 }, Values(4, 5), Values(4, 1.25), Values(4, 2)).build()),
              QStringList(text(110, 69)));
    EXPECT_EQ(drawn(numbers({ -2e-5 }, { 5 }, { 1.25 }, { 2 }).build()), QStringList(text(50, 69)));
    EXPECT_EQ(drawn(numbers({ NAN, DBL_MAX, INFINITY }, Values(3, 5), Values(3, 1.25), Values(3, 2)).build()),
              QStringList());
}

TEST_F(DrawNumber, PrintsAtMostSevenDecimals)
{
    EXPECT_EQ(printed(1.5, 9.0), QStringLiteral("1.5000000"));
    EXPECT_EQ(printed(1.5, 7.9), QStringLiteral("1.5000000"));
    EXPECT_EQ(printed(1.5, DBL_MAX), QStringLiteral("1.5000000"));
}

TEST_F(DrawNumber, CutsTheFractionOfTheDecimals)
{
    EXPECT_EQ(printed(1.5, 2.9), QStringLiteral("1.50"));
    EXPECT_EQ(printed(1.5, 0.0), QStringLiteral("2"));
    EXPECT_EQ(printed(1.25, -0.9), QStringLiteral("1"));
}

TEST_F(DrawNumber, PassesNegativeDecimalsOnAndTakesNoneForNan)
{
    EXPECT_EQ(printed(1.25, -3.0), QStringLiteral("1")); // the formatter's own answer
    EXPECT_EQ(printed(1.25, -INFINITY), QStringLiteral("1"));
    EXPECT_EQ(printed(1.25, NAN), QStringLiteral("1"));
}

TEST_F(DrawNumber, PrintsTheMissingMarkerAsAnInvalidNumber)
{
    EXPECT_EQ(printed(DBL_MAX, 2.0), QStringLiteral("非法值"));
}

TEST_F(DrawNumber, LeavesOutNumbersAndPricesThatAreNotFinite)
{
    for (double bad : { double(NAN), double(INFINITY), double(-INFINITY) }) {
        for (int position : { 1, 3 }) {
            EXPECT_EQ(drawn(numbers({ 1 }, { bad }, { 1.25 }, { 2 }).position(position).build()),
                      QStringList());
            EXPECT_EQ(drawn(numbers({ 1 }, { 5 }, { bad }, { 2 }).position(position).build()), QStringList());
        }
    }
}

TEST_F(DrawNumber, HasNoRowOnAFlatRangeAtTheLevelButStillAPlaceInThePane)
{
    range = { 5.0, 5.0 }; // 0 times infinitely many rows
    EXPECT_EQ(drawn(at(1)), QStringList());
    EXPECT_EQ(drawn(at(5)), QStringList(text(50 - width / 2, 116)));
}

TEST_F(DrawNumber, LeavesOutInvalidBarsAndShortColumns)
{
    EXPECT_EQ(drawn(numbers({ 1, 1 }, { 5, 5 }, { 9.0, 1.25 }, { 2, 2 }).valid({ 0, 1 }).build()),
              QStringList(text(70, 69)));
    EXPECT_EQ(drawn(numbers({ 1, 1 }, { 5, 5 }, { 1.25 }, { 2, 2 }).build()), QStringList(text(50, 69)));
    EXPECT_EQ(drawn(numbers({ 1, 1 }, { 5, 5 }, { 1.25, 1.25 }, { 2 }).build()), QStringList(text(50, 69)));
    EXPECT_EQ(drawn(FormulaBuilder().output("number", 26, { { 1 }, { 5 }, { 1.25 } }).build()),
              QStringList());
}

TEST_F(DrawNumber, DrawsNothingAtLineWidth0)
{
    EXPECT_EQ(drawn(numbers({ 1 }, { 5 }, { 1.25 }, { 2 }).width(0).build()), QStringList());
}

TEST_F(DrawNumber, TakesThePaletteColourWhenTheFormulaSetNone)
{
    TC::embedded::setColor(QStringLiteral("ic_clr_index_output_var1"), Qt::green);
    EXPECT_EQ(drawn(numbers({ 1 }, { 5 }, { 1.25 }, { 2 }).paletteColor().build()),
              QStringList(text(50, 69, "1.25", "#00ff00")));
}
