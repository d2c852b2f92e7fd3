// SPDX-License-Identifier: MIT
#pragma once
/// @file The values of a window in their order, with sums.

#include "engine/kernels/Folds.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace engine::language {

/// Treap (C. R. Aragon, R. G. Seidel, "Randomized Search Trees", 1989) of values and their bars, whose
/// priorities are mixed from the bars: the shape, and with it every rounding, depends on what it holds alone
/// and not on the way there. Bars that are held at once must be fewer than the room.
class SortedWindow
{
public:
    explicit SortedWindow(std::size_t room)
        : m_nodes(room)
    {
    }

    void insert(std::size_t bar, double value)
    {
        const Index added = indexOf(bar);
        m_nodes[added] = { value, bar, mixed(bar), kNone, kNone, 1.0, { value, 0.0 } };
        const auto [before, behind] = split(m_root, value, bar);
        m_root = joined(joined(before, added), behind);
    }

    void erase(std::size_t bar, double value)
    {
        const auto [before, rest] = split(m_root, value, bar);
        const auto [found, behind] = split(rest, value, bar + 1);
        static_cast<void>(found);
        m_root = joined(before, behind);
    }

    /// Sum of the distances of all values from a number.
    double distances(double middle) const
    {
        CompensatedSum below;
        double count = 0.0;
        for (Index at = m_root; at != kNone;) {
            const Node& node = m_nodes[at];
            if (!(node.value < middle)) {
                at = node.left;
                continue;
            }
            below =
                CompensatedSum::merged(below, CompensatedSum::merged(sumOf(node.left), { node.value, 0.0 }));
            count += countOf(node.left) + 1.0;
            at = node.right;
        }
        const CompensatedSum all = sumOf(m_root);
        const CompensatedSum above = CompensatedSum::merged(all, { -below.sum, -below.error });
        return less(times(middle, count), below) + less(above, times(middle, countOf(m_root) - count));
    }

private:
    using Index = std::size_t;
    static constexpr Index kNone = SIZE_MAX;

    struct Node
    {
        double value;
        std::size_t bar;
        std::uint64_t priority;
        Index left, right;
        double count; ///< of this part of the tree, as the sum
        CompensatedSum sum;
    };

    /// A finalizer of 64 bits (G. Steele, D. Lea, C. Flood, "Fast Splittable Pseudorandom Number Generators",
    /// 2014).
    static std::uint64_t mixed(std::uint64_t bar)
    {
        bar += 0x9E3779B97F4A7C15ULL;
        bar = (bar ^ (bar >> 30)) * 0xBF58476D1CE4E5B9ULL;
        bar = (bar ^ (bar >> 27)) * 0x94D049BB133111EBULL;
        return bar ^ (bar >> 31);
    }

    static CompensatedSum times(double a, double b) { return { a * b, std::fma(a, b, -(a * b)) }; }
    static double less(const CompensatedSum& a, const CompensatedSum& b)
    {
        return CompensatedSum::merged(a, { -b.sum, -b.error }).total();
    }

    Index indexOf(std::size_t bar) const { return bar % m_nodes.size(); }
    CompensatedSum sumOf(Index at) const { return at == kNone ? CompensatedSum() : m_nodes[at].sum; }
    double countOf(Index at) const { return at == kNone ? 0.0 : m_nodes[at].count; }

    void renew(Index at)
    {
        Node& node = m_nodes[at];
        node.count = countOf(node.left) + 1.0 + countOf(node.right);
        node.sum = CompensatedSum::merged(CompensatedSum::merged(sumOf(node.left), { node.value, 0.0 }),
                                          sumOf(node.right));
    }

    /// What stands before a value and bar, and the rest.
    std::pair<Index, Index> split(Index at, double value, std::size_t bar)
    {
        if (at == kNone)
            return { kNone, kNone };
        Node& node = m_nodes[at];
        if (node.value < value || (node.value == value && node.bar < bar)) {
            const auto [before, behind] = split(node.right, value, bar);
            node.right = before;
            renew(at);
            return { at, behind };
        }
        const auto [before, behind] = split(node.left, value, bar);
        node.left = behind;
        renew(at);
        return { before, at };
    }

    Index joined(Index first, Index second)
    {
        if (first == kNone || second == kNone)
            return first == kNone ? second : first;
        if (m_nodes[first].priority > m_nodes[second].priority) {
            m_nodes[first].right = joined(m_nodes[first].right, second);
            renew(first);
            return first;
        }
        m_nodes[second].left = joined(first, m_nodes[second].left);
        renew(second);
        return second;
    }

    std::vector<Node> m_nodes; ///< by bar, around
    Index m_root = kNone;
};

} // namespace engine::language
