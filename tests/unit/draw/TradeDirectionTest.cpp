// SPDX-License-Identifier: MIT
#include "draw/internal/TradeDirection.h"

#include <gtest/gtest.h>

#include <cmath>

using TC::detail::directionState;
using TC::detail::DirectionState;
using TC::detail::TradeDirection;
using TC::detail::TradeSeries;

namespace {

using Values = std::vector<double>;

/// Directions of the trades `first` to the last one: "+" rises, "-" falls, "." no part of the run.
std::string directions(const Values& prices, const Values& lower, const Values& upper, int first = 0)
{
    TradeDirection direction(TradeSeries { &prices, &lower, &upper });
    std::string text;
    for (int bar = first; bar < static_cast<int>(prices.size()); ++bar) {
        const std::optional<bool> rise = direction.rises(bar);
        text += !rise ? '.' : *rise ? '+' : '-';
    }
    return text;
}

} // namespace

TEST(DirectionStateOfAPrice, IsBelowUpToTheLowerReferenceAndAboveFromTheUpperOne)
{
    EXPECT_EQ(directionState(9.0, 10.0, 11.0), DirectionState::AtOrBelowLower);
    EXPECT_EQ(directionState(10.0, 10.0, 11.0), DirectionState::AtOrBelowLower);
    EXPECT_EQ(directionState(10.5, 10.0, 11.0), DirectionState::Between);
    EXPECT_EQ(directionState(11.0, 10.0, 11.0), DirectionState::AtOrAboveUpper);
    EXPECT_EQ(directionState(12.0, 10.0, 11.0), DirectionState::AtOrAboveUpper);
}

TEST(DirectionStateOfAPrice, ComparesWithinTheTolerance)
{
    EXPECT_EQ(directionState(10.000009, 10.0, 11.0), DirectionState::AtOrBelowLower);
    EXPECT_EQ(directionState(10.00002, 10.0, 11.0), DirectionState::Between);
    EXPECT_EQ(directionState(10.999991, 10.0, 11.0), DirectionState::AtOrAboveUpper);
    EXPECT_EQ(directionState(10.99998, 10.0, 11.0), DirectionState::Between);
}

TEST(DirectionStateOfAPrice, AsksTheLowerReferenceFirst)
{
    EXPECT_EQ(directionState(10.0, 10.0, 10.0), DirectionState::AtOrBelowLower);
    EXPECT_EQ(directionState(10.0, 11.0, 9.0), DirectionState::AtOrBelowLower);
}

TEST(TradeDirectionOfARun, MeasuresTheFirstTradeByTheReferencesOfTheTradeBeforeIt)
{
    // Trade 1 costs 10.5: above the 10 of trade 0, below the 11 of its own.
    EXPECT_EQ(directions({ 0.0, 10.5 }, { 10.0, 11.0 }, { 20.0, 20.0 }, 1), "+");
    EXPECT_EQ(directions({ 0.0, 10.5 }, { 11.0, 10.0 }, { 20.0, 20.0 }, 1), "-");
}

TEST(TradeDirectionOfARun, TakesTheFirstStateFromTheTradeBeforeAsWell)
{
    // Trade 1 at 10.5 stands at the upper reference of trade 0 (10.5) but below its own (20): the equal
    // trade 2 rises.
    EXPECT_EQ(directions({ 0.0, 10.5, 10.5 }, { 10.0, 10.0, 10.0 }, { 10.5, 20.0, 20.0 }, 1), "++");
    EXPECT_EQ(directions({ 0.0, 10.5, 10.5 }, { 10.0, 10.0, 10.0 }, { 20.0, 10.5, 10.5 }, 1), "+-");
}

TEST(TradeDirectionOfARun, MeasuresTradeZeroByItsOwnReferences)
{
    EXPECT_EQ(directions({ 10.5 }, { 10.0 }, { 11.0 }), "+");
    EXPECT_EQ(directions({ 10.5 }, { 10.5 }, { 11.0 }), "-");
    EXPECT_EQ(directions({ 10.000009 }, { 10.0 }, { 11.0 }), "-"); // not above by more than the tolerance
}

TEST(TradeDirectionOfARun, FollowsTheChangeOfPriceAfterTheFirstTrade)
{
    // The references would say otherwise: every later price is below the lower one.
    EXPECT_EQ(directions({ 5.0, 6.0, 5.5, 7.0 }, Values(4, 50.0), Values(4, 60.0)), "-+-+");
}

TEST(TradeDirectionOfARun, LetsAnUnchangedPriceRiseOnlyAfterAPriceAtTheUpperReference)
{
    const Values lower(2, 9.0), upper(2, 10.0);
    EXPECT_EQ(directions({ 10.0, 10.0 }, lower, upper), "++"); // at the upper reference
    EXPECT_EQ(directions({ 9.5, 9.5 }, lower, upper), "+-");   // between: rose itself, yet the next falls
    EXPECT_EQ(directions({ 9.0, 9.0 }, lower, upper), "--");   // at the lower reference
}

TEST(TradeDirectionOfARun, GivesAnUnchangedPriceTheStateOfThePreviousTradeNotItsColour)
{
    // Trade 1 falls from 12 to 11 but stands at its upper reference: trade 2 at 11 rises.
    EXPECT_EQ(directions({ 12.0, 11.0, 11.0 }, Values(3, 10.0), Values(3, 11.0)), "+-+");
}

TEST(TradeDirectionOfARun, RecomputesTheStateFromEachTradesOwnReferences)
{
    // All at 11. Trade 1 follows trade 0 (upper 11): rises; its own upper 12 makes trade 2 fall.
    EXPECT_EQ(directions({ 11.0, 11.0, 11.0 }, Values(3, 10.0), { 11.0, 12.0, 12.0 }), "++-");
}

TEST(TradeDirectionOfARun, TreatsPricesWithinTheToleranceAsUnchanged)
{
    const Values lower(2, 9.0), upper(2, 10.0);
    EXPECT_EQ(directions({ 10.0, 9.999991 }, lower, upper), "++"); // unchanged, state above
    EXPECT_EQ(directions({ 10.0, 9.99998 }, lower, upper), "+-");  // a fall
}

TEST(TradeDirectionOfARun, LeavesOutTradesWithoutPriceOrReferences)
{
    EXPECT_EQ(directions({ 10.5, 10.6, 10.7 }, { 10.0, 10.0 }, { 11.0, 11.0, 11.0 }), "++.");
    EXPECT_EQ(directions({ 10.5, 10.6 }, { 10.0, 10.0 }, {}), "..");

    TradeDirection none { TradeSeries {} };
    EXPECT_FALSE(none.rises(0));
    const Values prices { 1.0 }, references { 0.5 };
    TradeDirection wild(TradeSeries { &prices, &references, &references });
    EXPECT_FALSE(wild.rises(-1));
    EXPECT_FALSE(wild.rises(1));
}

TEST(TradeDirectionOfARun, LetsATradeWithoutANumberFall)
{
    EXPECT_EQ(directions({ NAN, NAN }, Values(2, 9.0), Values(2, 10.0)), "--");
}
