#include "engine/internal/Series.h"

#include <algorithm>
#include <cmath>
#include <deque>

namespace engine {

namespace {

/// A sum together with its own rounding error, so that it does not depend on the order of the terms: an
/// average over equal closes stays equal from bar to bar, and no legend arrow flickers.
struct CarefulSum
{
    double sum = 0.0, error = 0.0;

    static CarefulSum merged(const CarefulSum& a, const CarefulSum& b)
    {
        const double sum = a.sum + b.sum;
        const double partOfB = sum - a.sum;
        const double lost = (a.sum - (sum - partOfB)) + (b.sum - partOfB);
        return { sum, a.error + b.error + lost };
    }
};

/// Count, mean and sum of squared deviations of some values; plain sums of squares would cancel.
struct Moments
{
    double count = 0.0, mean = 0.0, squares = 0.0;

    /// The moments of both sets of values together.
    static Moments merged(const Moments& a, const Moments& b)
    {
        const double count = a.count + b.count;
        if (count == 0.0)
            return a;
        const double distance = b.mean - a.mean;
        return { count, a.mean + distance * (b.count / count),
                 a.squares + b.squares + distance * distance * (a.count * b.count / count) };
    }
};

/// Folds every window of `period` bars without ever taking a value out again: bars are cut into blocks of one
/// period, and a window is the tail of one block and the head of the next. Nothing can drift or cancel, and a
/// huge value leaves no trace behind its window.
template <class State, class Make, class Merge, class Visit>
void foldWindows(const Series& values, int period, Make make, Merge merge, Visit visit)
{
    const std::size_t length = static_cast<std::size_t>(period);
    std::vector<State> tails(std::min(length, values.size()) + 1); // tails[k]: the last k bars of the block
    State head {};
    std::size_t present = 0; // values without a gap up to this bar
    for (std::size_t bar = 0; bar < values.size(); ++bar) {
        const std::size_t inBlock = bar % length;
        if (inBlock == 0) {
            if (bar > 0) {
                for (std::size_t back = 1; back <= length; ++back)
                    tails[back] = merge(make(values[bar - back]), tails[back - 1]);
            }
            head = State {};
        }
        head = merge(head, make(values[bar]));
        present = isValue(values[bar]) ? present + 1 : 0;
        if (present >= length)
            visit(bar, merge(tails[length - 1 - inBlock], head));
    }
}

/// The last bar of each window at which no later bar of the window is better.
template <class Better>
Series bestOf(const Series& values, int period, Better better)
{
    const std::size_t length = static_cast<std::size_t>(period);
    Series best(values.size(), kMissing);
    std::deque<std::size_t> candidates;
    std::size_t present = 0;
    for (std::size_t bar = 0; bar < values.size(); ++bar) {
        if (!isValue(values[bar])) {
            present = 0;
            candidates.clear();
            continue;
        }
        while (!candidates.empty() && !better(values[candidates.back()], values[bar]))
            candidates.pop_back();
        candidates.push_back(bar);
        if (candidates.front() + length <= bar)
            candidates.pop_front();
        if (++present >= length)
            best[bar] = values[candidates.front()];
    }
    return best;
}

/// The next average. The step form keeps an average of equal values exactly equal; where the step is too
/// large for a double, the weighted sum of the two still is not.
double stepped(double average, double value, double weightOfNew)
{
    const double next = average + weightOfNew * (value - average);
    return isValue(next) ? next : weightOfNew * value + (1.0 - weightOfNew) * average;
}

/// weight x + (1 - weight) E', starting with the first value.
Series recursiveAverage(const Series& values, double weightOfNew)
{
    Series averages(values.size(), kMissing);
    bool started = false;
    double average = 0.0;
    for (std::size_t bar = 0; bar < values.size(); ++bar) {
        if (!isValue(values[bar]))
            continue;
        average = started ? stepped(average, values[bar], weightOfNew) : values[bar];
        started = true;
        averages[bar] = valueOrMissing(average);
    }
    return averages;
}

} // namespace

Series movingAverage(const Series& values, int period)
{
    Series averages(values.size(), kMissing);
    const auto term = [](double value) { return CarefulSum { isValue(value) ? value : 0.0, 0.0 }; };
    foldWindows<CarefulSum>(values, period, term, CarefulSum::merged,
                            [&](std::size_t bar, const CarefulSum& total) {
                                averages[bar] = valueOrMissing((total.sum + total.error) / period);
                            });
    return averages;
}

Series standardDeviation(const Series& values, int period)
{
    Series deviations(values.size(), kMissing);
    const auto single = [](double value) { return Moments { 1.0, isValue(value) ? value : 0.0, 0.0 }; };
    foldWindows<Moments>(
        values, period, single, Moments::merged, [&](std::size_t bar, const Moments& window) {
            deviations[bar] = valueOrMissing(std::sqrt(window.squares / std::max(period - 1, 1)));
        });
    return deviations;
}

Series exponentialAverage(const Series& values, int period)
{
    return recursiveAverage(values, 2.0 / (period + 1.0));
}

Series smoothedAverage(const Series& values, int period, int weight)
{
    return recursiveAverage(values, static_cast<double>(weight) / period);
}

Series highestOf(const Series& values, int period)
{
    return bestOf(values, period, [](double held, double next) { return held > next; });
}

Series lowestOf(const Series& values, int period)
{
    return bestOf(values, period, [](double held, double next) { return held < next; });
}

Series crossingsOf(const Series& a, const Series& b)
{
    Series crossings(a.size(), 0.0);
    double side = 0.0; // where `a` last stood: 1 above, -1 below
    for (std::size_t bar = 0; bar < a.size(); ++bar) {
        if (!isValue(a[bar]) || !isValue(b[bar]) || a[bar] == b[bar])
            continue;
        const double now = a[bar] > b[bar] ? 1.0 : -1.0;
        if (side == -now)
            crossings[bar] = now;
        side = now;
    }
    return crossings;
}

} // namespace engine
