// SPDX-License-Identifier: MIT
#pragma once
/// @file A sound record with one vector damaged, by seed.

#include "data/RPCFormulaResultCache.h"

#include <QPair>
#include <QRect>

#include <random>

namespace test {

/// Random record of `columns` number columns (and one text column) in every output, in which exactly one
/// thing is wrong: a vector cut, emptied or filled with wild indexes, or numbers that are NaN, infinite,
/// DBL_MAX or huge. One fault at a time reaches code that a wholly random record never gets to.
class DamagedFormula
{
public:
    DamagedFormula(unsigned seed, int drawType, int columns);

    TC::RPCFormulaResultCache& cache() { return m_cache; }
    QRect pane() const { return m_pane; }
    QPair<double, double> range() const { return m_range; }
    int output() const { return m_output; }
    int start() const { return m_start; }
    int end() const { return m_end; }
    int barCount() const { return m_barCount; }
    int xOffset() const { return m_xOffset; }
    bool flag() { return (m_random() & 1u) != 0; }
    int pick(int lowest, int highest)
    {
        return std::uniform_int_distribution<int>(lowest, highest)(m_random);
    }

private:
    double wildNumber();
    int wildIndex();
    void buildSound(int drawType, int columns);
    void damage();

    std::mt19937 m_random;
    TC::RPCFormulaResultCache m_cache;
    QRect m_pane;
    QPair<double, double> m_range;
    int m_output = 0, m_start = 0, m_end = 0, m_barCount = 0, m_xOffset = 0;
};

} // namespace test
