// SPDX-License-Identifier: MIT
#pragma once
/// @file One stock of an imported basket.

#include "host/HostExport.h"

#include <QString>

#include <memory>

namespace ttservice {
class CInstrumentDetail;
}

namespace TC {

/// Record of one stock. A fresh record has no instrument, no weights and no shares.
class INDICATORHOST_EXPORT ParserStockDetail
{
public:
    std::shared_ptr<ttservice::CInstrumentDetail> instrument; ///< null: no stock was recognised
    double relativeWeight = 0.0;                              ///< share in the basket, any unit
    double absoluteWeight = 0.0;                              ///< fraction of 1
    int shareCount = 0;                                       ///< as the source said

    /// What identifies the record: the instrument's market and code ("SH600000"), the same text as
    /// TC::getDetailQsKey; empty without an instrument.
    QString key() const;
};

} // namespace TC
