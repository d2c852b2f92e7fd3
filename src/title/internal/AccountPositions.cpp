// SPDX-License-Identifier: MIT
#include "title/internal/AccountPositions.h"

#include "data/internal/RecordViews.h"
#include "host/utils/LocalDateTime.h"

namespace TC::detail {

namespace {

/// Empty for a time that no calendar holds.
QString dateText(long long msecs)
{
    return utils::localDateTime(msecs).date().toString(QStringLiteral("yyyyMMdd"));
}

} // namespace

QString shownBarDate(const QMap<CFormulaKey, RPCFormulaResultCache>& data, const QString& instrumentKey,
                     int index)
{
    const auto prices = data.find(CFormulaKey(instrumentKey, QStringLiteral("KLINE")));
    auto shown = prices;
    for (auto entry = data.begin(); shown == data.end() && entry != data.end(); ++entry) {
        if (entry.key().instrumentKey == instrumentKey && barTotal(entry.value().result) > 0)
            shown = entry;
    }
    const int count = shown == data.end() ? 0 : barTotal(shown.value().result);
    if (count == 0)
        return QString();
    const int bar = index < 0 || index >= count ? count - 1 : index;
    return dateText(shown.value().result.barTimes[static_cast<std::size_t>(bar)].msecs);
}

TradeSummary tradingAt(const CPositionNumber& positions, const QString& barDate)
{
    const CTradeSummary& sums = positions.summary;
    TradeSummary trading;
    trading.totalBuyAmount = sums.totalBuyAmount;
    trading.totalSellAmount = sums.totalSellAmount;
    trading.netBuyAmount = sums.netBuyAmount;
    trading.profitLoss = sums.profitLoss;
    trading.balanceAmount = sums.balanceAmount;
    trading.buyVolume = sums.buyVolume;
    trading.sellVolume = sums.sellVolume;
    trading.buyAvgPrice = sums.buyAvgPrice;
    trading.sellAvgPrice = sums.sellAvgPrice;

    QStringList latest; // date of each account's entry
    for (const CAccountPosition& entry : positions.accounts) {
        const QString date = dateText(entry.dateMs);
        if (date.isEmpty() || date > barDate)
            continue;
        int account = trading.accounts.indexOf(entry.account);
        if (account < 0) {
            account = trading.accounts.size();
            trading.accounts.append(entry.account);
            trading.positions.append(0);
            trading.positionFlags.append(0);
            latest.append(QString());
        }
        if (date >= latest.at(account)) {
            latest[account] = date;
            trading.positions[account] = entry.position;
            trading.positionFlags[account] = entry.rise ? 1 : 0;
        }
    }
    return trading;
}

} // namespace TC::detail
