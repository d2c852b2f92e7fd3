// SPDX-License-Identifier: MIT
#include "data/RecordReading.h"

#include "data/internal/RecordViews.h"

namespace TC {

using namespace detail;

std::optional<double> recordedNumber(const RPCFormulaResultCache& cache, int output, int column, int bar)
{
    return OutputView(cache, output).column(column).raw(bar);
}

} // namespace TC
