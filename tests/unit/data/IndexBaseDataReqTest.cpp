#include "data/IndexBaseDataReq.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

using TC::CFormulaKey;
using TC::IndexBaseDataReq;

namespace {

CFormulaKey key(const char* instrument, const char* formula)
{
    return CFormulaKey(QString::fromLatin1(instrument), QString::fromLatin1(formula));
}

QString id(const char* text)
{
    return QString::fromLatin1(text);
}

/// Three entries: a -> 1, b -> 2, c -> 1.
IndexBaseDataReq threeEntries()
{
    IndexBaseDataReq requests;
    requests.add(key("SH", "a"), id("1"));
    requests.add(key("SH", "b"), id("2"));
    requests.add(key("SH", "c"), id("1"));
    return requests;
}

} // namespace

TEST(FormulaKey, IsEqualWhenBothFieldsAreExactly)
{
    EXPECT_TRUE(key("SH", "MA") == key("SH", "MA"));
    EXPECT_TRUE(key("SH", "MA") != key("SZ", "MA"));
    EXPECT_TRUE(key("SH", "MA") != key("SH", "ma"));
}

TEST(FormulaKey, IsOrderedByInstrumentThenFormulaByCodeUnit)
{
    EXPECT_TRUE(key("A", "z") < key("B", "a"));
    EXPECT_TRUE(key("A", "B") < key("A", "a"));
    EXPECT_FALSE(key("A", "a") < key("A", "a"));
    EXPECT_FALSE(key("A", "a") < key("A", "B"));
}

TEST(RequestList, KeepsThePlaceOfAKnownKeyAndTakesTheNewIdentifier)
{
    IndexBaseDataReq requests = threeEntries();
    EXPECT_TRUE(requests.add(key("SH", "a"), id("9")));
    EXPECT_EQ(requests.count(), 3);
    EXPECT_EQ(requests.reqIds(), (QVector<QString> { id("9"), id("2"), id("1") }));
}

TEST(RequestList, AppendsNewKeys)
{
    IndexBaseDataReq requests = threeEntries();
    EXPECT_TRUE(requests.add(key("SZ", "a"), id("1"))); // another instrument is another key
    EXPECT_EQ(requests.count(), 4);
}

TEST(RequestList, FindsKeysAndIdentifiers)
{
    const IndexBaseDataReq requests = threeEntries();
    EXPECT_TRUE(requests.findKey(key("SH", "b")));
    EXPECT_FALSE(requests.findKey(key("SH", "B")));
    EXPECT_TRUE(requests.findReq(id("2")));
    EXPECT_FALSE(requests.findReq(id("3")));
    EXPECT_FALSE(IndexBaseDataReq().findKey(key("", "")));
    EXPECT_FALSE(IndexBaseDataReq().findReq(QString()));
}

TEST(RequestList, GivesTheFirstKeyOfAnIdentifierAndTheIdentifierOfAKey)
{
    const IndexBaseDataReq requests = threeEntries();
    CFormulaKey found;
    EXPECT_TRUE(requests.getKey(found, id("1")));
    EXPECT_EQ(found, key("SH", "a"));
    QString reqId;
    EXPECT_TRUE(requests.getReq(reqId, key("SH", "b")));
    EXPECT_EQ(reqId, id("2"));
}

TEST(RequestList, LeavesOutArgumentsAloneWhenNothingMatches)
{
    const IndexBaseDataReq requests = threeEntries();
    CFormulaKey found = key("x", "y");
    EXPECT_FALSE(requests.getKey(found, id("3")));
    EXPECT_EQ(found, key("x", "y"));
    QString reqId = id("before");
    EXPECT_FALSE(requests.getReq(reqId, key("SH", "z")));
    EXPECT_EQ(reqId, id("before"));
}

TEST(RequestList, TakesAnEmptyIdentifierAsAnyOther)
{
    IndexBaseDataReq requests = threeEntries();
    EXPECT_FALSE(requests.findReq(QString()));
    requests.add(key("SH", "d"), QString());
    EXPECT_TRUE(requests.findReq(QString()));
}

TEST(RequestList, RemovesByPlaceKeyAndIdentifier)
{
    IndexBaseDataReq requests = threeEntries();
    requests.removeReq(id("1")); // the first of the two
    EXPECT_EQ(requests.reqIds(), (QVector<QString> { id("2"), id("1") }));
    requests.removeKey(key("SH", "b"));
    EXPECT_EQ(requests.reqIds(), QVector<QString> { id("1") });
    requests.removeAt(0);
    EXPECT_EQ(requests.count(), 0);
}

TEST(RequestList, IgnoresWhatItCannotRemove)
{
    IndexBaseDataReq requests = threeEntries();
    requests.removeAt(-1);
    requests.removeAt(3);
    requests.removeKey(key("SH", "z"));
    requests.removeReq(id("3"));
    EXPECT_EQ(requests.count(), 3);
}

TEST(RequestList, WrapsIndexesRound)
{
    IndexBaseDataReq requests = threeEntries();
    EXPECT_EQ(requests[4].key, key("SH", "b"));
    EXPECT_EQ(requests[3].key, key("SH", "a"));
    requests[1].reqId = id("7");
    EXPECT_TRUE(requests.findReq(id("7")));
    const IndexBaseDataReq& constant = requests;
    EXPECT_EQ(constant[5].key, key("SH", "c"));
}

TEST(RequestList, AnswersTheSharedDefaultWhenEmptyOrNegative)
{
    IndexBaseDataReq empty, other = threeEntries();
    EXPECT_EQ(&empty[0], &IndexBaseDataReq::s_defItem);
    EXPECT_EQ(&empty[7], &IndexBaseDataReq::s_defItem);
    EXPECT_EQ(&other[-1], &IndexBaseDataReq::s_defItem);
    const IndexBaseDataReq& constant = empty;
    EXPECT_EQ(&constant[0], &IndexBaseDataReq::s_defItem);
    empty[0].reqId = id("shared"); // seen by every table
    EXPECT_EQ(IndexBaseDataReq()[3].reqId, id("shared"));
    IndexBaseDataReq::s_defItem = {};
    EXPECT_EQ(empty[0].reqId, QString());
}

TEST(RequestList, CopiesAreIndependent)
{
    IndexBaseDataReq requests = threeEntries();
    IndexBaseDataReq copy = requests;
    copy[0].reqId = id("9");
    EXPECT_FALSE(requests.findReq(id("9")));
    requests.clear();
    EXPECT_EQ(copy.count(), 3);
    EXPECT_TRUE(requests.reqIds().isEmpty());
}
