// SPDX-License-Identifier: MIT
/// @file Vertical range of what a pane shows, and the candles' mapping of values to rows.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/AxisRow.h"
#include "draw/internal/Numbers.h"
#include "draw/internal/ink/Extremes.h"

#include <algorithm>
#include <optional>

namespace TC {

using namespace detail;

namespace {

using se::DrawType;

/// Widens the caller's range; the first value replaces it.
class RangeGatherer
{
public:
    RangeGatherer(double& max, double& min)
        : m_max(max)
        , m_min(min)
    {
    }

    void count(double value)
    {
        m_max = m_counted ? std::max(m_max, value) : value;
        m_min = m_counted ? std::min(m_min, value) : value;
        m_counted = true;
    }

    void count(const Extremes& extremes)
    {
        if (!extremes.exist())
            return;
        count(extremes.lowest);
        count(extremes.highest);
    }

    /// Deliberate: a flag column widens the range that the caller passed in instead of replacing it, and
    /// the first number after it only widens as well.
    void countFlagColumn()
    {
        m_max = std::max(m_max, 1.0);
        m_min = std::min(m_min, 0.0);
        m_counted = true;
    }

    bool counted() const { return m_counted; }

private:
    double& m_max;
    double& m_min;
    bool m_counted = false;
};

bool lacksBars(const se::RPCFormulaResult& result)
{
    return result.barTimes.empty() || result.columnType.empty() || result.barValid.empty();
}

/// First bar past the walk: after `endIndex`, the last bar or the end of the column's series.
int walkEnd(const se::RPCFormulaResult& result, int endIndex, const ColumnView& values)
{
    const int total = std::min(barTotal(result), values.size());
    return endIndex < total ? endIndex + 1 : total;
}

/// Extremes of a series from `first` on, up to the bar before `end`; a missing flag makes a bar invalid.
Extremes extremesOfBars(const se::RPCFormulaResult& result, const std::vector<double>& series, int first,
                        int end, const CountRule& rule)
{
    const auto begin = static_cast<std::size_t>(std::max(first, 0));
    const std::size_t past = std::min(static_cast<std::size_t>(std::max(end, 0)), result.barValid.size());
    return begin < past
        ? extremesOf(series.data() + begin, result.barValid.data() + begin, past - begin, rule)
        : Extremes();
}

/// Total of a stack at a bar, columns off the axis included; a missing term adds nothing.
double stackedValue(const se::RPCFormulaResult& result, const std::vector<int>& columns, int bar)
{
    double sum = 0.0;
    for (int column : columns)
        sum += ColumnView(result, column).raw(bar).value_or(0.0);
    return sum;
}

/// Counts one column of the all-output range.
struct ColumnScan
{
    const se::RPCFormulaResult& result;
    int startIndex, endIndex;
    bool countZero;
    double factor;
    RangeGatherer& range;

    void scan(int drawType, const std::vector<int>& columns, int column) const
    {
        const ColumnView values(result, column);
        const int* needsAxis = elementAt(result.columnNeedsAxis, column);
        if (values.isText() || !needsAxis || *needsAxis == 0)
            return;
        const int end = walkEnd(result, endIndex, values);
        if (values.isPlainNumber() && drawType != DrawType::Text && drawType != DrawType::StackedVolume) {
            // Deliberate: validity and zero are tested after the factor, so that a scaled missing marker is
            // an ordinary number.
            const CountRule rule { factor, false, countZero ? -1.0 : kTolerance };
            range.count(extremesOfBars(result, *values.values(), startIndex, end, rule));
            return;
        }
        const ColumnView gate(result, columns.front()); // of gated texts
        for (int bar = std::max(startIndex, 0); bar < end; ++bar) {
            if (!isValidBar(result, bar))
                continue;
            if (drawType == DrawType::Text && gate.raw(bar).value_or(0.0) == 0.0)
                continue;
            if (values.isPlainNumber())
                countValue(drawType == DrawType::StackedVolume ? stackedValue(result, columns, bar)
                                                               : *values.raw(bar));
            else if (values.isFlag() && drawType == DrawType::BoolLine)
                range.countFlagColumn();
        }
    }

    void countValue(double value) const
    {
        value *= factor;
        if (!isMissing(value) && (countZero || !isZero(value)))
            range.count(value);
    }
};

} // namespace

bool CDrawStyle::calcMaxMin(double& max, double& min, int startIndex, int endIndex,
                            RPCFormulaResultCache& cache, const QRect&, bool countZero, bool useScale,
                            float scale)
{
    const se::RPCFormulaMetaResult& meta = cache.meta;
    if (lacksBars(cache.result)) {
        max = min = 0.0;
        return false;
    }
    RangeGatherer range(max, min);
    const double factor = useScale ? static_cast<double>(scale) : 1.0;
    const ColumnScan scan { cache.result, startIndex, endIndex, countZero, factor, range };
    const auto described = std::min(meta.drawType.size(), meta.outputColumns.size());
    const int outputs =
        std::min(meta.outputCount, static_cast<int>(std::min<std::size_t>(described, INT_MAX)));
    for (int output = 0; output < outputs; ++output) {
        const int drawType = *elementAt(meta.drawType, output);
        const std::vector<int>& columns = *elementAt(meta.outputColumns, output);
        const int* width = elementAt(meta.lineWidth, output);
        if (!width || *width == 0 || drawType == DrawType::FixedText || columns.empty())
            continue;
        const std::size_t visited = drawType == DrawType::StackedVolume ? 1
            : drawType == DrawType::Text ? std::min<std::size_t>(2, columns.size())
                                         : columns.size();
        for (std::size_t k = 0; k < visited; ++k)
            scan.scan(drawType, columns, columns[k]);
    }
    return range.counted();
}

bool CDrawStyle::calcMaxMin(double& max, double& min, int startIndex, int endIndex,
                            const RPCFormulaResultCache& cache, int outputIndex, const QRect&)
{
    const se::RPCFormulaMetaResult& meta = cache.meta;
    const se::RPCFormulaResult& result = cache.result;
    if (lacksBars(result) || outputIndex < 0 || outputIndex >= meta.outputCount)
        return false;
    const int* width = elementAt(meta.lineWidth, outputIndex);
    const int* drawType = elementAt(meta.drawType, outputIndex);
    const std::vector<int>* columns = elementAt(meta.outputColumns, outputIndex);
    if (!width || *width == 0 || !drawType || !columns)
        return false;

    // Deliberate: zeros, the missing marker and columns off the axis count here; the range of all outputs
    // leaves them out.
    RangeGatherer range(max, min);
    for (int column : *columns) {
        const ColumnView values(result, column);
        if (values.isText())
            continue;
        const int end = walkEnd(result, endIndex, values);
        if (values.isPlainNumber()) {
            range.count(extremesOfBars(result, *values.values(), startIndex, end, { 1.0, true, -1.0 }));
            continue;
        }
        for (int bar = std::max(startIndex, 0); bar < end; ++bar) {
            if (isValidBar(result, bar) && values.isFlag() && *drawType == DrawType::BoolLine)
                range.countFlagColumn();
        }
    }
    return range.counted();
}

int dataToYAxis(double value, int top, int bottom, double max, double min)
{
    return axisRow(value, top, bottom, max, min);
}

} // namespace TC
