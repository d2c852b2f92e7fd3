// SPDX-License-Identifier: MIT
#include "engine/evaluation/FormulaEvaluation.h"

#include "engine/evaluation/Columns.h"
#include "engine/evaluation/OutputRecords.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace engine {

using namespace language;

namespace {

/// A complete list of parameters, every one within its range.
std::vector<double> clampedParameters(const std::vector<Parameter>& asked, const std::vector<double>& given)
{
    std::vector<double> sound;
    for (std::size_t index = 0; index < asked.size(); ++index) {
        const Parameter& parameter = asked[index];
        const bool isGiven = index < given.size() && !isMissing(given[index]);
        sound.push_back(std::clamp(isGiven ? given[index] : parameter.value, parameter.min, parameter.max));
    }
    return sound;
}

} // namespace

/// Runs the steps of the plan one after another over blocks of bars; each over all bars where any looks
/// ahead.
class FormulaEvaluation::Worker
{
public:
    Worker(std::shared_ptr<const Formula> formula, const std::vector<double>& parameters, Mode mode)
        : m_formula(std::move(formula))
        , m_parameters(clampedParameters(m_formula->parameters(), parameters))
        , m_plan(buildPlan(m_formula->syntax(), m_parameters))
        , m_mode(mode)
        , m_isWhole(m_plan.looksAhead())
        , m_lastReader(lastReaders())
    {
        begin(BarSeries());
    }

    bool update(const BarSeries& bars, const std::atomic<bool>* cancelled)
    {
        const bool hasSameColumns =
            m_hasAmount == !bars.amount.empty() && m_hasOpenInterest == !bars.openInterest.empty();
        if (m_known == 0 || !hasSameColumns || bars.size() < m_known || m_mode == Mode::Once) {
            begin(bars);
            m_records->begin(0, bars.size());
        }
        if (needsTooMuch(bars.size(), bars.size()))
            return cancel();
        const std::size_t from = m_known == 0 ? 0 : m_known - 1;
        const std::size_t last = bars.size() - std::min<std::size_t>(bars.size(), 1);
        m_known = 0; // until all is done
        if (!compute(bars, { from, last, bars.size() }, from, cancelled))
            return cancel();
        m_known = bars.size();
        return true;
    }

    bool advance(const BarSeries& bars, std::size_t first, std::size_t end,
                 const std::atomic<bool>* cancelled)
    {
        if (m_known == 0)
            begin(bars);
        if (m_mode != Mode::Once || first < m_known || first > end || end > bars.size()
            || needsTooMuch(bars.size(), end - first))
            return cancel();
        m_records->begin(first, end - first);
        const bool isFilled = m_isWhole && m_known > 0
            ? m_records->fill(bars, first, end, *m_columns)
            : compute(bars, { m_known, end, end }, first, cancelled);
        if (!isFilled)
            return cancel();
        m_known = end;
        return true;
    }

    OutputRecords& records() { return *m_records; }

private:
    struct Bars
    {
        std::size_t from, keep, end; ///< as Work takes them
    };

    /// One of several steps that are run together.
    struct Bundled
    {
        StepId step;
        Result result;
        const Operand* arguments;
    };

    /// Forgets what the kernels keep.
    void begin(const BarSeries& bars)
    {
        m_known = 0;
        m_hasAmount = !bars.amount.empty();
        m_hasOpenInterest = !bars.openInterest.empty();
        m_records.emplace(m_formula->syntax(), m_plan, m_parameters, bars);
        const bool keepsAll = m_mode == Mode::Follow || m_isWhole;
        m_columns.emplace(m_plan, keepsAll ? Columns::Keep::All : Columns::Keep::LastBars, bars.size());
        m_kernels.clear();
        for (const Step& step : m_plan.steps)
            m_kernels.push_back(step.isConstant ? nullptr : step.function->makeKernel());
    }

    bool cancel()
    {
        begin(BarSeries());
        return false;
    }

    /// Runs all steps, and fills the records from a bar on. @return false when cancelled or when texts take
    /// too much.
    bool compute(const BarSeries& bars, const Bars& asked, std::size_t recorded,
                 const std::atomic<bool>* cancelled)
    {
        if (m_isWhole) {
            const std::size_t last = bars.size() - std::min<std::size_t>(bars.size(), 1);
            if (!runSteps({ bars, asked.from, last, bars.size(), cancelled }))
                return false;
            return m_records->fill(bars, recorded, asked.end, *m_columns);
        }
        for (std::size_t from = asked.from; from < asked.end;) {
            const std::size_t end = std::min(from + kBlock, asked.end);
            if (!runSteps({ bars, from, std::min(end, asked.keep), end, cancelled }))
                return false;
            if (end > recorded && !m_records->fill(bars, std::max(from, recorded), end, *m_columns))
                return false;
            from = end;
        }
        return !cancelled || !cancelled->load(std::memory_order_relaxed);
    }

    /// @return false when cancelled.
    bool runSteps(const Work& work)
    {
        auto strands = m_plan.strands.begin();
        for (std::size_t step = 0; step < m_plan.steps.size(); ++step) {
            if (work.cancelled())
                return false;
            const Step& planned = m_plan.steps[step];
            if (strands != m_plan.strands.end() && strands->first == static_cast<StepId>(step))
                runStrands(*strands++, work);
            else if (!planned.isConstant && !planned.isRunEarlier)
                run(static_cast<StepId>(step), work);
        }
        return !work.cancelled();
    }

    void readOperands(StepId id, std::vector<Operand>& operands) const
    {
        operands.clear();
        for (const StepId argument : m_plan.steps[static_cast<std::size_t>(id)].arguments)
            operands.push_back(m_columns->operand(argument));
    }

    Kernel& kernel(StepId id) const { return *m_kernels[static_cast<std::size_t>(id)]; }

    /// Runs chains piece by piece. The third one is a piece behind the others, so that the steps between have
    /// been run.
    void runStrands(const Strands& strands, const Work& work)
    {
        m_bundle.clear();
        addToBundle(strands.first, work);
        if (strands.second != kNoStep)
            addToBundle(strands.second, work);
        const std::size_t leading = m_bundle.size();
        for (const StepId step : strands.between)
            addToBundle(step, work);
        if (strands.third != kNoStep)
            addToBundle(strands.third, work);
        for (std::size_t index = 0; index < m_bundle.size(); ++index) { // now that all columns stand
            readOperands(m_bundle[index].step, m_bundleOperands[index]);
            m_bundle[index].arguments = m_bundleOperands[index].data();
        }
        runPieces(leading, work);
        for (const Bundled& step : m_bundle)
            kernel(step.step).compute(step.arguments, { work.bars, work.keep, work.keep, work.count },
                                      step.result);
    }

    void addToBundle(StepId step, const Work& work)
    {
        m_bundle.push_back({ step, m_columns->makeRoom(step, work.from, work.count), nullptr });
        m_bundleOperands.resize(std::max(m_bundleOperands.size(), m_bundle.size()));
    }

    /// Runs a bundle up to the bar to be kept. @param leading  how many chains lead it.
    void runPieces(std::size_t leading, const Work& work)
    {
        constexpr std::size_t kPiece = 64; // bars
        const Bundled& last = m_bundle.back();
        const auto chainOf = [&](const Bundled& step, std::size_t from, std::size_t to) {
            return Chain { &kernel(step.step), step.arguments, step.result, from, to };
        };
        const bool isFollowed = m_bundle.size() > leading;
        std::size_t followed = work.from; // by the last one
        for (std::size_t from = work.from; from < work.keep;) {
            const std::size_t to = std::min(from + kPiece, work.keep);
            Chain chains[3];
            std::size_t count = 0;
            while (count < leading) {
                chains[count] = chainOf(m_bundle[count], from, to);
                ++count;
            }
            if (isFollowed && followed < from)
                chains[count++] = chainOf(last, followed, from);
            m_records->fetch(from, to); // chains leave time for it
            kernel(m_bundle[0].step).computeTogether(chains, count, work);
            for (std::size_t step = leading; step + 1 < m_bundle.size(); ++step)
                kernel(m_bundle[step].step)
                    .compute(m_bundle[step].arguments, { work.bars, from, to, to }, m_bundle[step].result);
            followed = from;
            from = to;
        }
        if (isFollowed && work.from < work.keep)
            kernel(last.step).compute(last.arguments, { work.bars, followed, work.keep, work.keep },
                                      last.result);
    }

    void run(StepId id, const Work& asked)
    {
        const Step& step = m_plan.steps[static_cast<std::size_t>(id)];
        const auto less = [&](std::size_t bar) { return bar - std::min(bar, step.lookAhead); };
        readOperands(id, m_operands);
        const Work work { asked.bars, less(asked.from), less(asked.keep), asked.count, asked.cancelledFlag };
        const Result result = m_columns->makeRoom(id, asked.from, asked.count);
        m_kernels[static_cast<std::size_t>(id)]->compute(m_operands.data(), work, result);
        if (m_isWhole && m_mode == Mode::Once)
            release(id);
    }

    /// Frees what no later step and no output reads.
    void release(StepId id)
    {
        m_kernels[static_cast<std::size_t>(id)].reset();
        for (const StepId argument : m_plan.steps[static_cast<std::size_t>(id)].arguments) {
            if (m_lastReader[static_cast<std::size_t>(argument)] == id)
                m_columns->release(argument);
        }
    }

    /// By step: the last step that reads it; none for what outputs read.
    std::vector<StepId> lastReaders() const
    {
        std::vector<StepId> readers(m_plan.steps.size(), -1);
        for (std::size_t step = 0; step < m_plan.steps.size(); ++step) {
            for (const StepId argument : m_plan.steps[step].arguments)
                readers[static_cast<std::size_t>(argument)] = static_cast<StepId>(step);
        }
        for (const std::vector<StepId>& columns : m_plan.outputColumns) {
            for (const StepId column : columns)
                readers[static_cast<std::size_t>(column)] = -1;
        }
        return readers;
    }

    /// Whether columns and records would take more than FormulaLimits::kMaxNumbers numbers.
    bool needsTooMuch(std::size_t bars, std::size_t recorded) const
    {
        const std::size_t columns =
            m_isWhole && m_mode == Mode::Once ? maxStanding() : m_columns->wholeColumns();
        return columns * bars + recordedColumns() * recorded > FormulaLimits::kMaxNumbers;
    }

    /// How many columns stand at once where each is freed behind its last reader.
    std::size_t maxStanding() const
    {
        std::size_t standing = 0, most = 0;
        for (std::size_t step = 0; step < m_plan.steps.size(); ++step) {
            if (m_plan.steps[step].isConstant)
                continue;
            most = std::max(most, ++standing);
            const std::vector<StepId>& arguments = m_plan.steps[step].arguments;
            const std::set<StepId> read(arguments.begin(), arguments.end());
            standing -=
                static_cast<std::size_t>(std::count_if(read.begin(), read.end(), [&](StepId argument) {
                    return !m_plan.steps[static_cast<std::size_t>(argument)].isConstant
                        && m_lastReader[static_cast<std::size_t>(argument)] == static_cast<StepId>(step);
                }));
        }
        return most;
    }

    /// Columns of the records; texts, of which a record has one for every bar, by the room of an empty one.
    std::size_t recordedColumns() const
    {
        std::size_t recorded = 0;
        for (const std::vector<StepId>& columns : m_plan.outputColumns)
            recorded += columns.size();
        for (const Output& output : m_formula->syntax().outputs) {
            if (!output.text.empty())
                recorded += sizeof(std::string) / sizeof(double);
        }
        return recorded;
    }

    const std::shared_ptr<const Formula> m_formula;
    const std::vector<double> m_parameters;
    const Plan m_plan;
    const Mode m_mode;
    const bool m_isWhole; ///< values depend on later bars, so that every step needs all of them
    const std::vector<StepId> m_lastReader;
    std::optional<Columns> m_columns;
    std::vector<KernelPointer> m_kernels; ///< by step; null for numbers
    std::vector<Operand> m_operands;      ///< of the step that is run
    std::vector<Bundled> m_bundle;        ///< the steps that are run together
    std::vector<std::vector<Operand>> m_bundleOperands;
    std::optional<OutputRecords> m_records;
    bool m_hasAmount = false, m_hasOpenInterest = false;
    std::size_t m_known = 0; ///< bars of the last update that was completed
};

FormulaEvaluation::FormulaEvaluation(std::shared_ptr<const Formula> formula,
                                     const std::vector<double>& parameters, Mode mode)
    : m_worker(std::make_unique<Worker>(std::move(formula), parameters, mode))
{
}

FormulaEvaluation::~FormulaEvaluation() = default;

bool FormulaEvaluation::update(const BarSeries& bars, const std::atomic<bool>* cancelled)
{
    return m_worker->update(bars, cancelled);
}

bool FormulaEvaluation::advance(const BarSeries& bars, std::size_t first, std::size_t end,
                                const std::atomic<bool>* cancelled)
{
    return m_worker->advance(bars, first, end, cancelled);
}

const FormulaRecords& FormulaEvaluation::records() const
{
    return m_worker->records().records();
}

FormulaRecords FormulaEvaluation::take()
{
    return m_worker->records().take();
}

} // namespace engine
