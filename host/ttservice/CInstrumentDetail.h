// SPDX-License-Identifier: MIT
#pragma once
/// @file One instrument of the instrument database.

#include "host/HostExport.h"

#include <limits>
#include <map>
#include <string>

namespace ttservice {

/// What the client knows about one instrument.
class INDICATORHOST_EXPORT CInstrumentDetail
{
public:
    virtual ~CInstrumentDetail() = default;

    std::string market;     ///< "SH", "SZ", "BJ", "SF", ...
    std::string code;       ///< without the market, leading zeros kept
    std::string name;       ///< UTF-8
    std::string kind;       ///< "stock", "index", "fund", "future"
    double priceTick = 0.0; ///< smallest price step; 0: unknown

    /// A numeric figure by id (3015 free-float market value, 3016 total market value, in yuan); 0.0 when
    /// the instrument has none.
    virtual double getNumber(int fieldId) const;

    std::map<int, double> figures; ///< by field id
};

} // namespace ttservice
