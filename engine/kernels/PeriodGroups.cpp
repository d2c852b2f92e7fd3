// SPDX-License-Identifier: MIT
#include "engine/kernels/PeriodGroups.h"

#include "engine/calendar/LocalTime.h"
#include "engine/series/Series.h"

#include <algorithm>

namespace engine::language {

namespace {

constexpr std::int64_t kMsPerMinute = 60'000, kMinutesOfDay = 1'440;
constexpr std::int64_t kBreak = 15; // minutes from which a gap between two bars is a break

constexpr Period kPeriods[] = {
    { "MIN5", Period::Unit::Minutes, 5 },
    { "MIN15", Period::Unit::Minutes, 15 },
    { "MIN30", Period::Unit::Minutes, 30 },
    { "MIN60", Period::Unit::Minutes, 60 },
    { "DAY", Period::Unit::Day, kMinutesOfDay },
    { "WEEK", Period::Unit::Week, 7 * kMinutesOfDay },
    { "MONTH", Period::Unit::Month, 31 * kMinutesOfDay },
    { "QUARTER", Period::Unit::Quarter, 92 * kMinutesOfDay },
    { "SEASON", Period::Unit::Quarter, 92 * kMinutesOfDay },
    { "YEAR", Period::Unit::Year, 366 * kMinutesOfDay },
};

std::int64_t dayOf(const CivilTime& time)
{
    CivilTime midnight;
    midnight.year = time.year;
    midnight.month = time.month;
    midnight.day = time.day;
    return utcMs(midnight) / (kMinutesOfDay * kMsPerMinute);
}

/// A number that neighbouring bars share when they belong to one day, week, ...
std::int64_t calendarKey(const CivilTime& time, Period::Unit unit)
{
    constexpr std::int64_t mondayBefore1970 = 3, daysOfEra = 719'162; // so that no day is negative
    switch (unit) {
    case Period::Unit::Week: return (dayOf(time) + daysOfEra / 7 * 7 + mondayBefore1970) / 7;
    case Period::Unit::Month: return time.year * 12 + time.month;
    case Period::Unit::Quarter: return time.year * 4 + (time.month - 1) / 3;
    case Period::Unit::Year: return time.year;
    case Period::Unit::Minutes:
    case Period::Unit::Day: break;
    }
    return dayOf(time);
}

/// Tells where longer bars begin.
class Grouping
{
public:
    Grouping(const Period& period, std::int64_t usualMinutes)
        : m_period(period)
        , m_usual(usualMinutes)
    {
    }

    /// @param before  time of the bar before; none for the first.
    bool beginsAt(std::int64_t timeMs, std::optional<std::int64_t> before)
    {
        const std::optional<CivilTime> time = m_clock.local(timeMs);
        const std::int64_t key = time ? calendarKey(*time, m_period.unit) : m_key;
        const bool isOther = !before || key != m_key;
        m_key = key;
        if (m_period.unit != Period::Unit::Minutes)
            return isOther;
        if (isOther)
            m_elapsed = m_length = 0;
        else
            pass((timeMs - *before) / kMsPerMinute);
        const bool isNext = m_elapsed / m_period.minutes != m_length;
        m_length = m_elapsed / m_period.minutes;
        return isOther || isNext;
    }

private:
    void pass(std::int64_t minutes)
    {
        const bool isBreak = minutes >= kBreak && minutes > m_usual;
        m_elapsed += isBreak ? m_usual : minutes;
    }

    const Period& m_period;
    const std::int64_t m_usual; ///< minutes of a bar
    LocalTime m_clock;
    std::int64_t m_key = 0;
    std::int64_t m_elapsed = 0; ///< minutes of trading since the first bar of the day
    std::int64_t m_length = 0;  ///< whole periods of it
};

using Column = std::vector<double>;

/// Merges the values of each group that are there; a group without any has none.
template <class Merge>
Column merged(const Column& values, const std::vector<std::size_t>& groups, Merge merge)
{
    if (values.empty() || groups.empty())
        return {};
    Column result(groups.back() + 1, kMissing);
    for (std::size_t bar = 0; bar < std::min(values.size(), groups.size()); ++bar) {
        const double value = valueOrMissing(values[bar]);
        double& whole = result[groups[bar]];
        if (!isMissing(value))
            whole = isMissing(whole) ? value : merge(whole, value);
    }
    return result;
}

// clang-format off
double firstOf(double first, double) { return first; }
double lastOf(double, double last) { return last; }
double greaterOf(double a, double b) { return std::max(a, b); }
double lesserOf(double a, double b) { return std::min(a, b); }
double sumOf(double a, double b) { return a + b; }
// clang-format on

/// The bars of a second instrument that begin with those of the first; the others are empty.
BarSeries answering(const BarSeries& second, const std::vector<std::int64_t>& timeMs)
{
    BarSeries answer;
    answer.timeMs = timeMs;
    constexpr Column BarSeries::*columns[] = { &BarSeries::open,  &BarSeries::high,   &BarSeries::low,
                                               &BarSeries::close, &BarSeries::volume, &BarSeries::amount };
    for (const auto column : columns)
        (answer.*column).assign(timeMs.size(), kMissing);
    for (std::size_t bar = 0; bar < timeMs.size(); ++bar) {
        const auto found = std::lower_bound(second.timeMs.begin(), second.timeMs.end(), timeMs[bar]);
        if (found == second.timeMs.end() || *found != timeMs[bar])
            continue;
        const auto place = static_cast<std::size_t>(found - second.timeMs.begin());
        for (const auto column : columns) {
            if (place < (second.*column).size())
                (answer.*column)[bar] = (second.*column)[place];
        }
    }
    return answer;
}

} // namespace

const Period* findPeriod(const std::string& key)
{
    const auto found = std::find_if(std::begin(kPeriods), std::end(kPeriods),
                                    [&](const Period& period) { return period.name == key; });
    return found == std::end(kPeriods) ? nullptr : &*found;
}

std::optional<std::int64_t> usualMinutes(const std::vector<std::int64_t>& timeMs)
{
    if (timeMs.size() < 2)
        return std::nullopt;
    std::vector<std::int64_t> distances;
    distances.reserve(timeMs.size());
    for (std::size_t bar = 1; bar < timeMs.size(); ++bar)
        distances.push_back((timeMs[bar] - timeMs[bar - 1]) / kMsPerMinute);
    const auto middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
    std::nth_element(distances.begin(), middle, distances.end());
    return *middle;
}

std::vector<std::size_t> groupsOf(const std::vector<std::int64_t>& timeMs, const Period& period)
{
    const std::int64_t usual = usualMinutes(timeMs).value_or(0);
    if (usual > period.minutes)
        return {};
    Grouping grouping(period, usual);
    std::vector<std::size_t> groups;
    groups.reserve(timeMs.size());
    for (std::size_t bar = 0; bar < timeMs.size(); ++bar) {
        const std::optional<std::int64_t> before = bar == 0 ? std::nullopt : std::optional(timeMs[bar - 1]);
        const bool begins = grouping.beginsAt(timeMs[bar], before);
        groups.push_back(bar == 0 ? 0 : groups.back() + (begins ? 1 : 0));
    }
    return groups;
}

BarSeries gathered(const BarSeries& bars, const std::vector<std::size_t>& groups)
{
    BarSeries whole;
    for (std::size_t bar = 0; bar < groups.size(); ++bar) {
        if (bar == 0 || groups[bar] != groups[bar - 1])
            whole.timeMs.push_back(bars.timeMs[bar]);
    }
    whole.open = merged(bars.open, groups, firstOf);
    whole.high = merged(bars.high, groups, greaterOf);
    whole.low = merged(bars.low, groups, lesserOf);
    whole.close = merged(bars.close, groups, lastOf);
    whole.volume = merged(bars.volume, groups, sumOf);
    whole.amount = merged(bars.amount, groups, sumOf);
    whole.openInterest = merged(bars.openInterest, groups, lastOf);
    whole.floatingShares = bars.floatingShares;
    whole.totalShares = bars.totalShares;
    if (bars.index)
        whole.index =
            std::make_shared<const BarSeries>(gathered(answering(*bars.index, bars.timeMs), groups));
    return whole;
}

} // namespace engine::language
