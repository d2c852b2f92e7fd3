// SPDX-License-Identifier: MIT
#include "data/CFormulaKey.h"

#include <gtest/gtest.h>

#include <QMap>

#include <vector>

using TC::CFormulaKey;

namespace {

CFormulaKey keyOf(const char* instrument, const char* formula)
{
    return { QString::fromUtf8(instrument), QString::fromUtf8(formula) };
}

} // namespace

TEST(FormulaKey, IsEmptyWhenMadeFromNothing)
{
    EXPECT_TRUE(CFormulaKey().instrumentKey.isEmpty());
    EXPECT_TRUE(CFormulaKey().formulaName.isEmpty());
}

TEST(FormulaKey, EqualsAKeyOfTheSameFields)
{
    EXPECT_TRUE(keyOf("SH600000", "MA") == keyOf("SH600000", "MA"));
    EXPECT_FALSE(keyOf("SH600000", "MA") != keyOf("SH600000", "MA"));
}

TEST(FormulaKey, DiffersByInstrumentAlone)
{
    EXPECT_TRUE(keyOf("SH600000", "MA") != keyOf("SZ000001", "MA"));
    EXPECT_FALSE(keyOf("SH600000", "MA") == keyOf("SZ000001", "MA"));
}

TEST(FormulaKey, DiffersByFormulaAlone)
{
    EXPECT_TRUE(keyOf("SH600000", "MA") != keyOf("SH600000", "MACD"));
}

TEST(FormulaKey, ComparesCase)
{
    EXPECT_FALSE(keyOf("SH600000", "ma") == keyOf("SH600000", "MA"));
    EXPECT_FALSE(keyOf("sh600000", "MA") == keyOf("SH600000", "MA"));
}

TEST(FormulaKey, OrdersByInstrumentBeforeFormula)
{
    EXPECT_LT(keyOf("A", "Z"), keyOf("B", "A"));
    EXPECT_FALSE(keyOf("B", "A") < keyOf("A", "Z"));
    EXPECT_LT(keyOf("A", "A"), keyOf("A", "Z"));
    EXPECT_LT(keyOf("A", "B"), keyOf("A", "a")); // by code unit, capitals first
}

TEST(FormulaKey, OrderIsStrictAndAgreesWithEquality)
{
    std::vector<CFormulaKey> keys;
    for (const char* instrument : { "", "A", "a", "AB", "价" })
        for (const char* formula : { "", "A", "a", "B", "价" })
            keys.push_back(keyOf(instrument, formula));
    for (const CFormulaKey& a : keys) {
        for (const CFormulaKey& b : keys) {
            EXPECT_EQ(a == b, !(a < b) && !(b < a));
            EXPECT_FALSE(a < b && b < a);
            for (const CFormulaKey& c : keys)
                EXPECT_TRUE(!(a < b && b < c) || a < c);
        }
    }
}

TEST(FormulaKey, KeepsOneFormulaOfTwoInstrumentsApartInAMap)
{
    QMap<CFormulaKey, int> map;
    map[keyOf("SH600000", "MA")] = 1;
    map[keyOf("SZ000001", "MA")] = 2;
    map[keyOf("SH600000", "MA")] = 3;
    EXPECT_EQ(map.size(), 2);
    EXPECT_EQ(map.value(keyOf("SH600000", "MA")), 3);
}
