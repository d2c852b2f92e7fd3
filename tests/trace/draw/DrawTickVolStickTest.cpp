// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/BookFormula.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

using TC::CDrawStyle;
using test::BookTrade;
using test::FormulaBuilder;
using test::traceOf;
using Values = FormulaBuilder::Values;

namespace {

/// Both stick painters: without a book they paint the same.
enum class Painter { Plain, WithBook };

class TickSticks : public testing::Test
{
protected:
    void SetUp() override
    {
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_rise"), Qt::red);
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_fall"), Qt::blue);
    }

    /// Trades with their reference prices in number series 0 and 1.
    static TC::RPCFormulaResultCache trades(const Values& volumes, const Values& prices, const Values& lower,
                                            const Values& upper)
    {
        return FormulaBuilder()
            .series(lower)
            .series(upper)
            .output("volume", 4, { volumes, Values(volumes.size(), 55.0), prices })
            .build();
    }

    /// Trades of which the first rises and the others follow the price.
    static TC::RPCFormulaResultCache trades(const Values& volumes, const Values& prices)
    {
        return trades(volumes, prices, Values(prices.size(), 0.0), Values(prices.size(), 100.0));
    }

    QStringList sticks(TC::RPCFormulaResultCache cache, Painter which)
    {
        return traceOf([&](QPainter& painter) {
            CDrawStyle style;
            const auto paint =
                which == Painter::Plain ? &CDrawStyle::drawTickVolStick : &CDrawStyle::drawTickVolStickNew;
            (style.*paint)(&painter, pane, cache, range, 0, start, end, halfWidth, asLine, fullWidth,
                           barCount, 7.0);
        });
    }

    // bottom() is 59; 60 rows over 10 units are 6 rows a unit. 4 + 1 slots of 20 pixels.
    QRect pane { 10, 0, 100, 60 };
    QPair<double, double> range { 10.0, 5.0 };
    int start = 0, end = 99, halfWidth = 2, barCount = 4;
    bool asLine = false, fullWidth = false;
};

class DrawTickVolStick : public TickSticks, public testing::WithParamInterface<Painter>
{
protected:
    QStringList drawn(const TC::RPCFormulaResultCache& cache) { return sticks(cache, GetParam()); }

    /// "+" or "-" per stick.
    QString directions(const TC::RPCFormulaResultCache& cache)
    {
        QString text;
        asLine = true;
        for (const QString& line : drawn(cache))
            text += line.contains(QStringLiteral("#ff0000")) ? QLatin1Char('+') : QLatin1Char('-');
        return text;
    }
};

QString rising(const char* box)
{
    return QStringLiteral("rect %1 pen=#ff0000/1/solid brush=none").arg(QLatin1String(box));
}

QString falling(const char* box)
{
    return QStringLiteral("fill %1 #0000ff").arg(QLatin1String(box));
}

} // namespace

INSTANTIATE_TEST_SUITE_P(BothRules, DrawTickVolStick, testing::Values(Painter::Plain, Painter::WithBook),
                         [](const auto& rule) {
                             return rule.param == Painter::Plain ? "Plain" : "WithBook";
                         });

TEST_P(DrawTickVolStick, OutlinesARisingTradeAndFillsAFallingOne)
{
    // x = 10 + (k * 20 + 2) less 2; volume 5 on row 59 - 30, 31 rows high; the filled one starts a row lower.
    EXPECT_EQ(drawn(trades({ 5.0, 5.0 }, { 2.0, 1.0 })),
              QStringList({ rising("10,29 4x31"), falling("30,30 4x31") }));
}

TEST_P(DrawTickVolStick, StandsOnZeroWhateverTheMinimum)
{
    range.second = -1000.0;
    EXPECT_EQ(drawn(trades({ 5.0 }, { 2.0 })), QStringList(rising("10,29 4x31")));
}

TEST_P(DrawTickVolStick, ReadsThePriceFromTheThirdColumnAndTheReferencesFromTheFirstTwoSeries)
{
    // Volume 9 or the unused column's 55 would rise above the reference of 50; the price of 2 does not.
    EXPECT_EQ(directions(trades({ 9.0 }, { 2.0 }, { 50.0 }, { 60.0 })), QStringLiteral("-"));
    EXPECT_EQ(directions(trades({ 9.0 }, { 52.0 }, { 50.0 }, { 60.0 })), QStringLiteral("+"));
    // An equal price rises at the upper reference.
    EXPECT_EQ(directions(trades({ 9.0, 9.0 }, { 60.0, 60.0 }, { 50.0, 50.0 }, { 60.0, 60.0 })),
              QStringLiteral("++"));
    EXPECT_EQ(directions(trades({ 9.0, 9.0 }, { 59.0, 59.0 }, { 50.0, 50.0 }, { 60.0, 60.0 })),
              QStringLiteral("+-"));
}

TEST_P(DrawTickVolStick, TakesTheFirstValidBarAsTheFirstTrade)
{
    // Bar 0 is invalid: bar 1 is measured by the references of bar 0 (1.0), not by the price of bar 0 nor
    // by its own references (3.0).
    auto cache = trades({ 5.0, 5.0 }, { 9.0, 2.0 }, { 1.0, 3.0 }, { 9.0, 9.0 });
    cache.result.barValid = { 0, 1 };

    EXPECT_EQ(directions(cache), QStringLiteral("+"));
}

TEST_P(DrawTickVolStick, MeasuresTheFirstTradeByTheReferencesOfTheOneBefore)
{
    start = 1;
    EXPECT_EQ(directions(trades({ 5.0, 5.0 }, { 2.0, 2.0 }, { 1.0, 3.0 }, { 9.0, 9.0 })),
              QStringLiteral("+"));
    EXPECT_EQ(directions(trades({ 5.0, 5.0 }, { 2.0, 2.0 }, { 3.0, 1.0 }, { 9.0, 9.0 })),
              QStringLiteral("-"));
}

TEST_P(DrawTickVolStick, DoesNotReadTheOutputsWidth)
{
    auto cache = trades({ 5.0 }, { 2.0 });
    cache.meta.lineWidth = { 0 };
    EXPECT_EQ(drawn(cache), QStringList(rising("10,29 4x31")));
}

TEST_P(DrawTickVolStick, LeavesOutInvalidBars)
{
    auto cache = trades({ 5.0, 5.0, 5.0 }, { 1.0, 9.0, 2.0 });
    cache.result.barValid = { 1, 0, 1 };

    // Bar 2 keeps its slot and rises from the 1.0 of bar 0, not falls from the 9.0 of bar 1.
    EXPECT_EQ(drawn(cache), QStringList({ rising("10,29 4x31"), rising("50,29 4x31") }));
}

TEST_P(DrawTickVolStick, CountsSlotsFromTheStartOfTheWindowWithoutAStartOffset)
{
    start = 2;
    EXPECT_EQ(drawn(trades({ 1.0, 1.0, 5.0 }, { 1.0, 2.0, 3.0 })), QStringList(rising("10,29 4x31")));
}

TEST_P(DrawTickVolStick, DividesThePaneByTheSlotsAtFullWidth)
{
    fullWidth = true; // 4 slots of 25
    EXPECT_EQ(drawn(trades({ 5.0, 5.0 }, { 1.0, 2.0 })),
              QStringList({ rising("10,29 4x31"), rising("35,29 4x31") }));
}

TEST_P(DrawTickVolStick, DrawsAZeroVolumeAsAOnePixelMarkOnTheBottomRow)
{
    // Row 59, height 60 - 59: a mark from x to x + 4, in either direction.
    EXPECT_EQ(drawn(trades({ 0.0, 0.0 }, { 2.0, 1.0 })),
              QStringList({ QStringLiteral("line 10,59 14,59 pen=#ff0000/1/solid"),
                            QStringLiteral("line 30,59 34,59 pen=#0000ff/1/solid") }));
}

TEST_P(DrawTickVolStick, SpansTheWholeHeightWithTheMaximum)
{
    // Row 59 - 60, one above the pane: 60 rows to the maximum, not the 59 between the edges.
    EXPECT_EQ(drawn(trades({ 10.0 }, { 2.0 })), QStringList(rising("10,-1 4x61")));
}

TEST_P(DrawTickVolStick, DrawsAStickTwoPixelsWideAsABody)
{
    halfWidth = 1;
    EXPECT_EQ(drawn(trades({ 5.0, 5.0 }, { 2.0, 1.0 })),
              QStringList({ rising("10,29 2x31"), falling("30,30 2x31") }));
}

TEST_P(DrawTickVolStick, DrawsAStickOfTwoRowsAsABody)
{
    EXPECT_EQ(drawn(trades({ 0.2 }, { 2.0 })), QStringList(rising("10,57 4x3"))); // 59 - 1.2
}

TEST_P(DrawTickVolStick, TakesThePanesHeightLessTheRowAsHeightInAPaneThatStartsLower)
{
    // bottom() is 79, volume 5 on row 49: 60 - 49 rows high, so the stick ends above the bottom row.
    pane.moveTop(20);
    EXPECT_EQ(drawn(trades({ 5.0 }, { 2.0 })), QStringList(rising("10,49 4x11")));
    // Volume 3 on row 61 would be -1 high: a one-pixel mark.
    EXPECT_EQ(drawn(trades({ 3.0 }, { 2.0 })),
              QStringList(QStringLiteral("line 10,79 14,79 pen=#ff0000/1/solid")));
}

TEST_P(DrawTickVolStick, DrawsThinSticksAsLines)
{
    halfWidth = 0; // one pixel wide
    EXPECT_EQ(drawn(trades({ 5.0, 5.0 }, { 2.0, 1.0 })),
              QStringList({ QStringLiteral("line 10,29 10,59 pen=#ff0000/1/solid"),
                            QStringLiteral("line 30,29 30,59 pen=#0000ff/1/solid") }));
}

TEST_P(DrawTickVolStick, DrawsAThinOnePixelMarkAsAPointOnTheBottomRow)
{
    halfWidth = 0;
    EXPECT_EQ(drawn(trades({ 0.0 }, { 2.0 })),
              QStringList(QStringLiteral("point 10,59 pen=#ff0000/1/solid")));
    pane.moveTop(20); // volume 3 on row 61, but the mark is a point on row 79
    EXPECT_EQ(drawn(trades({ 3.0 }, { 2.0 })),
              QStringList(QStringLiteral("point 10,79 pen=#ff0000/1/solid")));
}

TEST_P(DrawTickVolStick, DrawsLinesAtEveryWidthWhenAskedTo)
{
    asLine = true;
    EXPECT_EQ(drawn(trades({ 5.0, 5.0 }, { 2.0, 1.0 })),
              QStringList({ QStringLiteral("line 10,29 10,59 pen=#ff0000/1/solid"),
                            QStringLiteral("line 30,29 30,59 pen=#0000ff/1/solid") }));
    pane.moveTop(20); // no one-pixel mark: the line runs from row 61
    EXPECT_EQ(drawn(trades({ 3.0 }, { 2.0 })),
              QStringList(QStringLiteral("line 10,61 10,79 pen=#ff0000/1/solid")));
}

TEST_P(DrawTickVolStick, DrawsNothingForAnOutputOfTwoColumns)
{
    auto cache =
        FormulaBuilder().series({ 0.0 }).series({ 9.0 }).output("volume", 4, { { 5.0 }, { 2.0 } }).build();

    EXPECT_EQ(drawn(cache), QStringList());
}

TEST_P(DrawTickVolStick, DrawsNothingWithoutItsVolumesOrItsPrices)
{
    for (const std::size_t column : { 0u, 2u }) {
        auto cache = trades({ 5.0, 5.0 }, { 2.0, 1.0 });
        ASSERT_NE(drawn(cache), QStringList());
        cache.meta.outputColumns[0][column] = 99;
        EXPECT_EQ(drawn(cache), QStringList()) << column;
    }
}

TEST_P(DrawTickVolStick, DrawsNothingWithASingleNumberSeries)
{
    auto cache = trades({ 5.0 }, { 2.0 });
    cache.result.numberSeries.resize(1);
    cache.result.columnSeries.assign(cache.result.columnSeries.size(), 0);
    EXPECT_EQ(drawn(cache), QStringList());

    cache.result.numberSeries.resize(2, { 5.0 }); // a second one is enough
    EXPECT_EQ(drawn(cache).size(), 1);
}

TEST_P(DrawTickVolStick, DrawsNothingWithoutASeriesForPriceOrVolume)
{
    auto cache = trades({ 5.0 }, { 2.0 });
    cache.result.columnSeries[2] = 5; // five series: 0 to 4
    EXPECT_EQ(drawn(cache), QStringList());

    cache = trades({ 5.0 }, { 2.0 });
    cache.result.columnSeries.resize(2);
    EXPECT_EQ(drawn(cache), QStringList());

    cache = trades({ 5.0 }, { 2.0 });
    cache.result.columnSeries[0] = 5;
    EXPECT_EQ(drawn(cache), QStringList());
}

TEST_P(DrawTickVolStick, LeavesOutAMissingVolumeButNotItsTrade)
{
    // The price of trade 1 stands between: trade 2 falls from it.
    auto cache = trades({ 5.0, DBL_MAX, 5.0 }, { 2.0, 4.0, 3.0 });
    EXPECT_EQ(drawn(cache), QStringList({ rising("10,29 4x31"), falling("50,30 4x31") }));

    cache.result.numberSeries[2] = { 5.0 }; // the volumes end after trade 0
    EXPECT_EQ(drawn(cache), QStringList(rising("10,29 4x31")));
}

TEST_P(DrawTickVolStick, DrawsZeroVolumesNowhereOnAScaleOfZero)
{
    range = { 0.0, 0.0 }; // 0 times infinitely many rows
    EXPECT_EQ(drawn(trades({ 0.0 }, { 2.0 })), QStringList());
}

TEST_P(DrawTickVolStick, StaysPaintableAtTheLimitsOfItsNumbers)
{
    halfWidth = INT_MAX;
    EXPECT_EQ(drawn(trades({ 5.0 }, { 2.0 })).size(), 1);
    halfWidth = INT_MIN;
    EXPECT_EQ(drawn(trades({ 5.0 }, { 2.0 })).size(), 1);
    halfWidth = 2;
    barCount = -1;
    EXPECT_EQ(drawn(trades({ 5.0, 1e300 }, { 2.0, 1.0 })).size(), 1); // bar 0 has no place: 0 times infinity
}

namespace {

class DrawTickVolStickNew : public TickSticks
{
protected:
    void SetUp() override
    {
        TickSticks::SetUp();
        range.first = 1000.0; // 0.06 rows a unit
    }

    static test::BookLevels onePrice(double price, double volume)
    {
        test::BookLevels all {};
        all.fill({ price, volume });
        return all;
    }

    /// The volume stick of the second trade: of 600 at a price of 10.0 on row 59 - 36.
    QString secondStick(const BookTrade& first, const BookTrade& second)
    {
        return sticks(test::bookFormula({ first, second }), Painter::WithBook).value(1);
    }
};

const QString kSecondRises = rising("30,23 4x37"), kSecondFalls = falling("30,24 4x37");

} // namespace

TEST_F(DrawTickVolStickNew, RisesAgainstThePricesWhenSide1LostMuch)
{
    // 11.0 to 10.0 falls by price; 600 of 900 left side 1, nothing left side 2.
    const BookTrade before { 11.0, 600.0, onePrice(10.1, 900), onePrice(9.9, 900) };
    const BookTrade after { 10.0, 600.0, onePrice(10.1, 300), onePrice(9.9, 900) };

    EXPECT_EQ(secondStick(before, after), kSecondRises);
    EXPECT_EQ(sticks(test::bookFormula({ before, after }), Painter::Plain).value(1), kSecondFalls);
}

TEST_F(DrawTickVolStickNew, FallsAgainstThePricesWhenSide2LostMuch)
{
    const BookTrade before { 9.0, 600.0, onePrice(10.1, 900), onePrice(9.9, 900) };
    const BookTrade after { 10.0, 600.0, onePrice(10.1, 900), onePrice(9.9, 300) };

    EXPECT_EQ(secondStick(before, after), kSecondFalls);
    EXPECT_EQ(sticks(test::bookFormula({ before, after }), Painter::Plain).value(1), kSecondRises);
}

TEST_F(DrawTickVolStickNew, KeepsThePricesDirectionWhenBothSidesLostMuch)
{
    const BookTrade rises { 9.0, 600.0, onePrice(10.1, 900), onePrice(9.9, 900) };
    const BookTrade falls { 11.0, 600.0, onePrice(10.1, 900), onePrice(9.9, 900) };
    const BookTrade after { 10.0, 600.0, onePrice(10.1, 300), onePrice(9.9, 300) };

    EXPECT_EQ(secondStick(rises, after), kSecondRises);
    EXPECT_EQ(secondStick(falls, after), kSecondFalls);
}

TEST_F(DrawTickVolStickNew, KeepsThePricesDirectionWhenTheTradeIsMuchSmallerThanTheRemoval)
{
    const BookTrade before { 11.0, 600.0, onePrice(10.1, 1900), onePrice(9.9, 900) };
    const BookTrade after { 10.0, 600.0, onePrice(10.1, 900), onePrice(9.9, 900) }; // 1000 > 1.5 * 600

    EXPECT_EQ(secondStick(before, after), kSecondFalls);
}

TEST_F(DrawTickVolStickNew, WeighsASmallRemovalByItsAmountAtTheTradesPrice)
{
    // 499 lots at 10.0 are 499 thousand; at 10.1 they are 503 thousand.
    BookTrade before { 11.0, 600.0, onePrice(10.1, 799), onePrice(9.9, 900) };
    BookTrade after { 10.0, 600.0, onePrice(10.1, 300), onePrice(9.9, 900) };
    EXPECT_EQ(secondStick(before, after), kSecondFalls);

    after.price = 10.1;
    EXPECT_EQ(secondStick(before, after), kSecondRises);
}

TEST_F(DrawTickVolStickNew, LeavesTheDirectionStateToThePrices)
{
    // Trade 1 falls by price to its lower reference and is overridden to rise; trade 2 at the same price
    // follows the price's state and falls.
    const BookTrade before { 11.0, 600.0, onePrice(10.1, 900), onePrice(10.0, 900) };
    const BookTrade after { 10.0, 600.0, onePrice(10.1, 300), onePrice(10.0, 900) };

    EXPECT_EQ(sticks(test::bookFormula({ before, after, after }), Painter::WithBook),
              QStringList({ rising("10,23 4x37"), kSecondRises, falling("50,24 4x37") }));
}

TEST_F(DrawTickVolStickNew, KeepsThePricesDirectionWithoutDepth)
{
    test::BookLevels deep {}, shallow {};
    deep[0] = shallow[0] = { 10.1, 900 };
    deep[4] = { 10.5, 1 };
    test::BookLevels eaten = shallow;
    eaten[0].volume = 300;

    EXPECT_EQ(secondStick({ 11.0, 600.0, deep, {} }, { 10.0, 600.0, eaten, {} }), kSecondFalls);
    EXPECT_EQ(secondStick({ 11.0, 600.0, shallow, {} }, { 10.0, 600.0, eaten, {} }), kSecondFalls);
    eaten[4] = { 10.5, 1 };
    EXPECT_EQ(secondStick({ 11.0, 600.0, shallow, {} }, { 10.0, 600.0, eaten, {} }), kSecondFalls);
    EXPECT_EQ(secondStick({ 11.0, 600.0, deep, {} }, { 10.0, 600.0, eaten, {} }), kSecondRises);
}

TEST_F(DrawTickVolStickNew, LeavesTheBookOfAnInvalidBarUnread)
{
    const BookTrade before { 11.0, 600.0, onePrice(10.1, 900), onePrice(9.9, 900) };
    const BookTrade after { 10.0, 600.0, onePrice(10.1, 300), onePrice(9.9, 900) };
    auto cache = test::bookFormula({ before, after, after });
    cache.result.barValid = { 1, 0, 1 };

    // Trade 2 is compared with trade 0, from which 600 are gone; with trade 1 nothing would be.
    EXPECT_EQ(sticks(cache, Painter::WithBook), QStringList({ rising("10,23 4x37"), rising("50,23 4x37") }));
}

TEST_F(DrawTickVolStickNew, KeepsThePricesDirectionWithFewerThan23Series)
{
    const BookTrade before { 11.0, 600.0, onePrice(10.1, 900), onePrice(9.9, 900) };
    const BookTrade after { 10.0, 600.0, onePrice(10.1, 300), onePrice(9.9, 900) };
    auto cache = test::bookFormula({ before, after });
    // Volume, (unused) and price move from the series behind the book to positions 2 to 4.
    auto& table = cache.result.numberSeries;
    std::copy(table.begin() + 23, table.begin() + 26, table.begin() + 2);
    cache.result.columnSeries = { 2, 3, 4 };
    EXPECT_EQ(sticks(cache, Painter::WithBook).value(1), kSecondRises);

    table.resize(22);
    EXPECT_EQ(sticks(cache, Painter::WithBook).value(1), kSecondFalls);
}
