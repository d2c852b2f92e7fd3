// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

using TC::CDrawStyle;
using test::FormulaBuilder;
using test::traceOf;
using Values = FormulaBuilder::Values;

namespace {

const QString kRise = QStringLiteral("#ff0000"), kFall = QStringLiteral("#0000ff");

class DrawTick : public testing::Test
{
protected:
    void SetUp() override
    {
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_rise"), kRise);
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_fall"), kFall);
    }

    /// Trades with their reference prices in number series 2 and 3.
    static TC::RPCFormulaResultCache trades(const Values& prices, const Values& lower, const Values& upper)
    {
        return FormulaBuilder().series({}).series({}).series(lower).series(upper).line(prices).build();
    }

    /// Trades that fall (below both references at first, then by price).
    static TC::RPCFormulaResultCache trades(const Values& prices)
    {
        return trades(prices, Values(prices.size(), 100.0), Values(prices.size(), 100.0));
    }

    QStringList crosses(TC::RPCFormulaResultCache cache, int crossSize = 6)
    {
        return traceOf([&](QPainter& painter) {
            CDrawStyle().drawTick(&painter, pane, range, cache, start, end, 0, crossSize, 1.0, 2.0, fullWidth,
                                  barCount);
        });
    }

    /// Both lines of a cross, "/" first.
    static QStringList cross(int x, int y, int half, const QString& color)
    {
        const QString line = QStringLiteral("line %1,%2 %3,%4 pen=%5/1/solid");
        return { line.arg(x - half).arg(y + half).arg(x + half).arg(y - half).arg(color),
                 line.arg(x - half).arg(y - half).arg(x + half).arg(y + half).arg(color) };
    }

    /// "+" or "-" per cross.
    static QString directions(const QStringList& lines)
    {
        QString text;
        for (int line = 0; line < lines.size(); line += 2)
            text += lines[line].contains(kRise) ? QLatin1Char('+') : QLatin1Char('-');
        return text;
    }

    // bottom() is 69; 50 rows over 10 units are 5 rows a unit.
    QRect pane { 10, 20, 100, 50 };
    QPair<double, double> range { 10.0, 0.0 };
    int start = 0, end = 99;
    bool fullWidth = false;
    int barCount = 1;
};

} // namespace

TEST_F(DrawTick, DrawsACrossOfTwoLinesPerTradeWithoutThePanesLeftEdge)
{
    // 2 trades: slots of 50; x = k * 50 + 6, half a cross 3; price 5 on row 69 - 25, price 4 on row 69 - 20.
    EXPECT_EQ(crosses(trades({ 5.0, 4.0 })), cross(6, 44, 3, kFall) + cross(56, 49, 3, kFall));
}

TEST_F(DrawTick, DrawsTheRisingLineOfACrossFirst)
{
    const QStringList lines = crosses(trades({ 5.0 }));

    EXPECT_EQ(lines.value(0), QStringLiteral("line 3,47 9,41 pen=#0000ff/1/solid"));
    EXPECT_EQ(lines.value(1), QStringLiteral("line 3,41 9,47 pen=#0000ff/1/solid"));
}

TEST_F(DrawTick, ColoursATradeByItsDirection)
{
    EXPECT_EQ(directions(crosses(trades({ 5.0, 6.0, 5.5, 7.0 }))), QStringLiteral("-+-+"));
}

TEST_F(DrawTick, ReadsTheReferencesFromTheNumberTableAtPositions2And3)
{
    // Price 5 is above the 4 of series 2 and at the 5 of series 3: both rise. Series 0 and 1, and the
    // output's own further columns, say the opposite.
    const Values high { 9.0, 9.0 };
    auto cache = FormulaBuilder()
                     .series(high)
                     .series(high)
                     .series({ 4.0, 4.0 })
                     .series({ 5.0, 5.0 })
                     .output("tick", 3, { { 5.0, 5.0 }, high, high, high })
                     .build();

    EXPECT_EQ(directions(crosses(cache)), QStringLiteral("++"));
}

TEST_F(DrawTick, MeasuresTheFirstTradeByTheReferencesOfTheOneBefore)
{
    const auto cache = trades({ 5.0, 5.0 }, { 4.0, 6.0 }, { 9.0, 9.0 });
    start = 1;

    EXPECT_EQ(directions(crosses(cache)), QStringLiteral("+"));
}

TEST_F(DrawTick, MeasuresTradeZeroByItsOwnReferences)
{
    EXPECT_EQ(directions(crosses(trades({ 5.0 }, { 4.0 }, { 9.0 }))), QStringLiteral("+"));
    EXPECT_EQ(directions(crosses(trades({ 5.0 }, { 5.0 }, { 9.0 }))), QStringLiteral("-"));
}

TEST_F(DrawTick, LetsAnEqualPriceRiseAfterATradeAtTheUpperReference)
{
    // Trade 1 falls, yet leaves a price at its upper reference behind: trade 2 at the same price rises.
    EXPECT_EQ(directions(crosses(trades({ 6.0, 5.0, 5.0 }, Values(3, 4.0), Values(3, 5.0)))),
              QStringLiteral("+-+"));
}

TEST_F(DrawTick, DrawsInvalidBarsToo)
{
    auto cache = trades({ 5.0, 4.0 });
    cache.result.barValid = { 0, 0 };

    EXPECT_EQ(crosses(cache).size(), 4);
    cache.result.barValid.clear();
    EXPECT_EQ(crosses(cache).size(), 4);
}

TEST_F(DrawTick, DividesThePaneByTheTradesOfTheRunWhateverThePaneShows)
{
    barCount = 50;
    start = 1;
    end = 2;
    EXPECT_EQ(crosses(trades({ 9.0, 5.0, 4.0, 3.0 })), cross(6, 44, 3, kFall) + cross(56, 49, 3, kFall));
}

TEST_F(DrawTick, StopsAtTheLastBarTime)
{
    auto cache = trades({ 5.0, 4.0, 3.0 });
    cache.result.barTimes.resize(1);

    EXPECT_EQ(crosses(cache), cross(6, 44, 3, kFall));
}

TEST_F(DrawTick, AddsThePanesLeftEdgeForClientType3)
{
    TC::embedded::setClientType(3);
    barCount = 0;
    EXPECT_EQ(crosses(trades({ 5.0, 4.0 })), cross(16, 44, 3, kFall) + cross(66, 49, 3, kFall));
}

TEST_F(DrawTick, DividesThePaneByTheLargerOfTradesAndSlotsForClientType3)
{
    TC::embedded::setClientType(3);
    barCount = 4;
    // 4 + 1 slots of 20.
    EXPECT_EQ(crosses(trades({ 5.0, 4.0 })), cross(16, 44, 3, kFall) + cross(36, 49, 3, kFall));
    fullWidth = true;
    // 4 slots of 25.
    EXPECT_EQ(crosses(trades({ 5.0, 4.0 })), cross(16, 44, 3, kFall) + cross(41, 49, 3, kFall));
    barCount = 1;
    // 2 trades of 50.
    EXPECT_EQ(crosses(trades({ 5.0, 4.0 })), cross(16, 44, 3, kFall) + cross(66, 49, 3, kFall));
}

TEST_F(DrawTick, TakesHalfTheCrossSizeAndAtLeastOnePixel)
{
    EXPECT_EQ(crosses(trades({ 5.0 }), 7), cross(7, 44, 3, kFall));
    EXPECT_EQ(crosses(trades({ 5.0 }), 1), cross(1, 44, 1, kFall));
    EXPECT_EQ(crosses(trades({ 5.0 }), -4), cross(-4, 44, 1, kFall));
}

TEST_F(DrawTick, PushesACrossNearTheTopTo8PixelsBelowIt)
{
    // Price 8 on row 29 stays (29 - 8 is 21); 8.2 on row 28 stays (20 is not above the top); 8.4 on row 27
    // is pushed to 28.
    EXPECT_EQ(crosses(trades({ 8.0 })), cross(6, 29, 3, kFall));
    EXPECT_EQ(crosses(trades({ 8.2 })), cross(6, 28, 3, kFall));
    EXPECT_EQ(crosses(trades({ 8.4 })), cross(6, 28, 3, kFall));
    EXPECT_EQ(crosses(trades({ 90.0 })), cross(6, 28, 3, kFall));
}

TEST_F(DrawTick, HoldsACrossAtTheLimitOfInt)
{
    pane = QRect(QPoint(0, INT_MAX), QPoint(99, INT_MAX)); // one row, 1 / 10 of a row a unit
    EXPECT_EQ(crosses(trades({ 90.0 })),
              QStringList({ QStringLiteral("line 3,2147483647 9,2147483644 pen=#0000ff/1/solid"),
                            QStringLiteral("line 3,2147483644 9,2147483647 pen=#0000ff/1/solid") }));
}

TEST_F(DrawTick, DoesNotReadTheOutputsWidth)
{
    auto cache = trades({ 5.0 });
    cache.meta.lineWidth = { 0 };
    EXPECT_EQ(crosses(cache), cross(6, 44, 3, kFall));
}

TEST_F(DrawTick, LeavesACrossBelowTheBottom)
{
    EXPECT_EQ(crosses(trades({ -4.0 })), cross(6, 89, 3, kFall)); // 69 + 20
}

TEST_F(DrawTick, PutsEveryCrossOfAFlatRangeOnHalfThePanesHeight)
{
    // 50 / 2, although the pane starts at row 20 and the top clamp would hold the cross at row 28.
    range = { 5.0, 5.0 };
    EXPECT_EQ(crosses(trades({ 9.0, 1.0 })), cross(6, 25, 3, kFall) + cross(56, 25, 3, kFall));
    range = { 5.000009, 5.0 };
    EXPECT_EQ(crosses(trades({ 5.0 })), cross(6, 25, 3, kFall));
}

TEST_F(DrawTick, LeavesTheSlotOfAMissingPriceEmpty)
{
    for (double missing : { DBL_MAX, double(NAN), double(INFINITY) }) {
        EXPECT_EQ(crosses(trades({ 5.0, missing })), cross(6, 44, 3, kFall)) << missing;
        range = { 5.0, 5.0 };
        EXPECT_EQ(crosses(trades({ 5.0, missing })), cross(6, 25, 3, kFall)) << missing;
        range = { 10.0, 0.0 };
    }
}

TEST_F(DrawTick, DrawsNothingWithoutTrades)
{
    EXPECT_EQ(crosses(trades({})), QStringList());
    start = 5;
    EXPECT_EQ(crosses(trades({ 5.0, 4.0 })), QStringList());
    start = 1;
    end = 0;
    EXPECT_EQ(crosses(trades({ 5.0, 4.0 })), QStringList());
}

TEST_F(DrawTick, DrawsNothingWithoutReferencePrices)
{
    auto cache = FormulaBuilder().line({ 5.0 }).series({ 1.0 }).series({ 1.0 }).build(); // three series

    EXPECT_EQ(crosses(cache), QStringList());
}

TEST_F(DrawTick, StartsAtTheFirstTradeWhenTheWindowStartsBeforeIt)
{
    start = -7;
    EXPECT_EQ(crosses(trades({ 5.0, 4.0 })), cross(6, 44, 3, kFall) + cross(56, 49, 3, kFall));
}

TEST_F(DrawTick, DrawsInBlackWithoutSkinColours)
{
    TC::embedded::clearSkin();
    EXPECT_EQ(crosses(trades({ 5.0 })), cross(6, 44, 3, QStringLiteral("#000000")));
}

TEST_F(DrawTick, LeavesTheLastColourAsThePaintersPen)
{
    auto cache = trades({ 5.0, 6.0 });
    traceOf([&](QPainter& painter) {
        painter.setPen(QPen(Qt::green, 5));
        CDrawStyle().drawTick(&painter, pane, range, cache, 0, 1, 0, 6, 0.0, 0.0, false, 1);
        EXPECT_EQ(painter.pen(), QPen(QColor(kRise)));
    });
}
