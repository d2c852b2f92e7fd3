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
/// 1992; J. Gil and M. Werman, 1993). A window reads N bars back. Where N is a series, a segment tree
/// answers.
template <class Fold, Window kWindow>
class WindowKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
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
            result.fill(work.from, work.count, kMissing);
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

    void computeFixed(const Operand& values, std::size_t length, const Work& work, Result result)
    {
        resume(work.from, length);
        for (std::size_t bar = work.from; bar < work.keep; bar += kRun)
            computeRun(values, length, bar, std::min(bar + kRun, work.keep), result);
        m_kept = m_head;
        m_keptPresent = m_present;
        m_isBehindKept = true;
        for (std::size_t bar = work.keep; bar < work.count; bar += kRun)
            computeRun(values, length, bar, std::min(bar + kRun, work.count), result);
    }

    /// Goes back to what was kept before a bar.
    void resume(std::size_t from, std::size_t length)
    {
        m_isBehindKept = false;
        m_head = from == 0 ? State {} : m_kept;
        m_present = from == 0 ? 0 : m_keptPresent;
        m_foldedBars = std::min(m_foldedBars, from - from % length);
        m_firstTail = from == 0 ? 0 : m_firstTail;
        m_tails.resize(m_foldedBars - m_firstTail);
    }

    void computeRun(const Operand& values, std::size_t length, std::size_t begin, std::size_t end,
                    Result result)
    {
        foldHeads(values, length, begin, end);
        foldTails(values, length, begin, end);
        const State* heads = m_heads.data();
        for (std::size_t bar = begin; bar < end; ++bar, ++heads) {
            m_present = isThere(values[bar]) ? m_present + 1 : 0;
            if (m_present >= length || (kWindow == Window::There && m_present > 0 && bar >= length))
                result[bar] =
                    answer(Fold::merged(m_tails[bar + 1 - length - m_firstTail], *heads), length, bar);
            else
                result[bar] =
                    kTakesGaps || (kTakesFewer && m_present > 0) ? answer(*heads, length, bar) : kMissing;
        }
    }

    /// The states of the bars from the beginning of a block up to each of a run.
    void foldHeads(const Operand& values, std::size_t length, std::size_t begin, std::size_t end)
    {
        m_heads.resize(kRun);
        std::size_t inBlock = begin % length;
        for (std::size_t bar = begin; bar < end; ++bar, ++inBlock) {
            if (inBlock == length || inBlock == 0) {
                inBlock = 0;
                m_head = State {};
            }
            m_head = Fold::merged(m_head, stateOf(values[bar], bar));
            m_heads[bar - begin] = m_head;
        }
    }

    /// The states from each bar up to the end of its block, for the blocks that end with a run; none for the
    /// first bar of a block, as a window that begins there is a head.
    void foldTails(const Operand& values, std::size_t length, std::size_t begin, std::size_t end)
    {
        if (const std::size_t oldest = begin - std::min(begin, length);
            oldest > m_firstTail + length + kRun) {
            m_tails.erase(m_tails.begin(),
                          m_tails.begin() + static_cast<std::ptrdiff_t>(oldest - m_firstTail));
            m_firstTail = oldest;
        }
        for (; end - m_foldedBars >= length; m_foldedBars += length) {
            m_tails.resize(m_foldedBars + length - m_firstTail);
            State* const tails = m_tails.data() + (m_foldedBars - m_firstTail);
            State tail {};
            for (std::size_t inBlock = length; --inBlock > 0;) {
                const std::size_t bar = m_foldedBars + inBlock;
                tail = Fold::merged(stateOf(values[bar], bar), tail);
                tails[inBlock] = tail;
            }
            tails[0] = State {};
        }
    }

    /// All values so far; a bar without one has no answer.
    void computeAll(const Operand& values, const Work& work, Result result)
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

    void computeVariable(const Operand& values, const Operand& lengths, const Work& work, Result result)
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

    static constexpr std::size_t kRun = 1024; ///< bars that are folded at a time

    State m_kept {};               ///< of all values, or those of its block, before the bar to be kept
    std::size_t m_keptPresent = 0; ///< bars in a row before it that are there

    State m_head {};              ///< of the block up to the last bar
    std::size_t m_present = 0;    ///< bars in a row up to it that are there
    bool m_isBehindKept = false;  ///< these bars will be computed again
    std::vector<State> m_heads;   ///< of a run
    std::vector<State> m_tails;   ///< from a bar on
    std::size_t m_firstTail = 0;  ///< that bar
    std::size_t m_foldedBars = 0; ///< bars of whole blocks, the tails of which are known
    SegmentTree<Fold> m_tree;
};

} // namespace engine::language
