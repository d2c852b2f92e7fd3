#include "data/IndexBaseData.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <type_traits>

namespace {

using test::FormulaBuilder;

class Pane : public TC::IndexBaseData
{
public:
    Pane()
        : TC::IndexBaseData(nullptr)
    {
    }
    using TC::IndexBaseData::m_data;
    using TC::IndexBaseData::m_dataLock;
    using TC::IndexBaseData::m_formulas;
    using TC::IndexBaseData::m_maxMinMap;
    using TC::IndexBaseData::m_requests;
    using TC::IndexBaseData::updateStrategyBacktestData;
};

TC::CFormulaKey key(const char* formula)
{
    return TC::CFormulaKey(QStringLiteral("SH600000"), QString::fromUtf8(formula));
}

void addFormula(const char* name, const char* realName, int kind, bool group = false, bool script = false)
{
    TC::CFormulaDetail formula;
    formula.displayName = QString::fromUtf8(name);
    formula.realName = QString::fromUtf8(realName);
    formula.kind = kind;
    formula.groupModel = group;
    formula.script = script;
    TC::embedded::setFormula(formula);
}

class BacktestFigures : public testing::Test
{
protected:
    void SetUp() override
    {
        TC::embedded::setBacktestReceiver(
            [this](const QVector<QString>& ids, const QMap<QString, double>& figures) {
                ++calls;
                m_ids = ids;
                m_figures = figures;
            });
    }

    void update() { pane.updateStrategyBacktestData({ QStringLiteral("id") }); }

    Pane pane;
    int calls = 0;
    QVector<QString> m_ids;
    QMap<QString, double> m_figures;
};

} // namespace

static_assert(std::is_base_of_v<QObject, TC::IndexBaseData>);
static_assert(std::is_base_of_v<WB::CEventDeliverer, TC::IndexBaseData>);

TEST(PaneData, HasNothingAtFirst)
{
    Pane pane;
    EXPECT_FALSE(pane.hasData());
    EXPECT_TRUE(pane.getData().isEmpty());
    EXPECT_TRUE(pane.getMaxMinMap().isEmpty());
    EXPECT_EQ(pane.getFormulaSize(), 0);
    EXPECT_EQ(pane.getMainGraph(), QString());
    EXPECT_EQ(pane.getReqID(key("MA")), QString());
    EXPECT_FALSE(pane.hasGroupModelIndex());
    EXPECT_FALSE(pane.hasPythonIndex());
    EXPECT_TRUE(pane.getAxisMinMax(1.0, 2.0, 3).isEmpty());
    EXPECT_EQ(pane.parent(), nullptr);
}

TEST(PaneData, AnswersForWhatTheDerivedClassFilledIn)
{
    Pane pane;
    pane.m_data[key("MA")] = FormulaBuilder().line({ 1 }).build();
    pane.m_maxMinMap[key("MA")] = { 2.0, 1.0 };
    pane.m_formulas = { QStringLiteral("MA"), QStringLiteral("VOL") };
    pane.m_requests.add(key("MA"), QStringLiteral("17"));
    EXPECT_TRUE(pane.hasData());
    EXPECT_EQ(pane.getData().size(), 1);
    EXPECT_EQ(pane.getMaxMinMap().value(key("MA")), qMakePair(2.0, 1.0));
    EXPECT_EQ(pane.getFormulas(), pane.m_formulas);
    EXPECT_EQ(pane.getFormulaSize(), 2);
    EXPECT_EQ(pane.getReqID(key("MA")), QStringLiteral("17"));
}

TEST(PaneData, LetsAThreadThatHoldsTheLockReadTheRanges)
{
    Pane pane;
    const boost::recursive_mutex::scoped_lock lock(pane.m_dataLock);
    EXPECT_TRUE(pane.getMaxMinMap().isEmpty());
}

TEST(PaneData, DeliversEventsToItsParentLink)
{
    struct Parent : WB::CEventDeliverer
    {
        bool handleDeliveredEvent(int id, const QString&, void*) override { return id == 5; }
    } parent;
    TC::IndexBaseData data(&parent);
    EXPECT_TRUE(data.deliverEvent(5, QString()));
    EXPECT_FALSE(data.deliverEvent(6, QString()));
}

TEST(IsMainGraph, KnowsTheBuiltInNamesWhateverTheirCase)
{
    TC::embedded::clearFormulas();
    const Pane pane;
    for (const char* name : { "REALTIME", "RealTimeVol", "kline", "价位线", "tickdata" })
        EXPECT_TRUE(pane.isMainGraph(QString::fromUtf8(name))) << name;
    for (const char* name : { "", "KLINE2", " KLINE", "MA" })
        EXPECT_FALSE(pane.isMainGraph(QString::fromUtf8(name))) << name;
}

TEST(IsMainGraph, AsksForAKindOfExactlyTwoByDisplayName)
{
    TC::embedded::clearFormulas();
    addFormula("shown2", "real2", 2);
    addFormula("shown3", "real3", 3);
    const Pane pane;
    EXPECT_TRUE(pane.isMainGraph(QStringLiteral("shown2")));
    EXPECT_FALSE(pane.isMainGraph(QStringLiteral("real2")));
    EXPECT_FALSE(pane.isMainGraph(QStringLiteral("shown3")));
}

TEST(GetMainGraph, GivesTheFirstThatTheVirtualTestAccepts)
{
    struct Overridden : Pane
    {
        bool isMainGraph(QString name) const override { return name == QStringLiteral("b"); }
    } pane;
    pane.m_formulas = { QStringLiteral("KLINE"), QStringLiteral("b") };
    EXPECT_EQ(pane.getMainGraph(), QStringLiteral("b"));
    Pane plain;
    plain.m_formulas = { QStringLiteral("VOL"), QStringLiteral("kline"), QStringLiteral("REALTIME") };
    EXPECT_EQ(plain.getMainGraph(), QStringLiteral("kline"));
}

TEST(GetShowName, IsTheFirstNameOfTheFormula)
{
    addFormula("shown", "real", 0);
    Pane pane;
    EXPECT_EQ(pane.getShowName(QStringLiteral("shown")), QStringLiteral("shown"));
    EXPECT_EQ(pane.getShowName(QStringLiteral("nobody")), QString());
}

TEST(PaneData, KnowsGroupModelsAndScripts)
{
    addFormula("group", "g", 0, true, false);
    addFormula("script", "s", 0, false, true);
    Pane pane;
    pane.m_formulas = { QStringLiteral("MA"), QStringLiteral("group") };
    EXPECT_TRUE(pane.hasGroupModelIndex());
    EXPECT_FALSE(pane.hasPythonIndex());
    pane.m_formulas = { QStringLiteral("unknown"), QStringLiteral("script") };
    EXPECT_FALSE(pane.hasGroupModelIndex());
    EXPECT_TRUE(pane.hasPythonIndex());
}

TEST(IsNeedYAxis, AnswersFromTheFirstColumn)
{
    Pane pane;
    for (int drawType : { 0, 2, 10, 11, 27, 37 }) {
        auto cache = FormulaBuilder().output("o", drawType, { { 1 }, { 2 } }).build();
        cache.result.columnNeedsAxis = { 0, 1 };
        EXPECT_FALSE(pane.isNeedYAxis(cache, 0)) << drawType;
        cache.result.columnNeedsAxis = { 1, 0 };
        EXPECT_TRUE(pane.isNeedYAxis(cache, 0)) << drawType;
    }
}

TEST(IsNeedYAxis, AnswersFromTheSecondColumnOfGatedOutputs)
{
    Pane pane;
    for (int drawType : { 13, 19, 26, 28 }) {
        auto cache = FormulaBuilder().output("o", drawType, { { 1 }, { 2 } }).build();
        cache.result.columnNeedsAxis = { 1, 0 };
        EXPECT_FALSE(pane.isNeedYAxis(cache, 0)) << drawType;
        cache.meta.outputColumns = { { 1 } }; // one column only
        EXPECT_TRUE(pane.isNeedYAxis(cache, 0)) << drawType;
    }
}

TEST(IsNeedYAxis, IsTrueOnEveryDoubt)
{
    Pane pane;
    for (int drawType : { 1, 3, 4, 5, 9, 12, 31, 34, 36, -1, 38, 42 }) {
        const auto cache = FormulaBuilder().output("o", drawType, { { 1 } }).offAxis().build();
        EXPECT_TRUE(pane.isNeedYAxis(cache, 0)) << drawType;
    }
    auto cache = FormulaBuilder().line({ 1 }).offAxis().build();
    EXPECT_FALSE(pane.isNeedYAxis(cache, 0));
    EXPECT_TRUE(pane.isNeedYAxis(cache, 1));
    EXPECT_TRUE(pane.isNeedYAxis(cache, -1));
    cache.meta.outputCount = 0; // the vectors decide, not the count
    EXPECT_FALSE(pane.isNeedYAxis(cache, 0));
    cache.meta.outputColumns = { {} };
    EXPECT_TRUE(pane.isNeedYAxis(cache, 0));
    cache.meta.outputColumns = { { 9 } };
    EXPECT_TRUE(pane.isNeedYAxis(cache, 0));
    cache.meta.outputColumns = { { 0 } };
    cache.meta.drawType.clear();
    EXPECT_TRUE(pane.isNeedYAxis(cache, 0));
}

TEST_F(BacktestFigures, AreTheLastValuesOfTheOutputsOfThatName)
{
    pane.m_data[key("S")] = FormulaBuilder()
                                .output("年化收益", 0, { { 0.1, 0.2 } })
                                .output("胜率", 42, { { 0.5, 0.6 } })
                                .output("年化收益 ", 0, { { 9, 9 } }) // not the whole name
                                .build();
    update();
    EXPECT_EQ(m_ids, QVector<QString> { QStringLiteral("id") });
    EXPECT_EQ(
        m_figures,
        (QMap<QString, double> { { QStringLiteral("年化收益"), 0.2 }, { QStringLiteral("胜率"), 0.6 } }));
}

TEST_F(BacktestFigures, OfALaterKeyReplaceThoseOfAnEarlierOne)
{
    pane.m_data[key("B")] = FormulaBuilder().output("胜率", 0, { { 2 } }).build();
    pane.m_data[key("A")] = FormulaBuilder().output("胜率", 0, { { 1 } }).build();
    update();
    EXPECT_EQ(m_figures.value(QStringLiteral("胜率")), 2.0);
}

TEST_F(BacktestFigures, AreHandedOverEvenWhenThereAreNone)
{
    update();
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(m_figures.isEmpty());
    pane.m_data[key("S")] = FormulaBuilder().output("胜率", 0, { { 1, 2 } }).valid({ 1, 0 }).build();
    update();
    EXPECT_EQ(calls, 2);
    EXPECT_TRUE(m_figures.isEmpty()); // the last bar is invalid; earlier ones do not count
}

TEST_F(BacktestFigures, LeaveOutDrawTypesWithoutAFigure)
{
    for (int drawType : { 12, 13, 19, 26, 28, 31, 34, 36 }) {
        pane.m_data[key("S")] = FormulaBuilder().output("胜率", drawType, { { 1 } }).build();
        update();
        EXPECT_TRUE(m_figures.isEmpty()) << drawType;
    }
}

TEST_F(BacktestFigures, DoNotLookAtWidthTypeOrMarker)
{
    pane.m_data[key("S")] =
        FormulaBuilder().output("胜率", 0, { { DBL_MAX } }).width(0).columnType(3).build();
    update();
    EXPECT_EQ(m_figures.value(QStringLiteral("胜率")), DBL_MAX);
}

TEST_F(BacktestFigures, SurviveRecordsThatAreShort)
{
    auto cache = FormulaBuilder().output("胜率", 0, { { 1, 2 } }).output("年化收益", 0, { { 3, 4 } }).build();
    cache.result.numberSeries[0].resize(1);
    cache.meta.outputCount = 99;
    pane.m_data[key("S")] = cache;
    update();
    EXPECT_EQ(m_figures, (QMap<QString, double> { { QStringLiteral("年化收益"), 4.0 } }));
    cache.result.barValid.clear();
    pane.m_data[key("S")] = cache;
    update();
    EXPECT_TRUE(m_figures.isEmpty());
}

TEST(ResultCache, CopiesAreDeepAndCarryTheExtraWords)
{
    TC::RPCFormulaResultCache cache = FormulaBuilder().line({ 1 }).build();
    cache.extra1 = 0xFFFFFFFFFFFFFFFFull;
    cache.extra2 = 42;
    TC::RPCFormulaResultCache copy = cache;
    copy.result.numberSeries[0][0] = 9.0;
    EXPECT_EQ(cache.result.numberSeries[0][0], 1.0);
    EXPECT_EQ(copy.extra1, 0xFFFFFFFFFFFFFFFFull);
    EXPECT_EQ(copy.extra2, 42u);
}
