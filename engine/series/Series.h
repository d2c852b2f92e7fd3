#pragma once
/// @file One number per bar or trade; kMissing, NaN and infinities read as "no value".

#include <cfloat>
#include <cstddef>
#include <vector>

namespace engine {

using Series = std::vector<double>;

/// What the records hold for a number that does not exist.
constexpr double kMissing = DBL_MAX;

/// Whether the number is a value: finite and not the marker.
inline bool isValue(double number)
{
    return number < DBL_MAX && number > -DBL_MAX;
}

/// The number itself, or the marker where it is not a value.
inline double valueOrMissing(double number)
{
    return isValue(number) ? number : kMissing;
}

/// Applies `function` bar by bar; missing where either operand is.
template <class Function>
Series combine(const Series& a, const Series& b, Function function)
{
    Series combined(a.size(), kMissing);
    for (std::size_t bar = 0; bar < a.size(); ++bar) {
        if (isValue(a[bar]) && isValue(b[bar]))
            combined[bar] = valueOrMissing(function(a[bar], b[bar]));
    }
    return combined;
}

} // namespace engine
