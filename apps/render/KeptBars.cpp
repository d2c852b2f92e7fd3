// SPDX-License-Identifier: MIT
#include "apps/render/KeptBars.h"

#include <algorithm>
#include <cstddef>

namespace render {

namespace {

template <typename Value>
void keep(std::vector<Value>& values, const BarRange& bars)
{
    const auto size = static_cast<std::ptrdiff_t>(values.size());
    const auto at = [&](int bar) { return values.begin() + std::min<std::ptrdiff_t>(bar, size); };
    values = std::vector<Value>(at(bars.first), at(bars.last + 1));
}

} // namespace

BarRange neededBars(const chart::ChartPicture& picture)
{
    return { std::max(0, picture.first - 1), picture.last };
}

void keepBars(engine::FormulaRecords& records, const BarRange& bars)
{
    keep(records.result.barTimes, bars);
    keep(records.result.barValid, bars);
    for (std::vector<double>& series : records.result.numberSeries)
        keep(series, bars);
    for (std::vector<std::string>& series : records.result.textSeries)
        keep(series, bars);
}

void keepBars(chart::ChartPicture& picture, const BarRange& bars)
{
    keep(picture.times, bars);
    picture.first -= bars.first;
    picture.last -= bars.first;
}

} // namespace render
