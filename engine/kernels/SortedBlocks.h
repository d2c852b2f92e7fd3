// SPDX-License-Identifier: MIT
#pragma once
/// @file The values of blocks of bars in their order, with sums.

#include "engine/kernels/Folds.h"

#include <algorithm>
#include <vector>

namespace engine::language {

/// Blocks of 64 bars, of 256, of 1024 and so on, each of which begins at a multiple of its length and holds
/// its values in their order and their running sums. The distances of a stretch from a number are put
/// together from the blocks that lie in it, by a search in each, and from the bars at its ends. Blocks of a
/// length are made when the first stretch is as long.
class SortedBlocks
{
public:
    /// Forgets the bars from one on.
    void takeBack(std::size_t from)
    {
        for (std::size_t level = 0; level < m_levels.size(); ++level)
            m_levels[level].resize(std::min(m_levels[level].size(), from - from % lengthOf(level)));
    }

    /// Sum of the distances of the values of the bars [begin, end) from a number. None of them may be
    /// missing; those before may.
    double distances(const Operand& values, std::size_t begin, std::size_t end, double middle)
    {
        std::size_t levels = 0;
        while (lengthOf(levels) <= end - begin)
            makeBlocks(levels++, values, end);
        CompensatedSum single, all, below;
        double count = 0.0, countBelow = 0.0;
        for (std::size_t bar = begin; bar < end;) {
            std::size_t level = levels;
            while (level > 0 && (bar % lengthOf(level - 1) != 0 || end - bar < lengthOf(level - 1)))
                --level;
            if (level == 0) {
                single = CompensatedSum::with(single, std::abs(values[bar++] - middle));
                continue;
            }
            const std::size_t length = lengthOf(level - 1);
            const Entry* const block = m_levels[level - 1].data() + bar;
            const Entry* const found = std::partition_point(
                block, block + length, [&](const Entry& entry) { return entry.value < middle; });
            all = CompensatedSum::merged(all, block[length - 1].upTo);
            count += static_cast<double>(length);
            if (found != block)
                below = CompensatedSum::merged(below, found[-1].upTo);
            countBelow += static_cast<double>(found - block);
            bar += length;
        }
        const CompensatedSum above = CompensatedSum::merged(all, { -below.sum, -below.error });
        const CompensatedSum inBlocks = CompensatedSum::merged(
            less(times(middle, countBelow), below), less(above, times(middle, count - countBelow)));
        return CompensatedSum::merged(single, inBlocks).total();
    }

private:
    struct Entry
    {
        double value;
        CompensatedSum upTo; ///< of the block's values up to this one
    };
    using Entries = std::vector<Entry>;

    static std::size_t lengthOf(std::size_t level) { return std::size_t(64) << (2 * level); }

    /// Makes the blocks of a level that end by a bar; those of the level below stand.
    void makeBlocks(std::size_t level, const Operand& values, std::size_t end)
    {
        if (m_levels.size() == level)
            m_levels.emplace_back();
        Entries& entries = m_levels[level];
        const std::size_t length = lengthOf(level);
        while (entries.size() + length <= end) {
            const std::size_t first = entries.size();
            if (level == 0)
                sortBars(entries, values, first + length);
            else
                mergeChildren(entries, m_levels[level - 1], length);
            CompensatedSum sum;
            for (std::size_t index = first; index < first + length; ++index)
                entries[index].upTo = sum = CompensatedSum::with(sum, entries[index].value);
        }
    }

    static bool isLess(const Entry& a, const Entry& b) { return a.value < b.value; }

    /// Adds bars up to one, in the order of their values; no stretch reads a block in which one is missing.
    static void sortBars(Entries& entries, const Operand& values, std::size_t end)
    {
        const auto first = static_cast<std::ptrdiff_t>(entries.size());
        for (std::size_t bar = entries.size(); bar < end; ++bar)
            entries.push_back({ isMissing(values[bar]) ? 0.0 : values[bar], {} });
        std::stable_sort(entries.begin() + first, entries.end(), isLess);
    }

    /// Adds a block from the four that it consists of.
    static void mergeChildren(Entries& entries, const Entries& children, std::size_t length)
    {
        const auto first = static_cast<std::ptrdiff_t>(entries.size()),
                   count = static_cast<std::ptrdiff_t>(length);
        entries.insert(entries.end(), children.begin() + first, children.begin() + first + count);
        const auto block = entries.begin() + first;
        for (std::ptrdiff_t part = count / 4; part < count; part *= 2) {
            for (std::ptrdiff_t from = 0; from < count; from += 2 * part)
                std::inplace_merge(block + from, block + from + part, block + from + 2 * part, isLess);
        }
    }

    static CompensatedSum times(double a, double b) { return { a * b, std::fma(a, b, -(a * b)) }; }
    static CompensatedSum less(const CompensatedSum& a, const CompensatedSum& b)
    {
        return CompensatedSum::merged(a, { -b.sum, -b.error });
    }

    std::vector<Entries> m_levels; ///< by bar
};

} // namespace engine::language
