/// @file Every function of the formula language against a plain re-statement of it: straight loops for every
/// bar, in long double where values are added up, over random bars with gaps.

#include "engine/evaluation/FormulaEvaluation.h"
#include "tests/support/Seeds.h"

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
    const char* expression; ///< PERIOD stands for the period
    Plain plain;
    double tolerance = 0.0; ///< relative, of numbers above 1
};

/// The values of a window of N bars, oldest first; empty when one is missing or the bars do not suffice.
/// @param zeroIsAll  whether a fixed period of 0 takes all values so far.
Series windowOf(const Given& given, std::size_t bar, bool zeroIsAll)
{
    Series window;
    const int period = periodOf(given.periods[bar]);
    if (given.isFixed && zeroIsAll && period == 0) {
        for (std::size_t other = 0; other <= bar && has(given.a[bar]); ++other) {
            if (has(given.a[other]))
                window.push_back(given.a[other]);
        }
        return window;
    }
    if (period < 1 || period > static_cast<int>(bar) + 1)
        return {};
    for (std::size_t other = bar + 1 - static_cast<std::size_t>(period); other <= bar; ++other) {
        if (!has(given.a[other]))
            return {};
        window.push_back(given.a[other]);
    }
    return window;
}

Plain ofWindow(double (*answer)(const Series&), bool zeroIsAll = false)
{
    return [=](const Given& given, std::size_t bar) {
        const Series window = windowOf(given, bar, zeroIsAll);
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
    const auto seconds = static_cast<std::time_t>(bars.timeMs[bar] / 1000);
    return *std::localtime(&seconds);
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
        { "REF", "REF(O,PERIOD)", [](const Given& g, std::size_t bar) { return referred(g, bar, false); } },
        { "REFX", "REFX(O,PERIOD)", [](const Given& g, std::size_t bar) { return referred(g, bar, true); } },
        { "MA", "MA(O,PERIOD)", ofWindow([](const Series& w) { return static_cast<double>(meanOf(w)); }),
          kSums },
        { "WMA", "WMA(O,PERIOD)", ofWindow([](const Series& w) {
              Real sum = 0, weights = 0;
              for (std::size_t k = 0; k < w.size(); ++k) {
                  sum += static_cast<Real>(k + 1) * w[k];
                  weights += static_cast<Real>(k + 1);
              }
              return static_cast<double>(sum / weights);
          }),
          kSums },
        { "SUM", "SUM(O,PERIOD)",
          ofWindow(
              [](const Series& w) { return static_cast<double>(meanOf(w) * static_cast<Real>(w.size())); },
              true),
          kSums },
        { "HHV", "HHV(O,PERIOD)",
          ofWindow([](const Series& w) { return *std::max_element(w.begin(), w.end()); }, true) },
        { "LLV", "LLV(O,PERIOD)",
          ofWindow([](const Series& w) { return *std::min_element(w.begin(), w.end()); }, true) },
        { "HHVBARS", "HHVBARS(O,PERIOD)",
          [](const Given& g, std::size_t bar) { return bestBars(g, bar, std::greater<double>()); } },
        { "LLVBARS", "LLVBARS(O,PERIOD)",
          [](const Given& g, std::size_t bar) { return bestBars(g, bar, std::less<double>()); } },
        { "STD", "STD(O,PERIOD)", ofWindow([](const Series& w) {
              const auto others = static_cast<Real>(std::max<std::size_t>(w.size() - 1, 1));
              return static_cast<double>(std::sqrt(squaresOf(w) / others));
          }),
          kSums },
        { "STDP", "STDP(O,PERIOD)", ofWindow([](const Series& w) {
              return static_cast<double>(std::sqrt(squaresOf(w) / static_cast<Real>(w.size())));
          }),
          kSums },
        { "VAR", "VAR(O,PERIOD)", ofWindow([](const Series& w) {
              return static_cast<double>(squaresOf(w)
                                         / static_cast<Real>(std::max<std::size_t>(w.size() - 1, 1)));
          }),
          kSums },
        { "VARP", "VARP(O,PERIOD)", ofWindow([](const Series& w) {
              return static_cast<double>(squaresOf(w) / static_cast<Real>(w.size()));
          }),
          kSums },
        { "DEVSQ", "DEVSQ(O,PERIOD)",
          ofWindow([](const Series& w) { return static_cast<double>(squaresOf(w)); }), kSums },
        { "AVEDEV", "AVEDEV(O,PERIOD)", ofWindow([](const Series& w) {
              Real sum = 0;
              for (const double value : w)
                  sum += std::abs(value - meanOf(w));
              return static_cast<double>(sum / static_cast<Real>(w.size()));
          }),
          kSums },
        { "SLOPE", "SLOPE(O,PERIOD)", ofWindow([](const Series& w) { return lineAt(w, 1, false); }), kSums },
        { "FORCAST", "FORCAST(O,PERIOD)",
          ofWindow([](const Series& w) { return lineAt(w, static_cast<Real>(w.size() - 1) / 2, true); }),
          kSums },
        { "COUNT", "COUNT(O,PERIOD)",
          [](const Given& g, std::size_t bar) {
              int held = 0, asked = 0;
              return countHeld(g, bar, held, asked) ? held : kNone;
          } },
        { "EVERY", "EVERY(O,PERIOD)",
          [](const Given& g, std::size_t bar) {
              int held = 0, asked = 0;
              return countHeld(g, bar, held, asked) ? static_cast<double>(held == asked) : kNone;
          } },
        { "EXIST", "EXIST(O,PERIOD)",
          [](const Given& g, std::size_t bar) {
              int held = 0, asked = 0;
              return countHeld(g, bar, held, asked) ? static_cast<double>(held > 0) : kNone;
          } },
        { "FILTER", "FILTER(O,PERIOD)", filtered },
    };
}

/// Functions of a number of bars that is the same for all.
std::vector<Case> casesWithFixedPeriod()
{
    return {
        { "EMA", "EMA(O,PERIOD)",
          [](const Given& g, std::size_t bar) {
              const int period = periodOf(g.periods[0]);
              return averaged(g, bar, [&](std::size_t) { return period >= 1 ? 2.0 / (period + 1) : kNone; });
          },
          kSums },
        { "SMA", "SMA(O,PERIOD,2)",
          [](const Given& g, std::size_t bar) {
              const int period = periodOf(g.periods[0]);
              return averaged(g, bar, [&](std::size_t) { return period >= 2 ? 2.0 / period : kNone; });
          },
          kSums },
        { "LONGCROSS", "LONGCROSS(O,C,PERIOD)", longCrossing },
        { "SAR", "SAR(PERIOD,2,20)",
          [](const Given& g, std::size_t bar) {
              return wilderStop(g.bars, bar, periodOf(g.periods[0]), 0.02, 0.2);
          },
          kSums },
    };
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
    return bars;
}

std::string replaced(std::string expression, const std::string& period)
{
    if (const std::size_t place = expression.find("PERIOD"); place != std::string::npos)
        expression.replace(place, 6, period);
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
