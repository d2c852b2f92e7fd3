// SPDX-License-Identifier: MIT
#pragma once
/// @file Records of trades with an order book.

#include "draw/internal/BookSeries.h"
#include "tests/support/FormulaBuilder.h"

namespace test {

using BookLevels = std::array<TC::detail::BookLevel, TC::detail::kBookLevels>;

/// One trade and the book after it.
struct BookTrade
{
    double price = 0.0;
    double volume = 0.0;
    BookLevels side1 {}, side2 {};
};

constexpr std::array<int, TC::detail::kBookLevels> kSide1Prices { 1, 7, 11, 15, 19 };
constexpr std::array<int, TC::detail::kBookLevels> kSide1Volumes { 5, 9, 13, 17, 21 };
constexpr std::array<int, TC::detail::kBookLevels> kSide2Prices { 0, 8, 12, 16, 20 };
constexpr std::array<int, TC::detail::kBookLevels> kSide2Volumes { 6, 10, 14, 18, 22 };

/// A record with the books in number series 0 to 22 and one output of the columns volume, (unused), price.
inline TC::RPCFormulaResultCache bookFormula(const std::vector<BookTrade>& trades)
{
    std::vector<FormulaBuilder::Values> table(23, FormulaBuilder::Values(trades.size()));
    FormulaBuilder::Values volumes, prices;
    for (std::size_t trade = 0; trade < trades.size(); ++trade) {
        for (std::size_t level = 0; level < TC::detail::kBookLevels; ++level) {
            const auto put = [&](int series, double value) {
                table[static_cast<std::size_t>(series)][trade] = value;
            };
            put(kSide1Prices[level], trades[trade].side1[level].price);
            put(kSide1Volumes[level], trades[trade].side1[level].volume);
            put(kSide2Prices[level], trades[trade].side2[level].price);
            put(kSide2Volumes[level], trades[trade].side2[level].volume);
        }
        volumes.push_back(trades[trade].volume);
        prices.push_back(trades[trade].price);
    }
    FormulaBuilder builder;
    for (FormulaBuilder::Values& values : table)
        builder.series(std::move(values));
    return builder.output("ticks", 4, { volumes, FormulaBuilder::Values(trades.size()), prices }).build();
}

} // namespace test
