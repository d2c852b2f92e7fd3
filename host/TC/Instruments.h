// SPDX-License-Identifier: MIT
#pragma once
/// @file Questions about an instrument that may be missing. A null instrument gives the stated default.

#include "host/HostExport.h"

#include <QString>

#include <memory>
#include <string>

namespace ttservice {
class CInstrumentDetail;
}

namespace TC {

/// Key of an instrument: market and code together ("SH600000"); empty for null.
INDICATORHOST_EXPORT QString getDetailQsKey(const std::shared_ptr<ttservice::CInstrumentDetail>& instrument);

/// Display name; empty for null.
INDICATORHOST_EXPORT QString getDetailQsName(const std::shared_ptr<ttservice::CInstrumentDetail>& instrument);

/// Market code; empty for null.
INDICATORHOST_EXPORT std::string getDetailMarket(
    const std::shared_ptr<ttservice::CInstrumentDetail>& instrument);

/// Smallest price step; 0.0 for null.
INDICATORHOST_EXPORT double getDetailPriceTick(
    const std::shared_ptr<ttservice::CInstrumentDetail>& instrument);

} // namespace TC

/// Key of an instrument by market and code; the same text as TC::getDetailQsKey.
INDICATORHOST_EXPORT QString qnStockKey(const std::string& market, const std::string& code);
