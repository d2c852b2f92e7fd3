// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"

#include "host/TC/UiParams.h"
#include "tests/support/Legend.h"
#include "tests/support/Trace.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <cmath>

using TC::CDrawStyle;
using TC::CFormulaKey;
using test::FormulaBuilder;

namespace {

/// Draws a legend and tells the texts apart: "x row text colour", row being the top of the text's box.
class DrawTitle : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const char* name : { "KLINE", "REALTIME", "REALTIMEVOL", "TICKDATA", "价位线" })
            test::knowFormula(QString::fromUtf8(name));
        test::knowFormula(QStringLiteral("MA"), 0, { 5 });
        test::knowFormula(QStringLiteral("MAIN"), 2);
        test::setArrows(QSize(9, 10), QSize(9, 10));
        color("clr_stock_code", 0xC0DE00);
        color("clr_stock_index", 0x1DE700);
        color("ic_clr_index_default_rise", 0xAA0000);
        color("ic_clr_index_default_fall", 0x00AA00);
        color("tc_clr_total_buyamount", 0xB00000);
        color("tc_clr_total_sellamount", 0x005E11);
        color("tc_clr_buyamount", 0xBB0000);
        color("ic_clr_realtime_title_account_position_text", 0xACC000);
    }

    static void color(const char* key, QRgb rgb)
    {
        TC::embedded::setColor(QString::fromLatin1(key), QColor(rgb));
    }

    void add(const char* formula, const char* output, const char* instrument = "SH600000")
    {
        data[CFormulaKey(QString::fromLatin1(instrument), QString::fromUtf8(formula))] =
            FormulaBuilder().output(output, 0, { { 1.0 } }).build();
    }

    QStringList drawn()
    {
        return test::traceOf([&](QPainter& painter) {
            CDrawStyle::drawTitle(&painter, rect, data, -1, stock, added, viewType, leftOffset, mainChart,
                                  accounts, positions, flags, totalBuy, totalSell, netBuy, profit, balance,
                                  buyVolume, sellVolume, buyPrice, sellPrice, kline);
        });
    }

    /// "#colour text" of every text.
    QStringList inks()
    {
        QStringList result;
        for (const QString& line : drawn())
            result << line.section(QLatin1Char('"'), 2).trimmed().section(QLatin1Char(' '), 0, 0)
                    + QLatin1Char(' ') + line.section(QLatin1Char('"'), 1, 1);
        return result;
    }

    /// x at which a text is found, -1 where it is not.
    int xOf(const QString& text)
    {
        for (const QString& line : drawn()) {
            if (line.section(QLatin1Char('"'), 1, 1).trimmed() == text.trimmed())
                return static_cast<int>(line.mid(5).section(QLatin1Char(','), 0, 0).toDouble());
        }
        return -1;
    }
    int baselineOf(const QString& text)
    {
        for (const QString& line : drawn()) {
            if (line.section(QLatin1Char('"'), 1, 1).trimmed() == text.trimmed())
                return qRound(line.section(QLatin1Char(','), 1).section(QLatin1Char(' '), 0, 0).toDouble());
        }
        return -1;
    }

    /// Where Qt puts a legend text whose box begins at `x`.
    static int inkOf(int x, const char* text)
    {
        const QString whole = QString::fromUtf8(text);
        const QStringList lines = test::traceOf([&](QPainter& painter) {
            painter.setFont(test::font(12));
            painter.drawText(QRect(x, 0, test::widthOf(whole), 16), Qt::AlignCenter, whole);
        });
        return static_cast<int>(lines.value(0).mid(5).section(QLatin1Char(','), 0, 0).toDouble());
    }

    static QStringList list(std::initializer_list<const char*> texts)
    {
        QStringList result;
        for (const char* text : texts)
            result << QString::fromUtf8(text);
        return result;
    }

    /// Width of one piece in a row, and the gap behind its object.
    static int objectStep(const char* text) { return test::widthOf(QString::fromUtf8(text)) + 9 + 3 + 3; }

    QRect rect { 100, 50, 1500, 32 };
    QMap<CFormulaKey, TC::RPCFormulaResultCache> data;
    test::Instrument stock = test::instrument("SH", "600000", "浦发银行", 0.01);
    QList<test::Instrument> added;
    TC::EIndexViewType viewType = TC::EIndexView_Plain;
    int leftOffset = 20;
    bool mainChart = true;
    QList<QString> accounts;
    QList<int> positions, flags;
    double totalBuy = 0.0, totalSell = 0.0, netBuy = 0.0, profit = 0.0, balance = 0.0;
    int buyVolume = 0, sellVolume = 0;
    double buyPrice = 0.0, sellPrice = 0.0;
    boost::shared_ptr<TC::CKLineUiParam> kline;
};

} // namespace

TEST_F(DrawTitle, AnEmptyPanePaintsNothing)
{
    EXPECT_EQ(drawn(), QStringList());
}

TEST_F(DrawTitle, CandlesStandInTheFirstRowWithoutHeading)
{
    add("KLINE", "收");
    EXPECT_EQ(inks(), list({ "#000000 收: 1.00 " }));
    EXPECT_LT(baselineOf(QStringLiteral("收: 1.00 ")), 16);
}

TEST_F(DrawTitle, RowsBeginAtFixedHeightsWhateverTheRectanglesTop)
{
    add("KLINE", "收");
    add("MA", "MA5");
    const int first = baselineOf(QStringLiteral("收: 1.00 "));
    EXPECT_EQ(baselineOf(QStringLiteral("MA(5)")), first + 16);
    rect.moveTop(900);
    EXPECT_EQ(baselineOf(QStringLiteral("收: 1.00 ")), first);
}

TEST_F(DrawTitle, OffTheMainChartBothRowsShareTheTop)
{
    mainChart = false;
    add("REALTIMEVOL", "vol");
    add("MA", "MA5");
    EXPECT_EQ(baselineOf(QStringLiteral("vol: 1 ")), baselineOf(QStringLiteral("MA(5)")));
}

TEST_F(DrawTitle, TheFirstRowIsIndentedInGroupAndReplayViewsOfTheMainChartOnly)
{
    add("KLINE", "收");
    const QString text = QStringLiteral("收: 1.00 ");
    for (const int view : { 0, 6 }) {
        viewType = static_cast<TC::EIndexViewType>(view);
        EXPECT_EQ(xOf(text), inkOf(100 + 1 + 20, "收: 1.00 ")) << view;
    }
    for (const int view : { 1, 2, 3, 7 }) {
        viewType = static_cast<TC::EIndexViewType>(view);
        EXPECT_EQ(xOf(text), inkOf(100, "收: 1.00 ")) << view;
    }
    mainChart = false;
    viewType = TC::EIndexView_Module;
    EXPECT_EQ(xOf(QStringLiteral("收: 1 ")), inkOf(100, "收: 1 "));
}

TEST_F(DrawTitle, TheSecondRowLeavesTheRectanglesLeftEdgeInOtherViews)
{
    add("MA", "MA5");
    for (const int view : { 0, 3, 6 }) {
        viewType = static_cast<TC::EIndexViewType>(view);
        EXPECT_EQ(xOf(QStringLiteral("MA(5)")), inkOf(100 + 1 + 20, "MA(5)")) << view;
    }
    for (const int view : { 1, 2, 7 }) {
        viewType = static_cast<TC::EIndexViewType>(view);
        EXPECT_EQ(xOf(QStringLiteral("MA(5)")), inkOf(20 + 1, "MA(5)")) << view;
    }
    mainChart = false;
    viewType = TC::EIndexView_Module;
    EXPECT_EQ(xOf(QStringLiteral("MA(5)")), inkOf(20 + 1, "MA(5)"));
}

TEST_F(DrawTitle, HeadingThenValuesThenTheNextFormula)
{
    test::knowFormula(QStringLiteral("MB"));
    add("MA", "a");
    add("MB", "b");
    EXPECT_EQ(inks(), list({ "#c0de00 MA(5)", "#000000 a: 1.00 ", "#c0de00 MB", "#000000 b: 1.00 " }));
    int x = 21;
    EXPECT_EQ(xOf(QStringLiteral("MA(5)")), inkOf(x, "MA(5)"));
    x += objectStep("MA(5)");
    EXPECT_EQ(xOf(QStringLiteral("a: 1.00 ")), inkOf(x, "a: 1.00 "));
    x += objectStep("a: 1.00 ");
    EXPECT_EQ(xOf(QStringLiteral("MB")), inkOf(x, "MB"));
}

TEST_F(DrawTitle, OffTheMainChartHeadingsTakeTheIndexColour)
{
    mainChart = false;
    add("MA", "a");
    EXPECT_EQ(inks().value(0), QStringLiteral("#1de700 MA(5)"));
}

TEST_F(DrawTitle, FormulasAreDrawnInKeyOrder)
{
    test::knowFormula(QStringLiteral("AA"));
    add("MA", "a");
    add("AA", "z");
    EXPECT_EQ(inks().value(0), QStringLiteral("#c0de00 AA"));
}

TEST_F(DrawTitle, AnUnknownFormulaLeavesTwoGaps)
{
    add("LOST", "x");
    add("MA", "a");
    EXPECT_EQ(xOf(QStringLiteral("MA(5)")), inkOf(21 + 3 + 3, "MA(5)"));
}

TEST_F(DrawTitle, RealtimeVolumeJoinsTheFirstRowWithoutHeading)
{
    add("REALTIMEVOL", "vol");
    EXPECT_EQ(inks(), list({ "#000000 vol: 1.00 " }));
    EXPECT_LT(baselineOf(QStringLiteral("vol: 1.00 ")), 16);
}

TEST_F(DrawTitle, WithoutHeadingOnlyPricesAndTradesShow)
{
    test::knowFormula(QStringLiteral("XKLINE"));
    for (const char* formula : { "MAIN", "XKLINE" })
        add(formula, "x");
    EXPECT_EQ(drawn(), QStringList());
    for (const char* formula : { "KLINE", "REALTIME", "TICKDATA" })
        add(formula, formula);
    EXPECT_EQ(drawn().size(), 3);
}

TEST_F(DrawTitle, PriceFormulasAreToldByBothNames)
{
    TC::CFormulaDetail formula;
    formula.displayName = QStringLiteral("KLINE2");
    formula.realName = QStringLiteral("KLINE");
    TC::embedded::setFormula(formula);
    add("KLINE2", "x");
    EXPECT_EQ(drawn(), QStringList());
}

TEST_F(DrawTitle, PriceLinesThatAreNoMainChartFormulaHaveAHeading)
{
    add("价位线", "x");
    EXPECT_EQ(drawn().size(), 2);
    test::knowFormula(QStringLiteral("价位线"), 2);
    EXPECT_EQ(drawn(), QStringList());
}

TEST_F(DrawTitle, TicksUnderThePriceLinesNamePaintNothing)
{
    TC::embedded::clearFormulas();
    TC::CFormulaDetail formula;
    formula.displayName = QStringLiteral("价位线");
    formula.realName = QStringLiteral("TICKDATA");
    TC::embedded::setFormula(formula);
    add("TICKDATA", "x");
    EXPECT_EQ(drawn(), QStringList());
}

TEST_F(DrawTitle, OverlaidInstrumentsComeFirstOnTheMainChart)
{
    added = { test::instrument("SZ", "000001", "平安", 0.01),
              test::instrument("SZ", "000002", "万科", 0.01) };
    add("KLINE", "收");
    add("KLINE", "收", "SZ000001");
    add("KLINE", "收", "SZ000002");
    EXPECT_EQ(inks(), list({ "#000000 [万科 1.00]", "#000000 [平安 1.00]", "#000000 收: 1.00 " }));
}

TEST_F(DrawTitle, OverlaidInstrumentsComeFirstOffTheMainChartAsWell)
{
    mainChart = false;
    added = { test::instrument("SZ", "000001", "平安", 0.01) };
    add("KLINE", "a");
    add("KLINE", "b", "SZ000001");
    EXPECT_EQ(inks(), list({ "#000000 b: 1 ", "#000000 a: 1 " }));
}

TEST_F(DrawTitle, TheMainChartStopsAtTheRightEdge)
{
    add("KLINE", "收");
    rect.setWidth(test::widthOf(QStringLiteral("收: 1.00 ")) + 2);
    EXPECT_EQ(drawn(), QStringList());
    rect.setWidth(test::widthOf(QStringLiteral("收: 1.00 ")) + 3);
    EXPECT_EQ(drawn().size(), 1);
}

TEST_F(DrawTitle, OtherPanesWrapAtTheRightEdge)
{
    mainChart = false;
    add("REALTIMEVOL", "vol");
    const int fits = baselineOf(QStringLiteral("vol: 1 "));
    rect.setWidth(test::widthOf(QStringLiteral("vol: 1 ")) + 2);
    EXPECT_EQ(baselineOf(QStringLiteral("vol: 1 ")), fits + 16);
    EXPECT_EQ(xOf(QStringLiteral("vol: 1 ")), inkOf(101, "vol: 1 "));
}

TEST_F(DrawTitle, TheRoomShrinksByWhatStandsBeforeAndStartsAnewInTheSecondRow)
{
    test::knowFormula(QStringLiteral("MB"));
    add("KLINE", "收");
    add("MA", "a");
    add("MB", "b");
    // Second row: the edge stays where it is, 21 + width; the indent is not part of what is used.
    const int beforeLast = objectStep("MA(5)") + objectStep("a: 1.00 ") + objectStep("MB");
    rect.setWidth(beforeLast + 3 + test::widthOf(QStringLiteral("b: 1.00 ")));
    EXPECT_EQ(drawn().size(), 5);
    rect.setWidth(rect.width() - 1);
    EXPECT_EQ(drawn().size(), 4);
}

TEST_F(DrawTitle, WithoutTradesThereIsNoBracket)
{
    profit = 1e-5;
    netBuy = -1e-5;
    EXPECT_EQ(drawn(), QStringList());
}

TEST_F(DrawTitle, BothTotalsShowWhenOneIsNotZero)
{
    totalSell = 20000.0;
    EXPECT_EQ(inks(),
              list({ "#1de700  [总买额:", "#b00000 0", "#1de700 总卖额:", "#005e11 2万", "#1de700 ]" }));
}

TEST_F(DrawTitle, ProfitAloneOpensItsOwnBracket)
{
    profit = 12.5;
    EXPECT_EQ(inks(), list({ "#1de700 [", "#1de700 盈亏:", "#aa0000 12.5", "#1de700 ]" }));
    profit = -12.5;
    EXPECT_EQ(inks().value(2), QStringLiteral("#00aa00 -12.5"));
}

TEST_F(DrawTitle, TheNetAmountHasItsOwnRiseColour)
{
    netBuy = 1.0;
    EXPECT_EQ(inks(), list({ "#1de700 [", "#1de700 净买额:", "#bb0000 1", "#1de700 ]" }));
    netBuy = -1.0;
    EXPECT_EQ(inks().value(2), QStringLiteral("#00aa00 -1"));
}

TEST_F(DrawTitle, TheBalanceIsAlwaysOrange)
{
    balance = -3.0;
    EXPECT_EQ(inks(), list({ "#1de700 [", "#1de700 配平:", "#c0ff8000 -3", "#1de700 ]" }));
}

TEST_F(DrawTitle, AllAmountsShareOneBracket)
{
    totalBuy = netBuy = profit = balance = 1.0;
    EXPECT_EQ(inks(),
              list({ "#1de700  [总买额:", "#b00000 1", "#1de700 总卖额:", "#005e11 0",
                     "#1de700 净买额:", "#bb0000 1", "#1de700 盈亏:", "#aa0000 1",
                     "#1de700 配平:", "#c0ff8000 1", "#1de700 ]" }));
}

TEST_F(DrawTitle, VolumesShareOneBracketAndShowOneMoreDecimal)
{
    buyVolume = 100;
    buyPrice = 10.1234;
    EXPECT_EQ(inks(),
              list({ "#1de700  [买量:", "#aa0000 100", "#1de700 均价:", "#aa0000 10.123", "#1de700 ]" }));
    sellVolume = -50;
    sellPrice = 11.0;
    EXPECT_EQ(inks(),
              list({ "#1de700  [买量:", "#aa0000 100", "#1de700 均价:", "#aa0000 10.123",
                     "#1de700 卖量:", "#00aa00 -50", "#1de700 均价:", "#00aa00 11.000", "#1de700 ]" }));
    buyVolume = 0;
    EXPECT_EQ(inks().value(0), QStringLiteral("#1de700  [卖量:"));
    EXPECT_EQ(drawn().size(), 5);
}

TEST_F(DrawTitle, VolumesWithoutAnInstrumentHaveTwoDecimals)
{
    stock.reset();
    buyVolume = 1;
    buyPrice = 3.0;
    EXPECT_EQ(inks().value(3), QStringLiteral("#aa0000 3.00"));
}

TEST_F(DrawTitle, AccountsShowTheirPositionWhereBothListsReach)
{
    accounts = list({ "甲", "乙", "%1" });
    positions = { 100, 200 };
    flags = { 1 };
    EXPECT_EQ(inks(),
              list({ "#1de700  [账号:", "#acc000 甲", "#1de700  持仓:", "#aa0000 100",
                     "#1de700  账号:", "#acc000 乙", "#1de700  账号:", "#acc000 %1", "#1de700 ]" }));
    flags = { 0, 1, 1, 1 };
    EXPECT_EQ(inks().value(3), QStringLiteral("#00aa00 100"));
}

TEST_F(DrawTitle, OneAccountWithoutPositionIsBracketed)
{
    accounts = list({ "甲" });
    EXPECT_EQ(inks(), list({ "#1de700  [账号:", "#acc000 甲", "#1de700 ]" }));
}

TEST_F(DrawTitle, OffTheMainChartThereIsNoSummary)
{
    mainChart = false;
    totalBuy = profit = 5.0;
    buyVolume = 3;
    accounts = list({ "甲" });
    EXPECT_EQ(drawn(), QStringList());
}

TEST_F(DrawTitle, TheSummaryFollowsTheFirstRowTwoPixelsLower)
{
    add("KLINE", "收");
    profit = 1.0;
    const QFontMetricsF metrics(test::font(12)); // Qt 6 leaves the ascent unrounded
    int x = 100 + objectStep("收: 1.00 ");
    const auto step = [&](const char* text) { return test::widthOf(QString::fromUtf8(text)) + 3; };
    const auto text = [&](int left, const char* content, const char* ink) {
        return QStringLiteral("text %1,%2 \"%3\" %4 12px")
            .arg(left)
            .arg(2 + metrics.ascent(), 0, 'g', 12)
            .arg(QString::fromUtf8(content), QString::fromLatin1(ink));
    };
    const QStringList expected { text(x, "[", "#1de700"), text(x + step("["), "盈亏:", "#1de700"),
                                 text(x + step("[") + step("盈亏:"), "1", "#aa0000"),
                                 text(x + step("[") + step("盈亏:") + step("1"), "]", "#1de700") };
    EXPECT_EQ(drawn().mid(1), expected);
}

TEST_F(DrawTitle, AmountsThatAreNotNumbersSaySo)
{
    profit = NAN;
    EXPECT_EQ(inks(), list({ "#1de700 [", "#1de700 盈亏:", "#1de700 非法值", "#1de700 ]" }));
}

TEST_F(DrawTitle, AnEmptySkinPaintsTheSummaryInTheDefaultFontAndBlack)
{
    TC::embedded::clearSkin();
    add("MA", "a");
    profit = 1.0;
    EXPECT_EQ(drawn().size(), 4); // without the legend's font its pieces are left out
    EXPECT_EQ(inks().value(0), QStringLiteral("#000000 ["));
}
