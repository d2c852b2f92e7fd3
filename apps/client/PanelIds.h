// SPDX-License-Identifier: MIT
#pragma once
/// @file Identifiers of the client's panels. Titles come from the library's table where they say what is
/// inside.

#include <QString>

#include <utility>

namespace client {

inline const QString kChartPanel = QStringLiteral("indexMainPanel");
inline const QString kTickPanel = QStringLiteral("transactionPanel");
inline const QString kBasketPanel = QStringLiteral("tradeBaskets");
inline const QString kInstrumentPanel = QStringLiteral("productBaseInfo");
inline const QString kQuotePanel = QStringLiteral("quoteList");
inline const QString kFormulaPanel = QStringLiteral("F7index");
inline const QString kMessagePanel = QStringLiteral("messagePanel");

/// Titles of the panels that hold something else here than the library's table says.
inline const std::pair<QString, QString> kPanelTitles[] = {
    { kChartPanel, QStringLiteral("K线图") },         { kTickPanel, QStringLiteral("分笔成交") },
    { kInstrumentPanel, QStringLiteral("品种列表") }, { kQuotePanel, QStringLiteral("行情报价") },
    { kFormulaPanel, QStringLiteral("指标公式") },
};

} // namespace client
