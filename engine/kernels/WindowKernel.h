// SPDX-License-Identifier: MIT
#pragma once
/// @file Functions over the last bars.

#include "engine/kernels/Periods.h"
#include "engine/kernels/SegmentTree.h"

#include <algorithm>
#include <vector>

namespace engine::language {

/// What a window does where its bars are not all there.
enum class Window {
    Whole,     ///< every bar must have a value; a length of 0 has no answer
    There,     ///< the values that are there, none on a bar without one; 0 takes all so far
    Conditions ///< bars before the first and bars without a value count as not true; 0 takes all bars so far
};

/// Folds the window of N bars that ends at each bar. With a constant N, bars are cut into blocks of N, and a
/// window is the tail of one block and the head of the next: three merges a bar whatever N (M. van Herk,
/// 1992; J. Gil and M. Werman, 1993). Where N is a series, a segment tree answers.
template <class Fold, Window kWindow>
class WindowKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, double* result) override
    {
        const Operand& values = arguments[0];
        if (!arguments[1].isConstant) {
            computeVariable(values, arguments[1], work, result);
            return;
        }
        const std::optional<std::size_t> length = barsOf(arguments[1][0]);
        if (length && *length > 0)
            computeFixed(values, *length, work, result);
        else if (length && kWindow != Window::Whole)
            computeAll(values, work, result);
        else
            std::fill(result + work.from, result + work.count, kMissing);
    }

private:
    using State = typename Fold::State;

    static constexpr bool kTakesGaps = kWindow == Window::Conditions;
    static constexpr bool kTakesFewer = kWindow != Window::Whole;

    static bool isThere(double value) { return kTakesGaps || !isMissing(value); }

    static State stateOf(double value, std::size_t bar)
    {
        if (kWindow == Window::There && isMissing(value))
            return State {};
        return Fold::of(kTakesGaps || !isMissing(value) ? value : 0.0, bar);
    }

    static double answer(const State& window, std::size_t length, std::size_t bar)
    {
        return valueOrMissing(Fold::answer(window, static_cast<double>(length), bar));
    }

    /// tails[k] becomes the state of the last k bars before `end`.
    static void foldTails(const Operand& values, std::size_t end, std::vector<State>& tails)
    {
        for (std::size_t back = 1; back < tails.size(); ++back)
            tails[back] = Fold::merged(stateOf(values[end - back], end - back), tails[back - 1]);
    }

    void computeFixed(const Operand& values, std::size_t length, const Work& work, double* result)
    {
        std::vector<State> tails(std::min(length, work.count) + 1);
        const std::size_t block = work.from - work.from % length;
        if (block > 0)
            foldTails(values, block, tails);
        State head {};
        for (std::size_t bar = block; bar < work.from; ++bar)
            head = Fold::merged(head, stateOf(values[bar], bar));
        std::size_t present = presentBefore(values, work.from, length);
        std::size_t inBlock = work.from - block;
        for (std::size_t bar = work.from; bar < work.count; ++bar, ++inBlock) {
            if (inBlock == length) {
                inBlock = 0;
                foldTails(values, bar, tails);
                head = State {};
            }
            head = Fold::merged(head, stateOf(values[bar], bar));
            present = isThere(values[bar]) ? present + 1 : 0;
            if (present >= length || (kWindow == Window::There && present > 0 && bar >= length))
                result[bar] = answer(Fold::merged(tails[length - 1 - inBlock], head), length, bar);
            else
                result[bar] =
                    kTakesGaps || (kTakesFewer && present > 0) ? answer(head, length, bar) : kMissing;
        }
    }

    /// Bars in a row before a bar that are there, counted up to the length.
    static std::size_t presentBefore(const Operand& values, std::size_t bar, std::size_t length)
    {
        std::size_t present = 0;
        while (present < length && present < bar && isThere(values[bar - 1 - present]))
            ++present;
        return present;
    }

    /// All values so far; a bar without one has no answer.
    void computeAll(const Operand& values, const Work& work, double* result)
    {
        State state = work.from == 0 ? State {} : m_kept;
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            if (bar == work.keep)
                m_kept = state;
            if (isThere(values[bar]))
                state = Fold::merged(state, stateOf(values[bar], bar));
            result[bar] = isThere(values[bar]) ? answer(state, bar + 1, bar) : kMissing;
        }
        if (work.keep >= work.count)
            m_kept = state;
    }

    void computeVariable(const Operand& values, const Operand& lengths, const Work& work, double* result)
    {
        m_tree.extend(work.from, work.count, [&](std::size_t bar) { return stateOf(values[bar], bar); });
        std::size_t present = work.from == 0 ? 0 : m_keptPresent;
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            if (bar == work.keep)
                m_keptPresent = present;
            present = isThere(values[bar]) ? present + 1 : 0;
            const std::size_t asked = barsOf(lengths[bar]).value_or(0);
            const std::size_t length = kTakesFewer ? std::min(asked, bar + 1) : asked;
            const std::size_t needed = kWindow == Window::There ? 1 : length;
            const bool isWhole = length > 0 && needed <= present;
            result[bar] = isWhole ? answer(m_tree.fold(bar + 1 - length, bar + 1), asked, bar) : kMissing;
        }
        if (work.keep >= work.count)
            m_keptPresent = present;
    }

    State m_kept {};               ///< of all values before the bar to be kept
    std::size_t m_keptPresent = 0; ///< bars in a row before it that are there
    SegmentTree<Fold> m_tree;
};

} // namespace engine::language
