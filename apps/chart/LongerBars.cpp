// SPDX-License-Identifier: MIT
#include "apps/chart/LongerBars.h"

#include "apps/chart/BarPeriod.h"
#include "apps/chart/TimeDivision.h"
#include "engine/kernels/PeriodGroups.h"
#include "host/TC/PeriodNames.h"
#include "host/utils/LocalZone.h"

#include <algorithm>

namespace chart {

namespace {

OfferedPeriod offer(const char* key, TC::EFormulaPeriod period)
{
    return { QString::fromLatin1(key), TC::getCycleName(TC::getPeriodIndex(period)), period };
}

/// Midnight of the local day that a time is part of.
std::int64_t dateOf(std::int64_t timeMs)
{
    const std::optional<LocalSeconds> local = localSeconds(timeMs);
    if (!local)
        return timeMs;
    const auto date = utils::civilFromDays(utils::floorDiv(*local, utils::kSecondsPerDay));
    const std::optional<std::int64_t> midnight = utils::secondsFromLocal(date, 0, 0, 0);
    return midnight ? *midnight * 1000 : timeMs;
}

/// Times of the last bar of each group.
std::vector<std::int64_t> lastTimes(const std::vector<std::int64_t>& times,
                                    const std::vector<std::size_t>& groups, bool asDates)
{
    std::vector<std::int64_t> last(groups.back() + 1);
    for (std::size_t bar = 0; bar < groups.size(); ++bar)
        last[groups[bar]] = times[bar];
    if (asDates)
        std::transform(last.begin(), last.end(), last.begin(), dateOf);
    return last;
}

} // namespace

const std::vector<OfferedPeriod>& offeredPeriods()
{
    static const std::vector<OfferedPeriod> all = {
        offer("MIN5", TC::EFormulaPeriod_Minute5),   offer("MIN15", TC::EFormulaPeriod_Minute15),
        offer("MIN30", TC::EFormulaPeriod_Minute30), offer("MIN60", TC::EFormulaPeriod_Hour),
        offer("DAY", TC::EFormulaPeriod_Day),        offer("WEEK", TC::EFormulaPeriod_Week),
        offer("MONTH", TC::EFormulaPeriod_Month),    offer("QUARTER", TC::EFormulaPeriod_Quarter),
        offer("YEAR", TC::EFormulaPeriod_Year),
    };
    return all;
}

const OfferedPeriod* offeredPeriod(const QString& key)
{
    const std::vector<OfferedPeriod>& all = offeredPeriods();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const OfferedPeriod& period) { return period.key == key; });
    return found == all.end() ? nullptr : &*found;
}

std::optional<engine::BarSeries> longerBars(const engine::BarSeries& bars, const OfferedPeriod& period)
{
    const engine::language::Period* unit = engine::language::findPeriod(period.key.toStdString());
    if (!unit || barPeriod(bars.timeMs) >= period.period)
        return std::nullopt;
    const std::vector<std::size_t> groups = engine::language::groupsOf(bars.timeMs, *unit);
    if (groups.empty())
        return std::nullopt;
    engine::BarSeries longer = engine::language::gathered(bars, groups);
    longer.timeMs = lastTimes(bars.timeMs, groups, period.period >= TC::EFormulaPeriod_Day);
    longer.periodMinutes = unit->minutes;
    if (longer.index) {
        auto index = std::make_shared<engine::BarSeries>(*longer.index);
        index->timeMs = longer.timeMs;
        longer.index = index;
    }
    return longer;
}

} // namespace chart
