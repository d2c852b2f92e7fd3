// SPDX-License-Identifier: MIT
#pragma once
/// @file A formula at work over bars that grow.

#include "engine/EngineExport.h"
#include "engine/series/BarSeries.h"
#include "engine/language/Formula.h"
#include "engine/records/FormulaRecords.h"

#include <atomic>
#include <memory>
#include <vector>

namespace engine {

/// Computes a formula and keeps what it needs to follow the bars: a new bar, or a changed last one, costs no
/// second look at the past. The records are those of a computation from the beginning, bit for bit. For one
/// thread at a time.
class ENGINE_EXPORT FormulaEvaluation
{
public:
    /// Once computes and is done with, and keeps of every step no more bars than later steps need, unless one
    /// of them looks ahead; Follow keeps the columns of all steps for the next bar.
    enum class Mode { Once, Follow };

    /// @param parameters  in the order of the formula's. Missing ones and NaN take their default, others are
    ///        moved into [min, max]; further ones are ignored.
    FormulaEvaluation(std::shared_ptr<const Formula> formula, const std::vector<double>& parameters = {},
                      Mode mode = Mode::Follow);
    ~FormulaEvaluation();

    /// Takes in bars. Those before the last one of the call before must be unchanged; the last may have
    /// changed, and any number may have followed. Fewer bars than before are computed from the beginning.
    /// @param bars  vectors may be shorter than the times: missing past their end.
    /// @param cancelled  when it turns true the computation ends early; may be null.
    /// @return false when cancelled, or when the columns would take more than FormulaLimits::kMaxNumbers
    ///         numbers or the texts more than kMaxTextBytes; the next call then begins from the beginning.
    bool update(const BarSeries& bars, const std::atomic<bool>* cancelled = nullptr);

    /// Computes on to a bar and makes records of a stretch alone, whose first entry is the bar `first`, so
    /// that no more of them stands at once. For Mode::Once.
    /// @param bars  the same in every call.
    /// @param first  not before the `end` of the call before.
    /// @param end  one behind the last bar of the stretch.
    /// @return as update(); false as well for another mode or a stretch that does not lie there.
    bool advance(const BarSeries& bars, std::size_t first, std::size_t end,
                 const std::atomic<bool>* cancelled = nullptr);

    /// Records with one time and one validity flag per bar and every series of that length. A bar without any
    /// of the four prices is marked as carrying nothing. Lines hold DBL_MAX where there is no value, so that
    /// they meet the client's marker, all other drawings NaN, which no painter draws; conditions hold 0.
    const FormulaRecords& records() const;
    /// Hands the records over; the evaluation is of no further use.
    FormulaRecords take();

private:
    class Worker;

    std::unique_ptr<Worker> m_worker;
};

} // namespace engine
