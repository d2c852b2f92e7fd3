// SPDX-License-Identifier: MIT
#pragma once
/// @file The columns that the steps of a formula give.

#include "engine/evaluation/Plan.h"

#include <vector>

namespace engine::language {

/// Bars that all steps compute before the first step goes on: few enough for the columns to stay in the
/// cache.
constexpr std::size_t kBlock = 1024;

/// The computed steps of a formula: whole columns, or of each only the last bars, which a block of bars and
/// what later steps read behind it take.
class Columns
{
public:
    enum class Keep { All, LastBars };

    /// @param bars  how many there will be; more may follow where all are kept.
    Columns(const Plan& plan, Keep keep, std::size_t bars);

    /// Room for the bars [from, to) of a step behind those that it has given before; at most kBlock bars
    /// where not all are kept.
    Result makeRoom(StepId step, std::size_t from, std::size_t to);

    /// What a step gave: a column, or a number for all bars.
    Operand operand(StepId step) const;

    /// Frees a column.
    void release(StepId step);

    /// How many columns stand with all their bars.
    std::size_t wholeColumns() const;

private:
    struct Column
    {
        Series values;
        std::size_t first = 0;
        std::size_t room = 0; ///< of a column of which only the last bars are kept, else 0
    };

    const Plan& m_plan;
    std::size_t m_bars;
    std::vector<Column> m_columns; ///< by step; empty for numbers
};

/// Makes a column large enough, with room for later bars when it has grown before.
/// @param expected  the length that it will soon have.
template <class Value>
void reserveFor(std::vector<Value>& column, std::size_t count, std::size_t expected)
{
    if (column.empty())
        column.reserve(expected);
    else if (column.capacity() < count)
        column.reserve(count + count / 4);
}

} // namespace engine::language
