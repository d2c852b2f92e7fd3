// SPDX-License-Identifier: MIT
#include "engine/evaluation/Plan.h"

#include "engine/kernels/Periods.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <string_view>
#include <tuple>

namespace engine::language {

namespace {

/// Orders steps so that equal ones meet.
struct StepKey
{
    std::string_view name; ///< of the function; empty for a number
    std::uint64_t number;  ///< its bits: -0 is not 0 and a missing number is equal to itself
    std::vector<StepId> arguments;

    bool operator<(const StepKey& other) const
    {
        return std::tie(name, number, arguments) < std::tie(other.name, other.number, other.arguments);
    }
};

class Planner
{
public:
    Planner(const Syntax& syntax, const std::vector<double>& parameters)
        : m_syntax(syntax)
        , m_parameters(parameters)
        , m_stepOfNode(syntax.nodes.size(), -1)
    {
    }

    Plan run()
    {
        const std::vector<bool> isNeeded = neededNodes();
        for (std::size_t node = 0; node < m_syntax.nodes.size(); ++node) {
            if (isNeeded[node])
                m_stepOfNode[node] = stepOf(m_syntax.nodes[node]);
        }
        for (const Output& output : m_syntax.outputs) {
            m_plan.outputColumns.emplace_back();
            for (const NodeId column : output.columns)
                m_plan.outputColumns.back().push_back(m_stepOfNode[static_cast<std::size_t>(column)]);
            if (output.drawType == se::DrawType::Volume) { // the bars' colours come from their candles
                for (const char* price : { "OPEN", "CLOSE" })
                    m_plan.outputColumns.back().push_back(callOf(*findFunction(price)));
            }
        }
        for (const Step& step : m_plan.steps) {
            for (const StepId argument : step.arguments) {
                std::size_t& reach = m_plan.steps[static_cast<std::size_t>(argument)].reach;
                reach = std::max(reach, reachOf(step));
            }
        }
        if (!m_plan.looksAhead())
            bundleChains();
        return std::move(m_plan);
    }

private:
    /// Finds every chain a second one of its function whose arguments stand by then, or are its results, and
    /// a third one that reads no more than arithmetic on what both give.
    void bundleChains()
    {
        for (std::size_t id = 0; id < m_plan.steps.size(); ++id) {
            const Step& step = m_plan.steps[id];
            if (step.isConstant || !step.function->isChain || step.isRunEarlier)
                continue;
            Strands strands;
            strands.first = static_cast<StepId>(id);
            strands.second = findFollower(strands, false);
            if (strands.second != kNoStep)
                runEarlier(strands.second);
            strands.third = findFollower(strands, true);
            if (strands.third != kNoStep) {
                runEarlier(strands.third);
                addBetween(strands, strands.third);
            }
            if (strands.second != kNoStep || strands.third != kNoStep)
                m_plan.strands.push_back(std::move(strands));
        }
    }

    void runEarlier(StepId id) { m_plan.steps[static_cast<std::size_t>(id)].isRunEarlier = true; }

    /// Whether a step has been run when those that are bundled run. Bundles are made in the order of their
    /// first steps, so that what has been marked by now belongs to this or to earlier ones.
    bool stands(StepId id, const Strands& strands) const
    {
        return id <= strands.first || at(id).isConstant || at(id).isRunEarlier;
    }

    /// The next step of the first one's function whose arguments stand.
    /// @param takesArithmetic  arguments may be elementwise steps of what stands.
    StepId findFollower(const Strands& strands, bool takesArithmetic) const
    {
        constexpr StepId kFurthest =
            64; // texts of many statements are planned in time linear to their length
        const StepId end = std::min(static_cast<StepId>(m_plan.steps.size()), strands.first + 1 + kFurthest);
        std::set<StepId> arithmetic;
        const auto isReady = [&](StepId id) { return stands(id, strands) || arithmetic.count(id) > 0; };
        for (StepId id = strands.first + 1; id < end; ++id) {
            const Step& step = at(id);
            if (isReady(id) || !std::all_of(step.arguments.begin(), step.arguments.end(), isReady))
                continue;
            if (step.function == at(strands.first).function)
                return id;
            if (takesArithmetic && step.function->isElementwise)
                arithmetic.insert(id);
        }
        return kNoStep;
    }

    /// Adds what a step reads and does not stand.
    void addBetween(Strands& strands, StepId reader)
    {
        for (const StepId id : at(reader).arguments) {
            if (stands(id, strands))
                continue;
            addBetween(strands, id);
            strands.between.push_back(id);
            runEarlier(id);
        }
    }

    std::vector<bool> neededNodes() const
    {
        std::vector<bool> isNeeded(m_syntax.nodes.size());
        for (const Output& output : m_syntax.outputs) {
            for (const NodeId column : output.columns)
                isNeeded[static_cast<std::size_t>(column)] = true;
        }
        for (std::size_t node = m_syntax.nodes.size(); node-- > 0;) {
            for (const NodeId argument : m_syntax.nodes[node].arguments)
                isNeeded[static_cast<std::size_t>(argument)] =
                    isNeeded[static_cast<std::size_t>(argument)] || isNeeded[node];
        }
        return isNeeded;
    }

    StepId stepOf(const Node& node)
    {
        if (node.kind == Node::Kind::Number)
            return numberStep(node.number);
        if (node.kind == Node::Kind::Parameter)
            return numberStep(m_parameters[static_cast<std::size_t>(node.parameter)]);
        Step step;
        step.function = node.function;
        for (const NodeId argument : node.arguments)
            step.arguments.push_back(m_stepOfNode[static_cast<std::size_t>(argument)]);
        if (node.isConstant)
            return numberStep(valueOf(step));
        step.lookAhead = lookAheadOf(step);
        return add(std::move(step), 0.0);
    }

    StepId callOf(const Function& function)
    {
        Step step;
        step.function = &function;
        return add(std::move(step), 0.0);
    }

    StepId numberStep(double number)
    {
        Step step;
        step.isConstant = true;
        step.number = number;
        return add(std::move(step), number);
    }

    const Step& at(StepId id) const { return m_plan.steps[static_cast<std::size_t>(id)]; }

    /// A function of constants.
    double valueOf(const Step& step) const
    {
        std::vector<Operand> operands;
        for (const StepId argument : step.arguments)
            operands.push_back({ &at(argument).number, true });
        double value = kMissing;
        step.function->makeKernel()->compute(operands.data(), { BarSeries(), 0, 0, 1 }, { &value });
        return value;
    }

    std::size_t lookAheadOf(const Step& step) const
    {
        if (step.function->looksAheadEndlessly)
            return kEndless;
        std::size_t ahead = 0;
        for (const StepId argument : step.arguments)
            ahead = std::max(ahead, at(argument).lookAhead);
        if (!step.function->lookAheadArgument)
            return ahead;
        const Step& bars = at(step.arguments[*step.function->lookAheadArgument]);
        return bars.isConstant ? std::min(ahead + barsOf(bars.number).value_or(0), kEndless) : kEndless;
    }

    /// How far back a step reads its arguments.
    std::size_t reachOf(const Step& step) const
    {
        if (step.isConstant)
            return 0;
        if (step.function->reach)
            return *step.function->reach;
        if (!step.function->reachArgument)
            return kEndless;
        const Step& bars = at(step.arguments[*step.function->reachArgument]);
        return bars.isConstant ? barsOf(bars.number).value_or(0)
                               : step.function->reachOfSeries.value_or(kEndless);
    }

    StepId add(Step step, double number)
    {
        StepKey key { step.function ? step.function->name : "", 0, step.arguments };
        std::memcpy(&key.number, &number, sizeof number);
        const auto [place, isNew] = m_known.emplace(std::move(key), static_cast<StepId>(m_plan.steps.size()));
        if (isNew)
            m_plan.steps.push_back(std::move(step));
        return place->second;
    }

    const Syntax& m_syntax;
    const std::vector<double>& m_parameters;
    std::vector<StepId> m_stepOfNode;
    std::map<StepKey, StepId> m_known;
    Plan m_plan;
};

} // namespace

bool Plan::looksAhead() const
{
    return std::any_of(steps.begin(), steps.end(), [](const Step& step) { return step.lookAhead > 0; });
}

Plan buildPlan(const Syntax& syntax, const std::vector<double>& parameters)
{
    return Planner(syntax, parameters).run();
}

} // namespace engine::language
