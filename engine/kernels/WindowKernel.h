// SPDX-License-Identifier: MIT
#pragma once
/// @file Functions over the last bars.

#include "engine/kernels/BlockFolds.h"
#include "engine/kernels/Periods.h"

#include <algorithm>
#include <cstdint>
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
/// 1992; J. Gil and M. Werman, 1993). A window reads N bars back. Where N is a series, see BlockFolds.
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
    using Folds = BlockFolds<Fold>;

    static constexpr bool kTakesGaps = kWindow == Window::Conditions;
    static constexpr bool kTakesFewer = kWindow != Window::Whole;

    static bool isThere(double value) { return kTakesGaps || !isMissing(value); }

    static State stateOf(double value, std::size_t bar)
    {
        if (kWindow == Window::There && isMissing(value))
            return State {};
        return Fold::of(kTakesGaps || !isMissing(value) ? value : 0.0, bar);
    }

    /// Takes in a value that is there behind a stretch, or before it.
    static State later(const State& state, double value, std::size_t bar)
    {
        if constexpr (takesValues<Fold>(0))
            return Fold::later(state, value);
        else
            return Fold::merged(state, Fold::of(value, bar));
    }
    static State earlier(double value, std::size_t bar, const State& state)
    {
        if constexpr (takesValues<Fold>(0))
            return Fold::earlier(value, state);
        else
            return Fold::merged(Fold::of(value, bar), state);
    }

    template <class F, class = decltype(F::later(typename F::State(), 0.0))>
    static constexpr bool takesValues(int)
    {
        return true;
    }
    template <class F>
    static constexpr bool takesValues(long)
    {
        return false;
    }

    template <class F, class = decltype(&F::foldBoth)>
    static constexpr bool foldsBothEnds(int)
    {
        return true;
    }
    template <class F>
    static constexpr bool foldsBothEnds(long)
    {
        return false;
    }

    static double answer(const State& window, std::size_t length, std::size_t bar)
    {
        return valueOrMissing(
            Fold::answer(window, static_cast<double>(static_cast<std::int64_t>(length)), bar));
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
    }

    void computeRun(const Operand& asked, std::size_t length, std::size_t begin, std::size_t end,
                    Result result)
    {
        const Operand values = asked.isConstant ? repeated(asked[0], std::min(begin, length), begin) : asked;
        const bool isClear = kTakesGaps || areNumbers(values.from(begin), end - begin);
        const std::size_t firstThere = begin - m_present; // if there is no gap
        makeRoomForTails(length, begin, end);
        foldBlocks(values, length, begin, end, isClear ? firstThere : end);
        if (!isClear) {
            answerGaps(values, length, begin, end, result);
            return;
        }
        m_present += end - begin;
        std::size_t whole = firstThere + length - 1;
        if (kWindow == Window::There)
            whole = std::min(whole, length);
        whole = std::clamp(whole, begin, end);
        for (std::size_t bar = begin; bar < whole; ++bar)
            result[bar] = kTakesFewer ? answer(m_heads[bar - begin], length, bar) : kMissing;
        if (whole == end)
            return;
        const State* const heads = m_heads.data() + (whole - begin);
        const State* const tails = m_tails.data() + (whole + 1 - length - m_firstTail);
        double* const out = result.from(whole);
        for (std::size_t index = 0; index < end - whole; ++index)
            out[index] = answer(Fold::merged(tails[index], heads[index]), length, whole + index);
    }

    /// A number as the column that a run reads, from some bars back on.
    Operand repeated(double number, std::size_t back, std::size_t begin)
    {
        m_repeated.assign(back + kRun, number);
        return { m_repeated.data(), false, begin - back };
    }

    /// The answers of a run in which values are missing.
    void answerGaps(const Operand& values, std::size_t length, std::size_t begin, std::size_t end,
                    Result result)
    {
        const State* heads = m_heads.data();
        for (std::size_t bar = begin; bar < end; ++bar, ++heads) {
            m_present = isThere(values[bar]) ? m_present + 1 : 0;
            if (m_present >= length || (kWindow == Window::There && m_present > 0 && bar >= length))
                result[bar] =
                    answer(Fold::merged(m_tails[bar + 1 - length - m_firstTail], *heads), length, bar);
            else
                result[bar] = kTakesFewer && m_present > 0 ? answer(*heads, length, bar) : kMissing;
        }
    }

    /// Room for the tails of the blocks that end with a run; those that no window reads again go.
    void makeRoomForTails(std::size_t length, std::size_t begin, std::size_t end)
    {
        m_heads.resize(kRun);
        const std::size_t oldest = begin - std::min(begin, length);
        if (oldest > m_firstTail + length + kRun && !m_isBehindKept) {
            const auto at = [&](std::size_t bar) {
                return m_tails.begin() + static_cast<std::ptrdiff_t>(bar - m_firstTail);
            };
            if (oldest < m_foldedBars)
                std::copy(at(oldest), at(m_foldedBars), m_tails.begin());
            m_firstTail = oldest;
        }
        const std::size_t needed = end - std::min(end, m_firstTail + end % length);
        if (m_tails.size() < needed)
            m_tails.resize(needed + std::min(needed, kRun));
    }

    /// The states of a run's bars from the beginning of their blocks on, and for the blocks that end with the
    /// run those from each bar up to the end.
    /// @param firstThere  from here on every value is there.
    void foldBlocks(const Operand& values, std::size_t length, std::size_t begin, std::size_t end,
                    std::size_t firstThere)
    {
        std::size_t inBlock = begin % length;
        for (std::size_t bar = begin; bar < end; inBlock = 0) {
            const std::size_t count = std::min(end - bar, length - inBlock);
            State* const heads = m_heads.data() + (bar - begin);
            const bool isClear = begin >= firstThere;
            if (isClear && count == length) {
                foldWholeBlock(values.from(bar), bar, length, heads);
            } else {
                foldHeads(values.from(bar), bar, count, inBlock == 0 ? State {} : m_head, heads, isClear);
                if (inBlock + count == length)
                    foldTails(values.from(m_foldedBars), length, m_foldedBars >= firstThere);
            }
            m_head = heads[count - 1];
            bar += count;
        }
    }

    /// A block that lies in a run without gaps.
    void foldWholeBlock(const double* in, std::size_t bar, std::size_t length, State* heads)
    {
        if constexpr (foldsBothEnds<Fold>(0)) {
            State* const tails = m_tails.data() + (bar - m_firstTail);
            Fold::foldBoth(in, length, heads, tails);
            tails[0] = State {}; // a window that begins here is a head
            m_foldedBars += length;
        } else {
            foldHeads(in, bar, length, State {}, heads, true);
            foldTails(in, length, true);
        }
    }

    static void foldHeads(const double* in, std::size_t first, std::size_t count, State head, State* heads,
                          bool isClear)
    {
        for (std::size_t index = 0; index < count; ++index) {
            head = isClear ? later(head, in[index], first + index)
                           : Fold::merged(head, stateOf(in[index], first + index));
            heads[index] = head;
        }
    }

    /// The tails of the next block; none for its first bar, as a window that begins there is a head.
    void foldTails(const double* in, std::size_t length, bool isClear)
    {
        State* const tails = m_tails.data() + (m_foldedBars - m_firstTail);
        State tail {};
        for (std::size_t index = length; --index > 0;) {
            const std::size_t bar = m_foldedBars + index;
            tail = isClear ? earlier(in[index], bar, tail) : Fold::merged(stateOf(in[index], bar), tail);
            tails[index] = tail;
        }
        tails[0] = State {};
        m_foldedBars += length;
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
        if (values.isConstant)
            m_repeated.assign(Folds::kBlock, values[0]);
        m_folds.makeRoom(work.count, work.bars.size());
        m_present = work.from == 0 ? 0 : m_keptPresent;
        for (std::size_t bar = work.from; bar < work.count;) {
            const std::size_t first = Folds::blockBegin(bar);
            const std::size_t end = std::min(first + Folds::kBlock, bar < work.keep ? work.keep : work.count);
            if (bar == work.keep)
                m_keptPresent = m_present;
            const double* const in = values.isConstant ? m_repeated.data() : values.from(first);
            const double* const asked = lengths.from(bar);
            if (kTakesGaps || areNumbers(in, end - first))
                computeBlock(TakenIn<true> { in, first }, bar, end, asked, result);
            else
                computeBlock(TakenIn<false> { in, first }, bar, end, asked, result);
            bar = end;
        }
        if (work.keep >= work.count)
            m_keptPresent = m_present;
    }

    /// How values of a block come into a state.
    template <bool kIsClear>
    struct TakenIn
    {
        const double* in;
        std::size_t first;

        double value(std::size_t bar) const { return in[bar - first]; }
        State operator()(const State& state, std::size_t bar) const
        {
            return kIsClear ? later(state, value(bar), bar) : Fold::merged(state, stateOf(value(bar), bar));
        }
        State operator()(std::size_t bar, const State& state) const
        {
            return kIsClear ? earlier(value(bar), bar, state) : Fold::merged(stateOf(value(bar), bar), state);
        }
    };

    /// Bars of one block.
    /// @param lengths  from the first of them on.
    template <bool kIsClear>
    void computeBlock(TakenIn<kIsClear> taken, std::size_t begin, std::size_t end, const double* lengths,
                      Result result)
    {
        takeIn(taken, begin, end);
        double* const out = result.from(begin);
        std::size_t present = m_present;
        for (std::size_t bar = begin; bar < end; ++bar) {
            present = kIsClear || isThere(taken.value(bar)) ? present + 1 : 0;
            const std::size_t asked = barsOrNone(lengths[bar - begin]);
            const std::size_t length = kTakesFewer ? std::min(asked, bar + 1) : asked;
            const std::size_t needed = kWindow == Window::There ? 1 : length;
            out[bar - begin] = length > 0 && needed <= present
                ? answer(m_folds.fold(bar + 1 - length, bar, taken), asked, bar)
                : kMissing;
        }
        m_present = present;
    }

    template <bool kIsClear>
    void takeIn(TakenIn<kIsClear> taken, std::size_t begin, std::size_t end)
    {
        if constexpr (kIsClear && foldsBothEnds<Fold>(0)) {
            if (end - begin == Folds::kBlock) {
                m_folds.extendByBlock(begin, [&](State* heads, State* tails) {
                    Fold::foldBoth(taken.in, Folds::kBlock, heads, tails);
                });
                return;
            }
        }
        m_folds.extend(begin, end, taken, taken);
    }

    static constexpr std::size_t kRun = 1024; ///< bars that are folded at a time

    State m_kept {};               ///< of all values, or those of its block, before the bar to be kept
    std::size_t m_keptPresent = 0; ///< bars in a row before it that are there

    State m_head {};              ///< of the block up to the last bar
    std::size_t m_present = 0;    ///< bars in a row up to it that are there
    bool m_isBehindKept = false;  ///< these bars will be computed again
    Series m_repeated;            ///< a number as a column
    std::vector<State> m_heads;   ///< of a run
    std::vector<State> m_tails;   ///< from a bar on, and room behind the last
    std::size_t m_firstTail = 0;  ///< that bar
    std::size_t m_foldedBars = 0; ///< bars of whole blocks, the tails of which are known
    Folds m_folds;                ///< for lengths that are a series
};

} // namespace engine::language
