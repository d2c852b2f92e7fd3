// SPDX-License-Identifier: MIT
#include "title/internal/AccountPositions.h"

#include "host/TC/PeriodNames.h"
#include "tests/support/Legend.h"
#include "tests/support/TimeZone.h"
#include "tests/support/Trace.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <climits>
#include <utility>

using TC::CFormulaKey;
using namespace TC::detail;

namespace {

long long at(int year, int month, int day, int hour = 12)
{
    return QDateTime(QDate(year, month, day), QTime(hour, 0)).toMSecsSinceEpoch();
}

TC::CAccountPosition entry(const char* account, long long date, int position, bool rise = true)
{
    TC::CAccountPosition result;
    result.account = QString::fromUtf8(account);
    result.dateMs = date;
    result.position = position;
    result.rise = rise;
    return result;
}

} // namespace

TEST(ShownBarDate, IsTheLocalDateOfTheBarOrOfTheLastOne)
{
    const QString key = QStringLiteral("SH600000");
    QMap<CFormulaKey, TC::RPCFormulaResultCache> data;
    EXPECT_EQ(shownBarDate(data, key, 0), QString());
    data[CFormulaKey(key, QStringLiteral("KLINE"))] =
        test::FormulaBuilder().line({ 1, 2 }).times({ at(2024, 6, 20, 0), at(2024, 6, 21, 23) }).build();
    data[CFormulaKey(key, QStringLiteral("AA"))] =
        test::FormulaBuilder().line({ 1 }).times({ at(2000, 1, 1) }).build();
    EXPECT_EQ(shownBarDate(data, key, 0), QStringLiteral("20240620"));
    for (const int index : { -1, 1, 2, INT_MIN, INT_MAX })
        EXPECT_EQ(shownBarDate(data, key, index), QStringLiteral("20240621")) << index;
    EXPECT_EQ(shownBarDate(data, QStringLiteral("SZ000001"), 0), QString());
    data.remove(CFormulaKey(key, QStringLiteral("KLINE")));
    EXPECT_EQ(shownBarDate(data, key, 0), QStringLiteral("20000101"));
}

TEST(ShownBarDate, ATimeOfAnyYearIsWrittenWithItsMonthAndDay)
{
    const QString key = QStringLiteral("SH600000");
    const auto dateAt = [&key](long long msecs) {
        QMap<CFormulaKey, TC::RPCFormulaResultCache> data;
        data[CFormulaKey(key, QStringLiteral("KLINE"))] =
            test::FormulaBuilder().line({ 1 }).times({ msecs }).build();
        return shownBarDate(data, key, 0);
    };
    EXPECT_EQ(dateAt(at(9999, 12, 31)), QStringLiteral("99991231"));
    const std::pair<const char*, const char*> firstDays[] = {
        { "Asia/Shanghai", "-2922750560517" },
        { "America/New_York", "-2922750560516" },
    };
    for (const auto& [zone, firstDay] : firstDays) {
        const test::TimeZone there(zone);
        EXPECT_EQ(dateAt(LLONG_MIN), QString::fromLatin1(firstDay)) << zone;
        EXPECT_EQ(dateAt(LLONG_MAX), QStringLiteral("2922789940817")) << zone;
    }
}

TEST(ShownBarDate, IsThatOfAnotherFormulaOfTheSameInstrumentWhereThereAreNoCandles)
{
    QMap<CFormulaKey, TC::RPCFormulaResultCache> data;
    data[CFormulaKey(QStringLiteral("SZ1"), QStringLiteral("MA"))].result.barTimes = { { at(2024, 6, 20) } };
    data[CFormulaKey(QStringLiteral("SH1"), QStringLiteral("A"))] = {}; // without bars
    data[CFormulaKey(QStringLiteral("SH1"), QStringLiteral("MA"))].result.barTimes = { { at(2024, 6, 21) } };
    EXPECT_EQ(shownBarDate(data, QStringLiteral("SH1"), 0), QStringLiteral("20240621"));
    EXPECT_EQ(shownBarDate(data, QStringLiteral("SH2"), 0), QString());
}

TEST(TradingAt, ShowsEachAccountsLatestPositionUpToTheBar)
{
    TC::CPositionNumber numbers;
    numbers.accounts = { entry("甲", at(2024, 6, 20), 100), entry("乙", at(2024, 6, 21), 5, false),
                         entry("甲", at(2024, 6, 18), 7), entry("甲", at(2024, 6, 24), 300) };
    const TradeSummary friday = tradingAt(numbers, QStringLiteral("20240621"));
    EXPECT_EQ(friday.accounts, QStringList({ QStringLiteral("甲"), QStringLiteral("乙") }));
    EXPECT_EQ(friday.positions, QList<int>({ 100, 5 }));
    EXPECT_EQ(friday.positionFlags, QList<int>({ 1, 0 }));
    EXPECT_EQ(tradingAt(numbers, QStringLiteral("20240624")).positions, QList<int>({ 300, 5 }));
    EXPECT_EQ(tradingAt(numbers, QStringLiteral("20240619")).positions, QList<int>({ 7 }));
    EXPECT_TRUE(tradingAt(numbers, QStringLiteral("20240617")).accounts.isEmpty());
    EXPECT_TRUE(tradingAt(numbers, QString()).accounts.isEmpty());
}

TEST(TradingAt, CarriesTheSums)
{
    TC::CPositionNumber numbers;
    numbers.summary.totalBuyAmount = 1.0;
    numbers.summary.sellVolume = 2;
    numbers.summary.sellAvgPrice = 3.0;
    const TradeSummary trading = tradingAt(numbers, QString());
    EXPECT_EQ(trading.totalBuyAmount, 1.0);
    EXPECT_EQ(trading.sellVolume, 2);
    EXPECT_EQ(trading.sellAvgPrice, 3.0);
}

TEST(PeriodNames, NameEveryPeriodAndNothingElse)
{
    EXPECT_EQ(TC::getCycleName(TC::getPeriodIndex(TC::EFormulaPeriod_Day)), QStringLiteral("日线"));
    EXPECT_EQ(TC::getCycleName(TC::getPeriodIndex(TC::EFormulaPeriod_Minute15)), QStringLiteral("15分钟"));
    EXPECT_EQ(TC::getPeriodIndex(static_cast<TC::EFormulaPeriod>(7)), -1);
    EXPECT_EQ(TC::getCycleName(-1), QString());
    EXPECT_EQ(TC::getCycleName(INT_MAX), QString());
    EXPECT_EQ(TC::getDrName(1), QStringLiteral("前复权"));
    EXPECT_EQ(TC::getDrName(9), QString());
}
