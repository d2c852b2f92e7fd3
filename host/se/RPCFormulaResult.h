// SPDX-License-Identifier: MIT
#pragma once
/// @file What the formula engine computed: columns over bars.

#include <cstdint>
#include <string>
#include <vector>

namespace se {

/// Time of one bar.
struct RPCBarTime
{
    std::int64_t msecs = 0;    ///< milliseconds since 1970-01-01 00:00 UTC
    std::int64_t reserved = 0; ///< the engine's own
};

/// The computed series of a formula. A column names a series by index; its type says whether that is a
/// number series or a text series. Vectors may be of any length: readers check before they read.
struct RPCFormulaResult
{
    std::vector<RPCBarTime> barTimes;                 ///< their number is the number of bars
    std::vector<int> barValid;                        ///< per bar; 0: the bar carries nothing
    std::vector<int> columnSeries;                    ///< per column: index into numberSeries or textSeries
    std::vector<std::vector<double>> numberSeries;    ///< one number per bar; DBL_MAX or NaN: none
    std::vector<std::vector<double>> auxiliarySeries; ///< the engine's own
    std::vector<std::vector<std::string>> textSeries; ///< UTF-8
    std::vector<int> auxiliary;                       ///< the engine's own
    std::vector<int> columnType;                      ///< per column: 0, 1, 200 number, 2 flag, 3 text
    std::vector<int> columnNeedsAxis;                 ///< per column: non-zero: counts for the value axis
};

} // namespace se
