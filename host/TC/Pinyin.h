// SPDX-License-Identifier: MIT
#pragma once
/// @file Search by the initials of Chinese readings.

#include "host/HostExport.h"

#include <QString>

namespace TC {

/// Whether `filter` stands somewhere in `text` when each Chinese character may be typed as the initial of
/// any of its readings: "pfyh" and "pfyx" both find "浦发银行". Every other character stands for itself.
/// Case does not matter; an empty filter is in every text.
INDICATORHOST_EXPORT bool isInByPy(const QString& text, const QString& filter);

} // namespace TC
