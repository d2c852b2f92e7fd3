// SPDX-License-Identifier: MIT
#pragma once
/// @file The value range of shown bars, without a look at every bar.

#include "data/RPCFormulaResultCache.h"

#include <QPair>

#include <functional>
#include <optional>
#include <vector>

namespace chart {

/// Ranges of blocks of bars of one result, found when they are first asked for and kept: a range is made of
/// whole blocks and of what the shown bars have of the outer two.
class BlockRanges
{
public:
    static constexpr int kBars = 1024; ///< in a block

    /// What counts, as TC::CDrawStyle::calcMaxMin takes it.
    struct Rule
    {
        bool countZero = true;
        bool useScale = false;
        float scale = 1.0f;
    };

    /// The (maximum, minimum) that calcMaxMin answers of the bars first to last; nothing when none counts.
    /// @param records  the same ones in each call; otherwise forget() comes between. Not changed.
    std::optional<QPair<double, double>> range(TC::RPCFormulaResultCache& records, int first, int last,
                                               const Rule& rule);

    /// The result has been replaced by one that differs from it only in blocks of which that is said.
    /// @param differs  asked of the first and the last bar of each block that is kept.
    void forget(const std::function<bool(int first, int last)>& differs);
    void forget() { m_blocks.clear(); }

private:
    struct Block
    {
        bool isKnown = false;
        std::optional<QPair<double, double>> range;
    };

    const Block& blockOf(TC::RPCFormulaResultCache& records, int number);

    std::vector<Block> m_blocks;
    Rule m_rule; ///< of m_blocks
};

} // namespace chart
