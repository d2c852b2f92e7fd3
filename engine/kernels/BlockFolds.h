// SPDX-License-Identifier: MIT
#pragma once
/// @file States of stretches that begin anywhere and end in the last block of bars.

#include "engine/kernels/SegmentTree.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace engine::language {

constexpr std::size_t kFoldedBlock = 16; ///< bars

/// Cuts bars into blocks. A stretch is the tail of one, whole ones between, and the head of the last: one
/// merge where it reaches into the block before, and one for every doubling of its length besides. What lies
/// within one block is folded anew. What a stretch folds into depends on its ends alone, not on the bars
/// known behind it.
template <class Fold>
class BlockFolds
{
public:
    using State = typename Fold::State;

    static constexpr std::size_t kBlock = kFoldedBlock;

    static std::size_t blockBegin(std::size_t bar) { return bar - bar % kBlock; }

    /// Makes room for the bars up to `end`.
    /// @param expected  how many there will be soon.
    void makeRoom(std::size_t end, std::size_t expected)
    {
        if (m_tails.empty())
            m_tails.reserve(expected);
        if (m_tails.size() < end)
            m_tails.resize(end);
    }

    /// Takes in bars of one block for which there is room, from a changed one on; those before stand.
    /// @param later  (state, bar): a stretch and the bar behind it. @param earlier  (bar, state): likewise.
    template <class Later, class Earlier>
    void extend(std::size_t from, std::size_t end, Later later, Earlier earlier)
    {
        const std::size_t first = blockBegin(from);
        if (m_first != first)
            from = first; // another block was the last one
        beginBlock(first);
        State head = from == first ? State {} : m_heads[from - first - 1];
        for (std::size_t bar = from; bar < end; ++bar)
            m_heads[bar - first] = head = later(head, bar);
        if (end - first < kBlock)
            return;
        State tail {};
        for (std::size_t bar = end; bar-- > first;)
            m_tails[bar] = tail = earlier(bar, tail);
        endBlock();
    }

    /// Takes in a whole block for which there is room.
    /// @param foldBoth  (heads, tails): what extend() would find, for each bar of the block.
    template <class FoldBoth>
    void extendByBlock(std::size_t first, FoldBoth foldBoth)
    {
        beginBlock(first);
        foldBoth(m_heads.data(), m_tails.data() + first);
        endBlock();
    }

    /// State of the bars from `begin` to `last`, which lies in the block that was extended last.
    /// @param later  as in extend(), for stretches within that block.
    template <class Later>
    State fold(std::size_t begin, std::size_t last, Later later)
    {
        if (begin >= m_first)
            return foldWithin(begin, last + 1, later);
        if (begin != m_beforeBegin)
            foldBefore(begin);
        return Fold::merged(m_before, m_heads[last - m_first]);
    }

private:
    /// A stretch that begins where the last one began goes on from there.
    template <class Later>
    State foldWithin(std::size_t begin, std::size_t end, Later later)
    {
        if (begin != m_grownBegin || end < m_grownEnd) {
            m_grown = State {};
            m_grownBegin = m_grownEnd = begin;
        }
        for (; m_grownEnd < end; ++m_grownEnd)
            m_grown = later(m_grown, m_grownEnd);
        return m_grown;
    }

    /// The bars from one on up to the last block.
    void foldBefore(std::size_t begin)
    {
        const std::size_t whole = begin / kBlock + 1, block = m_first / kBlock;
        m_before =
            whole == block ? m_tails[begin] : Fold::merged(m_tails[begin], m_blocks.fold(whole, block));
        m_beforeBegin = begin;
    }

    /// Bars of a block come.
    void beginBlock(std::size_t first)
    {
        m_first = first;
        m_grownEnd = m_beforeBegin = SIZE_MAX;
    }

    /// All bars of the last block stand.
    void endBlock()
    {
        const std::size_t block = m_first / kBlock;
        m_blocks.extend(block, block + 1, [&](std::size_t) { return m_tails[m_first]; });
    }

    std::size_t m_first = 0;              ///< bar of the last block
    std::array<State, kBlock> m_heads {}; ///< of that block, up to each bar
    std::vector<State> m_tails;           ///< of the blocks that have ended, from each bar on
    SegmentTree<Fold> m_blocks;           ///< of those
    State m_before {};                    ///< of the bars from m_beforeBegin on up to the last block
    std::size_t m_beforeBegin = SIZE_MAX;
    State m_grown {}; ///< of the bars [m_grownBegin, m_grownEnd) of the last block
    std::size_t m_grownBegin = 0, m_grownEnd = SIZE_MAX;
};

} // namespace engine::language
