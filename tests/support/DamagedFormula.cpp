// SPDX-License-Identifier: MIT
#include "tests/support/DamagedFormula.h"

#include "tests/support/FormulaBuilder.h"

#include <cfloat>
#include <climits>
#include <cmath>

namespace test {

DamagedFormula::DamagedFormula(unsigned seed, int drawType, int columns)
    : m_random(seed)
{
    buildSound(drawType, columns);
    damage();
}

double DamagedFormula::wildNumber()
{
    static const double wild[] = { NAN,    INFINITY,     -INFINITY, DBL_MAX, -DBL_MAX, 1e300,
                                   -1e300, 2147483647.0, 4e9,       -4e9,    0.0,      1e-300 };
    return wild[pick(0, static_cast<int>(std::size(wild)) - 1)];
}

int DamagedFormula::wildIndex()
{
    static const int wild[] = { INT_MIN, -1, 0, 1, 2, 99, 1'000'000, INT_MAX };
    return wild[pick(0, static_cast<int>(std::size(wild)) - 1)];
}

void DamagedFormula::buildSound(int drawType, int columns)
{
    const int bars = pick(1, 60);
    std::uniform_real_distribution<double> value(-20.0, 120.0);
    FormulaBuilder builder;
    for (int output = 0; output < 2; ++output) {
        builder.output("out", drawType, {});
        for (int column = 0; column < columns; ++column) {
            FormulaBuilder::Values values(static_cast<std::size_t>(bars));
            for (double& v : values)
                v = flag() ? value(m_random) : std::floor(value(m_random) / 20.0);
            builder.column(values);
        }
        builder.texts(std::vector<std::string>(static_cast<std::size_t>(bars), "text"));
        builder.position(pick(0, 6));
    }
    m_cache = builder.build();
    m_pane = QRect(pick(-20, 50), pick(-20, 50), pick(0, 300), pick(0, 200));
    m_range = { 100.0, flag() ? 0.0 : -10.0 };
    m_output = pick(0, 1);
    m_start = pick(0, bars - 1);
    m_end = pick(m_start, bars - 1);
    m_barCount = pick(1, bars);
    m_xOffset = pick(-10, 10);
}

void DamagedFormula::damage()
{
    se::RPCFormulaMetaResult& meta = m_cache.meta;
    se::RPCFormulaResult& result = m_cache.result;
    std::vector<int>* const intVectors[] = {
        &meta.drawType,       &meta.color,        &meta.colorSet,         &meta.lineStyle,
        &meta.lineWidth,      &meta.position,     &meta.valueKind,        &result.barValid,
        &result.columnSeries, &result.columnType, &result.columnNeedsAxis
    };
    switch (pick(0, 10)) {
    case 0: break; // sound
    case 1: {
        std::vector<int>& victim = *intVectors[pick(0, static_cast<int>(std::size(intVectors)) - 1)];
        victim.resize(static_cast<std::size_t>(pick(0, static_cast<int>(victim.size()))));
        break;
    }
    case 2: {
        std::vector<int>& victim = *intVectors[pick(0, static_cast<int>(std::size(intVectors)) - 1)];
        for (int& index : victim)
            index = wildIndex();
        break;
    }
    case 3: {
        for (auto& series : result.numberSeries)
            if (flag())
                series.resize(static_cast<std::size_t>(pick(0, static_cast<int>(series.size()))));
        break;
    }
    case 4: result.numberSeries.resize(static_cast<std::size_t>(pick(0, 3))); break;
    case 5: result.textSeries.resize(static_cast<std::size_t>(pick(0, 1))); break;
    case 6:
        for (auto& columns : meta.outputColumns) {
            for (int& column : columns)
                column = wildIndex();
        }
        break;
    case 7:
        for (auto& series : result.numberSeries) {
            for (double& v : series)
                v = pick(0, 3) == 0 ? wildNumber() : v;
        }
        break;
    case 8: m_range = { wildNumber(), wildNumber() }; break;
    case 9:
        m_start = wildIndex();
        m_end = wildIndex();
        m_barCount = wildIndex();
        m_xOffset = wildIndex();
        m_output = wildIndex();
        break;
    default:
        m_pane = QRect(QPoint(pick(-5, 5), pick(-5, 5)), QSize(pick(-3, 3), pick(-3, 3)));
        result.barTimes.resize(static_cast<std::size_t>(pick(0, static_cast<int>(result.barTimes.size()))));
        meta.outputCount = wildIndex();
    }
}

} // namespace test
