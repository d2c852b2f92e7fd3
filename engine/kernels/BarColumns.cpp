#include "engine/calendar/LocalTime.h"
#include "engine/kernels/Makers.h"

#include <algorithm>

namespace engine::language {

namespace {

/// A value of a column that may be shorter than the times.
double valueAt(const std::vector<double>& column, std::size_t bar)
{
    return bar < column.size() ? finiteOrNone(column[bar]) : kNoValue;
}

template <std::vector<double> BarSeries::*Column>
class ColumnKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, double* result) override
    {
        const std::vector<double>& column = work.bars.*Column;
        const std::size_t given = std::min(work.count, column.size());
        for (std::size_t bar = work.from; bar < given; ++bar)
            result[bar] = finiteOrNone(column[bar]);
        std::fill(result + std::max(given, work.from), result + work.count, kNoValue);
    }
};

/// The greatest of H - L, |H - C'| and |L - C'| (J. W. Wilder, "New Concepts in Technical Trading Systems",
/// 1978); H - L where there is no close before.
class TrueRangeKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, double* result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const double high = valueAt(work.bars.high, bar), low = valueAt(work.bars.low, bar);
            const double before = bar == 0 ? kNoValue : valueAt(work.bars.close, bar - 1);
            double range = high - low;
            if (hasValue(range) && hasValue(before))
                range = std::max({ range, std::abs(high - before), std::abs(low - before) });
            result[bar] = finiteOrNone(range);
        }
    }
};

class PositionKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, double* result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar)
            result[bar] = static_cast<double>(bar + 1);
    }
};

class LastBarKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, double* result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar)
            result[bar] = bar + 1 == work.count ? 1.0 : 0.0;
    }
};

/// A number made of a bar's local date and time of day.
template <int (*Part)(const CivilTime&)>
class TimeKernel : public Kernel
{
public:
    void compute(const Operand*, const Work& work, double* result) override
    {
        for (std::size_t bar = work.from; bar < work.count; ++bar) {
            const std::optional<CivilTime> time = m_clock.local(work.bars.timeMs[bar]);
            result[bar] = time ? Part(*time) : kNoValue;
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

template <class Made>
KernelPointer make()
{
    return std::make_unique<Made>();
}

} // namespace

// clang-format off
KernelPointer makeOpen() { return make<ColumnKernel<&BarSeries::open>>(); }
KernelPointer makeHigh() { return make<ColumnKernel<&BarSeries::high>>(); }
KernelPointer makeLow() { return make<ColumnKernel<&BarSeries::low>>(); }
KernelPointer makeClose() { return make<ColumnKernel<&BarSeries::close>>(); }
KernelPointer makeVolume() { return make<ColumnKernel<&BarSeries::volume>>(); }
KernelPointer makeAmount() { return make<ColumnKernel<&BarSeries::amount>>(); }
KernelPointer makeOpenInterest() { return make<ColumnKernel<&BarSeries::openInterest>>(); }
KernelPointer makeTrueRange() { return make<TrueRangeKernel>(); }
KernelPointer makeBarPosition() { return make<PositionKernel>(); }
KernelPointer makeIsLastBar() { return make<LastBarKernel>(); }
KernelPointer makeDate() { return make<TimeKernel<dateOf>>(); }
KernelPointer makeTime() { return make<TimeKernel<timeOf>>(); }
KernelPointer makeYear() { return make<TimeKernel<yearOf>>(); }
KernelPointer makeMonth() { return make<TimeKernel<monthOf>>(); }
KernelPointer makeDay() { return make<TimeKernel<dayOf>>(); }
KernelPointer makeWeekday() { return make<TimeKernel<weekdayOf>>(); }
KernelPointer makeHour() { return make<TimeKernel<hourOf>>(); }
KernelPointer makeMinute() { return make<TimeKernel<minuteOf>>(); }
// clang-format on

} // namespace engine::language
