#include "engine/Series.h"

#include <algorithm>
#include <deque>
#include <functional>

namespace engine {

namespace {

/// Sum of a sliding window that does not drift: rounding errors are carried along and compensated
/// (A. Neumaier, Rundungsfehleranalyse einiger Verfahren zur Summation endlicher Summen, ZAMM 54, 1974).
class WindowSum
{
public:
    void add(double value)
    {
        const double sum = m_sum + value;
        m_error += std::abs(m_sum) >= std::abs(value) ? (m_sum - sum) + value : (value - sum) + m_sum;
        m_sum = sum;
    }
    double value() const { return m_sum + m_error; }

private:
    double m_sum = 0.0, m_error = 0.0;
};

/// Calls `emit(bar)` for every bar whose window of `width` values is full and holds no missing one, after
/// `enter` and `leave` have told which values are inside.
template <class Enter, class Leave, class Emit>
void slide(const Series& values, std::size_t width, Enter enter, Leave leave, Emit emit)
{
    std::size_t missing = 0;
    for (std::size_t bar = 0; bar < values.size(); ++bar) {
        isMissing(values[bar]) ? static_cast<void>(++missing) : enter(values[bar]);
        if (bar >= width)
            isMissing(values[bar - width]) ? static_cast<void>(--missing) : leave(values[bar - width]);
        if (bar + 1 >= width && missing == 0)
            emit(bar);
    }
}

Series extreme(const Series& values, int period, const std::function<bool(double, double)>& beats)
{
    const auto width = static_cast<std::size_t>(std::max(1, period));
    Series result(values.size(), kMissing);
    std::deque<std::size_t> candidates; // bars whose values can still win, the best one first
    for (std::size_t bar = 0; bar < values.size(); ++bar) {
        if (!isMissing(values[bar])) {
            while (!candidates.empty() && !beats(values[candidates.back()], values[bar]))
                candidates.pop_back();
            candidates.push_back(bar);
        }
        if (!candidates.empty() && candidates.front() + width <= bar)
            candidates.pop_front();
        if (!candidates.empty())
            result[bar] = values[candidates.front()];
    }
    return result;
}

} // namespace

Series mean(const Series& values, int period)
{
    const auto width = static_cast<std::size_t>(std::max(1, period));
    Series result(values.size(), kMissing);
    WindowSum sum;
    const auto emit = [&](std::size_t bar) {
        if (!std::isfinite(sum.value())) { // huge values overflowed: begin anew with what is in the window
            sum = WindowSum();
            for (std::size_t k = bar + 1 - width; k <= bar; ++k)
                sum.add(values[k]);
        }
        const double value = sum.value() / static_cast<double>(width);
        result[bar] = std::isfinite(value) ? value : kMissing;
    };
    slide(
        values, width, [&](double value) { sum.add(value); }, [&](double value) { sum.add(-value); }, emit);
    return result;
}

Series deviation(const Series& values, int period)
{
    const Series means = mean(values, period);
    Series result(values.size(), kMissing);
    for (std::size_t bar = 0; bar < values.size(); ++bar) {
        if (isMissing(means[bar]))
            continue;
        const auto width = static_cast<std::size_t>(std::max(1, period));
        double squares = 0.0;
        for (std::size_t k = bar + 1 - width; k <= bar; ++k)
            squares += (values[k] - means[bar]) * (values[k] - means[bar]);
        result[bar] = std::sqrt(squares / static_cast<double>(width));
    }
    return result;
}

Series exponentialMean(const Series& values, int period)
{
    const int length = std::max(1, period);
    return smoothedMean(values, length + 1, 2.0);
}

Series smoothedMean(const Series& values, int period, double weight)
{
    const double length = std::max(1, period);
    Series result(values.size(), kMissing);
    double average = kMissing;
    for (std::size_t bar = 0; bar < values.size(); ++bar) {
        if (isMissing(values[bar]))
            continue;
        average =
            isMissing(average) ? values[bar] : (weight * values[bar] + (length - weight) * average) / length;
        result[bar] = average;
    }
    return result;
}

Series highest(const Series& values, int period)
{
    return extreme(values, period, [](double kept, double next) { return kept > next; });
}

Series lowest(const Series& values, int period)
{
    return extreme(values, period, [](double kept, double next) { return kept < next; });
}

Series change(const Series& values)
{
    Series result(values.size(), kMissing);
    for (std::size_t bar = 1; bar < values.size(); ++bar) {
        if (!isMissing(values[bar]) && !isMissing(values[bar - 1]))
            result[bar] = values[bar] - values[bar - 1];
    }
    return result;
}

} // namespace engine
