// SPDX-License-Identifier: MIT
#include "host/TC/CStockManager.h"
#include "host/TC/Instruments.h"
#include "host/TC/ParserStockDetail.h"
#include "host/embedded/EmbeddedHost.h"
#include "host/ttservice/StockTypeCenter.h"
#include "host/utils/CSingletonT.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

namespace {

using ttservice::CInstrumentDetail;

TC::CStockManager& manager()
{
    return *utils::CSingletonT<TC::CStockManager>::instance();
}

QString keyOf(const char* keyOrCode)
{
    return TC::getDetailQsKey(manager().getInstrumentDetail(QString::fromUtf8(keyOrCode)));
}

CInstrumentDetail instrument(const char* market, const char* code, const char* kind)
{
    CInstrumentDetail made;
    made.market = market;
    made.code = code;
    made.kind = kind;
    return made;
}

bool isTyped(int type, const char* market, const char* code)
{
    return utils::CSingletonT<ttservice::StockTypeCenter>::instance()->isTypedStock(type, market, code);
}

} // namespace

TEST(CStockManager, KnowsAnInstrumentByKeyByCodeAndByMarketAndCode)
{
    EXPECT_EQ(keyOf("SH600000"), QStringLiteral("SH600000"));
    EXPECT_EQ(keyOf("600000"), QStringLiteral("SH600000"));
    const auto detail = manager().getInstrumentDetail(QStringLiteral("SH"), QStringLiteral("600000"));
    ASSERT_TRUE(detail);
    EXPECT_EQ(TC::getDetailQsName(detail), QStringLiteral("浦发银行"));
    EXPECT_EQ(detail->kind, "stock");
    EXPECT_DOUBLE_EQ(detail->priceTick, 0.01);
}

TEST(CStockManager, ComparesTextsExactly)
{
    for (const char* text : { "", " 600000", "600000\r", "sh600000", "60000", "6000000" })
        EXPECT_EQ(keyOf(text), QString()) << text;
}

TEST(CStockManager, GivesTheShareOfACodeThatAnIndexHasToo)
{
    EXPECT_EQ(keyOf("000001"), QStringLiteral("SZ000001")); // SH000001 is an index
    QVector<TC::CStockManager::Detail> details;
    ASSERT_TRUE(manager().getMultiStockDetail(QStringLiteral("000001"), details));
    ASSERT_EQ(details.size(), 2);
    EXPECT_EQ(TC::getDetailQsKey(details[0]), QStringLiteral("SH000001"));
    EXPECT_EQ(TC::getDetailQsKey(details[1]), QStringLiteral("SZ000001"));
}

TEST(CStockManager, WithoutAShareTakesTheFirstMarketInOrder)
{
    TC::embedded::setInstruments({ instrument("XX", "A1", "future"), instrument("DF", "A1", "future"),
                                   instrument("SF", "A1", "future"), instrument("IF", "A1", "index") });
    EXPECT_EQ(keyOf("A1"), QStringLiteral("SFA1"));
    QVector<TC::CStockManager::Detail> details;
    manager().getMultiStockDetail(QStringLiteral("A1"), details);
    QStringList keys;
    for (const auto& detail : details)
        keys << TC::getDetailQsKey(detail);
    EXPECT_EQ(keys.join(QLatin1Char(' ')), QStringLiteral("SFA1 DFA1 IFA1 XXA1"));
}

TEST(CStockManager, EmptiesTheAnswerForAnUnknownCode)
{
    QVector<TC::CStockManager::Detail> details(3);
    EXPECT_FALSE(manager().getMultiStockDetail(QStringLiteral("nothing"), details));
    EXPECT_TRUE(details.isEmpty());
}

TEST(StockTypeCenter, CountsKnownStocksOfTheMainlandAsShares)
{
    EXPECT_TRUE(isTyped(100003, "SH", "600000"));
    EXPECT_TRUE(isTyped(100003, "BJ", "920000"));
    EXPECT_FALSE(isTyped(100003, "SH", "000001")); // an index
    EXPECT_FALSE(isTyped(100003, "SH", "510050")); // a fund
    EXPECT_FALSE(isTyped(100003, "SH", "699999")); // unknown
    EXPECT_FALSE(isTyped(4711, "SH", "600000"));
}

TEST(StockTypeCenter, TellsTheStarAndGrowthMarketsByTheirCodes)
{
    EXPECT_TRUE(isTyped(277, "SH", "688001"));
    EXPECT_FALSE(isTyped(277, "SZ", "688001"));
    EXPECT_TRUE(isTyped(10006, "SZ", "300001"));
    EXPECT_TRUE(isTyped(10006, "SZ", "301001"));
    EXPECT_FALSE(isTyped(10006, "SZ", "302001"));
    EXPECT_FALSE(isTyped(10006, "SH", "300001"));
}

TEST(ParserStockDetail, IsEmptyUntilFilled)
{
    const TC::ParserStockDetail fresh;
    EXPECT_FALSE(fresh.instrument);
    EXPECT_EQ(fresh.relativeWeight, 0.0);
    EXPECT_EQ(fresh.absoluteWeight, 0.0);
    EXPECT_EQ(fresh.shareCount, 0);
    EXPECT_EQ(fresh.key(), QString());
}

TEST(ParserStockDetail, ItsKeyIsThatOfTheInstrument)
{
    TC::ParserStockDetail record;
    record.instrument = manager().getInstrumentDetail(QStringLiteral("600000"));
    EXPECT_EQ(record.key(), QStringLiteral("SH600000"));
    EXPECT_EQ(record.key(), TC::getDetailQsKey(record.instrument));
    EXPECT_EQ(record.key(), qnStockKey("SH", "600000"));
}
