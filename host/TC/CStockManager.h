// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's instruments by key and by code.

#include "host/HostExport.h"

#include <QString>
#include <QVector>

#include <memory>

namespace ttservice {
class CInstrumentDetail;
}

namespace TC {

/// Look-up in the instrument database; reached through utils::CSingletonT<CStockManager>. Texts are compared
/// exactly: no trimming, no padding, case matters. The first look-up comes from the GUI thread, where the
/// host may load its database; later ones only read and may come from any thread.
class INDICATORHOST_EXPORT CStockManager
{
public:
    /// An instrument that callers share; null: unknown.
    using Detail = std::shared_ptr<ttservice::CInstrumentDetail>;

    /// The instrument of a key ("SH600000") or of a bare code ("600000"). A code that several markets use
    /// gives its A share; without one, the first market of SH, SZ, BJ, SF, DF, ZF, GF, IF. Null when unknown.
    Detail getInstrumentDetail(const QString& keyOrCode) const;

    /// The instrument of a market and a code; null when unknown.
    Detail getInstrumentDetail(const QString& market, const QString& code) const;

    /// Every instrument that bears the code, in the order of markets above.
    /// @param[out] details  replaced; empty when the code is unknown.
    /// @return whether any was found.
    bool getMultiStockDetail(const QString& code, QVector<Detail>& details) const;
};

} // namespace TC
