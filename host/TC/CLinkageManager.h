// SPDX-License-Identifier: MIT
#pragma once
/// @file The user's own trading in an instrument, as the client's trading side reports it.

#include "host/HostExport.h"

#include <QList>
#include <QString>

namespace TC {

/// What one account held in an instrument from one day on.
struct CAccountPosition
{
    QString account;      ///< account name as the user knows it
    long long dateMs = 0; ///< day from which the position holds, milliseconds since 1970-01-01 UTC
    int position = 0;     ///< lots or shares; below 0: short
    bool rise = true;     ///< show in the rise colour instead of the fall colour
};

/// Sums of the user's trades in an instrument. All zero: nothing was traded.
struct CTradeSummary
{
    double totalBuyAmount = 0.0;  ///< in yuan, as all amounts
    double totalSellAmount = 0.0; ///< of all sales
    double netBuyAmount = 0.0;    ///< bought less sold
    double profitLoss = 0.0;      ///< above 0: a profit
    double balanceAmount = 0.0;   ///< as the trading side reports it
    int buyVolume = 0;            ///< in the unit of the volume
    int sellVolume = 0;           ///< likewise
    double buyAvgPrice = 0.0;     ///< in the unit of the price
    double sellAvgPrice = 0.0;    ///< likewise
};

/// Positions and sums of one instrument.
struct CPositionNumber
{
    QList<CAccountPosition> accounts; ///< in the order in which accounts are shown; an account may have
                                      ///< several entries of different days
    CTradeSummary summary;            ///< over all accounts
};

/// Link to the client's trading side; reached through utils::CSingletonT<CLinkageManager>. GUI thread only.
class INDICATORHOST_EXPORT CLinkageManager
{
public:
    /// The user's trading in an instrument ("SH600000"); empty when there is none.
    CPositionNumber getPositionNumber(const QString& instrumentKey) const;
};

} // namespace TC
