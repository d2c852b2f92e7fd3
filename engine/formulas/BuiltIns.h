#pragma once
/// @file The built-in formulas, one function each.

#include "engine/Formulas.h"
#include "engine/internal/RecordBuilder.h"

namespace engine {

/// What a formula computes from.
struct FormulaInput
{
    const BarSeries& bars;                 ///< every vector one entry per bar, or empty where optional
    const std::vector<double>& parameters; ///< complete, within their ranges
    const std::atomic<bool>* cancelledFlag = nullptr;

    /// A parameter that counts bars.
    int period(std::size_t index) const { return static_cast<int>(parameters[index]); }
    bool cancelled() const { return cancelledFlag && cancelledFlag->load(std::memory_order_relaxed); }
};

/// A formula: what it is called and how it is computed. `compute` may return early when cancelled.
struct BuiltIn
{
    FormulaDescription description;
    void (*compute)(const FormulaInput& input, RecordBuilder& records);
};

/// Longest period that a formula takes.
constexpr double kLongestPeriod = 100'000.0;

/// A parameter that counts bars.
Parameter periodParameter(const std::string& name, double value, double least = 1.0);

/// A name with its period, as traders write it: MA5.
std::string periodName(const std::string& prefix, int period);

BuiltIn candlesFormula();
BuiltIn movingAverageFormula();
BuiltIn bollingerFormula();
BuiltIn volumeFormula();
BuiltIn macdFormula();
BuiltIn kdjFormula();
BuiltIn rsiFormula();
BuiltIn crossSignalFormula();
BuiltIn risingDaysFormula();
BuiltIn noteFormula();

} // namespace engine
