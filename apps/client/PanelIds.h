// SPDX-License-Identifier: MIT
#pragma once
/// @file Identifiers of the client's panels.

#include <QString>
#include <QStringList>

namespace client {

inline const QString kChartPanel = QStringLiteral("indexMainPanel");
inline const QString kTickPanel = QStringLiteral("transactionPanel");
inline const QString kBasketPanel = QStringLiteral("tradeBaskets");
inline const QString kInstrumentPanel = QStringLiteral("productBaseInfo");
inline const QString kQuotePanel = QStringLiteral("quoteList");
inline const QString kFormulaPanel = QStringLiteral("F7index");
inline const QString kMessagePanel = QStringLiteral("messagePanel");

/// In the order in which menu and keys go through them.
inline const QStringList kPanels = { kChartPanel,      kTickPanel,    kQuotePanel,  kBasketPanel,
                                     kInstrumentPanel, kFormulaPanel, kMessagePanel };

} // namespace client
