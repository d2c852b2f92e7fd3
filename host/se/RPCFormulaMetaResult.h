// SPDX-License-Identifier: MIT
#pragma once
/// @file What the formula engine says about each output of a formula.

#include <string>
#include <vector>

namespace se {

/// Description of a formula's outputs. Every vector has one entry per output, but any of them may be
/// shorter than `outputCount`: readers check the vector that they read.
struct RPCFormulaMetaResult
{
    int outputCount = 0;                         ///< outputs that the formula has
    std::vector<std::string> outputNames;        ///< UTF-8
    std::vector<std::vector<int>> outputColumns; ///< result columns that the output is drawn from
    std::vector<int> drawType;                   ///< drawing method, 0 to 37 and 42
    std::vector<int> color;                      ///< 0x00BBGGRR
    std::vector<int> colorSet;                   ///< above 0: the formula chose `color` itself
    std::vector<int> lineStyle;                  ///< 0 solid, 15 dots, 16 dash-dot, 17 dash-dot-dot
    std::vector<int> lineWidth;                  ///< pixels; 0: not drawn and not part of the range
    std::vector<int> position;                   ///< placement of texts and icons, 0 to 5
    std::vector<int> valueKind;                  ///< 0 number, 1 integer, 2 signal of 0 or 1, 3 text
};

} // namespace se
