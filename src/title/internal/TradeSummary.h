// SPDX-License-Identifier: MIT
#pragma once
/// @file The user's own trading as a legend shows it, behind the first row.

#include "title/ArrowColorTextData.h"

#include <QList>
#include <QRect>
#include <QString>
#include <QVector>

namespace TC::detail {

constexpr int kSummaryTop = 2; ///< y of the summary's texts in the first row

/// The amounts, volumes and accounts.
struct TradeSummary
{
    QList<QString> accounts;
    QList<int> positions;     ///< by account; may be shorter
    QList<int> positionFlags; ///< by account; not 0: rise colour; may be shorter
    double totalBuyAmount = 0.0, totalSellAmount = 0.0, netBuyAmount = 0.0, profitLoss = 0.0,
           balanceAmount = 0.0;
    int buyVolume = 0, sellVolume = 0;
    double buyAvgPrice = 0.0, sellAvgPrice = 0.0;
};

/// The texts of the trade summary and the accounts in order; nothing traded gives none.
/// @param priceTick  of the pane's instrument.
QVector<ArrowColorTextData> summaryTexts(const TradeSummary& trading, double priceTick);

/// Width of one of those texts in the legend's font.
int summaryTextWidth(const QString& text);

/// Leaves out what of the trade summary does not fit between `x` and the area's right edge: whole accounts
/// from the last one on, then the volumes, then everything.
TradeSummary fitSummary(TradeSummary trading, const QRect& area, int x, double priceTick);

} // namespace TC::detail
