// SPDX-License-Identifier: MIT
#pragma once
/// @file Numbers as a stream of the classic locale writes them, without the stream.

#include <string>

namespace TC::detail {

/// Appends the number in fixed notation with four decimals ("1.5000", "-0.0000", "inf").
void appendFixed4(std::string& text, double value);

/// Appends the number in default notation with six significant digits ("1.5", "1e+06", "1.79769e+308").
void appendGeneral6(std::string& text, double value);

} // namespace TC::detail
