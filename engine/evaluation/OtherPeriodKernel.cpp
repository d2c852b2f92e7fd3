// SPDX-License-Identifier: MIT
#include "engine/evaluation/FormulaEvaluation.h"
#include "engine/language/OtherPeriod.h"

#include <utility>

namespace engine::language {

namespace {

class OtherPeriodKernel : public Kernel
{
public:
    OtherPeriodKernel(std::shared_ptr<const Formula> formula, const Period& period)
        : m_formula(std::move(formula))
        , m_period(period)
    {
    }

    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        result.fill(work.from, work.count, kMissing);
        const std::vector<std::size_t> groups = groupsOf(work.bars.timeMs, m_period);
        std::vector<double> parameters;
        for (std::size_t index = 0; index < m_formula->parameters().size() && work.count > 0; ++index)
            parameters.push_back(arguments[index][0]);
        FormulaEvaluation evaluation(m_formula, parameters, FormulaEvaluation::Mode::Once);
        if (groups.empty() || !evaluation.update(gathered(work.bars, groups), work.cancelledFlag))
            return;
        const auto& columns = evaluation.records().result.numberSeries;
        for (std::size_t bar = work.from; bar < work.count && !columns.empty(); ++bar)
            result[bar] = valueOrMissing(columns.front()[groups[bar]]);
    }

private:
    const std::shared_ptr<const Formula> m_formula;
    const Period& m_period;
};

} // namespace

KernelPointer otherPeriodKernel(const std::shared_ptr<const Formula>& formula, const Period& period)
{
    return std::make_unique<OtherPeriodKernel>(formula, period);
}

} // namespace engine::language
