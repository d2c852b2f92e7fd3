// SPDX-License-Identifier: MIT
#include "engine/evaluation/FormulaEvaluation.h"

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

/// Runs the steps of the plan one after another, a whole column at a time.
class FormulaEvaluation::Worker
{
public:
    Worker(std::shared_ptr<const Formula> formula, const std::vector<double>& parameters, Mode mode)
        : m_formula(std::move(formula))
        , m_parameters(clampedParameters(m_formula->parameters(), parameters))
        , m_plan(buildPlan(m_formula->syntax(), m_parameters))
        , m_mode(mode)
        , m_columns(m_plan)
        , m_lastReader(lastReaders())
        , m_maxColumns(maxColumns())
    {
        begin(BarSeries());
    }

    bool update(const BarSeries& bars, const std::atomic<bool>* cancelled)
    {
        if (m_maxColumns * bars.size() > FormulaLimits::kMaxNumbers)
            return cancel();
        const bool hasSameColumns =
            m_hasAmount == !bars.amount.empty() && m_hasOpenInterest == !bars.openInterest.empty();
        if (!hasSameColumns || bars.size() < m_known || m_mode == Mode::Once)
            begin(bars);
        const std::size_t from = m_known == 0 ? 0 : m_known - 1;
        m_known = 0; // until all is done
        for (std::size_t step = 0; step < m_plan.steps.size(); ++step) {
            if (cancelled && cancelled->load(std::memory_order_relaxed))
                return cancel();
            run(static_cast<StepId>(step), bars, from, cancelled);
        }
        if (cancelled && cancelled->load(std::memory_order_relaxed))
            return cancel();
        if (m_mode == Mode::Once)
            m_records->fillOnce(bars, m_columns);
        else
            m_records->fill(bars, from, m_columns);
        m_known = bars.size();
        return true;
    }

    OutputRecords& records() { return *m_records; }

private:
    /// Forgets what the kernels keep.
    void begin(const BarSeries& bars)
    {
        m_known = 0;
        m_hasAmount = !bars.amount.empty();
        m_hasOpenInterest = !bars.openInterest.empty();
        m_records.emplace(m_formula->syntax(), m_plan, m_parameters, bars);
        m_kernels.clear();
        for (const Step& step : m_plan.steps)
            m_kernels.push_back(step.isConstant ? nullptr : step.function->makeKernel());
    }

    bool cancel()
    {
        begin(BarSeries());
        return false;
    }

    void run(StepId id, const BarSeries& bars, std::size_t from, const std::atomic<bool>* cancelled)
    {
        const Step& step = m_plan.steps[static_cast<std::size_t>(id)];
        if (step.isConstant)
            return;
        const std::size_t last = bars.size() == 0 ? 0 : bars.size() - 1;
        const auto less = [&](std::size_t bar) { return bar - std::min(bar, step.lookAhead); };
        std::vector<Operand> operands;
        for (const StepId argument : step.arguments)
            operands.push_back(m_columns.operand(argument));
        makeRoom(m_columns[id], bars.size());
        const Work work { bars, less(from), less(last), bars.size(), cancelled };
        m_kernels[static_cast<std::size_t>(id)]->compute(operands.data(), work, m_columns[id].data());
        if (m_mode == Mode::Once)
            release(id);
    }

    /// Frees what no later step and no output reads.
    void release(StepId id)
    {
        m_kernels[static_cast<std::size_t>(id)].reset();
        for (const StepId argument : m_plan.steps[static_cast<std::size_t>(id)].arguments) {
            if (m_lastReader[static_cast<std::size_t>(argument)] == id)
                m_columns[argument] = Series();
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

    /// How many columns stand at once, those of the records included, texts by the room they take.
    std::size_t maxColumns() const
    {
        std::size_t standing = 0, most = 0;
        for (std::size_t step = 0; step < m_plan.steps.size(); ++step) {
            if (m_plan.steps[step].isConstant)
                continue;
            most = std::max(most, ++standing);
            if (m_mode == Mode::Follow)
                continue;
            const std::vector<StepId>& arguments = m_plan.steps[step].arguments;
            const std::set<StepId> read(arguments.begin(), arguments.end());
            standing -=
                static_cast<std::size_t>(std::count_if(read.begin(), read.end(), [&](StepId argument) {
                    return !m_plan.steps[static_cast<std::size_t>(argument)].isConstant
                        && m_lastReader[static_cast<std::size_t>(argument)] == static_cast<StepId>(step);
                }));
        }
        for (const std::vector<StepId>& columns : m_plan.outputColumns)
            most += columns.size();
        for (const Output& output : m_formula->syntax().outputs) {
            if (!output.text.empty())
                most += (sizeof(std::string) + output.text.size()) / sizeof(double) + 1;
        }
        return most;
    }

    const std::shared_ptr<const Formula> m_formula;
    const std::vector<double> m_parameters;
    const Plan m_plan;
    const Mode m_mode;
    Columns m_columns;
    const std::vector<StepId> m_lastReader;
    const std::size_t m_maxColumns;
    std::vector<KernelPointer> m_kernels; ///< by step; null for numbers
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

const FormulaRecords& FormulaEvaluation::records() const
{
    return m_worker->records().records();
}

FormulaRecords FormulaEvaluation::take()
{
    return m_worker->records().take();
}

} // namespace engine
