// SPDX-License-Identifier: MIT
#pragma once
/// @file Identifiers of the client's panels.

#include <QString>
#include <QStringList>

namespace client {

inline const QLatin1String kChartPanel("indexMainPanel");
inline const QLatin1String kTickPanel("transactionPanel");
inline const QLatin1String kBasketPanel("tradeBaskets");
inline const QLatin1String kInstrumentPanel("productBaseInfo");
inline const QLatin1String kQuotePanel("quoteList");
inline const QLatin1String kFormulaPanel("F7index");
inline const QLatin1String kMessagePanel("messagePanel");

/// In the order in which menu and keys go through them.
inline const QStringList& panelIds()
{
    static const QStringList all = { kChartPanel,      kTickPanel,    kQuotePanel,  kBasketPanel,
                                     kInstrumentPanel, kFormulaPanel, kMessagePanel };
    return all;
}

} // namespace client
