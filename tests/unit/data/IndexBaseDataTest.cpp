// SPDX-License-Identifier: MIT
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Pane.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <chrono>
#include <climits>
#include <cmath>
#include <future>
#include <memory>

using test::Pane;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

void addFormula(const char* name, int kind)
{
    TC::CFormulaDetail formula;
    formula.displayName = text(name);
    formula.kind = kind;
    TC::embedded::setFormula(formula);
}

/// A pane that shows the named formulas.
std::unique_ptr<Pane> paneOf(std::initializer_list<const char*> names)
{
    auto pane = std::make_unique<Pane>();
    for (const char* name : names)
        pane->m_formulas.append(text(name));
    return pane;
}

} // namespace

TEST(IndexBaseData, StartsEmptyAndUnlocked)
{
    Pane pane;
    EXPECT_TRUE(pane.getData().isEmpty());
    EXPECT_TRUE(pane.getMaxMinMap().isEmpty());
    EXPECT_FALSE(pane.hasData());
    EXPECT_EQ(pane.getFormulaSize(), 0);
    EXPECT_EQ(pane.m_requests.count(), 0);
    EXPECT_TRUE(pane.m_spans.isEmpty());
    EXPECT_TRUE(pane.m_marks.isEmpty());
    EXPECT_EQ(pane.m_word, 0);
    EXPECT_TRUE(pane.m_secondNames.isEmpty());
    EXPECT_TRUE(pane.isDataLockFree());
}

TEST(IndexBaseData, IsAQObjectFirstAndHasNoParent)
{
    Pane pane;
    EXPECT_EQ(static_cast<const void*>(static_cast<const QObject*>(&pane)), static_cast<const void*>(&pane));
    EXPECT_NE(static_cast<const void*>(static_cast<const WB::CEventDeliverer*>(&pane)),
              static_cast<const void*>(&pane));
    EXPECT_EQ(pane.parent(), nullptr);
    EXPECT_STREQ(TC::IndexBaseData::staticMetaObject.className(), "TC::IndexBaseData");
}

TEST(IndexBaseData, PassesEventsToTheParentDeliverer)
{
    struct Panel : WB::CEventDeliverer
    {
        bool handleDeliveredEvent(int id, const QString&, void*) override
        {
            last = id;
            return true;
        }
        int last = 0;
    } panel;
    Pane pane(&panel);
    EXPECT_EQ(pane.parentDeliverer(), &panel);
    EXPECT_TRUE(pane.deliverEvent(52, QString()));
    EXPECT_EQ(panel.last, 52);
}

TEST(IndexBaseData, HandlesNoEventItself)
{
    EXPECT_FALSE(Pane().deliverEvent(52, QString()));
}

TEST(IndexBaseData, GivesTheDataItselfWithoutLocking)
{
    Pane pane;
    pane.m_data[{ text("SH600000"), text("MA") }] = test::FormulaBuilder().line({ 1.0 }).build();
    const boost::recursive_mutex::scoped_lock lock(pane.m_dataLock);
    const auto elsewhere = std::async(std::launch::async, [&] { return &pane.getData(); });
    ASSERT_EQ(elsewhere.wait_for(std::chrono::seconds(10)), std::future_status::ready);
    EXPECT_EQ(&pane.getData(), &pane.m_data);
}

TEST(IndexBaseData, HasDataAsSoonAsOneResultStandsThere)
{
    Pane pane;
    pane.m_data[{ text("SH600000"), text("MA") }] = {};
    EXPECT_TRUE(pane.hasData());
}

TEST(IndexBaseData, CopiesTheMaxMinMap)
{
    Pane pane;
    const TC::CFormulaKey key { text("SH600000"), text("MA") };
    pane.m_maxMinMap[key] = { 12.0, 3.0 };
    auto copy = pane.getMaxMinMap();
    EXPECT_EQ(copy.value(key), qMakePair(12.0, 3.0));
    copy[key].first = 99.0;
    EXPECT_EQ(pane.m_maxMinMap[key].first, 12.0);
}

TEST(IndexBaseData, HolderOfTheDataLockMayAskForTheMaxMinMapAgain)
{
    Pane pane;
    pane.m_maxMinMap[{}] = { 12.0, 3.0 };
    const boost::recursive_mutex::scoped_lock lock(pane.m_dataLock);
    EXPECT_EQ(pane.getMaxMinMap().size(), 1);
    EXPECT_EQ(pane.getMaxMinMap().size(), 1);
    EXPECT_FALSE(pane.isDataLockFree());
}

TEST(IndexBaseData, MaxMinMapWaitsForTheHolderOfTheDataLock)
{
    Pane pane;
    std::future<int> waiting;
    {
        const boost::recursive_mutex::scoped_lock lock(pane.m_dataLock);
        waiting = std::async(std::launch::async, [&]() -> int { return pane.getMaxMinMap().size(); });
        EXPECT_EQ(waiting.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
        pane.m_maxMinMap[{}] = { 12.0, 3.0 };
    }
    EXPECT_EQ(waiting.get(), 1);
}

TEST(IndexBaseData, ReleasesTheDataLockAfterTheCopy)
{
    Pane pane;
    pane.getMaxMinMap();
    EXPECT_TRUE(pane.isDataLockFree());
}

TEST(IndexBaseData, ListsFormulasInDisplayOrderAsACopy)
{
    const auto pane = paneOf({ "MACD", "MA", "MA" });
    QList<QString> names = pane->getFormulas();
    EXPECT_EQ(names, (QList<QString> { text("MACD"), text("MA"), text("MA") }));
    EXPECT_EQ(pane->getFormulaSize(), 3);
    names.clear();
    EXPECT_EQ(pane->getFormulaSize(), 3);
}

TEST(IsMainGraph, KnowsTheBuiltInSeriesWhateverTheirCase)
{
    const Pane pane;
    for (const char* name : { "REALTIME", "REALTIMEVOL", "KLINE", "价位线", "TICKDATA", "kline", "RealTime",
                              "realTimeVol", "tickdata" })
        EXPECT_TRUE(pane.isMainGraph(text(name))) << name;
}

TEST(IsMainGraph, ComparesTheWholeName)
{
    const Pane pane;
    for (const char* name : { "KLINE2", " KLINE", "KLIN", "REALTIMEV", "价位", "" })
        EXPECT_FALSE(pane.isMainGraph(text(name))) << name;
}

TEST(IsMainGraph, DoesNotAskTheManagerAboutBuiltInSeries)
{
    addFormula("KLINE", 0);
    EXPECT_TRUE(Pane().isMainGraph(text("KLINE")));
}

TEST(IsMainGraph, AcceptsAFormulaOfKindTwoOnly)
{
    const Pane pane;
    for (const int kind : { INT_MIN, -2, 0, 1, 3, 4, 6, INT_MAX }) {
        addFormula("BOLL", kind);
        EXPECT_FALSE(pane.isMainGraph(text("BOLL"))) << kind;
    }
    addFormula("BOLL", 2);
    EXPECT_TRUE(pane.isMainGraph(text("BOLL")));
}

TEST(IsMainGraph, RefusesAFormulaThatNobodyKnows)
{
    EXPECT_FALSE(Pane().isMainGraph(text("UNKNOWN")));
}

TEST(IsMainGraph, AsksTheManagerAboutTheEmptyName)
{
    addFormula("", 2);
    EXPECT_TRUE(Pane().isMainGraph(QString()));
}

TEST(MainGraph, IsTheFirstThatCountsInListOrder)
{
    addFormula("BOLL", 2);
    EXPECT_EQ(paneOf({ "MACD", "BOLL", "KLINE" })->getMainGraph(), text("BOLL"));
    EXPECT_EQ(paneOf({ "MACD", "kline", "BOLL" })->getMainGraph(), text("kline"));
}

TEST(MainGraph, IsEmptyWithoutFormulasAndWithoutAMainOne)
{
    EXPECT_TRUE(Pane().getMainGraph().isEmpty());
    EXPECT_TRUE(paneOf({ "MACD", "VOL" })->getMainGraph().isEmpty());
}

TEST(MainGraph, AsksTheDerivedClass)
{
    struct OwnRule : Pane
    {
        bool isMainGraph(QString name) const override { return name == text("MACD"); }
    } pane;
    pane.m_formulas = { text("KLINE"), text("MACD") };
    EXPECT_EQ(pane.getMainGraph(), text("MACD"));
}

TEST(AxisMinMax, IsEmptyWhateverIsAsked)
{
    Pane pane;
    for (const double value : { 0.0, -1.0, DBL_MAX, double(INFINITY), double(NAN) })
        for (const int count : { INT_MIN, -1, 0, 5, INT_MAX })
            EXPECT_TRUE(pane.getAxisMinMax(value, -value, count).isEmpty());
}

TEST(ReqID, IsTheRequestOfTheKeyAndEmptyWithoutOne)
{
    Pane pane;
    pane.m_requests.add({ text("SH600000"), text("MA") }, text("17"));
    EXPECT_EQ(pane.getReqID({ text("SH600000"), text("MA") }), text("17"));
    EXPECT_TRUE(pane.getReqID({ text("SZ000001"), text("MA") }).isEmpty());
}

TEST(ShowName, IsTheFirstTextOfTheFormula)
{
    TC::CFormulaDetail formula;
    formula.displayName = text("均线");
    formula.realName = text("MEAN");
    TC::embedded::setFormula(formula);
    Pane pane;
    EXPECT_EQ(pane.getShowName(text("均线")), text("均线"));
}

TEST(ShowName, IsEmptyForAnUnknownFormulaAndForARealName)
{
    TC::CFormulaDetail formula;
    formula.displayName = text("均线");
    formula.realName = text("MEAN");
    TC::embedded::setFormula(formula);
    EXPECT_TRUE(Pane().getShowName(text("MEAN")).isEmpty());
    EXPECT_TRUE(Pane().getShowName(QString()).isEmpty());
}

TEST(GroupModelIndex, IsFoundAmongTheFormulas)
{
    addFormula("MA", 0);
    TC::CFormulaDetail group;
    group.displayName = text("GROUP");
    group.groupModel = true;
    TC::embedded::setFormula(group);
    EXPECT_TRUE(paneOf({ "MA", "GROUP" })->hasGroupModelIndex());
    EXPECT_FALSE(paneOf({ "MA", "UNKNOWN" })->hasGroupModelIndex());
    EXPECT_FALSE(Pane().hasGroupModelIndex());
    EXPECT_FALSE(paneOf({ "GROUP" })->hasPythonIndex());
}

TEST(PythonIndex, IsFoundAmongTheFormulas)
{
    addFormula("MA", 0);
    TC::CFormulaDetail script;
    script.displayName = text("SCRIPT");
    script.script = true;
    TC::embedded::setFormula(script);
    EXPECT_TRUE(paneOf({ "MA", "SCRIPT" })->hasPythonIndex());
    EXPECT_FALSE(paneOf({ "MA", "UNKNOWN" })->hasPythonIndex());
    EXPECT_FALSE(Pane().hasPythonIndex());
    EXPECT_FALSE(paneOf({ "SCRIPT" })->hasGroupModelIndex());
}
