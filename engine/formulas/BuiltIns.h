#pragma once
/// @file The built-in formulas by family.

#include "engine/Formulas.h"

namespace engine {

/// Parameters after limiting, in the order of the description.
using Arguments = std::vector<double>;

/// A formula with the function that computes it.
struct BuiltIn
{
    FormulaDescription description;
    FormulaRecords (*compute)(const BarSeries& bars, const Arguments& arguments);
};

std::vector<BuiltIn> priceFormulas();      ///< KLINE, MA, BOLL
std::vector<BuiltIn> volumeFormulas();     ///< VOL
std::vector<BuiltIn> oscillatorFormulas(); ///< MACD, KDJ, RSI
std::vector<BuiltIn> signalFormulas();     ///< CROSSSIGNAL, RISINGDAYS, NOTE

/// A whole-number argument.
inline int wholeNumber(const Arguments& arguments, std::size_t place)
{
    return static_cast<int>(arguments[place]);
}

/// "MA5": a name with the period behind it.
inline std::string numbered(const char* name, int period)
{
    return name + std::to_string(period);
}

} // namespace engine
