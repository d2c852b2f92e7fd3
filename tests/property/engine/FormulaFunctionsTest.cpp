// SPDX-License-Identifier: MIT
/// @file Every function of the formula language against a plain re-statement of it: straight loops for every
/// bar, in long double where values are added up, over random bars with gaps.

#include "engine/Formulas.h"
#include "engine/evaluation/FormulaEvaluation.h"
#include "tests/support/Seeds.h"
#include "tests/support/System.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <functional>
#include <limits>
#include <random>
#include <set>

namespace {

using engine::BarSeries;
using Series = std::vector<double>;
using Real = long double;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

bool has(double value)
{
    return !std::isnan(value);
}

bool holds(double condition)
{
    return has(condition) && condition != 0.0;
}

/// Number of bars that a period means; -1 for none.
int periodOf(double number)
{
    return !has(number) || number <= -1.0 ? -1 : static_cast<int>(std::min(std::trunc(number), 1e6));
}

/// What the functions are given: A, B and C of a bar are its open, close and high, the bar's own period its
/// volume.
struct Given
{
    const BarSeries& bars;
    const Series &a, &b, &c;
    Series periods; ///< by bar
    bool isFixed;   ///< the same period on all bars

    explicit Given(const BarSeries& given, double period)
        : Given(given, Series(given.size(), period), true)
    {
    }
    explicit Given(const BarSeries& given)
        : Given(given, given.volume, false)
    {
    }

private:
    Given(const BarSeries& given, Series everyPeriod, bool fixed)
        : bars(given)
        , a(given.open)
        , b(given.close)
        , c(given.high)
        , periods(std::move(everyPeriod))
        , isFixed(fixed)
    {
    }
};

using Plain = std::function<double(const Given&, std::size_t bar)>;

/// One function and what it should answer.
struct Case
{
    const char* name;
    const char* expression; ///< @ stands for the period
    Plain plain;
    double tolerance = 0.0; ///< relative, of numbers above 1
};

/// The values of a window of N bars, oldest first; empty when one is missing or the bars do not suffice.
/// @param takesFewer  whether the values that are there do where the last one is; a fixed period of 0 then
///        takes all of them so far.
Series windowOf(const Given& given, std::size_t bar, bool takesFewer)
{
    Series window;
    int period = periodOf(given.periods[bar]);
    if (takesFewer && given.isFixed && period == 0)
        period = 1'000'000;
    if (period < 1 || !has(given.a[bar]) || (!takesFewer && period > static_cast<int>(bar) + 1))
        return {};
    const std::size_t length = std::min(static_cast<std::size_t>(period), bar + 1);
    for (std::size_t other = bar + 1 - length; other <= bar; ++other) {
        if (has(given.a[other]))
            window.push_back(given.a[other]);
        else if (!takesFewer)
            return {};
    }
    return window;
}

Plain ofWindow(double (*answer)(const Series&), bool takesFewer = false)
{
    return [=](const Given& given, std::size_t bar) {
        const Series window = windowOf(given, bar, takesFewer);
        return window.empty() ? kNone : answer(window);
    };
}

Real meanOf(const Series& window)
{
    Real sum = 0;
    for (const double value : window)
        sum += value;
    return sum / static_cast<Real>(window.size());
}

Real squaresOf(const Series& window)
{
    Real squares = 0;
    for (const double value : window)
        squares += (value - meanOf(window)) * (value - meanOf(window));
    return squares;
}

/// The least-squares line through the window at a place, counted in bars from its middle.
double lineAt(const Series& window, Real place, bool withHeight)
{
    if (window.size() < 2)
        return kNone;
    Real products = 0, squares = 0;
    for (std::size_t k = 0; k < window.size(); ++k) {
        const Real x = static_cast<Real>(k) - static_cast<Real>(window.size() - 1) / 2;
        products += x * window[k];
        squares += x * x;
    }
    return static_cast<double>((withHeight ? meanOf(window) : 0) + place * products / squares);
}

template <class IsBetter>
double bestBars(const Given& given, std::size_t bar, IsBetter isBetter)
{
    const Series window = windowOf(given, bar, true);
    if (window.empty())
        return kNone;
    const double best =
        *std::max_element(window.begin(), window.end(), [&](double a, double b) { return isBetter(b, a); });
    std::size_t back = 0;
    while (given.a[bar - back] != best)
        ++back;
    return static_cast<double>(back);
}

/// How often the condition A held in the window, and how many bars were asked for; nothing without a window.
bool countHeld(const Given& given, std::size_t bar, int& held, int& asked)
{
    asked = periodOf(given.periods[bar]);
    if (asked < 0 || (asked == 0 && !given.isFixed))
        return false;
    const int known = static_cast<int>(bar) + 1;
    asked = asked == 0 ? known : asked;
    held = 0;
    for (int back = 0; back < std::min(asked, known); ++back)
        held += holds(given.a[bar - static_cast<std::size_t>(back)]);
    return true;
}

/// E = w x + (1 - w) E', from the first value on.
template <class WeightOf>
double averaged(const Given& given, std::size_t bar, WeightOf weightOf)
{
    Real average = 0;
    bool isStarted = false;
    double answer = kNone;
    for (std::size_t other = 0; other <= bar; ++other) {
        const double weight = weightOf(other);
        answer = kNone;
        if (!has(given.a[other]) || !(weight >= 0.0 && weight <= 1.0))
            continue;
        average = isStarted
            ? weight * static_cast<Real>(given.a[other]) + (1 - static_cast<Real>(weight)) * average
            : static_cast<Real>(given.a[other]);
        isStarted = true;
        answer = static_cast<double>(average);
    }
    return answer;
}

double wilderStop(const BarSeries& bars, std::size_t until, int start, double step, double limit)
{
    std::vector<std::size_t> used;
    for (std::size_t bar = 0; bar <= until; ++bar) {
        if (has(bars.high[bar]) && has(bars.low[bar]) && has(bars.close[bar]))
            used.push_back(bar);
    }
    const auto first = static_cast<std::size_t>(start);
    if (start < 1 || used.size() < first || used.back() != until)
        return kNone;
    double highest = bars.high[used[0]], lowest = bars.low[used[0]];
    for (std::size_t k = 0; k < first; ++k) {
        highest = std::max(highest, bars.high[used[k]]);
        lowest = std::min(lowest, bars.low[used[k]]);
    }
    bool isRising = bars.close[used[first - 1]] >= bars.close[used[0]];
    double stop = isRising ? lowest : highest, extreme = isRising ? highest : lowest;
    double speed = std::min(step, limit);
    for (std::size_t k = first; k < used.size(); ++k) {
        const double high = bars.high[used[k]], low = bars.low[used[k]];
        const std::size_t one = used[k - 1], two = used[k == 1 ? 0 : k - 2];
        stop += speed * (extreme - stop);
        stop = isRising ? std::min({ stop, bars.low[one], bars.low[two] })
                        : std::max({ stop, bars.high[one], bars.high[two] });
        if (isRising ? low < stop : high > stop) {
            stop = isRising ? std::max(extreme, high) : std::min(extreme, low);
            isRising = !isRising;
            extreme = isRising ? high : low;
            speed = std::min(step, limit);
        } else if (isRising ? high > extreme : low < extreme) {
            extreme = isRising ? high : low;
            speed = std::min(speed + step, limit);
        }
    }
    return stop;
}

std::tm localTime(const BarSeries& bars, std::size_t bar)
{
    return *test::systemTime(bars.timeMs[bar] / 1000);
}

Plain ofTime(int (*part)(const std::tm&))
{
    return [=](const Given& given, std::size_t bar) {
        return static_cast<double>(part(localTime(given.bars, bar)));
    };
}

Plain ofColumn(Series BarSeries::*column)
{
    return [=](const Given& given, std::size_t bar) { return (given.bars.*column)[bar]; };
}

Plain ofOne(double (*answer)(double))
{
    return [=](const Given& given, std::size_t bar) {
        const double value = has(given.a[bar]) ? answer(given.a[bar]) : kNone;
        return std::isfinite(value) ? value : kNone;
    };
}

Plain ofTwo(double (*answer)(double, double))
{
    return [=](const Given& given, std::size_t bar) {
        const bool isThere = has(given.a[bar]) && has(given.b[bar]);
        const double value = isThere ? answer(given.a[bar], given.b[bar]) : kNone;
        return std::isfinite(value) ? value : kNone;
    };
}

Plain ofThree(double (*answer)(double, double, double))
{
    return [=](const Given& given, std::size_t bar) {
        const bool isThere = has(given.a[bar]) && has(given.b[bar]) && has(given.c[bar]);
        return isThere ? answer(given.a[bar], given.b[bar], given.c[bar]) : kNone;
    };
}

double trueRange(const Given& given, std::size_t bar)
{
    const double high = given.bars.high[bar], low = given.bars.low[bar];
    const double before = bar > 0 ? given.bars.close[bar - 1] : kNone;
    if (!has(high) || !has(low) || !has(before))
        return high - low;
    return std::max(high - low, std::max(std::abs(high - before), std::abs(low - before)));
}

/// Bars since A held: last or first.
double barsSince(const Given& given, std::size_t bar, bool last)
{
    double answer = kNone;
    for (std::size_t other = 0; other <= bar; ++other) {
        if (holds(given.a[other]) && (last || !has(answer)))
            answer = static_cast<double>(bar - other);
    }
    return answer;
}

double crossing(const Given& given, std::size_t bar)
{
    if (!has(given.a[bar]) || !has(given.b[bar]) || !(given.a[bar] > given.b[bar]))
        return 0.0;
    for (std::size_t back = bar; back-- > 0;) {
        const double first = given.a[back], second = given.b[back];
        if (has(first) && has(second) && first != second)
            return first < second ? 1.0 : 0.0;
    }
    return 0.0;
}

double longCrossing(const Given& given, std::size_t bar)
{
    const int period = periodOf(given.periods[bar]);
    if (period < 1)
        return kNone;
    bool isCrossing = given.a[bar] > given.b[bar] && static_cast<int>(bar) >= period;
    for (int back = 1; back <= period && isCrossing; ++back) {
        const std::size_t other = bar - static_cast<std::size_t>(back);
        isCrossing = given.a[other] < given.b[other];
    }
    return isCrossing ? 1.0 : 0.0;
}

double filtered(const Given& given, std::size_t bar)
{
    double passes = 0.0;
    for (std::size_t other = 0; other <= bar; ++other) {
        passes = holds(given.a[other]) ? 1.0 : 0.0;
        if (passes == 0.0)
            continue;
        const auto quiet = static_cast<std::size_t>(std::max(periodOf(given.periods[other]), 0));
        if (bar - other > 0 && bar - other <= quiet)
            return 0.0;
        other += std::min(quiet, bar - other);
    }
    return passes;
}

/// E as averaged(), but starting with the mean of the first N values.
double startedByMean(const Given& given, std::size_t bar, Real weightOfNew)
{
    const int period = periodOf(given.periods[0]);
    Real sum = 0, average = 0;
    int seen = 0;
    for (std::size_t other = 0; other <= bar && period >= 1; ++other) {
        if (!has(given.a[other]))
            continue;
        if (++seen <= period)
            average = (sum += given.a[other]) / period;
        else
            average += weightOfNew * (given.a[other] - average);
    }
    return seen >= period && period >= 1 && has(given.a[bar]) ? static_cast<double>(average) : kNone;
}

/// Whether something holds on each of the last N bars.
template <class Holds>
double runs(const Given& given, std::size_t bar, Holds isHeld)
{
    const int period = periodOf(given.periods[bar]);
    if (period < 1)
        return kNone;
    for (int back = 0; back < period; ++back) {
        if (back > static_cast<int>(bar) || !isHeld(bar - static_cast<std::size_t>(back)))
            return 0.0;
    }
    return 1.0;
}

/// The pairs of A and B of the last N bars; empty unless all are there.
std::vector<std::pair<Real, Real>> pairsOf(const Given& given, std::size_t bar)
{
    std::vector<std::pair<Real, Real>> pairs;
    const int period = periodOf(given.periods[bar]);
    if (period < 1 || period > static_cast<int>(bar) + 1)
        return {};
    for (std::size_t other = bar + 1 - static_cast<std::size_t>(period); other <= bar; ++other) {
        if (!has(given.a[other]) || !has(given.b[other]))
            return {};
        pairs.emplace_back(given.a[other], given.b[other]);
    }
    return pairs;
}

struct PairSums
{
    Real count = 0, x = 0, y = 0, xx = 0, yy = 0, xy = 0; ///< the last three about the means
};

Plain ofPairs(Real (*answer)(const PairSums&))
{
    return [=](const Given& given, std::size_t bar) {
        const auto pairs = pairsOf(given, bar);
        PairSums sums;
        sums.count = static_cast<Real>(pairs.size());
        for (const auto& [x, y] : pairs) {
            sums.x += x / sums.count;
            sums.y += y / sums.count;
        }
        for (const auto& [x, y] : pairs) {
            sums.xx += (x - sums.x) * (x - sums.x);
            sums.yy += (y - sums.y) * (y - sums.y);
            sums.xy += (x - sums.x) * (y - sums.y);
        }
        const bool isAnswered = !pairs.empty() && std::isfinite(answer(sums));
        return isAnswered ? static_cast<double>(answer(sums)) : kNone;
    };
}

/// The T-th best of the window of M bars that ends N bars ago, and how long it is since.
template <class IsBetter>
double found(const Given& given, std::size_t bar, std::size_t rank, bool asksBars, IsBetter isBetter)
{
    const int period = periodOf(given.periods[bar]);
    constexpr std::size_t back = 2;
    std::vector<std::pair<double, std::size_t>> values;
    for (std::size_t k = 0; k < static_cast<std::size_t>(std::max(period, 0)) && back + k <= bar; ++k) {
        if (has(given.a[bar - back - k]))
            values.emplace_back(given.a[bar - back - k], back + k);
    }
    std::stable_sort(values.begin(), values.end(),
                     [&](const auto& x, const auto& y) { return isBetter(x.first, y.first); });
    if (rank > static_cast<std::size_t>(std::max(period, 0)) || values.size() < rank)
        return kNone;
    return asksBars ? static_cast<double>(values[rank - 1].second) : values[rank - 1].first;
}

double summedBars(const Given& given, std::size_t bar, double amount)
{
    Real sum = 0;
    for (std::size_t back = 0; back <= bar && has(given.a[bar]); ++back) {
        sum += has(given.a[bar - back]) ? given.a[bar - back] : 0.0;
        if (sum >= static_cast<Real>(amount))
            return static_cast<double>(back + 1);
    }
    return kNone;
}

template <class IsBetter>
double betterThanBefore(const Given& given, std::size_t bar, IsBetter isBetter)
{
    if (!has(given.a[bar]))
        return kNone;
    std::size_t back = 1;
    while (back <= bar && (!has(given.a[bar - back]) || isBetter(given.a[bar], given.a[bar - back])))
        ++back;
    return static_cast<double>(back - 1);
}

/// Whether A held on all, or on any, of the bars from N to 2 ago.
double heldBetween(const Given& given, std::size_t bar, bool onAll)
{
    const int period = periodOf(given.periods[bar]), here = static_cast<int>(bar);
    if (period < 0 || (period != 0 && period < 2))
        return kNone;
    const int first = period == 0 ? here : period;
    if (here < 2 || (onAll && first > here))
        return 0.0;
    for (int back = 2; back <= std::min(first, here); ++back) {
        if (holds(given.a[bar - static_cast<std::size_t>(back)]) != onAll)
            return onAll ? 0.0 : 1.0;
    }
    return onAll ? 1.0 : 0.0;
}

/// Of the bars on which A holds, from the last one back, those that are not among the N before another.
double filteredBackwards(const Given& given, std::size_t bar)
{
    for (std::size_t other = given.a.size(); other-- > bar;) {
        if (!holds(given.a[other]))
            continue;
        if (other == bar)
            return 1.0;
        const auto quiet = static_cast<std::size_t>(std::max(periodOf(given.periods[other]), 0));
        if (other - bar <= quiet)
            return 0.0;
        other -= quiet;
    }
    return 0.0;
}

double setBackwards(const Given& given, std::size_t bar)
{
    for (std::size_t other = bar; other < given.a.size(); ++other) {
        if (holds(given.a[other])
            && other < bar + static_cast<std::size_t>(std::max(periodOf(given.periods[other]), 0)))
            return 1.0;
    }
    return 0.0;
}

/// The kind of signal that passes: 1 for A after another kind, 2 for B after A.
double takenInTurns(const Given& given, std::size_t bar)
{
    double last = 0.0, passed = 0.0;
    for (std::size_t other = 0; other <= bar; ++other) {
        passed = 0.0;
        if (last != 1.0 && holds(given.a[other]))
            passed = 1.0;
        else if (last == 1.0 && holds(given.b[other]))
            passed = 2.0;
        last = passed != 0.0 ? passed : last;
    }
    return passed;
}

double referred(const Given& given, std::size_t bar, bool ahead)
{
    const int period = periodOf(given.periods[bar]);
    const auto bars = static_cast<std::size_t>(std::max(period, 0));
    if (period < 0 || (ahead ? bar + bars >= given.a.size() : bars > bar))
        return kNone;
    return given.a[ahead ? bar + bars : bar - bars];
}

constexpr double kSums = 1e-9;

/// Functions of a number of bars that may differ from bar to bar.
std::vector<Case> casesWithAnyPeriod()
{
    return {
        { "REF", "REF(O,@)", [](const Given& g, std::size_t bar) { return referred(g, bar, false); } },
        { "REFX", "REFX(O,@)", [](const Given& g, std::size_t bar) { return referred(g, bar, true); } },
        { "MA", "MA(O,@)", ofWindow([](const Series& w) { return static_cast<double>(meanOf(w)); }), kSums },
        { "WMA", "WMA(O,@)", ofWindow([](const Series& w) {
              Real sum = 0, weights = 0;
              for (std::size_t k = 0; k < w.size(); ++k) {
                  sum += static_cast<Real>(k + 1) * w[k];
                  weights += static_cast<Real>(k + 1);
              }
              return static_cast<double>(sum / weights);
          }),
          kSums },
        { "SUM", "SUM(O,@)",
          ofWindow(
              [](const Series& w) { return static_cast<double>(meanOf(w) * static_cast<Real>(w.size())); },
              true),
          kSums },
        { "HHV", "HHV(O,@)",
          ofWindow([](const Series& w) { return *std::max_element(w.begin(), w.end()); }, true) },
        { "LLV", "LLV(O,@)",
          ofWindow([](const Series& w) { return *std::min_element(w.begin(), w.end()); }, true) },
        { "HHVBARS", "HHVBARS(O,@)",
          [](const Given& g, std::size_t bar) { return bestBars(g, bar, std::greater<double>()); } },
        { "LLVBARS", "LLVBARS(O,@)",
          [](const Given& g, std::size_t bar) { return bestBars(g, bar, std::less<double>()); } },
        { "STD", "STD(O,@)", ofWindow([](const Series& w) {
              const auto others = static_cast<Real>(std::max<std::size_t>(w.size() - 1, 1));
              return static_cast<double>(std::sqrt(squaresOf(w) / others));
          }),
          kSums },
        { "STDP", "STDP(O,@)", ofWindow([](const Series& w) {
              return static_cast<double>(std::sqrt(squaresOf(w) / static_cast<Real>(w.size())));
          }),
          kSums },
        { "VAR", "VAR(O,@)", ofWindow([](const Series& w) {
              return static_cast<double>(squaresOf(w)
                                         / static_cast<Real>(std::max<std::size_t>(w.size() - 1, 1)));
          }),
          kSums },
        { "VARP", "VARP(O,@)", ofWindow([](const Series& w) {
              return static_cast<double>(squaresOf(w) / static_cast<Real>(w.size()));
          }),
          kSums },
        { "DEVSQ", "DEVSQ(O,@)", ofWindow([](const Series& w) { return static_cast<double>(squaresOf(w)); }),
          kSums },
        { "AVEDEV", "AVEDEV(O,@)", ofWindow([](const Series& w) {
              Real sum = 0;
              for (const double value : w)
                  sum += std::abs(value - meanOf(w));
              return static_cast<double>(sum / static_cast<Real>(w.size()));
          }),
          kSums },
        { "SLOPE", "SLOPE(O,@)", ofWindow([](const Series& w) { return lineAt(w, 1, false); }), kSums },
        { "FORCAST", "FORCAST(O,@)",
          ofWindow([](const Series& w) { return lineAt(w, static_cast<Real>(w.size() - 1) / 2, true); }),
          kSums },
        { "COUNT", "COUNT(O,@)",
          [](const Given& g, std::size_t bar) {
              int held = 0, asked = 0;
              return countHeld(g, bar, held, asked) ? held : kNone;
          } },
        { "EVERY", "EVERY(O,@)",
          [](const Given& g, std::size_t bar) {
              int held = 0, asked = 0;
              return countHeld(g, bar, held, asked) ? static_cast<double>(held == asked) : kNone;
          } },
        { "EXIST", "EXIST(O,@)",
          [](const Given& g, std::size_t bar) {
              int held = 0, asked = 0;
              return countHeld(g, bar, held, asked) ? static_cast<double>(held > 0) : kNone;
          } },
        { "FILTER", "FILTER(O,@)", filtered },
        { "REFV", "REFV(O,@)", [](const Given& g, std::size_t bar) { return referred(g, bar, false); } },
        { "REFXV", "REFXV(O,@)", [](const Given& g, std::size_t bar) { return referred(g, bar, true); } },
        { "MULAR", "MULAR(O/9,@)", ofWindow([](const Series& w) {
              Real product = 1;
              for (const double value : w)
                  product *= static_cast<Real>(value / 9);
              return static_cast<double>(product);
          }),
          kSums },
        { "BARSSINCEN", "BARSSINCEN(O,@)",
          [](const Given& g, std::size_t bar) {
              int held = 0, asked = 0;
              if (!countHeld(g, bar, held, asked) || held == 0)
                  return kNone;
              int back = std::min(asked, static_cast<int>(bar) + 1) - 1;
              while (!holds(g.a[bar - static_cast<std::size_t>(back)]))
                  --back;
              return static_cast<double>(back);
          } },
        { "UPNDAY", "UPNDAY(O,@)",
          [](const Given& g, std::size_t bar) {
              return runs(g, bar, [&](std::size_t k) { return k > 0 && g.a[k] > g.a[k - 1]; });
          } },
        { "DOWNNDAY", "DOWNNDAY(O,@)",
          [](const Given& g, std::size_t bar) {
              return runs(g, bar, [&](std::size_t k) { return k > 0 && g.a[k] < g.a[k - 1]; });
          } },
        { "NDAY", "NDAY(O,C,@)",
          [](const Given& g, std::size_t bar) {
              return runs(g, bar, [&](std::size_t k) { return g.a[k] > g.b[k]; });
          } },
        { "COVAR", "COVAR(O,C,@)", ofPairs([](const PairSums& s) { return s.xy / s.count; }), kSums },
        { "RELATE", "RELATE(O,C,@)", ofPairs([](const PairSums& s) { return s.xy / std::sqrt(s.xx * s.yy); }),
          kSums },
        { "BETA", "BETA(O,C,@)", ofPairs([](const PairSums& s) { return s.xy / s.yy; }), kSums },
        { "RSQ", "RSQ(O,C,@)", ofPairs([](const PairSums& s) { return s.xy * s.xy / (s.xx * s.yy); }),
          kSums },
        { "FINDHIGH", "FINDHIGH(O,2,@,3)",
          [](const Given& g, std::size_t bar) { return found(g, bar, 3, false, std::greater<double>()); } },
        { "FINDHIGHBARS", "FINDHIGHBARS(O,2,@,3)",
          [](const Given& g, std::size_t bar) { return found(g, bar, 3, true, std::greater<double>()); } },
        { "FINDLOW", "FINDLOW(O,2,@,1)",
          [](const Given& g, std::size_t bar) { return found(g, bar, 1, false, std::less<double>()); } },
        { "FINDLOWBARS", "FINDLOWBARS(O,2,@,2)",
          [](const Given& g, std::size_t bar) { return found(g, bar, 2, true, std::less<double>()); } },
        { "LAST", "LAST(O,@,2)", [](const Given& g, std::size_t bar) { return heldBetween(g, bar, true); } },
        { "EXISTR", "EXISTR(O,@,2)",
          [](const Given& g, std::size_t bar) { return heldBetween(g, bar, false); } },
        { "BACKSET", "BACKSET(O,@)", setBackwards },
        { "FILTERX", "FILTERX(O,@)", filteredBackwards },
    };
}

/// Functions of a number of bars that is the same for all.
std::vector<Case> casesWithFixedPeriod()
{
    return {
        { "EMA", "EMA(O,@)",
          [](const Given& g, std::size_t bar) {
              const int period = periodOf(g.periods[0]);
              return averaged(g, bar, [&](std::size_t) { return period >= 1 ? 2.0 / (period + 1) : kNone; });
          },
          kSums },
        { "SMA", "SMA(O,@,2)",
          [](const Given& g, std::size_t bar) {
              const int period = periodOf(g.periods[0]);
              return averaged(g, bar, [&](std::size_t) { return period >= 2 ? 2.0 / period : kNone; });
          },
          kSums },
        { "EXPMEMA", "EXPMEMA(O,@)",
          [](const Given& g, std::size_t bar) {
              return startedByMean(g, bar, Real(2) / (periodOf(g.periods[0]) + 1));
          },
          kSums },
        { "MEMA", "MEMA(O,@)",
          [](const Given& g, std::size_t bar) {
              return startedByMean(g, bar, Real(1) / periodOf(g.periods[0]));
          },
          kSums },
        { "LONGCROSS", "LONGCROSS(O,C,@)", longCrossing },
        { "SAR", "SAR(@,2,20)",
          [](const Given& g, std::size_t bar) {
              return wilderStop(g.bars, bar, periodOf(g.periods[0]), 0.02, 0.2);
          },
          kSums },
    };
}

/// Where a series turns by a share: pairs of bar and direction before the turn.
std::vector<std::pair<std::size_t, int>> turningsOf(const Series& values, double share)
{
    std::vector<std::pair<std::size_t, int>> turnings;
    std::size_t high = values.size(), low = values.size();
    int direction = 0;
    for (std::size_t bar = 0; bar < values.size(); ++bar) {
        const double value = values[bar];
        if (!has(value))
            continue;
        if (high == values.size())
            high = low = bar;
        if (direction != -1 && value > values[high])
            high = bar;
        if (direction != 1 && value < values[low])
            low = bar;
        const double fallen = values[high] - value, risen = value - values[low];
        if (direction != -1 && fallen > 0 && fallen >= share * std::abs(values[high])) {
            turnings.emplace_back(high, 1);
            direction = -1;
            low = bar;
        } else if (direction != 1 && risen > 0 && risen >= share * std::abs(values[low])) {
            turnings.emplace_back(low, -1);
            direction = 1;
            high = bar;
        }
    }
    return turnings;
}

/// The second last turning of a direction up to a bar.
double turning(const Given& given, std::size_t bar, int direction, bool asksBars)
{
    int left = 2;
    const auto turnings = turningsOf(given.a, 0.07);
    for (auto turn = turnings.rbegin(); turn != turnings.rend(); ++turn) {
        if (turn->second == direction && turn->first <= bar && --left == 0)
            return asksBars ? static_cast<double>(bar - turn->first) : given.a[turn->first];
    }
    return kNone;
}

/// The line between the corners around a bar.
double zigzag(const Given& given, std::size_t bar)
{
    std::vector<std::size_t> corners;
    const auto turnings = turningsOf(given.a, 0.07);
    for (std::size_t k = 0; k < given.a.size(); ++k) {
        if (has(given.a[k]) && corners.empty())
            corners.push_back(k);
    }
    for (const auto& turn : turnings)
        corners.push_back(turn.first);
    if (!turnings.empty()) { // the extreme since
        const int rising = -turnings.back().second;
        std::size_t extreme = turnings.back().first;
        for (std::size_t k = extreme; k < given.a.size(); ++k) {
            if (has(given.a[k]) && rising * given.a[k] > rising * given.a[extreme])
                extreme = k;
        }
        corners.push_back(extreme);
    }
    for (std::size_t k = given.a.size(); k-- > 0;) {
        if (has(given.a[k])) {
            corners.push_back(k);
            break;
        }
    }
    for (std::size_t k = 0; k < corners.size(); ++k) {
        if (corners[k] == bar)
            return given.a[bar];
        if (k > 0 && corners[k - 1] < bar && bar < corners[k]) {
            const double part =
                static_cast<double>(bar - corners[k - 1]) / static_cast<double>(corners[k] - corners[k - 1]);
            return given.a[corners[k - 1]] + part * (given.a[corners[k]] - given.a[corners[k - 1]]);
        }
    }
    return kNone;
}

/// A column of the index where a bar of it begins with the bar.
Plain ofIndex(Series BarSeries::*column)
{
    return [=](const Given& given, std::size_t bar) {
        const BarSeries& index = *given.bars.index;
        for (std::size_t other = 0; other < index.size(); ++other) {
            if (index.timeMs[other] == given.bars.timeMs[bar])
                return (index.*column)[other];
        }
        return kNone;
    };
}

/// The code of the median distance between two bars.
double periodCode(const Given& given, std::size_t)
{
    std::vector<double> minutes;
    for (std::size_t bar = 1; bar < given.bars.size(); ++bar) {
        const std::int64_t wholeMinutes = (given.bars.timeMs[bar] - given.bars.timeMs[bar - 1]) / 60'000;
        minutes.push_back(static_cast<double>(wholeMinutes));
    }
    if (minutes.empty())
        return kNone;
    std::sort(minutes.begin(), minutes.end());
    const double middle = minutes[minutes.size() / 2];
    const std::pair<double, double> codes[] = { { 5, 0 },     { 15, 1 },     { 30, 2 },
                                                { 60, 3 },    { 1440, 4 },   { 8640, 5 },
                                                { 38880, 6 }, { 115200, 7 }, { 432000, 10 } };
    for (const auto& [below, code] : codes) {
        if (middle < below)
            return code;
    }
    return 11;
}

double lastOfDate(const Given& given, std::size_t bar)
{
    const std::tm asked = localTime(given.bars, given.bars.size() / 2);
    double answer = kNone;
    static_cast<void>(bar);
    for (std::size_t other = 0; other < given.bars.size(); ++other) {
        const std::tm time = localTime(given.bars, other);
        if (time.tm_year == asked.tm_year && time.tm_yday == asked.tm_yday)
            answer = given.a[other];
    }
    return answer;
}

/// Series and functions without a number of bars.
std::vector<Case> casesWithoutPeriod()
{
    return {
        { "OPEN", "OPEN", ofColumn(&BarSeries::open) },
        { "O", "O", ofColumn(&BarSeries::open) },
        { "HIGH", "HIGH", ofColumn(&BarSeries::high) },
        { "H", "H", ofColumn(&BarSeries::high) },
        { "LOW", "LOW", ofColumn(&BarSeries::low) },
        { "L", "L", ofColumn(&BarSeries::low) },
        { "CLOSE", "CLOSE", ofColumn(&BarSeries::close) },
        { "C", "C", ofColumn(&BarSeries::close) },
        { "VOL", "VOL", ofColumn(&BarSeries::volume) },
        { "V", "V", ofColumn(&BarSeries::volume) },
        { "AMOUNT", "AMOUNT", ofColumn(&BarSeries::amount) },
        { "OPENINT", "OPENINT", ofColumn(&BarSeries::openInterest) },
        { "TR", "TR", trueRange },
        { "DATE", "DATE",
          ofTime([](const std::tm& t) { return t.tm_year * 10'000 + (t.tm_mon + 1) * 100 + t.tm_mday; }) },
        { "TIME", "TIME", ofTime([](const std::tm& t) { return t.tm_hour * 100 + t.tm_min; }) },
        { "YEAR", "YEAR", ofTime([](const std::tm& t) { return t.tm_year + 1900; }) },
        { "MONTH", "MONTH", ofTime([](const std::tm& t) { return t.tm_mon + 1; }) },
        { "DAY", "DAY", ofTime([](const std::tm& t) { return t.tm_mday; }) },
        { "WEEKDAY", "WEEKDAY", ofTime([](const std::tm& t) { return t.tm_wday; }) },
        { "HOUR", "HOUR", ofTime([](const std::tm& t) { return t.tm_hour; }) },
        { "MINUTE", "MINUTE", ofTime([](const std::tm& t) { return t.tm_min; }) },
        { "BARPOS", "BARPOS", [](const Given&, std::size_t bar) { return static_cast<double>(bar) + 1.0; } },
        { "ISLASTBAR", "ISLASTBAR",
          [](const Given& g, std::size_t bar) { return bar + 1 == g.a.size() ? 1.0 : 0.0; } },
        { "DRAWNULL", "DRAWNULL", [](const Given&, std::size_t) { return kNone; } },
        { "BARSLAST", "BARSLAST(O)",
          [](const Given& g, std::size_t bar) { return barsSince(g, bar, true); } },
        { "BARSSINCE", "BARSSINCE(O)",
          [](const Given& g, std::size_t bar) { return barsSince(g, bar, false); } },
        { "BARSCOUNT", "BARSCOUNT(O)",
          [](const Given& g, std::size_t bar) {
              const auto first = std::find_if(g.a.begin(), g.a.end(), has) - g.a.begin();
              return static_cast<long>(bar) < first ? kNone
                                                    : static_cast<double>(static_cast<long>(bar) - first + 1);
          } },
        { "INDEXO", "INDEXO", ofIndex(&BarSeries::open) },
        { "INDEXH", "INDEXH", ofIndex(&BarSeries::high) },
        { "INDEXL", "INDEXL", ofIndex(&BarSeries::low) },
        { "INDEXC", "INDEXC", ofIndex(&BarSeries::close) },
        { "INDEXV", "INDEXV", ofIndex(&BarSeries::volume) },
        { "INDEXA", "INDEXA", ofIndex(&BarSeries::amount) },
        { "CAPITAL", "CAPITAL", [](const Given& g, std::size_t) { return g.bars.floatingShares; } },
        { "TOTALCAPITAL", "TOTALCAPITAL", [](const Given&, std::size_t) { return kNone; } },
        { "PERIOD", "PERIOD", periodCode },
        { "CURRBARSCOUNT", "CURRBARSCOUNT",
          [](const Given& g, std::size_t bar) { return static_cast<double>(g.a.size() - bar); } },
        { "TOTALBARSCOUNT", "TOTALBARSCOUNT",
          [](const Given& g, std::size_t) { return static_cast<double>(g.a.size()); } },
        { "CONST", "CONST(O)", [](const Given& g, std::size_t) { return g.a.back(); } },
        { "REFDATE", "REFDATE(O,CONST(REF(DATE,INTPART((TOTALBARSCOUNT-1)/2))))", lastOfDate },
        { "TMA", "TMA(O,0.7,0.4)",
          [](const Given& g, std::size_t bar) {
              Real average = 0;
              bool isStarted = false;
              for (std::size_t other = 0; other <= bar; ++other) {
                  if (!has(g.a[other]))
                      continue;
                  average = isStarted ? Real(0.7) * average + Real(0.4) * g.a[other] : Real(g.a[other]);
                  isStarted = true;
              }
              return has(g.a[bar]) ? static_cast<double>(average) : kNone;
          },
          kSums },
        { "TFILTER", "TFILTER(O,C,0)", takenInTurns },
        { "TFILTER", "TFILTER(O,C,1)",
          [](const Given& g, std::size_t bar) { return takenInTurns(g, bar) == 1.0 ? 1.0 : 0.0; } },
        { "TFILTER", "TFILTER(O,C,2)",
          [](const Given& g, std::size_t bar) { return takenInTurns(g, bar) == 2.0 ? 1.0 : 0.0; } },
        { "VALUEWHEN", "VALUEWHEN(O,C)",
          [](const Given& g, std::size_t bar) {
              for (std::size_t back = 0; back <= bar; ++back) {
                  if (holds(g.a[bar - back]))
                      return g.b[bar - back];
              }
              return kNone;
          } },
        { "BARSLASTCOUNT", "BARSLASTCOUNT(O)",
          [](const Given& g, std::size_t bar) {
              std::size_t run = 0;
              while (run <= bar && holds(g.a[bar - run]))
                  ++run;
              return static_cast<double>(run);
          } },
        { "SUMBARS", "SUMBARS(O,13.25)",
          [](const Given& g, std::size_t bar) { return summedBars(g, bar, 13.25); } },
        { "TOPRANGE", "TOPRANGE(O)",
          [](const Given& g, std::size_t bar) { return betterThanBefore(g, bar, std::greater<double>()); } },
        { "LOWRANGE", "LOWRANGE(O)",
          [](const Given& g, std::size_t bar) { return betterThanBefore(g, bar, std::less<double>()); } },
        { "ZIG", "ZIG(O,7)", zigzag, kSums },
        { "ZIG", "ZIG(0,7)", zigzag, kSums },
        { "PEAK", "PEAK(O,7,2)", [](const Given& g, std::size_t bar) { return turning(g, bar, 1, false); } },
        { "PEAKBARS", "PEAKBARS(0,7,2)",
          [](const Given& g, std::size_t bar) { return turning(g, bar, 1, true); } },
        { "TROUGH", "TROUGH(O,7,2)",
          [](const Given& g, std::size_t bar) { return turning(g, bar, -1, false); } },
        { "TROUGHBARS", "TROUGHBARS(O,7,2)",
          [](const Given& g, std::size_t bar) { return turning(g, bar, -1, true); } },
        { "DMA", "DMA(O,ABS(C)/20)",
          [](const Given& g, std::size_t bar) {
              return averaged(g, bar, [&](std::size_t other) { return std::abs(g.b[other]) / 20.0; });
          },
          kSums },
        { "CROSS", "CROSS(O,C)", crossing },
        { "IF", "IF(O,C,H)",
          [](const Given& g, std::size_t bar) {
              if (!has(g.a[bar]))
                  return kNone;
              return g.a[bar] != 0.0 ? g.b[bar] : g.c[bar];
          } },
        { "IFF", "IFF(O,C,H)",
          [](const Given& g, std::size_t bar) {
              if (!has(g.a[bar]))
                  return kNone;
              return g.a[bar] != 0.0 ? g.b[bar] : g.c[bar];
          } },
        { "IFN", "IFN(O,C,H)",
          [](const Given& g, std::size_t bar) {
              if (!has(g.a[bar]))
                  return kNone;
              return g.a[bar] != 0.0 ? g.c[bar] : g.b[bar];
          } },
        { "ISVALID", "ISVALID(O)",
          [](const Given& g, std::size_t bar) { return has(g.a[bar]) ? 1.0 : 0.0; } },
        { "FLOOR", "FLOOR(O)", ofOne([](double x) { return std::floor(x); }) },
        { "CEILING", "CEILING(O)", ofOne([](double x) { return -std::floor(-x); }) },
        { "FRACPART", "FRACPART(O)", ofOne([](double x) { return std::fmod(x, 1.0); }) },
        { "ASIN", "ASIN(O/9)", ofOne([](double x) { return std::asin(x / 9); }) },
        { "ACOS", "ACOS(O/9)", ofOne([](double x) { return std::acos(x / 9); }) },
        { "ATAN", "ATAN(O)", ofOne([](double x) { return std::atan(x); }) },
        { "==", "O==C", ofTwo([](double a, double b) { return a < b || a > b ? 0.0 : 1.0; }) },
        { "!=", "O!=C", ofTwo([](double a, double b) { return a < b || a > b ? 1.0 : 0.0; }) },
        { "ISNULL", "ISNULL(O)", [](const Given& g, std::size_t bar) { return has(g.a[bar]) ? 0.0 : 1.0; } },
        { "BETWEEN", "BETWEEN(O,C,H)", ofThree([](double x, double a, double b) {
              return static_cast<double>((a <= x && x <= b) || (b <= x && x <= a));
          }) },
        { "RANGE", "RANGE(O,C,H)", ofThree([](double x, double a, double b) {
              return static_cast<double>((a < x && x < b) || (b < x && x < a));
          }) },
        { "MAX", "MAX(O,C)", ofTwo([](double a, double b) { return a > b ? a : b; }) },
        { "MIN", "MIN(O,C)", ofTwo([](double a, double b) { return a < b ? a : b; }) },
        { "ABS", "ABS(O)", ofOne([](double x) { return x < 0 ? -x : x; }) },
        { "SGN", "SGN(O)", ofOne([](double x) { return x > 0 ? 1.0
                                                    : x < 0  ? -1.0
                                                             : 0.0; }) },
        { "INTPART", "INTPART(O)", ofOne([](double x) { return x < 0 ? std::ceil(x) : std::floor(x); }) },
        { "ROUND", "ROUND(O)",
          ofOne([](double x) { return x < 0 ? std::ceil(x - 0.5) : std::floor(x + 0.5); }) },
        { "MOD", "MOD(O,C)", ofTwo([](double a, double b) { return std::fmod(a, b); }) },
        { "POW", "POW(O,C)", ofTwo([](double a, double b) { return std::pow(a, b); }) },
        { "SQRT", "SQRT(O)", ofOne([](double x) { return std::sqrt(x); }) },
        { "EXP", "EXP(O)", ofOne([](double x) { return std::exp(x); }) },
        { "LN", "LN(O)", ofOne([](double x) { return std::log(x); }) },
        { "LOG", "LOG(O)", ofOne([](double x) { return std::log10(x); }) },
        { "SIN", "SIN(O)", ofOne([](double x) { return std::sin(x); }) },
        { "COS", "COS(O)", ofOne([](double x) { return std::cos(x); }) },
        { "TAN", "TAN(O)", ofOne([](double x) { return std::tan(x); }) },
        { "+", "O+C", ofTwo([](double a, double b) { return a + b; }) },
        { "-", "O-C", ofTwo([](double a, double b) { return a - b; }) },
        { "*", "O*C", ofTwo([](double a, double b) { return a * b; }) },
        { "/", "O/C", ofTwo([](double a, double b) { return a / b; }) },
        { "-", "-O", ofOne([](double x) { return -x; }) },
        { ">", "O>C", ofTwo([](double a, double b) { return a > b ? 1.0 : 0.0; }) },
        { "<", "O<C", ofTwo([](double a, double b) { return a < b ? 1.0 : 0.0; }) },
        { ">=", "O>=C", ofTwo([](double a, double b) { return a < b ? 0.0 : 1.0; }) },
        { "<=", "O<=C", ofTwo([](double a, double b) { return a > b ? 0.0 : 1.0; }) },
        { "=", "O=C", ofTwo([](double a, double b) { return a < b || a > b ? 0.0 : 1.0; }) },
        { "<>", "O<>C", ofTwo([](double a, double b) { return a < b || a > b ? 1.0 : 0.0; }) },
        { "AND", "O AND C", ofTwo([](double a, double b) { return a != 0 && b != 0 ? 1.0 : 0.0; }) },
        { "OR", "O||C", ofTwo([](double a, double b) { return a == 0 && b == 0 ? 0.0 : 1.0; }) },
        { "NOT", "NOT O", ofOne([](double x) { return x == 0 ? 1.0 : 0.0; }) },
    };
}

/// Bars whose columns have nothing to do with one another: values that often meet, and gaps.
BarSeries looseBars(unsigned seed)
{
    std::mt19937 random(seed);
    const auto chance = [&](double likely) { return std::bernoulli_distribution(likely)(random); };
    const std::size_t count = std::uniform_int_distribution<std::size_t>(1, 90)(random);
    const double gaps = chance(0.3) ? 0.0 : chance(0.5) ? 0.03 : 0.3;
    const double holding = chance(0.5) ? 0.1 : 0.8; // conditions that seldom and often fail
    const auto fill = [&](Series& column, double least, double greatest) {
        std::uniform_real_distribution<double> value(least, greatest);
        for (std::size_t bar = 0; bar < count; ++bar) {
            const double drawn = chance(0.5) ? std::round(value(random)) : value(random);
            column.push_back(chance(gaps) ? kNone : chance(holding) ? drawn : 0.0);
        }
    };
    BarSeries bars;
    fill(bars.open, -20.0, 20.0);
    fill(bars.high, -20.0, 20.0);
    fill(bars.low, -20.0, 20.0);
    fill(bars.close, -20.0, 20.0);
    fill(bars.volume, -2.0, 25.0); // also periods
    fill(bars.amount, 0.0, 1e9);
    fill(bars.openInterest, 0.0, 1e6);
    std::int64_t time = 946'684'800'000; // 2000-01-01
    for (std::size_t bar = 0; bar < count; ++bar)
        bars.timeMs.push_back(time +=
                              std::uniform_int_distribution<std::int64_t>(1, 40'000)(random) * 60'000);
    bars.floatingShares = 1234.5;
    BarSeries index = bars;
    for (std::int64_t& indexTime : index.timeMs)
        indexTime += chance(0.3) ? 60'000 : 0; // no bar of its own
    std::shuffle(index.open.begin(), index.open.end(), random);
    bars.index = std::make_shared<const BarSeries>(std::move(index));
    return bars;
}

std::string replaced(std::string expression, const std::string& period)
{
    if (const std::size_t place = expression.find('@'); place != std::string::npos)
        expression.replace(place, 1, period);
    return expression;
}

/// The bare values of an expression.
Series valuesOf(const std::string& expression, const BarSeries& bars)
{
    const engine::FormulaReading reading = engine::readFormula("R:" + expression + ",NODRAW;");
    if (!reading.formula) {
        ADD_FAILURE() << expression << ": " << reading.problems.front().english;
        return {};
    }
    engine::FormulaEvaluation evaluation(reading.formula);
    evaluation.update(bars);
    return evaluation.records().result.numberSeries.at(0);
}

void expectPlain(const Case& asked, const std::string& period, const Given& given, unsigned seed)
{
    const std::string expression = replaced(asked.expression, period);
    const Series computed = valuesOf(expression, given.bars);
    ASSERT_EQ(computed.size(), given.bars.size()) << expression;
    for (std::size_t bar = 0; bar < computed.size(); ++bar) {
        const double expected = asked.plain(given, bar), actual = computed[bar];
        const double allowed = asked.tolerance * std::max(1.0, std::abs(expected));
        const bool isSame = has(expected) ? std::abs(actual - expected) <= allowed : !has(actual);
        ASSERT_TRUE(isSame) << expression << ", seed " << seed << ", bar " << bar << ": " << actual
                            << " instead of " << expected;
    }
}

constexpr unsigned kSeeds = 60;
constexpr double kPeriods[] = { 1, 2, 5, 20, 200, 0, -1, -3, 2.7, 0.5 };

void expectPlainForFixedPeriods(const std::vector<Case>& cases)
{
    for (const unsigned seed : test::seedsFor("FormulaFunctions", kSeeds)) {
        const BarSeries bars = looseBars(seed);
        for (const Case& asked : cases) {
            for (const double period : kPeriods)
                expectPlain(asked, std::to_string(period), Given(bars, period), seed);
        }
        if (testing::Test::HasFailure())
            return;
    }
}

TEST(FormulaFunctions, WithoutAPeriodAnswerAsTheirDefinition)
{
    for (const unsigned seed : test::seedsFor("FormulaFunctions", kSeeds)) {
        const BarSeries bars = looseBars(seed);
        for (const Case& asked : casesWithoutPeriod())
            expectPlain(asked, "", Given(bars, 0.0), seed);
        if (HasFailure())
            return;
    }
}

TEST(FormulaFunctions, OfNBarsAnswerAsTheirDefinition)
{
    expectPlainForFixedPeriods(casesWithAnyPeriod());
}

TEST(FormulaFunctions, OfAConstantNumberOfBarsAnswerAsTheirDefinition)
{
    expectPlainForFixedPeriods(casesWithFixedPeriod());
}

TEST(FormulaFunctions, OfANumberOfBarsThatChangesAnswerAsTheirDefinition)
{
    for (const unsigned seed : test::seedsFor("FormulaFunctions", kSeeds)) {
        const BarSeries bars = looseBars(seed);
        for (const Case& asked : casesWithAnyPeriod())
            expectPlain(asked, "VOL", Given(bars), seed);
        if (HasFailure())
            return;
    }
}

TEST(FormulaFunctions, AreAllComparedHere)
{
    std::set<std::string> compared;
    for (const auto& cases : { casesWithoutPeriod(), casesWithAnyPeriod(), casesWithFixedPeriod() }) {
        for (const Case& asked : cases)
            compared.insert(asked.name);
    }
    for (const engine::KnownWord& word : engine::knownWords()) {
        using Kind = engine::KnownWord::Kind;
        if (word.kind == Kind::BarValue || word.kind == Kind::Function) {
            EXPECT_EQ(compared.count(word.name), 1U) << word.name;
        }
    }
}

} // namespace
