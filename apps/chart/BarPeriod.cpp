// SPDX-License-Identifier: MIT
#include "apps/chart/BarPeriod.h"

#include <algorithm>
#include <map>
#include <optional>

namespace chart {

namespace {

constexpr std::int64_t kHour = 3600, kDay = 24 * kHour; // seconds

/// The period that two neighbouring bars suggest; empty for a gap that suggests none.
std::optional<TC::EFormulaPeriod> periodOf(std::int64_t seconds)
{
    const auto isDays = [&](std::int64_t least, std::int64_t most) {
        return seconds >= least * kDay - kHour
            && seconds <= most * kDay + kHour; // summer time begins or ends
    };
    if (seconds <= 0)
        return std::nullopt;
    if (isDays(1, 1))
        return TC::EFormulaPeriod_Day;
    // Weeks and months are often dated by their last trading day.
    if (isDays(5, 9))
        return TC::EFormulaPeriod_Week;
    if (isDays(26, 36))
        return TC::EFormulaPeriod_Month;
    if (isDays(80, 100))
        return TC::EFormulaPeriod_Quarter;
    if (isDays(355, 376))
        return TC::EFormulaPeriod_Year;
    return seconds < kDay ? std::optional(static_cast<TC::EFormulaPeriod>(seconds)) : std::nullopt;
}

} // namespace

TC::EFormulaPeriod barPeriod(const std::vector<std::int64_t>& times)
{
    std::map<TC::EFormulaPeriod, int> counts;
    for (std::size_t bar = 1; bar < times.size(); ++bar) {
        if (const auto period = periodOf(times[bar] / 1000 - times[bar - 1] / 1000))
            ++counts[*period];
    }
    const auto commonest = std::max_element(counts.begin(), counts.end(),
                                            [](const auto& a, const auto& b) { return a.second < b.second; });
    return commonest == counts.end() ? TC::EFormulaPeriod_Day : commonest->first;
}

} // namespace chart
