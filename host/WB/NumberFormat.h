// SPDX-License-Identifier: MIT
#pragma once
/// @file Texts of numbers as the client shows them: fixed notation, decimal point, no grouping.

#include "host/HostExport.h"
#include "host/utils/CFlags.h"
#include "host/utils/EFormatNumberFlag.h"

#include <QString>

namespace WB {

/// Styles of the formatters, combined.
using FormatNumberFlags = utils::CFlags<utils::EFormatNumberFlag>;

/// Text of a number in fixed notation, independent of the locale; never "-0".
/// @param precision  decimals; values below 0 count as 0, values above 20 as 20.
/// @param flags  percent style, large-number style, or none.
/// @param trim  kept for the client: neither value changes the text of the embedded default.
/// @param invalidText  answer for NaN, an infinity, or the missing-value marker DBL_MAX.
INDICATORHOST_EXPORT QString formatDoubleNumber(double value, int precision, FormatNumberFlags flags,
                                                bool trim, const QString& invalidText);

/// Text of an integer in plain decimal. `width` and `flags` are kept for the client and change nothing.
INDICATORHOST_EXPORT QString formatIntNumber(int value, int width, FormatNumberFlags flags);

/// Text of a price with as many decimals as its tick has (0.01 gives two); a tick that is not positive,
/// not finite or DBL_MAX gives two decimals. Invalid prices give "非法值".
INDICATORHOST_EXPORT QString formatPriceDoubleNumber(double value, double priceTick);

} // namespace WB
