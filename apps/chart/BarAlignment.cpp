// SPDX-License-Identifier: MIT
#include "apps/chart/BarAlignment.h"

#include <cmath>

namespace chart {

namespace {

void append(engine::BarSeries& bars, std::int64_t time, double open, double high, double low, double close,
            double volume)
{
    bars.timeMs.push_back(time);
    bars.open.push_back(open);
    bars.high.push_back(high);
    bars.low.push_back(low);
    bars.close.push_back(close);
    bars.volume.push_back(volume);
}

} // namespace

engine::BarSeries alignedTo(const std::vector<std::int64_t>& times, const engine::BarSeries& other)
{
    engine::BarSeries aligned;
    if (other.size() == 0)
        return aligned;
    double standing = other.open.front();
    const auto stand = [&](double close) { standing = std::isnan(close) ? standing : close; };
    std::size_t next = 0;
    for (std::int64_t time : times) {
        while (next < other.size() && other.timeMs[next] < time)
            stand(other.close[next++]);
        if (next < other.size() && other.timeMs[next] == time) {
            append(aligned, time, other.open[next], other.high[next], other.low[next], other.close[next],
                   other.volume[next]);
            stand(other.close[next++]);
        } else {
            append(aligned, time, standing, standing, standing, standing, 0.0);
        }
    }
    return aligned;
}

} // namespace chart
