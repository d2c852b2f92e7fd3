// SPDX-License-Identifier: MIT
#include "data/IndexBaseDataReq.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <type_traits>
#include <utility>

using TC::CFormulaKey;
using TC::IndexBaseDataReq;
using TC::IndexBaseDataReqItem;

namespace {

CFormulaKey key(const char* formula, const char* instrument = "SH600000")
{
    return { QString::fromUtf8(instrument), QString::fromUtf8(formula) };
}

QString id(const char* text)
{
    return QString::fromUtf8(text);
}

/// MA, KDJ and VOL under the identifiers 1, 2 and 3.
IndexBaseDataReq threeRequests()
{
    IndexBaseDataReq table;
    table.add(key("MA"), id("1"));
    table.add(key("KDJ"), id("2"));
    table.add(key("VOL"), id("3"));
    return table;
}

} // namespace

TEST(IndexBaseDataReq, StartsEmpty)
{
    const IndexBaseDataReq table;
    EXPECT_EQ(table.count(), 0);
    EXPECT_TRUE(table.reqIds().isEmpty());
}

TEST(IndexBaseDataReq, AddsNewKeysAtTheEnd)
{
    IndexBaseDataReq table;
    EXPECT_TRUE(table.add(key("MA"), id("1")));
    EXPECT_TRUE(table.add(key("KDJ"), id("2")));
    EXPECT_EQ(table.reqIds(), (QVector<QString> { id("1"), id("2") }));
    EXPECT_EQ(table[0].key, key("MA"));
    EXPECT_EQ(table[1].key, key("KDJ"));
}

TEST(IndexBaseDataReq, AddingAKnownKeyKeepsItsPlaceAndAnswersTrue)
{
    IndexBaseDataReq table = threeRequests();
    EXPECT_TRUE(table.add(key("MA"), id("9")));
    EXPECT_EQ(table.count(), 3);
    EXPECT_EQ(table.reqIds(), (QVector<QString> { id("9"), id("2"), id("3") }));
}

TEST(IndexBaseDataReq, KeepsOneFormulaOfTwoInstrumentsApart)
{
    IndexBaseDataReq table;
    table.add(key("MA", "SH600000"), id("1"));
    table.add(key("MA", "SZ000001"), id("2"));
    EXPECT_EQ(table.count(), 2);
    QString found;
    EXPECT_TRUE(table.getReq(found, key("MA", "SZ000001")));
    EXPECT_EQ(found, id("2"));
}

TEST(IndexBaseDataReq, FindsKeysByExactComparisonOfBothFields)
{
    const IndexBaseDataReq table = threeRequests();
    EXPECT_TRUE(table.findKey(key("KDJ")));
    EXPECT_FALSE(table.findKey(key("kdj")));
    EXPECT_FALSE(table.findKey(key("KDJ", "SZ000001")));
    EXPECT_FALSE(table.findKey(key("")));
    EXPECT_FALSE(IndexBaseDataReq().findKey(CFormulaKey()));
}

TEST(IndexBaseDataReq, FindsIdentifiersByExactComparison)
{
    IndexBaseDataReq table;
    table.add(key("MA"), id("Req"));
    EXPECT_TRUE(table.findReq(id("Req")));
    EXPECT_FALSE(table.findReq(id("req")));
    EXPECT_FALSE(table.findReq(id("Re")));
    EXPECT_FALSE(IndexBaseDataReq().findReq(QString()));
}

TEST(IndexBaseDataReq, EmptyIdentifierIsAnOrdinaryOne)
{
    IndexBaseDataReq table = threeRequests();
    EXPECT_FALSE(table.findReq(QString()));
    table.add(key("KDJ"), QString());
    EXPECT_TRUE(table.findReq(id("")));
    CFormulaKey found;
    EXPECT_TRUE(table.getKey(found, QString()));
    EXPECT_EQ(found, key("KDJ"));
    QString request = id("before");
    EXPECT_TRUE(table.getReq(request, key("KDJ")));
    EXPECT_TRUE(request.isEmpty());
    table.removeReq(id(""));
    EXPECT_FALSE(table.findKey(key("KDJ")));
}

TEST(IndexBaseDataReq, GivesTheKeyOfAnIdentifier)
{
    CFormulaKey found;
    EXPECT_TRUE(threeRequests().getKey(found, id("2")));
    EXPECT_EQ(found, key("KDJ"));
}

TEST(IndexBaseDataReq, GivesTheFirstKeyOfAnIdentifierThatTwoShare)
{
    IndexBaseDataReq table = threeRequests();
    table.add(key("VOL"), id("2"));
    CFormulaKey found;
    EXPECT_TRUE(table.getKey(found, id("2")));
    EXPECT_EQ(found, key("KDJ"));
}

TEST(IndexBaseDataReq, LeavesTheKeyUntouchedForAnUnknownIdentifier)
{
    CFormulaKey found = key("before");
    EXPECT_FALSE(threeRequests().getKey(found, id("4")));
    EXPECT_EQ(found, key("before"));
}

TEST(IndexBaseDataReq, GivesTheIdentifierOfAKey)
{
    QString found;
    EXPECT_TRUE(threeRequests().getReq(found, key("VOL")));
    EXPECT_EQ(found, id("3"));
}

TEST(IndexBaseDataReq, LeavesTheIdentifierUntouchedForAnUnknownKey)
{
    QString found = id("before");
    EXPECT_FALSE(threeRequests().getReq(found, key("RSI")));
    EXPECT_EQ(found, id("before"));
}

TEST(IndexBaseDataReq, RemovesByPlaceAndKeepsTheOrderOfTheRest)
{
    IndexBaseDataReq table = threeRequests();
    table.removeAt(1);
    EXPECT_EQ(table.reqIds(), (QVector<QString> { id("1"), id("3") }));
}

TEST(IndexBaseDataReq, IgnoresPlacesThatDoNotExist)
{
    IndexBaseDataReq table = threeRequests();
    for (const int place : { -1, 3, INT_MIN, INT_MAX })
        table.removeAt(place);
    EXPECT_EQ(table.count(), 3);
    IndexBaseDataReq empty;
    empty.removeAt(0);
    EXPECT_EQ(empty.count(), 0);
}

TEST(IndexBaseDataReq, RemovesByKey)
{
    IndexBaseDataReq table = threeRequests();
    table.removeKey(key("MA"));
    EXPECT_EQ(table.reqIds(), (QVector<QString> { id("2"), id("3") }));
    table.removeKey(key("MA"));
    table.removeKey(key("KDJ", "SZ000001"));
    EXPECT_EQ(table.count(), 2);
}

TEST(IndexBaseDataReq, RemovesOnlyTheFirstEntryOfAnIdentifier)
{
    IndexBaseDataReq table = threeRequests();
    table.add(key("VOL"), id("1"));
    table.removeReq(id("1"));
    EXPECT_FALSE(table.findKey(key("MA")));
    EXPECT_TRUE(table.findKey(key("VOL")));
    EXPECT_EQ(table.count(), 2);
    table.removeReq(id("4"));
    EXPECT_EQ(table.count(), 2);
}

TEST(IndexBaseDataReq, AddsARemovedKeyAtTheEndAgain)
{
    IndexBaseDataReq table = threeRequests();
    table.removeKey(key("MA"));
    table.add(key("MA"), id("4"));
    EXPECT_EQ(table.reqIds(), (QVector<QString> { id("2"), id("3"), id("4") }));
}

TEST(IndexBaseDataReq, ListsIdentifiersInOrderWithTheirRepetitions)
{
    IndexBaseDataReq table = threeRequests();
    table.add(key("KDJ"), id("3"));
    EXPECT_EQ(table.reqIds(), (QVector<QString> { id("1"), id("3"), id("3") }));
}

TEST(IndexBaseDataReq, ClearsEverything)
{
    IndexBaseDataReq table = threeRequests();
    table.clear();
    EXPECT_EQ(table.count(), 0);
    EXPECT_FALSE(table.findKey(key("MA")));
}

TEST(IndexBaseDataReq, IndexWrapsRoundTheCount)
{
    IndexBaseDataReq table = threeRequests();
    for (const int index : { 0, 3, 3'000'000 }) {
        EXPECT_EQ(table[index].reqId, id("1"));
        EXPECT_EQ(std::as_const(table)[index].reqId, id("1"));
    }
    for (const int index : { 1, 4, INT_MAX }) { // 2147483647 = 3 x 715827882 + 1
        EXPECT_EQ(table[index].reqId, id("2"));
        EXPECT_EQ(std::as_const(table)[index].reqId, id("2"));
    }
}

TEST(IndexBaseDataReq, IndexGivesTheEntryItself)
{
    IndexBaseDataReq table = threeRequests();
    table[4].reqId = id("changed");
    EXPECT_EQ(table.reqIds(), (QVector<QString> { id("1"), id("changed"), id("3") }));
}

TEST(IndexBaseDataReq, EmptyTableAnswersTheSharedDefaultByReference)
{
    IndexBaseDataReq table;
    EXPECT_EQ(&table[0], &IndexBaseDataReq::s_defItem);
    EXPECT_EQ(&table[5], &IndexBaseDataReq::s_defItem);
    EXPECT_EQ(&std::as_const(table)[0], &IndexBaseDataReq::s_defItem);
}

TEST(IndexBaseDataReq, DefaultHasThreeEmptyTexts)
{
    EXPECT_TRUE(IndexBaseDataReq::s_defItem.key.instrumentKey.isEmpty());
    EXPECT_TRUE(IndexBaseDataReq::s_defItem.key.formulaName.isEmpty());
    EXPECT_TRUE(IndexBaseDataReq::s_defItem.reqId.isEmpty());
}

TEST(IndexBaseDataReq, WritingToTheDefaultChangesItForEveryTable)
{
    IndexBaseDataReq one, other;
    one[0].reqId = id("written");
    EXPECT_EQ(other[7].reqId, id("written"));
    IndexBaseDataReq::s_defItem = IndexBaseDataReqItem();
}

TEST(IndexBaseDataReq, NegativeIndexAnswersTheDefault)
{
    IndexBaseDataReq table = threeRequests();
    for (const int index : { -1, -3, INT_MIN }) {
        EXPECT_EQ(&table[index], &IndexBaseDataReq::s_defItem);
        EXPECT_EQ(&std::as_const(table)[index], &IndexBaseDataReq::s_defItem);
        EXPECT_EQ(&IndexBaseDataReq()[index], &IndexBaseDataReq::s_defItem);
    }
}

TEST(IndexBaseDataReq, CopiesAreIndependent)
{
    const IndexBaseDataReq original = threeRequests();
    IndexBaseDataReq copy(original), assigned;
    assigned = original;
    copy[0].reqId = id("changed");
    assigned.clear();
    EXPECT_EQ(original.reqIds(), (QVector<QString> { id("1"), id("2"), id("3") }));
    EXPECT_EQ(copy.count(), 3);
}

TEST(IndexBaseDataReq, EntriesStayWhereTheyAreWhileOthersComeAndGo)
{
    IndexBaseDataReq table = threeRequests();
    const IndexBaseDataReqItem* entry = &table[1];
    for (int n = 0; n < 100; ++n)
        table.add({ QString::number(n), QString() }, QString());
    table.removeAt(0);
    EXPECT_EQ(&table[0], entry);
}

TEST(IndexBaseDataReq, IsDestroyedThroughItsBase)
{
    static bool destroyed;
    struct Derived : IndexBaseDataReq
    {
        ~Derived() override { destroyed = true; }
    };
    destroyed = false;
    std::unique_ptr<IndexBaseDataReq>(new Derived).reset();
    EXPECT_TRUE(destroyed);
}
