// SPDX-License-Identifier: MIT
#include "engine/kernels/KernelRows.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace engine::language {

namespace {

struct Knot
{
    std::size_t bar;
    double value;
};

/// The straight line through two knots, from one bar to another.
void drawLine(const Knot& first, const Knot& second, std::size_t begin, std::size_t end, Result result)
{
    const double bars = static_cast<double>(second.bar - first.bar);
    for (std::size_t bar = begin; bar < end; ++bar) {
        const double part = (static_cast<double>(bar) - static_cast<double>(first.bar)) / bars;
        result[bar] = valueOrMissing(first.value * (1.0 - part) + second.value * part);
    }
}

/// Lines from each bar on which a condition holds to the next.
class PolyLineKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        result.fill(0, work.count, kMissing);
        std::optional<Knot> last;
        for (std::size_t bar = 0; bar < work.count; ++bar) {
            if (!isTrue(arguments[0][bar]) || isMissing(arguments[1][bar]))
                continue;
            const Knot knot { bar, arguments[1][bar] };
            result[bar] = knot.value;
            if (last)
                drawLine(*last, knot, last->bar + 1, bar, result);
            last = knot;
        }
    }
};

/// Lines from the last bar on which the first condition held to the bar on which the second does; they may go
/// on until another line begins.
class ConnectionKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        result.fill(0, work.count, kMissing);
        Knot begin { 0, 0.0 };
        bool hasBegun = false;
        std::optional<std::pair<Knot, Knot>> goingOn;
        std::size_t drawn = 0; // bars that are done with
        const auto goOn = [&](std::size_t end) {
            if (goingOn && drawn < end)
                drawLine(goingOn->first, goingOn->second, drawn, end, result);
        };
        for (std::size_t bar = 0; bar < work.count; ++bar) {
            const bool ends = isTrue(arguments[2][bar]) && !isMissing(arguments[3][bar]);
            if (hasBegun && ends) {
                const Knot end { bar, arguments[3][bar] };
                goOn(begin.bar);
                drawLine(begin, end, begin.bar, bar + 1, result);
                drawn = bar + 1;
                goingOn.reset();
                if (isTrue(arguments[4][bar]))
                    goingOn.emplace(begin, end);
                hasBegun = false;
            }
            if (isTrue(arguments[0][bar]) && !isMissing(arguments[1][bar])) {
                begin = Knot { bar, arguments[1][bar] };
                hasBegun = true;
            }
        }
        goOn(work.count);
    }
};

/// A value where a condition holds.
class PartKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar)
            result[bar] = isTrue(arguments[0][bar]) ? arguments[1][bar] : kMissing;
    }
};

/// The steps to the bars on which a condition holds, each from the bar before: PRICE there and here. Of the
/// runs of such bars those with even numbers belong to one line and the others to a second one, so that two
/// runs with a single bar between them do not meet.
class StepsKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        const Operand &condition = arguments[0], &price = arguments[1];
        const auto isOfLine = [&](std::size_t run) { return run % 2 == (isTrue(arguments[2][0]) ? 1 : 0); };
        std::size_t runs = work.from == 0 ? 0 : m_keptRuns;
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            if (bar == work.keep)
                m_keptRuns = runs;
            const bool holds = isTrue(condition[bar]), heldBefore = bar > 0 && isTrue(condition[bar - 1]);
            if (holds && !heldBefore)
                ++runs;
            const bool begins = !holds && bar + 1 < work.count && isTrue(condition[bar + 1]);
            const bool isDrawn = (holds && isOfLine(runs)) || (begins && isOfLine(runs + 1));
            result[bar] = isDrawn ? price[bar] : kMissing;
        }
        if (work.keep >= work.count)
            m_keptRuns = runs;
    }

private:
    std::size_t m_keptRuns = 0; ///< runs that began before the bar to be kept
};

} // namespace

std::vector<Function> lineDrawings()
{
    return {
        FunctionRow("POLYLINE", "依次连接条件成立处的价位", "lines between the bars on which it holds")
            .takes("COND,PRICE", "ss")
            .looksAheadEndlessly()
            .draws(se::DrawType::SegmentLine)
            .runs<PolyLineKernel>(),
        FunctionRow("DRAWLINE", "从条件 1 处到条件 2 处的直线，EXPAND 为 1 时延长",
                    "a line from where the first holds to where the second does; EXPAND 1: it goes on")
            .takes("COND1,PRICE1,COND2,PRICE2,EXPAND", "sssss")
            .looksAheadEndlessly()
            .draws(se::DrawType::SegmentLine)
            .runs<ConnectionKernel>(),
        FunctionRow("part").takes("COND,PRICE", "ss").isOperator().reachesBack(0).runs<PartKernel>(),
        FunctionRow("steps")
            .takes("COND,PRICE,LINE,AHEAD", "sscc")
            .isOperator()
            .looksAheadBy(3)
            .runs<StepsKernel>(),
    };
}

} // namespace engine::language
