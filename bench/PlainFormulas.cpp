// SPDX-License-Identifier: MIT
#include "bench/PlainFormulas.h"

#include "engine/series/Series.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace bench {

using engine::kMissingMarker;
using Series = std::vector<double>;

namespace {

/// Where the best of the last N bars stands; looked for anew when it falls out of the window.
template <class IsBetter>
class Best
{
public:
    Best(const Series& values, std::size_t length)
        : m_values(values)
        , m_length(length)
    {
    }

    double at(std::size_t bar)
    {
        if (m_bar + m_length <= bar) {
            m_bar = bar + 1 - m_length;
            for (std::size_t other = m_bar + 1; other <= bar; ++other)
                take(other);
        } else {
            take(bar);
        }
        return m_values[m_bar];
    }

private:
    void take(std::size_t bar)
    {
        if (!IsBetter()(m_values[m_bar], m_values[bar]))
            m_bar = bar;
    }

    const Series& m_values;
    const std::size_t m_length;
    std::size_t m_bar = 0;
};

Lines linesOf(std::size_t count, const engine::BarSeries& bars, double value)
{
    Lines lines(count);
    for (Series& line : lines)
        line.assign(bars.size(), value);
    return lines;
}

/// A running sum that drifts.
struct DriftingSum
{
    double sum = 0.0;

    void add(double value) { sum += value; }
    double total() const { return sum; }
};

/// A running sum with its rounding error, by the two-sum.
struct ExactSum
{
    double sum = 0.0, error = 0.0;

    void add(double value)
    {
        const double next = sum + value, part = next - sum;
        error += (sum - (next - part)) + (value - part);
        sum = next;
    }
    double total() const { return sum + error; }
};

using Highest = Best<std::greater<double>>;
using Lowest = Best<std::less<double>>;

template <class Sum>
Lines means(const engine::BarSeries& bars)
{
    constexpr std::size_t lengths[] = { 5, 10, 20, 60 };
    Lines lines = linesOf(4, bars, 0.0);
    Sum sums[4];
    for (std::size_t bar = 0; bar < bars.size(); ++bar) {
        for (std::size_t line = 0; line < 4; ++line) {
            sums[line].add(bars.close[bar]);
            if (bar >= lengths[line])
                sums[line].add(-bars.close[bar - lengths[line]]);
            lines[line][bar] = bar + 1 < lengths[line]
                ? kMissingMarker
                : sums[line].total() / static_cast<double>(lengths[line]);
        }
    }
    return lines;
}

template <class Sum>
Lines directionalMovement(const engine::BarSeries& bars)
{
    constexpr std::size_t length = 14, smooth = 6;
    const Series &high = bars.high, &low = bars.low, &close = bars.close;
    Lines lines = linesOf(4, bars, kMissingMarker);
    Series ranges(bars.size()), ups(bars.size()), downs(bars.size()), shares(bars.size());
    Sum range, plus, minus, sum;
    const auto slide = [](Sum& window, const Series& values, std::size_t bar, std::size_t count,
                          std::size_t first) {
        window.add(values[bar]);
        if (bar >= first + count)
            window.add(-values[bar - count]);
    };
    for (std::size_t bar = 0; bar < bars.size(); ++bar) {
        ranges[bar] = high[bar] - low[bar];
        if (bar > 0) {
            ranges[bar] =
                std::max(ranges[bar],
                         std::max(std::abs(high[bar] - close[bar - 1]), std::abs(low[bar] - close[bar - 1])));
            const double up = high[bar] - high[bar - 1], down = low[bar - 1] - low[bar];
            ups[bar] = up > 0.0 && up > down ? up : 0.0;
            downs[bar] = down > 0.0 && down > up ? down : 0.0;
        }
        slide(range, ranges, bar, length, 0);
        slide(plus, ups, bar, length, 0);
        slide(minus, downs, bar, length, 0);
        if (bar == 0)
            continue;
        const double plusShare = plus.total() * 100.0 / range.total(),
                     minusShare = minus.total() * 100.0 / range.total();
        lines[0][bar] = plusShare;
        lines[1][bar] = minusShare;
        const double both = minusShare + plusShare;
        shares[bar] = both > 0.0 ? std::abs(minusShare - plusShare) / both * 100.0 : 0.0;
        slide(sum, shares, bar, smooth, 1);
        if (bar < smooth)
            continue;
        lines[2][bar] = sum.total() / smooth;
        if (bar >= 2 * smooth)
            lines[3][bar] = (lines[2][bar] + lines[2][bar - smooth]) / 2.0;
    }
    return lines;
}

} // namespace

Lines plainMacd(const engine::BarSeries& bars)
{
    Lines lines = linesOf(3, bars, 0.0);
    double fast = bars.close[0], slow = bars.close[0], signal = 0.0;
    for (std::size_t bar = 0; bar < bars.size(); ++bar) {
        const double close = bars.close[bar];
        fast += 2.0 / 13.0 * (close - fast);
        slow += 2.0 / 27.0 * (close - slow);
        const double difference = fast - slow;
        signal += 2.0 / 10.0 * (difference - signal);
        lines[0][bar] = difference;
        lines[1][bar] = signal;
        lines[2][bar] = 2.0 * (difference - signal);
    }
    return lines;
}

Lines plainKdj(const engine::BarSeries& bars)
{
    Lines lines = linesOf(3, bars, 0.0);
    Highest highest(bars.high, 9);
    Lowest lowest(bars.low, 9);
    double k = 0.0, d = 0.0;
    for (std::size_t bar = 0; bar < bars.size(); ++bar) {
        const double low = lowest.at(bar), extent = highest.at(bar) - low, above = bars.close[bar] - low;
        const double position = extent == 0.0 ? 50.0 + above : above / extent * 100.0;
        k = bar == 0 ? position : k + 1.0 / 3.0 * (position - k);
        d = bar == 0 ? k : d + 1.0 / 3.0 * (k - d);
        lines[0][bar] = k;
        lines[1][bar] = d;
        lines[2][bar] = 3.0 * k - 2.0 * d;
    }
    return lines;
}

Lines plainBands(const engine::BarSeries& bars)
{
    constexpr std::size_t length = 20;
    Lines lines = linesOf(3, bars, kMissingMarker);
    for (std::size_t bar = length - 1; bar < bars.size(); ++bar) {
        const double* const window = &bars.close[bar + 1 - length];
        double sum = 0.0, squares = 0.0;
        for (std::size_t index = 0; index < length; ++index)
            sum += window[index];
        const double mean = sum / length;
        for (std::size_t index = 0; index < length; ++index)
            squares += (window[index] - mean) * (window[index] - mean);
        const double deviation = std::sqrt(squares / (length - 1));
        lines[0][bar] = mean;
        lines[1][bar] = mean + 2.0 * deviation;
        lines[2][bar] = mean - 2.0 * deviation;
    }
    return lines;
}

Lines plainSar(const engine::BarSeries& bars)
{
    constexpr std::size_t start = 4;
    constexpr double step = 0.02, limit = 0.2;
    const Series &high = bars.high, &low = bars.low, &close = bars.close;
    Lines lines = linesOf(3, bars, std::numeric_limits<double>::quiet_NaN());
    bool isRising = close[start - 1] >= close[0];
    const double highest = *std::max_element(high.begin(), high.begin() + start);
    const double lowest = *std::min_element(low.begin(), low.begin() + start);
    double stop = isRising ? lowest : highest, extreme = isRising ? highest : lowest, speed = step;
    for (std::size_t bar = start - 1; bar < bars.size(); ++bar) {
        if (bar >= start) {
            stop += speed * (extreme - stop);
            stop = isRising ? std::min(stop, std::min(low[bar - 1], low[bar - 2]))
                            : std::max(stop, std::max(high[bar - 1], high[bar - 2]));
            const double furthest = isRising ? high[bar] : low[bar];
            if (isRising ? low[bar] < stop : high[bar] > stop) {
                stop = isRising ? std::max(extreme, high[bar]) : std::min(extreme, low[bar]);
                isRising = !isRising;
                extreme = isRising ? high[bar] : low[bar];
                speed = step;
            } else if (isRising ? furthest > extreme : furthest < extreme) {
                extreme = furthest;
                speed = std::min(speed + step, limit);
            }
        }
        lines[0][bar] = stop;
        (close[bar] >= stop ? lines[1] : lines[2])[bar] = stop;
    }
    return lines;
}

Lines plainMeans(const engine::BarSeries& bars)
{
    return means<DriftingSum>(bars);
}

Lines exactMeans(const engine::BarSeries& bars)
{
    return means<ExactSum>(bars);
}

Lines plainDmi(const engine::BarSeries& bars)
{
    return directionalMovement<DriftingSum>(bars);
}

Lines exactDmi(const engine::BarSeries& bars)
{
    return directionalMovement<ExactSum>(bars);
}

Lines plainHighest(const engine::BarSeries& bars)
{
    Lines lines = linesOf(1, bars, 0.0);
    Highest highest(bars.high, 20);
    for (std::size_t bar = 0; bar < bars.size(); ++bar)
        lines[0][bar] = highest.at(bar);
    return lines;
}

engine::FormulaRecords sameWork(Lines (*lines)(const engine::BarSeries&), const engine::BarSeries& bars)
{
    engine::FormulaRecords records;
    se::RPCFormulaResult& result = records.result;
    result.barTimes.resize(bars.size());
    result.barValid.assign(bars.size(), 1);
    for (std::size_t bar = 0; bar < bars.size(); ++bar) {
        result.barTimes[bar].msecs = bars.timeMs[bar];
        if (!std::isfinite(bars.close[bar]))
            result.barValid[bar] = std::isfinite(bars.open[bar]) || std::isfinite(bars.high[bar])
                || std::isfinite(bars.low[bar]);
    }
    result.numberSeries = lines(bars);
    for (Series& line : result.numberSeries) {
        for (double& value : line) {
            if (!std::isfinite(value))
                value = kMissingMarker;
        }
    }
    return records;
}

} // namespace bench
