// SPDX-License-Identifier: MIT
#pragma once
/// @file Work that has no peer: the scan for a pane's range, and volume sticks by the order book.

#include <QJsonObject>

namespace bench {

/// The range of one column of 10,000,000 bars, clean and dirty, beside reading the same memory.
QJsonObject measureRangeScan();

/// Volume sticks of 1,000,000 trades coloured by the order book, beside a plain line over as many bars.
QJsonObject measureBookSticks();

} // namespace bench
