// SPDX-License-Identifier: MIT
#include "apps/chart/BlockRanges.h"

#include "draw/CDrawStyle.h"

#include <QRect>

#include <algorithm>

namespace chart {

namespace {

using Range = std::optional<QPair<double, double>>;

/// From zeros on, which flags widen: what a run counts does then not depend on the runs beside it.
Range scanned(TC::RPCFormulaResultCache& records, int first, int last, const BlockRanges::Rule& rule)
{
    double max = 0.0, min = 0.0;
    if (first > last
        || !TC::CDrawStyle::calcMaxMin(max, min, first, last, records, QRect(), rule.countZero, rule.useScale,
                                       rule.scale))
        return std::nullopt;
    return qMakePair(max, min);
}

void widen(Range& range, const Range& other)
{
    if (range && other)
        range = qMakePair(std::max(range->first, other->first), std::min(range->second, other->second));
    else if (other)
        range = other;
}

bool isSame(const BlockRanges::Rule& one, const BlockRanges::Rule& other)
{
    return one.countZero == other.countZero && one.useScale == other.useScale && one.scale == other.scale;
}

} // namespace

Range BlockRanges::range(TC::RPCFormulaResultCache& records, int first, int last, const Rule& rule)
{
    if (!isSame(rule, m_rule)) {
        m_blocks.clear();
        m_rule = rule;
    }
    first = std::max(first, 0);
    last = std::min(last, static_cast<int>(records.result.barTimes.size()) - 1);
    const int firstWhole = first / kBars + (first % kBars == 0 ? 0 : 1), endWhole = (last + 1) / kBars;
    if (firstWhole >= endWhole)
        return scanned(records, first, last, rule);
    Range whole = scanned(records, first, firstWhole * kBars - 1, rule);
    for (int block = firstWhole; block < endWhole; ++block)
        widen(whole, blockOf(records, block).range);
    widen(whole, scanned(records, endWhole * kBars, last, rule));
    return whole;
}

const BlockRanges::Block& BlockRanges::blockOf(TC::RPCFormulaResultCache& records, int number)
{
    const auto index = static_cast<std::size_t>(number);
    if (m_blocks.size() <= index)
        m_blocks.resize(index + 1);
    Block& block = m_blocks[index];
    if (!block.isKnown)
        block = { true, scanned(records, number * kBars, number * kBars + kBars - 1, m_rule) };
    return block;
}

void BlockRanges::forget(const std::function<bool(int first, int last)>& differs)
{
    int first = 0;
    for (Block& block : m_blocks) {
        if (block.isKnown && differs(first, first + kBars - 1))
            block = Block();
        first += kBars;
    }
}

} // namespace chart
