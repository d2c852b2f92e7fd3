// SPDX-License-Identifier: MIT
#pragma once
/// @file Identifiers of the client's panels.

#include <QString>
#include <QStringList>

namespace client {

inline constexpr QLatin1String kChartPanel("indexMainPanel");
inline constexpr QLatin1String kTickPanel("transactionPanel");
inline constexpr QLatin1String kBasketPanel("tradeBaskets");
inline constexpr QLatin1String kInstrumentPanel("productBaseInfo");
inline constexpr QLatin1String kQuotePanel("quoteList");
inline constexpr QLatin1String kFormulaPanel("F7index");
inline constexpr QLatin1String kMessagePanel("messagePanel");

/// In the order in which menu and keys go through them.
inline const QStringList& panelIds()
{
    static const QStringList all = { kChartPanel,      kTickPanel,    kQuotePanel,  kBasketPanel,
                                     kInstrumentPanel, kFormulaPanel, kMessagePanel };
    return all;
}

} // namespace client
