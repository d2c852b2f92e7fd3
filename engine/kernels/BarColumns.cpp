// SPDX-License-Identifier: MIT
#include "engine/calendar/LocalTime.h"
#include "engine/kernels/KernelRows.h"

#include <algorithm>

namespace engine::language {

namespace {

/// A value of a column that may be shorter than the times.
double valueAt(const std::vector<double>& column, std::size_t bar)
{
    return bar < column.size() ? valueOrMissing(column[bar]) : kMissing;
}

template <std::vector<double> BarSeries::*Column>
class ColumnKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, Result result) override
    {
        const std::vector<double>& column = work.bars.*Column;
        const std::size_t given = std::min(work.count, column.size());
        for (std::size_t bar = work.from; bar < given; ++bar)
            result[bar] = valueOrMissing(column[bar]);
        result.fill(std::max(given, work.from), work.count, kMissing);
    }
};

/// A column of the index at the bars that begin with this series' own.
template <std::vector<double> BarSeries::*Column>
class IndexKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, Result result) override
    {
        static const BarSeries none;
        const BarSeries& index = work.bars.index ? *work.bars.index : none;
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const std::int64_t time = work.bars.timeMs[bar];
            const auto found = std::lower_bound(index.timeMs.begin(), index.timeMs.end(), time);
            const bool isSame = found != index.timeMs.end() && *found == time;
            result[bar] = isSame
                ? valueAt(index.*Column, static_cast<std::size_t>(found - index.timeMs.begin()))
                : kMissing;
        }
    }
};

/// A number of shares, the same on all bars.
template <double BarSeries::*Shares>
class SharesKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, Result result) override
    {
        result.fill(work.from, work.count, valueOrMissing(work.bars.*Shares));
    }
};

/// The greatest of H - L, |H - C'| and |L - C'| (J. W. Wilder, "New Concepts in Technical Trading Systems",
/// 1978); H - L where there is no close before.
class TrueRangeKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, Result result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const double high = valueAt(work.bars.high, bar), low = valueAt(work.bars.low, bar);
            const double before = bar == 0 ? kMissing : valueAt(work.bars.close, bar - 1);
            double range = high - low;
            if (!isMissing(range) && !isMissing(before))
                range = std::max({ range, std::abs(high - before), std::abs(low - before) });
            result[bar] = valueOrMissing(range);
        }
    }
};

class PositionKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, Result result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar)
            result[bar] = static_cast<double>(bar + 1);
    }
};

class LastBarKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, Result result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar)
            result[bar] = bar + 1 == work.bars.size() ? 1.0 : 0.0;
    }
};

/// A number made of a bar's local date and time of day.
template <int (*Part)(const CivilTime&)>
class TimeKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, Result result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const std::optional<CivilTime> time = m_clock.local(work.bars.timeMs[bar]);
            result[bar] = time ? Part(*time) : kMissing;
        }
    }

private:
    LocalTime m_clock;
};

int dateOf(const CivilTime& time)
{
    return (time.year - 1900) * 10'000 + time.month * 100 + time.day;
}

int timeOf(const CivilTime& time)
{
    return time.hour * 100 + time.minute;
}

// clang-format off
int yearOf(const CivilTime& time) { return time.year; }
int monthOf(const CivilTime& time) { return time.month; }
int dayOf(const CivilTime& time) { return time.day; }
int hourOf(const CivilTime& time) { return time.hour; }
int minuteOf(const CivilTime& time) { return time.minute; }
// clang-format on

template <std::vector<double> BarSeries::*Column>
FunctionRow column(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english).runs<ColumnKernel<Column>>();
}

template <std::vector<double> BarSeries::*Column>
FunctionRow indexColumn(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english).runs<IndexKernel<Column>>();
}

template <int (*Part)(const CivilTime&)>
FunctionRow timePart(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english).runs<TimeKernel<Part>>();
}

} // namespace

std::vector<Function> barSeries()
{
    return {
        column<&BarSeries::open>("OPEN", "开盘价", "open").alias("O"),
        column<&BarSeries::high>("HIGH", "最高价", "high").alias("H"),
        column<&BarSeries::low>("LOW", "最低价", "low").alias("L"),
        column<&BarSeries::close>("CLOSE", "收盘价", "close").alias("C"),
        column<&BarSeries::volume>("VOL", "成交量", "volume").alias("V"),
        column<&BarSeries::amount>("AMOUNT", "成交额", "turnover").needs(&BarSeries::amount),
        column<&BarSeries::openInterest>("OPENINT", "持仓量", "open interest")
            .needs(&BarSeries::openInterest),
        indexColumn<&BarSeries::open>("INDEXO", "对照指数的开盘价", "open of the index"),
        indexColumn<&BarSeries::high>("INDEXH", "对照指数的最高价", "high of the index"),
        indexColumn<&BarSeries::low>("INDEXL", "对照指数的最低价", "low of the index"),
        indexColumn<&BarSeries::close>("INDEXC", "对照指数的收盘价", "close of the index"),
        indexColumn<&BarSeries::volume>("INDEXV", "对照指数的成交量", "volume of the index"),
        indexColumn<&BarSeries::amount>("INDEXA", "对照指数的成交额", "turnover of the index"),
        FunctionRow("CAPITAL", "流通股本", "floating shares")
            .runs<SharesKernel<&BarSeries::floatingShares>>(),
        FunctionRow("TOTALCAPITAL", "总股本", "all shares").runs<SharesKernel<&BarSeries::totalShares>>(),
        FunctionRow("TR", "真实波幅", "true range").runs<TrueRangeKernel>(),
        timePart<dateOf>("DATE", "日期，如 1240305 为 2024 年 3 月 5 日", "date, 1240305 for 5 March 2024"),
        timePart<timeOf>("TIME", "时间，如 930 为 9:30", "time of day, 930 for 9:30"),
        timePart<yearOf>("YEAR", "年", "year"),
        timePart<monthOf>("MONTH", "月，1 至 12", "month, 1 to 12"),
        timePart<dayOf>("DAY", "日，1 至 31", "day of the month, 1 to 31"),
        timePart<weekdayOf>("WEEKDAY", "星期，0 为星期日", "day of the week, 0 for Sunday"),
        timePart<hourOf>("HOUR", "时，0 至 23", "hour, 0 to 23"),
        timePart<minuteOf>("MINUTE", "分，0 至 59", "minute, 0 to 59"),
        FunctionRow("BARPOS", "第几根 K 线，从 1 起", "number of the bar, from 1").runs<PositionKernel>(),
        FunctionRow("ISLASTBAR", "是否最后一根 K 线", "1 on the last bar").logical().runs<LastBarKernel>(),
    };
}

} // namespace engine::language
