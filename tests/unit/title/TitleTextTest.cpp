// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"

#include "host/TC/UiParams.h"
#include "tests/support/Legend.h"
#include "tests/support/Trace.h"

#include <boost/make_shared.hpp>

#include <QDateTime>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

using TC::CDrawStyle;
using TC::CFormulaKey;
using test::FormulaBuilder;

namespace {

class TitleText : public testing::Test
{
protected:
    void SetUp() override
    {
        test::knowFormula(QStringLiteral("MA"));
        test::knowFormula(QStringLiteral("KLINE"));
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_rise"), QColor(200, 0, 0));
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_fall"), QColor(0, 200, 0));
    }

    test::Pieces pieces(const FormulaBuilder& builder, int index = -1)
    {
        return CDrawStyle::getTitleTextData(m_key, FormulaBuilder(builder).build(), index, m_stock, m_added,
                                            m_mainChart, m_kline);
    }
    QStringList texts(const FormulaBuilder& builder, int index = -1)
    {
        return test::textsOf(pieces(builder, index));
    }

    CFormulaKey m_key { QStringLiteral("SH600000"), QStringLiteral("MA") };
    test::Instrument m_stock = test::instrument("SH", "600000", "浦发银行", 0.01);
    QList<test::Instrument> m_added;
    bool m_mainChart = true;
    boost::shared_ptr<TC::CKLineUiParam> m_kline;
};

FormulaBuilder named(const char* name, FormulaBuilder::Values values, int drawType = 0)
{
    return FormulaBuilder().output(name, drawType, { std::move(values) });
}

QStringList list(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result << QString::fromUtf8(text);
    return result;
}

/// Candles as the first output, then further outputs with the values.
FormulaBuilder candles(std::initializer_list<std::pair<const char*, FormulaBuilder::Values>> outputs)
{
    FormulaBuilder builder;
    builder.output("K线", 12, { { 10, 11, 12 }, { 13, 13, 13 }, { 9, 9, 9 }, { 11, 10.5, 12.5 } });
    for (const auto& output : outputs)
        builder.output(output.first, 0, { output.second });
    return builder;
}

} // namespace

TEST_F(TitleText, ShowsNameAndValueInTheOutputsColour)
{
    FormulaBuilder builder = named("MA5", { 1.0, 2.0 });
    builder.color(QColor(10, 20, 30));
    EXPECT_EQ(test::describe(pieces(builder)), list({ "0 #0a141e up \"MA5: 2.00 \"" }));
}

TEST_F(TitleText, TakesThePaletteColourWhereTheFormulaSetsNone)
{
    CDrawStyle::initColorList({ 0x0000FF, 0x00FF00 });
    FormulaBuilder builder;
    builder.output("a", 0, { { 1.0 } }).paletteColor().output("b", 0, { { 1.0 } }).paletteColor();
    const QStringList lines = test::describe(pieces(builder));
    EXPECT_EQ(lines, list({ "0 #ff0000 - \"a: 1.00 \"", "1 #00ff00 - \"b: 1.00 \"" }));
    CDrawStyle::initColorList({});
}

TEST_F(TitleText, AnUnknownFormulaHasNoLegend)
{
    m_key.formulaName = QStringLiteral("NOPE");
    EXPECT_TRUE(pieces(named("a", { 1.0 })).isEmpty());
}

TEST_F(TitleText, FindsAFormulaByItsRealName)
{
    TC::CFormulaDetail formula;
    formula.displayName = QStringLiteral("均线");
    formula.realName = QStringLiteral("MA_REAL");
    TC::embedded::setFormula(formula);
    m_key.formulaName = QStringLiteral("MA_REAL");
    EXPECT_EQ(pieces(named("a", { 1.0 })).size(), 1);
}

TEST_F(TitleText, AResultWithoutBarsHasNoLegend)
{
    EXPECT_TRUE(pieces(named("a", {})).isEmpty());
}

TEST_F(TitleText, ABarOutsideTheResultShowsTheLastOne)
{
    const FormulaBuilder builder = named("a", { 1.0, 2.0, 3.0 });
    EXPECT_EQ(texts(builder, -1), list({ "a: 3.00 " }));
    EXPECT_EQ(texts(builder, 8), list({ "a: 3.00 " }));
    EXPECT_EQ(texts(builder, 3), list({ "a: 3.00 " }));
    EXPECT_EQ(texts(builder, INT_MIN), list({ "a: 3.00 " }));
    EXPECT_EQ(texts(builder, INT_MAX), list({ "a: 3.00 " }));
    EXPECT_EQ(texts(builder, 0), list({ "a: 1.00 " }));
}

TEST_F(TitleText, AnInvalidBarHasNoLegend)
{
    FormulaBuilder builder = named("a", { 1.0, 2.0 });
    builder.valid({ 1, 0 });
    EXPECT_TRUE(pieces(builder, 1).isEmpty());
    EXPECT_EQ(pieces(builder, 0).size(), 1);
    builder.valid({ 1 });
    EXPECT_TRUE(pieces(builder, 1).isEmpty());
}

TEST_F(TitleText, AShorterResultEndsOnThePanesLastBar)
{
    m_kline = boost::make_shared<TC::CKLineUiParam>();
    m_kline->barCount = 5; // this result has three bars: bar 4 of the pane is its bar 2
    const FormulaBuilder builder = named("a", { 1.0, 2.0, 3.0 });
    EXPECT_EQ(texts(builder, 4), list({ "a: 3.00 " }));
    EXPECT_EQ(texts(builder, 3), list({ "a: 2.00 " }));
    EXPECT_EQ(texts(builder, 2), list({ "a: 1.00 " }));
}

TEST_F(TitleText, ABarBeforeAShorterResultShowsItsLastBar)
{
    m_kline = boost::make_shared<TC::CKLineUiParam>();
    m_kline->barCount = 5;
    EXPECT_EQ(texts(named("a", { 1.0, 2.0, 3.0 }), 1), list({ "a: 3.00 " }));
}

TEST_F(TitleText, WithoutAHostCountBarsAreNotShifted)
{
    m_kline = boost::make_shared<TC::CKLineUiParam>();
    m_kline->barCount = 5;
    m_kline->hostCount = 0;
    EXPECT_EQ(texts(named("a", { 1.0, 2.0, 3.0 }), 1), list({ "a: 2.00 " }));
}

TEST_F(TitleText, TheShiftIsDefinedForWildCounts)
{
    m_kline = boost::make_shared<TC::CKLineUiParam>();
    for (const int wild : { INT_MIN, INT_MAX }) {
        m_kline->barCount = wild;
        EXPECT_EQ(texts(named("a", { 1.0, 2.0 }), INT_MAX).size(), 1);
    }
}

TEST_F(TitleText, SomeDrawTypesHaveNoLegend)
{
    for (const int type : { 12, 13, 19, 26, 28, 31, 34, 36 })
        EXPECT_TRUE(pieces(named("a", { 1.0 }, type)).isEmpty()) << type;
    for (const int type : { 0, 1, 2, 10, 11, 27, 37, 99, -1 })
        EXPECT_EQ(pieces(named("a", { 1.0 }, type)).size(), 1) << type;
}

TEST_F(TitleText, StopsAtTheShorterOfCountAndDrawTypes)
{
    auto cache = FormulaBuilder().output("a", 0, { { 1.0 } }).output("b", 0, { { 1.0 } }).build();
    const auto count = [&] {
        return CDrawStyle::getTitleTextData(m_key, cache, 0, m_stock, m_added, true, nullptr).size();
    };
    cache.meta.outputCount = 1;
    EXPECT_EQ(count(), 1);
    cache.meta.outputCount = 99;
    EXPECT_EQ(count(), 2);
    cache.meta.drawType.resize(1);
    EXPECT_EQ(count(), 1);
}

TEST_F(TitleText, AnOutputThatIsNotDescribedHasNoPiece)
{
    const auto sound = FormulaBuilder().output("a", 0, { { 1.0 } }).output("b", 0, { { 1.0 } }).build();
    const auto count = [&](const TC::RPCFormulaResultCache& cache) {
        return CDrawStyle::getTitleTextData(m_key, cache, 0, m_stock, m_added, true, nullptr).size();
    };
    for (auto member : { &se::RPCFormulaMetaResult::color, &se::RPCFormulaMetaResult::colorSet,
                         &se::RPCFormulaMetaResult::valueKind }) {
        auto cache = sound;
        (cache.meta.*member).resize(1);
        EXPECT_EQ(count(cache), 1);
    }
    auto cache = sound;
    cache.meta.outputNames.resize(1);
    EXPECT_EQ(count(cache), 1);
    cache = sound;
    cache.meta.outputColumns.resize(1);
    EXPECT_EQ(count(cache), 1);
    cache = sound;
    cache.meta.outputColumns[1].clear();
    EXPECT_EQ(count(cache), 1);
    cache = sound;
    cache.result.numberSeries.resize(1);
    EXPECT_EQ(count(cache), 1);
}

TEST_F(TitleText, ASeriesThatEndsBeforeTheBarHasNoPiece)
{
    FormulaBuilder builder;
    builder.output("a", 0, { { 1.0, 2.0 } }).output("b", 0, { { 1.0 } });
    EXPECT_EQ(texts(builder, 1), list({ "a: 2.00 " }));
}

TEST_F(TitleText, AMarkedNameShowsTheValueAlone)
{
    EXPECT_EQ(texts(named("x__nonamey", { 1.0 })), list({ "1.00 " }));
}

TEST_F(TitleText, TwoMarksHideAnOutput)
{
    EXPECT_TRUE(texts(named("a__noshow", { 1.0 })).isEmpty());
    EXPECT_TRUE(texts(named("fucknoname1", { 1.0 })).isEmpty());
}

TEST_F(TitleText, ANameThatWasEmptiedCannotHideItsOutput)
{
    EXPECT_EQ(texts(named("__noname__noshow", { 1.0 })), list({ "1.00 " }));
}

TEST_F(TitleText, NamesMayHoldPlaceholdersPercentSignsAndCommas)
{
    EXPECT_EQ(texts(named("%1", { 1.0 })), list({ "%1: 1.00 " }));
    EXPECT_EQ(texts(named("a%2%L1,b 100%", { 1.0 })), list({ "a%2%L1,b 100%: 1.00 " }));
    EXPECT_EQ(texts(named("\u05d0\u05d1", { 1.0 })), list({ "\u05d0\u05d1: 1.00 " }));
    EXPECT_EQ(texts(named(std::string(5000, 'x').c_str(), { 1.0 })).value(0).size(), 5000 + 7);
}

TEST_F(TitleText, OpenInterestOfCandlesIsShownForFuturesAndOptionsOnly)
{
    m_key.formulaName = QStringLiteral("KLINE");
    for (const char* market :
         { "DF", "DCE", "ZF", "CZCE", "SF", "SHFE", "GF", "GFEX", "IF", "CFFEX", "INE", "SHO", "SZO", "" }) {
        m_stock->market = market;
        m_key.instrumentKey = QString::fromLatin1(market) + QStringLiteral("600000");
        EXPECT_EQ(pieces(named("持仓量", { 1.0 })).size(), 1) << market;
    }
    for (const char* market : { "SH", "SZ", "if", "SHOX" }) {
        m_stock->market = market;
        m_key.instrumentKey = QString::fromLatin1(market) + QStringLiteral("600000");
        EXPECT_TRUE(pieces(named("总持仓量x", { 1.0 })).isEmpty()) << market;
    }
}

TEST_F(TitleText, OpenInterestIsShownByOtherFormulasAndWithoutAnInstrument)
{
    EXPECT_EQ(pieces(named("持仓量", { 1.0 })).size(), 1);
    m_key.formulaName = QStringLiteral("KLINE");
    m_stock.reset();
    EXPECT_EQ(pieces(named("持仓量", { 1.0 })).size(), 1);
}

TEST_F(TitleText, AnEmptiedNameOfOpenInterestIsNotRecognised)
{
    m_key.formulaName = QStringLiteral("KLINE");
    EXPECT_EQ(texts(named("持仓量__noname", { 1.0 })), list({ "1.00 " }));
}

TEST_F(TitleText, TextsAreShownWithoutArrow)
{
    FormulaBuilder builder;
    builder.output("sig", 0, {}).texts({ "买", "卖" }).valueKind(3).color(Qt::blue);
    EXPECT_EQ(test::describe(pieces(builder)), list({ "0 #0000ff - \"sig: 卖 \"" }));
}

TEST_F(TitleText, AShortTextListHasNoPiece)
{
    FormulaBuilder builder;
    builder.output("sig", 0, {}).texts({ "买" }).valueKind(3).bars(2);
    EXPECT_TRUE(pieces(builder, 1).isEmpty());
    EXPECT_EQ(pieces(builder, 0).size(), 1);
}

TEST_F(TitleText, ATextKindReadsTheTextSeriesOfItsColumnsIndexWhateverTheColumnsType)
{
    for (int type : { 0, 1, 2, 3, 200, -1 }) {
        FormulaBuilder builder;
        builder.output("other", 12, {}).texts({ "never", "shown" });
        builder.output("sig", 0, {}).texts({ "buy", "sell" }).valueKind(3).columnType(type);
        EXPECT_EQ(texts(builder), list({ "sig: sell " })) << "column type " << type;
    }
    FormulaBuilder withoutTexts;
    withoutTexts.output("sig", 0, { { 1.0 } }).valueKind(3);
    EXPECT_TRUE(pieces(withoutTexts).isEmpty());
    FormulaBuilder shared; // both outputs' columns name index 0: of the text series and of the number series
    shared.output("note", 12, {}).texts({ "buy" });
    shared.output("sig", 0, { { 1.0 } }).valueKind(3);
    EXPECT_EQ(texts(shared), list({ "sig: buy " }));
}

TEST_F(TitleText, TextsUnderANumberKindHaveNoPiece)
{
    FormulaBuilder builder;
    builder.output("a", 0, {}).texts({ "x" }).series({ 7.0 });
    EXPECT_TRUE(pieces(builder).isEmpty());
}

TEST_F(TitleText, IntegersAreTruncatedAndSaturate)
{
    const auto integer = [&](double value) {
        FormulaBuilder builder = named("n", { 0.0, value });
        return texts(builder.valueKind(1));
    };
    EXPECT_EQ(integer(3.9), list({ "n: 3 " }));
    EXPECT_EQ(integer(-3.9), list({ "n: -3 " }));
    EXPECT_EQ(integer(DBL_MAX), list({ "n: 2147483647 " }));
    EXPECT_EQ(integer(-1e300), list({ "n: -2147483648 " }));
    EXPECT_EQ(integer(NAN), list({ "n: 0 " }));
}

TEST_F(TitleText, IntegersHaveAnArrow)
{
    FormulaBuilder builder = named("n", { 5.0, 3.0 });
    EXPECT_EQ(test::describe(pieces(builder.valueKind(1))), list({ "0 #000000 down \"n: 3 \"" }));
}

TEST_F(TitleText, SignalsHaveTwoBlanksAndNoArrow)
{
    const auto signal = [&](double value) {
        FormulaBuilder builder = named("sig", { 9.0, value });
        return test::describe(pieces(builder.valueKind(2)));
    };
    EXPECT_EQ(signal(0.001), list({ "0 #000000 - \"sig:  1 \"" }));
    EXPECT_EQ(signal(0.0), list({ "0 #000000 - \"sig:  0 \"" }));
    EXPECT_EQ(signal(-1.0), list({ "0 #000000 - \"sig:  0 \"" }));
    EXPECT_EQ(signal(NAN), list({ "0 #000000 - \"sig:  0 \"" }));
}

TEST_F(TitleText, UnknownKindsHaveNoPiece)
{
    for (const int kind : { 4, -1, INT_MAX }) {
        FormulaBuilder builder = named("a", { 1.0 });
        EXPECT_TRUE(pieces(builder.valueKind(kind)).isEmpty()) << kind;
    }
}

TEST_F(TitleText, OffTheMainChartEveryNumberIsInTheLargeStyle)
{
    m_mainChart = false;
    EXPECT_EQ(texts(named("收", { 12345.678 })), list({ "收: 1.235万 " }));
    EXPECT_EQ(texts(named("MA", { 12.5 })), list({ "MA: 12.5 " }));
    m_key.instrumentKey = QStringLiteral("EDUSD");
    EXPECT_EQ(texts(named("MA", { 12.5 })), list({ "MA: 12.5 " }));
}

TEST_F(TitleText, VolumeAndTurnoverAreAlwaysInTheLargeStyle)
{
    m_key.instrumentKey = QStringLiteral("EDUSD");
    m_stock.reset();
    EXPECT_EQ(texts(named("成交量", { 123456789.0 })), list({ "成交量: 1.235亿 " }));
    EXPECT_EQ(texts(named("成交额", { 20000.0 })), list({ "成交额: 2万 " }));
    EXPECT_EQ(texts(named("成交额x", { 20000.0 })), list({ "成交额x: 20000.0000 " }));
}

TEST_F(TitleText, PricesFollowTheTick)
{
    m_stock->priceTick = 0.005;
    for (const char* name : { "高", "开", "低", "收", "最新价", "均价" })
        EXPECT_EQ(texts(named(name, { 1.5 })).value(0).section(QLatin1Char(' '), 1, 1),
                  QStringLiteral("1.500"))
            << name;
    EXPECT_EQ(texts(named("收盘", { 1.5 })), list({ "收盘: 1.50 " }));
    m_stock->priceTick = 1.0;
    EXPECT_EQ(texts(named("收", { 1.6 })), list({ "收: 2 " }));
}

TEST_F(TitleText, AMarkedNameIsNotThePriceItContains)
{
    m_stock->priceTick = 0.005;
    EXPECT_EQ(texts(named("收__noname", { 1.5 })), list({ "1.50 " }));
}

TEST_F(TitleText, WithoutAnInstrumentPricesHaveTwoDecimals)
{
    m_stock.reset();
    EXPECT_EQ(texts(named("收", { 1.5 })), list({ "收: 1.50 " }));
}

TEST_F(TitleText, KeysOfExchangeRatesHaveFourDecimals)
{
    m_stock.reset();
    m_key.instrumentKey = QStringLiteral("EDUSD");
    EXPECT_EQ(texts(named("收", { 1.5 })), list({ "收: 1.5000 " }));
    EXPECT_EQ(texts(named("MA", { 1.5 })), list({ "MA: 1.5000 " }));
    m_key.instrumentKey = QStringLiteral("edUSD");
    EXPECT_EQ(texts(named("MA", { 1.5 })), list({ "MA: 1.50 " }));
    m_key.instrumentKey = QStringLiteral("XEDUSD");
    EXPECT_EQ(texts(named("MA", { 1.5 })), list({ "MA: 1.50 " }));
}

TEST_F(TitleText, KeysOfExchangeRatesOverruleTheTick)
{
    m_key.instrumentKey = QStringLiteral("EDUSD");
    m_stock = test::instrument("ED", "USD", "美元", 0.01);
    EXPECT_EQ(texts(named("收", { 1.5 })), list({ "收: 1.5000 " }));
    EXPECT_EQ(texts(named("成交量", { 1.5 })), list({ "成交量: 1.5 " })); // the large style stays
    m_mainChart = false;
    EXPECT_EQ(texts(named("收", { 1.5 })), list({ "收: 1.5 " }));
}

TEST_F(TitleText, InvalidNumbersSaySo)
{
    EXPECT_EQ(texts(named("a", { NAN })), list({ "a: 非法值 " }));
    EXPECT_EQ(texts(named("a", { DBL_MAX })), list({ "a: 非法值 " }));
    EXPECT_EQ(texts(named("振幅", { INFINITY })), list({ "振幅:非法值 " }));
}

TEST_F(TitleText, AChangeSaysRiseOrFallWithoutTrailingBlank)
{
    EXPECT_EQ(texts(named("涨跌", { 0.25 })), list({ "涨(0.25)" }));
    EXPECT_EQ(texts(named("涨跌", { -0.25 })), list({ "跌(-0.25)" }));
    EXPECT_EQ(texts(named("涨跌", { 0.0 })), list({ "跌(0.00)" }));
}

TEST_F(TitleText, APercentChangeHasNoName)
{
    EXPECT_EQ(texts(named("涨跌百分比", { 0.0123 })), list({ "1.23% " }));
}

TEST_F(TitleText, AnAmplitudeHasNoBlankBehindItsColon)
{
    EXPECT_EQ(texts(named("振幅", { 0.0123 })), list({ "振幅:1.23% " }));
}

TEST_F(TitleText, ChangePiecesTakeArrowAndColourOfTheChange)
{
    for (const char* name : { "涨跌", "涨跌百分比", "振幅" }) {
        FormulaBuilder builder = named(name, { 1.0, 2.0, 1.5, 1.5 });
        builder.color(Qt::blue);
        EXPECT_TRUE(test::describe(pieces(builder, 1)).value(0).startsWith(QStringLiteral("0 #c80000 up")));
        EXPECT_TRUE(test::describe(pieces(builder, 2)).value(0).startsWith(QStringLiteral("0 #00c800 down")));
        EXPECT_TRUE(test::describe(pieces(builder, 3)).value(0).startsWith(QStringLiteral("0 #0000ff -")));
    }
}

TEST_F(TitleText, VolumeAndTurnoverCarryTheirArrowInTheOutputsColour)
{
    for (const char* name : { "成交量", "成交额" }) {
        FormulaBuilder builder = named(name, { 1.0, 2.0 });
        builder.color(Qt::blue);
        EXPECT_TRUE(test::describe(pieces(builder)).value(0).startsWith(QStringLiteral("0 #0000ff up")));
    }
}

TEST_F(TitleText, ChangeTurnoverAndPercentageStayTogether)
{
    FormulaBuilder builder;
    for (const char* name : { "开", "涨跌", "收", "成交额", "量比", "涨跌百分比" })
        builder.output(name, 0, { { 1.0 } });
    EXPECT_EQ(texts(builder),
              list({ "开: 1.00 ", "涨(1.00)", "100.00% ", "成交额: 1 ", "收: 1.00 ", "量比: 1.00 " }));
}

TEST_F(TitleText, LaterPiecesLandBeforeEarlierOnesAtTheSamePosition)
{
    FormulaBuilder builder;
    for (const char* name : { "涨跌", "涨跌百分比", "成交额", "收" })
        builder.output(name, 0, { { 1.0 } });
    EXPECT_EQ(texts(builder), list({ "涨(1.00)", "成交额: 1 ", "100.00% ", "收: 1.00 " }));
}

TEST_F(TitleText, ASecondChangeIsInsertedAndMovesThePositionOn)
{
    FormulaBuilder builder;
    builder.output("涨跌", 0, { { 1.0 } }).output("收", 0, { { 1.0 } }).output("涨跌", 0, { { 2.0 } });
    builder.output("成交额", 0, { { 3.0 } });
    EXPECT_EQ(texts(builder), list({ "涨(1.00)", "涨(2.00)", "成交额: 3 ", "收: 1.00 " }));
}

TEST_F(TitleText, BeforeAnyChangeNothingIsInserted)
{
    FormulaBuilder builder;
    for (const char* name : { "涨跌百分比", "成交额", "成交量", "涨跌" })
        builder.output(name, 0, { { 1.0 } });
    EXPECT_EQ(texts(builder), list({ "100.00% ", "成交额: 1 ", "成交量: 1 ", "涨(1.00)" }));
}

TEST_F(TitleText, AVolumeAfterAChangeIsAppended)
{
    FormulaBuilder builder;
    builder.output("涨跌", 0, { { 1.0 } }).output("收", 0, { { 1.0 } }).output("成交量", 0, { { 2.0 } });
    EXPECT_EQ(texts(builder), list({ "涨(1.00)", "收: 1.00 ", "成交量: 2 " }));
}

TEST_F(TitleText, AStackHasAPiecePerPart)
{
    FormulaBuilder builder;
    builder.output(",大单,,小单,", 42, { { 1.0, 2.0 }, { 4.0, 3.0 }, { 5.0, 5.0 } }).color(Qt::blue);
    EXPECT_EQ(test::describe(pieces(builder)),
              list({ "0 #0000ff up \"大单: 2.00 \"", "0 #0000ff down \"小单: 3.00 \"",
                     "0 #0000ff - \": 5.00 \"" })); // more parts than names
}

TEST_F(TitleText, AStacksShortPartIsLeftOut)
{
    FormulaBuilder builder;
    builder.output("a,b,c", 42, { { 1.0, 2.0 }, { 4.0 }, { 5.0, 6.0 } });
    EXPECT_EQ(texts(builder, 1), list({ "a: 2.00 ", "c: 6.00 " }));
}

TEST_F(TitleText, AStackOfIntegersIsAnInteger)
{
    FormulaBuilder builder;
    builder.output("a,b", 42, { { 1.0 }, { 2.0 } }).valueKind(1);
    EXPECT_EQ(texts(builder), list({ "a,b: 1 " }));
}

TEST_F(TitleText, ASpecialNameComesBeforeTheStack)
{
    FormulaBuilder builder;
    builder.output("振幅", 42, { { 0.5 }, { 2.0 } });
    EXPECT_EQ(texts(builder), list({ "振幅:50.00% " }));
    FormulaBuilder volume;
    volume.output("成交量", 42, { { 1.0 }, { 2.0 } });
    EXPECT_EQ(texts(volume), list({ "成交量: 1.00 ", ": 2.00 " }));
}

TEST_F(TitleText, AnOverlaidInstrumentHasOnePieceWithItsName)
{
    m_key.instrumentKey = QStringLiteral("SZ000001");
    m_added = { nullptr, test::instrument("SZ", "000001", "平安 %1", 0.001),
                test::instrument("SZ", "000001", "second", 0.01) };
    FormulaBuilder builder = candles({ { "收", { 1, 2, 3 } } });
    EXPECT_EQ(test::describe(pieces(builder, 1)), list({ "-1 #000000 - \"[平安 %1 11.000]\"" }));
}

TEST_F(TitleText, AnOverlaidPieceTakesTheFirstPaletteColour)
{
    CDrawStyle::initColorList({ 0x0000FF });
    m_key.instrumentKey = QStringLiteral("SZ000001");
    m_added = { test::instrument("SZ", "000001", "a", 0.01) };
    FormulaBuilder builder = named("x", { 1.0 });
    EXPECT_EQ(test::describe(pieces(builder.paletteColor())), list({ "-1 #ff0000 - \"[a 1.00]\"" }));
    CDrawStyle::initColorList({});
}

TEST_F(TitleText, AForeignKeyWithoutItsInstrumentHasNoPiece)
{
    m_key.instrumentKey = QStringLiteral("SZ000001");
    EXPECT_TRUE(pieces(named("a", { 1.0 })).isEmpty());
    m_added = { test::instrument("SZ", "000001", "x", 0.01) };
    EXPECT_TRUE(pieces(FormulaBuilder().output("a", 0, {}).bars(1)).isEmpty());
    EXPECT_TRUE(pieces(named("a", { 1.0 }).bars(2)).isEmpty());
}

TEST_F(TitleText, AForeignKeyCountsAsOverlaidOnlyOnAMainChartWithAnInstrument)
{
    m_key.instrumentKey = QStringLiteral("SZ000001");
    m_mainChart = false;
    EXPECT_EQ(texts(named("a", { 1.0 })), list({ "a: 1 " }));
    m_mainChart = true;
    m_stock.reset();
    EXPECT_EQ(texts(named("a", { 1.0 })), list({ "a: 1.00 " }));
}

TEST_F(TitleText, TheTextIsBuiltInOrderInTheLegendsFont)
{
    TC::embedded::setFont(QStringLiteral("fnt_index_title_text"), test::font(23));
    FormulaBuilder builder;
    builder.output("b", 0, { { 1.0, 2.0 } }).output("a", 0, { { 2.0, 1.0 } });
    auto cache = builder.build();
    const TC::CArrowColorSimpleText text =
        CDrawStyle::getTitleText(m_key, cache, 1, m_stock, m_added, true, m_kline);
    ASSERT_EQ(text.getTextColor().size(), 2);
    EXPECT_EQ(text.getTextColor()[0].text, QStringLiteral("b: 2.00 "));
    EXPECT_EQ(text.getTextColor()[0].arrowType, 1);
    EXPECT_EQ(text.getTextColor()[1].arrowType, 2);
    ASSERT_TRUE(text.font());
    EXPECT_EQ(text.font()->pixelSize(), 23);
}
