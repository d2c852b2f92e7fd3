// SPDX-License-Identifier: MIT
#include "apps/chart/TickFormulaNames.h"

#include "host/embedded/FormulaSetup.h"

#include <QString>

namespace chart {

void registerTickFormulas()
{
    constexpr int mainChart = 2, ownPane = 0;
    TC::CFormulaDetail formula;
    formula.displayName = formula.realName = QString::fromLatin1(kTickPrices);
    formula.kind = mainChart;
    TC::embedded::setFormula(formula);
    formula.displayName = formula.realName = QString::fromUtf8(kTickVolumes);
    formula.kind = ownPane;
    TC::embedded::setFormula(formula);
}

} // namespace chart
