// SPDX-License-Identifier: MIT
#pragma once
/// @file The rows that the kernels' files bring to the table of functions. A new function is one more row
/// beside its kernel.

#include "engine/kernels/Function.h"

namespace engine::language {

std::vector<Function> elementwiseFunctions(); ///< operators, arithmetic, logic of one bar
std::vector<Function> barSeries();            ///< prices, volumes, dates and times
std::vector<Function> referenceFunctions();   ///< values of other bars
std::vector<Function> countingFunctions();    ///< bars since something, crossings
std::vector<Function> averageFunctions();     ///< recursive averages
std::vector<Function> windowFunctions();      ///< sums, extremes, statistics of the last bars
std::vector<Function> pairFunctions();        ///< covariance and what rests on it
std::vector<Function> searchFunctions();      ///< how far back something reaches
std::vector<Function> wholeFunctions();       ///< what depends on later bars
std::vector<Function> turningFunctions();     ///< turning points of a zigzag
std::vector<Function> lineDrawings();         ///< drawings that are lines of values of their own
std::vector<Function> parabolicFunctions();   ///< stop and reverse

} // namespace engine::language
