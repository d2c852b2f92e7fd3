// SPDX-License-Identifier: MIT
#pragma once
/// @file Styles of the number formatters.

namespace utils {

/// Styles that WB::formatDoubleNumber and WB::formatIntNumber understand; they may be combined.
enum EFormatNumberFlag {
    EFormatNumber_Plain = 0,
    EFormatNumber_Percent = 0x10000, ///< the value is a fraction: shown times 100 with "%" behind it
    EFormatNumber_Large = 0x40000    ///< from 1e4 in 万, from 1e8 in 亿, trailing zeros trimmed
};

} // namespace utils
