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

class DrawTextEx : public testing::Test
{
protected:
    static FormulaBuilder note(const Values& condition, const Values& mode, const Values& x, const Values& y,
                               const std::vector<std::string>& texts = { "note" })
    {
        FormulaBuilder builder;
        builder.output("note", 31, { condition, mode, x, y }).texts(texts).color(Qt::red);
        return builder;
    }

    static QStringList drawn(TC::RPCFormulaResultCache cache)
    {
        QRect pane(30, 20, 201, 101);
        return traceOf([&](QPainter& painter) {
            CDrawStyle().drawTextEx(&painter, pane, cache, { 10.0, 0.0 }, 0, 5, 6);
        });
    }

    static QStringList text(int x, int y, const char* words = "note", const char* color = "#ff0000")
    {
        return { QStringLiteral("text %1,%2 \"%3\" %4 12px")
                     .arg(x)
                     .arg(y)
                     .arg(QString::fromUtf8(words), QLatin1String(color)) };
    }

    const QFontMetrics metrics { test::font(12) };
    const int halfWidth = metrics.horizontalAdvance(QStringLiteral("note")) / 2;
    const int halfHeight = metrics.height() / 2;
};

} // namespace

TEST_F(DrawTextEx, StandsAtPixelsInMode0WithoutThePanesOrigin)
{
    EXPECT_EQ(drawn(note({ 1 }, { 0 }, { 40.9 }, { 70.9 }).build()), text(40, 70));
    EXPECT_EQ(drawn(note({ 1 }, { 0 }, { -40.9 }, { 0 }).build()), text(-40, 0));
}

TEST_F(DrawTextEx, CentresTheTextInThePaneAt500PerMilleInMode1)
{
    // 201 * 0.5 and 101 * 0.5, each truncated before the half size comes off.
    EXPECT_EQ(drawn(note({ 1 }, { 1 }, { 500 }, { 500 }).build()), text(100 - halfWidth, 50 - halfHeight));
}

TEST_F(DrawTextEx, TruncatesThePerMilleBeforeItTakesTheHalfSizeOff)
{
    // 201 * 0.033 = 6.6 and 101 * 0.047 = 4.7: left of and above the half sizes, where truncating the
    // difference would round the other way.
    ASSERT_GT(halfWidth, 6);
    ASSERT_GT(halfHeight, 4);
    EXPECT_EQ(drawn(note({ 1 }, { 1 }, { 33 }, { 47 }).build()), text(6 - halfWidth, 4 - halfHeight));
}

TEST_F(DrawTextEx, DrawsNothingInOtherModes)
{
    for (double mode : { 2.0, -1.0, double(NAN), DBL_MAX, double(INFINITY) })
        EXPECT_EQ(drawn(note({ 1 }, { mode }, { 40 }, { 70 }).build()), QStringList()) << mode;
}

TEST_F(DrawTextEx, DrawsWhenTheConditionIsOneOnceItsFractionIsCut)
{
    EXPECT_EQ(drawn(note({ 1.9 }, { 0 }, { 40 }, { 70 }).build()), text(40, 70));
    for (double condition : { 0.0, 0.999999, 2.0, -1.0, double(NAN), DBL_MAX })
        EXPECT_EQ(drawn(note({ condition }, { 0 }, { 40 }, { 70 }).build()), QStringList()) << condition;
}

TEST_F(DrawTextEx, ReadsTheLastValueOfEachColumnByItself)
{
    EXPECT_EQ(drawn(note({ 0, 0, 1 }, { 1, 0 }, { 10, 20, 30, 40 }, { 70 }, { "first", "last" }).build()),
              text(40, 70, "last"));
    EXPECT_EQ(drawn(note({ 1, 1, 0 }, { 0 }, { 40 }, { 70 }).build()), QStringList());
}

TEST_F(DrawTextEx, DoesNotAskWhetherTheBarIsValid)
{
    EXPECT_EQ(drawn(note({ 1 }, { 0 }, { 40 }, { 70 }).valid({ 0 }).build()), text(40, 70));
}

TEST_F(DrawTextEx, DrawsNothingWhenAColumnIsEmptyOrMissing)
{
    EXPECT_EQ(drawn(note({}, { 0 }, { 40 }, { 70 }).build()), QStringList());
    EXPECT_EQ(drawn(note({ 1 }, {}, { 40 }, { 70 }).build()), QStringList());
    EXPECT_EQ(drawn(note({ 1 }, { 0 }, {}, { 70 }).build()), QStringList());
    EXPECT_EQ(drawn(note({ 1 }, { 0 }, { 40 }, {}).build()), QStringList());
    EXPECT_EQ(drawn(note({ 1 }, { 0 }, { 40 }, { 70 }, {}).build()), QStringList());
    EXPECT_EQ(drawn(FormulaBuilder().output("note", 31, { { 1 }, { 0 }, { 40 }, { 70 } }).build()),
              QStringList());
}

TEST_F(DrawTextEx, DrawsNothingWithoutAPlace)
{
    for (double missing : { DBL_MAX, double(NAN), double(INFINITY) }) {
        EXPECT_EQ(drawn(note({ 1 }, { 0 }, { missing }, { 70 }).build()), QStringList()) << missing;
        EXPECT_EQ(drawn(note({ 1 }, { 1 }, { 40 }, { missing }).build()), QStringList()) << missing;
    }
}

TEST_F(DrawTextEx, DrawsNothingAtLineWidth0)
{
    EXPECT_EQ(drawn(note({ 1 }, { 0 }, { 40 }, { 70 }).width(0).build()), QStringList());
}

TEST_F(DrawTextEx, TakesThePaletteColourWhenTheFormulaSetNone)
{
    TC::embedded::setColor(QStringLiteral("ic_clr_index_output_var1"), Qt::green);
    EXPECT_EQ(drawn(note({ 1 }, { 0 }, { 40 }, { 70 }).paletteColor().build()),
              text(40, 70, "note", "#00ff00"));
}

TEST_F(DrawTextEx, LeavesItsPenAndTheTitleFontOnThePainter)
{
    TC::embedded::setFont(QStringLiteral("fnt_index_title_text"), test::font(17));
    auto cache = note({ 1 }, { 0 }, { 40 }, { 70 }).width(3).build();
    QRect pane(0, 0, 100, 100);
    traceOf([&](QPainter& painter) {
        CDrawStyle().drawTextEx(&painter, pane, cache, { 10.0, 0.0 }, 0, 0, 0);
        EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
        EXPECT_EQ(painter.pen().width(), 3);
        EXPECT_EQ(painter.font().pixelSize(), 17);
    });
}
