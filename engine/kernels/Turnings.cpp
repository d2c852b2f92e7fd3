// SPDX-License-Identifier: MIT
#include "engine/kernels/KernelRows.h"
#include "engine/kernels/Periods.h"

#include <algorithm>

namespace engine::language {

namespace {

struct Point
{
    std::size_t bar = 0;
    double value = 0.0;
};

/// Where a series turns: an extreme from which it has gone back by at least a share of it.
struct Turnings
{
    std::vector<Point> peaks, troughs;
    std::vector<Point> corners; ///< of the zigzag: the first value, the turnings, the extreme since, the last
};

/// Finds the turnings of a series, from bar to bar. Bars without a value are passed over.
class TurningFinder
{
public:
    explicit TurningFinder(double share)
        : m_share(share)
    {
    }

    void add(std::size_t bar, double value)
    {
        const Point point { bar, value };
        if (m_found.corners.empty()) {
            m_found.corners.push_back(point);
            m_high = m_low = point;
        }
        m_last = point;
        const bool isHigher = value > m_high.value, isLower = value < m_low.value;
        if (isHigher && m_direction >= 0)
            m_high = point;
        if (isLower && m_direction <= 0)
            m_low = point;
        if (m_direction >= 0 && value < m_high.value
            && value <= m_high.value - m_share * std::abs(m_high.value))
            turn(m_found.peaks, m_high, m_low, -1);
        else if (m_direction <= 0 && value > m_low.value
                 && value >= m_low.value + m_share * std::abs(m_low.value))
            turn(m_found.troughs, m_low, m_high, 1);
    }

    Turnings take()
    {
        if (m_direction != 0)
            addCorner(m_direction > 0 ? m_high : m_low);
        if (!m_found.corners.empty())
            addCorner(m_last);
        return std::move(m_found);
    }

private:
    void turn(std::vector<Point>& turnings, const Point& extreme, Point& next, int direction)
    {
        turnings.push_back(extreme);
        addCorner(extreme);
        next = m_last;
        m_direction = direction;
    }

    void addCorner(const Point& corner)
    {
        if (m_found.corners.back().bar < corner.bar)
            m_found.corners.push_back(corner);
    }

    const double m_share;
    Turnings m_found;
    Point m_high, m_low, m_last;
    int m_direction = 0; ///< 1 rising, -1 falling, 0 not known yet
};

/// The series that K asks for: 0 open, 1 high, 2 low, 3 close, or any other.
double valueOf(const Operand& asked, const BarSeries& bars, std::size_t bar)
{
    const std::vector<double>* const columns[] = { &bars.open, &bars.high, &bars.low, &bars.close };
    if (!asked.isConstant)
        return asked[bar];
    const double number = asked[0];
    if (!(number >= 0.0 && number < 4.0))
        return kMissing;
    const std::vector<double>& column = *columns[static_cast<std::size_t>(number)];
    return bar < column.size() ? valueOrMissing(column[bar]) : kMissing;
}

Turnings turningsOf(const Operand* arguments, const Work& work)
{
    const double share = arguments[1][0] / 100.0;
    TurningFinder finder(share);
    for (std::size_t bar = 0; bar < work.count && share > 0.0; ++bar) {
        const double value = valueOf(arguments[0], work.bars, bar);
        if (!isMissing(value))
            finder.add(bar, value);
    }
    return finder.take();
}

/// The lines from corner to corner.
class ZigZagKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        result.fill(0, work.count, kMissing);
        const std::vector<Point> corners = turningsOf(arguments, work).corners;
        if (!corners.empty())
            result[corners[0].bar] = corners[0].value;
        for (std::size_t corner = 1; corner < corners.size(); ++corner) {
            const Point &from = corners[corner - 1], &to = corners[corner];
            const double bars = static_cast<double>(to.bar - from.bar);
            for (std::size_t bar = from.bar + 1; bar <= to.bar; ++bar) {
                const double part = static_cast<double>(bar - from.bar) / bars;
                result[bar] = valueOrMissing(from.value * (1.0 - part) + to.value * part);
            }
        }
    }
};

/// The M-th last peak or trough, or the bars since it.
template <std::vector<Point> Turnings::*Kind, bool kAsksBars>
class TurningKernel : public Kernel
{
public:
    void compute(const Operand* arguments, const Work& work, Result result) override
    {
        const Turnings turnings = turningsOf(arguments, work);
        const std::vector<Point>& points = turnings.*Kind;
        std::size_t passed = 0;
        for (std::size_t bar = 0; bar < work.count; ++bar) {
            while (passed < points.size() && points[passed].bar <= bar)
                ++passed;
            const std::size_t back = barsOf(arguments[2][bar]).value_or(0);
            result[bar] = kMissing;
            if (back == 0 || back > passed)
                continue;
            const Point& point = points[passed - back];
            result[bar] = kAsksBars ? static_cast<double>(bar - point.bar) : point.value;
        }
    }
};

template <std::vector<Point> Turnings::*Kind, bool kAsksBars>
FunctionRow turning(const char* name, const char* chinese, const char* english)
{
    return FunctionRow(name, chinese, english)
        .takes("K,N,M", "scs")
        .looksAheadEndlessly()
        .runs<TurningKernel<Kind, kAsksBars>>();
}

} // namespace

std::vector<Function> turningFunctions()
{
    return {
        FunctionRow("ZIG", "之字转向线，转向幅度为百分之 N（未来数据）",
                    "zigzag of turns by N per cent (looks into the future)")
            .takes("K,N", "sc")
            .looksAheadEndlessly()
            .runs<ZigZagKernel>(),
        turning<&Turnings::peaks, false>("PEAK", "之字转向的前 M 个波峰值（未来数据）",
                                         "the M-th last peak of the zigzag (looks into the future)"),
        turning<&Turnings::peaks, true>("PEAKBARS", "前 M 个波峰至今的根数（未来数据）",
                                        "bars since the M-th last peak (looks into the future)"),
        turning<&Turnings::troughs, false>("TROUGH", "之字转向的前 M 个波谷值（未来数据）",
                                           "the M-th last trough of the zigzag (looks into the future)"),
        turning<&Turnings::troughs, true>("TROUGHBARS", "前 M 个波谷至今的根数（未来数据）",
                                          "bars since the M-th last trough (looks into the future)"),
    };
}

} // namespace engine::language
