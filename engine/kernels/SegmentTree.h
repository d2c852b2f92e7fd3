// SPDX-License-Identifier: MIT
#pragma once
/// @file States of stretches of bars.

#include <algorithm>
#include <cstddef>
#include <vector>

namespace engine::language {

/// Segment tree: states of all stretches of 1, 2, 4, ... bars that begin at a multiple of their length, so
/// that any stretch is put together from a few of them, from left to right. What a stretch folds into depends
/// on its ends alone, not on the bars known behind it.
template <class Fold>
class SegmentTree
{
public:
    using State = typename Fold::State;

    /// Takes in bars from a changed one on.
    /// @param stateOf  state of a single bar.
    template <class StateOf>
    void extend(std::size_t from, std::size_t count, StateOf stateOf)
    {
        if (m_levels.empty())
            m_levels.emplace_back();
        m_levels[0].resize(count);
        for (std::size_t bar = from; bar < count; ++bar)
            m_levels[0][bar] = stateOf(bar);
        for (std::size_t level = 1; from >> level < count >> level; ++level) { // while a stretch has ended
            if (m_levels.size() == level)
                m_levels.emplace_back();
            const std::vector<State>& below = m_levels[level - 1];
            m_levels[level].resize(count >> level);
            for (std::size_t index = from >> level; index < m_levels[level].size(); ++index)
                m_levels[level][index] = Fold::merged(below[2 * index], below[2 * index + 1]);
        }
    }

    /// State of the bars from `begin` to `end` - 1.
    State fold(std::size_t begin, std::size_t end) const
    {
        State state {};
        while (begin < end) {
            const int fitting = highestBit(end - begin);
            const int level = begin == 0 ? fitting : std::min(fitting, __builtin_ctzll(begin));
            state = Fold::merged(state, m_levels[static_cast<std::size_t>(level)][begin >> level]);
            begin += std::size_t(1) << level;
        }
        return state;
    }

    /// The shortest stretch that ends before `end` and whose state is accepted; 0 when there is none.
    /// Whatever holds a stretch that is accepted must be accepted itself.
    template <class Accepts>
    std::size_t shortestBefore(std::size_t end, Accepts accepts) const
    {
        State state {};
        std::size_t begin = end, level = 0;
        while (begin > 0) {
            while (level + 1 < m_levels.size() && (begin >> level) % 2 == 0)
                ++level;
            while (level > 0 && accepts(Fold::merged(m_levels[level][(begin >> level) - 1], state)))
                --level;
            state = Fold::merged(m_levels[level][(begin >> level) - 1], state);
            begin -= std::size_t(1) << level;
            if (level == 0 && accepts(state))
                return end - begin;
        }
        return 0;
    }

private:
    /// @param number  not 0.
    static int highestBit(std::size_t number) { return 63 - __builtin_clzll(number); }

    std::vector<std::vector<State>> m_levels;
};

} // namespace engine::language
