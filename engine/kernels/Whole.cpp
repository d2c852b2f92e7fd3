// SPDX-License-Identifier: MIT
#include "engine/calendar/LocalTime.h"
#include "engine/kernels/KernelRows.h"
#include "engine/kernels/PeriodGroups.h"
#include "engine/kernels/Periods.h"

#include <algorithm>
#include <unordered_map>

namespace engine::language {

namespace {

/// The last bar's value on all bars.
class ConstantKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        if (work.count > 0)
            result.fill(work.from, work.count, arguments[0][work.count - 1]);
    }
};

/// The value of the last bar of a date.
class DateReferenceKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        std::unordered_map<int, std::size_t> lastBars;
        LocalTime clock;
        for (std::size_t bar = 0; bar < work.count; ++bar) {
            if (const std::optional<CivilTime> time = clock.local(work.bars.timeMs[bar]))
                lastBars[(time->year - 1900) * 10'000 + time->month * 100 + time->day] = bar;
        }
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const double date = std::trunc(arguments[1][bar]);
            const bool isDate = std::abs(date) < kLongestStretch;
            const auto found = isDate ? lastBars.find(static_cast<int>(date)) : lastBars.end();
            result[bar] = found != lastBars.end() ? arguments[0][found->second] : kMissing;
        }
    }
};

/// 1 on the N bars up to each on which a condition holds.
class BackSetKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        std::size_t reached = work.count; // the first bar that is set
        for (std::size_t bar = work.count; bar-- > work.from;) {
            const std::size_t bars = barsOf(arguments[1][bar]).value_or(0);
            if (isTrue(arguments[0][bar]) && bars > 0)
                reached = std::min(reached, bar + 1 - std::min(bars, bar + 1));
            result[bar] = bar >= reached ? 1.0 : 0.0;
        }
    }
};

/// Lets a signal pass and none of the bars before it, from the last bar on.
class BackFilterKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        std::size_t held = 0; // bars that are still to be held back
        for (std::size_t bar = work.count; bar-- > 0;) {
            const bool passes = held == 0 && isTrue(arguments[0][bar]);
            result[bar] = passes ? 1.0 : 0.0;
            if (held > 0)
                --held;
            else if (passes)
                held = barsOf(arguments[1][bar]).value_or(0);
        }
    }
};

class BarsLeftKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, Result result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar)
            result[bar] = static_cast<double>(work.count - bar);
    }
};

class BarsKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, Result result) override
    {
        result.fill(work.from, work.count, static_cast<double>(work.count));
    }
};

struct PeriodCode
{
    double code;
    std::int64_t leastMinutes; ///< of the usual distance between bars
};

constexpr std::int64_t kDay = std::int64_t { 24 } * 60; // minutes
constexpr PeriodCode kPeriods[] = {
    { 11.0, 300 * kDay }, { 10.0, 80 * kDay }, { 7.0, 27 * kDay }, { 6.0, 6 * kDay }, { 5.0, kDay },
    { 4.0, 60 },          { 3.0, 30 },         { 2.0, 15 },        { 1.0, 5 },        { 0.0, 0 },
};

/// The period of the bars: the one that they state, else told by the median distance between two of them.
class PeriodKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, Result result) override
    {
        const std::int64_t stated = work.bars.periodMinutes;
        const std::optional<std::int64_t> minutes =
            stated > 0 ? std::optional(stated) : usualMinutes(work.bars.timeMs);
        const auto isReached = [&](const PeriodCode& period) { return *minutes >= period.leastMinutes; };
        const double code =
            minutes ? std::find_if(std::begin(kPeriods), std::end(kPeriods) - 1, isReached)->code : kMissing;
        result.fill(work.from, work.count, code);
    }
};

} // namespace

std::vector<Function> wholeFunctions()
{
    return {
        FunctionRow("CONST", "最后一根的 X", "X of the last bar, on all bars")
            .takes("X", "s")
            .looksAheadEndlessly()
            .runs<ConstantKernel>(),
        FunctionRow("REFDATE", "日期 D 的 X", "X of the date D, as DATE writes it")
            .takes("X,D", "ss")
            .looksAheadEndlessly()
            .runs<DateReferenceKernel>(),
        FunctionRow("BACKSET", "成立时连同之前共 N 根设为 1（未来数据）",
                    "1 on the N bars up to each on which it holds (looks into the future)")
            .takes("COND,N", "ss")
            .window(1)
            .looksAheadBy(1)
            .runs<BackSetKernel>(),
        FunctionRow("FILTERX", "反向过滤：成立之前 N 根不提示（未来数据）",
                    "the condition, held back for the N bars before it holds (looks into the future)")
            .takes("COND,N", "ss")
            .window(1, 0.0)
            .logical()
            .looksAheadEndlessly()
            .runs<BackFilterKernel>(),
        FunctionRow("PERIOD", "周期：0 至 4 为分钟，5 日 6 周 7 月 10 季 11 年",
                    "period of the bars: 0 to 4 minutes, 5 day, 6 week, 7 month, 10 quarter, 11 year")
            .looksAheadEndlessly()
            .runs<PeriodKernel>(),
        FunctionRow("CURRBARSCOUNT", "到最后一根的根数，最后一根为 1", "bars up to the last, which counts 1")
            .looksAheadEndlessly()
            .runs<BarsLeftKernel>(),
        FunctionRow("TOTALBARSCOUNT", "K 线总数", "number of all bars")
            .looksAheadEndlessly()
            .runs<BarsKernel>(),
    };
}

} // namespace engine::language
