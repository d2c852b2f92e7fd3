// SPDX-License-Identifier: MIT
#include "apps/chart/PaneResults.h"
#include "draw/CDrawStyle.h"
#include "host/TC/UiParams.h"
#include "host/WB/CUiResource.h"
#include "host/utils/CSingletonT.h"
#include "tests/support/EngineBars.h"
#include "tests/support/Golden.h"
#include "tests/support/Pane.h"
#include "tests/support/Strip.h"

#include <boost/make_shared.hpp>

#include <QDateTime>
#include <QPainter>

namespace {

using StripPtr = std::unique_ptr<test::Strip>;

constexpr int kRow = 16, kGap = 4, kMargin = 6;
constexpr int kHeading = 0, kLegend = 1, kDate = 7;              // display types
constexpr int kGroup = 0, kIndented = 1, kPlain = 2, kQuote = 3; // view types

/// A skin with the tests' font in the sizes of the shipped ones.
void loadSkin(const char* name)
{
    ASSERT_EQ(TC::embedded::loadSkin(QString::fromLatin1(name)), QString());
    QFont heading = test::font(13);
    heading.setBold(true);
    TC::embedded::setFont(QStringLiteral("ic_fnt_index_modulegroup_header_text"), heading);
    for (const char* key :
         { "fnt_index_title_text", "fnt_default", "ic_fnt_index_realtime_stock_title_text" })
        TC::embedded::setFont(QString::fromLatin1(key), test::font(12));
    TC::CDrawStyle::resetDrawStyleColor();
}

/// The last 300 bars of a sample.
engine::BarSeries lastBars(const char* name)
{
    engine::BarSeries bars = test::sampleBars(name);
    for (auto* values : { &bars.open, &bars.high, &bars.low, &bars.close, &bars.volume })
        values->erase(values->begin(), values->end() - 300);
    bars.timeMs.erase(bars.timeMs.begin(), bars.timeMs.end() - 300);
    return bars;
}

/// Strips below each other, on the colour of a chart's borders.
class Sheet
{
public:
    Sheet(const QSize& size, double ratio)
        : m_image(test::goldenCanvas(qRound(size.width() * ratio), qRound(size.height() * ratio), border()))
        , m_ratio(ratio)
    {
        m_image.setDevicePixelRatio(ratio);
    }

    void add(const StripPtr& strip, int width, int rows)
    {
        strip->ratio = m_ratio;
        QPainter painter(&m_image);
        painter.drawImage(kMargin, m_y, strip->picture(width, rows * kRow));
        m_y += rows * kRow + kGap;
    }
    const QImage& image() const { return m_image; }

private:
    static QColor border()
    {
        return *utils::CSingletonT<WB::CUiResource>::instance()->getColor(
            QStringLiteral("ic_clr_kline_graph_frame_border"));
    }

    QImage m_image;
    double m_ratio;
    int m_y = kMargin;
};

/// The panes of a chart, with an overlaid index and the user's own trading.
class LegendStrip : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const char* formula : { "KLINE", "MA" })
            add(prices, formula, "SH600030");
        add(prices, "KLINE", "SH000001");
        for (const char* formula : { "MACD", "KDJ", "RSI" })
            add(several, formula, "SH600030");
        add(macd, "MACD", "SH600030");

        TC::CPositionNumber numbers;
        numbers.summary.totalBuyAmount = 1283450.0;
        numbers.summary.totalSellAmount = 402100.0;
        numbers.summary.profitLoss = -15230.5;
        numbers.summary.buyVolume = 52000;
        numbers.summary.buyAvgPrice = 24.681;
        TC::CAccountPosition account;
        account.account = QStringLiteral("88012345");
        account.position = 36000;
        numbers.accounts = { account };
        TC::embedded::setPositionNumber(QStringLiteral("SH600030"), numbers);
    }

    /// Adds a formula over the bars of an instrument.
    static void add(chart::PaneResults& pane, const char* formula, const char* instrumentKey)
    {
        const engine::Formula& known = *engine::findBuiltIn(formula)->formula;
        QVector<double> values;
        for (const engine::Parameter& parameter : known.parameters())
            values.append(parameter.value);
        test::knowFormula(QString::fromLatin1(formula), known.kind(), values);
        pane.add(TC::CFormulaKey(QString::fromLatin1(instrumentKey), QString::fromLatin1(formula)),
                 test::computed(formula, lastBars(instrumentKey)));
    }

    /// The main pane's strip: heading, overlaid index, candles and averages, the user's own trading.
    StripPtr mainStrip()
    {
        auto strip = std::make_unique<test::Strip>(&prices, kHeading, kGroup, kGroup);
        auto settings = boost::make_shared<TC::CRealtimeUiParam>();
        settings->displayFlags = 2;
        strip->setRealtimeUiParam(settings);
        strip->setStock(stock);
        QList<test::Instrument> overlaid { test::instrument("SH", "000001", "上证指数", 0.01) };
        strip->setAddStockList(overlaid);
        return strip;
    }
    StripPtr legend(chart::PaneResults& pane, int leftOffset = 0)
    {
        auto strip = std::make_unique<test::Strip>(&pane, kLegend, kIndented, kIndented, leftOffset);
        strip->setStock(stock);
        return strip;
    }
    StripPtr activeLegend(chart::PaneResults& pane)
    {
        StripPtr strip = legend(pane);
        strip->setShowTitleBg(true);
        return strip;
    }
    StripPtr quote(const char* market, const char* code, int subViewType)
    {
        auto strip = std::make_unique<test::Strip>(&none, kHeading, kQuote, subViewType);
        strip->setStock(test::instrument(market, code, "国信证券", 0.01));
        return strip;
    }
    StripPtr date()
    {
        auto strip = std::make_unique<test::Strip>(&none, kDate, kGroup, kPlain);
        strip->setCloseBtnVisible(false);
        strip->slotTradeDateChanged(QDateTime(QDate(2024, 3, 5), QTime(9, 30)).toMSecsSinceEpoch());
        return strip;
    }

    /// A chart's strips: everything on the main pane's, an active legend and one that was opened.
    QImage chartStrips()
    {
        Sheet sheet(QSize(1442, 116), 1.0);
        sheet.add(mainStrip(), 1430, 2);
        sheet.add(activeLegend(several), 1000, 1);
        sheet.add(legend(several, 20), 400, 3);
        return sheet.image();
    }
    /// Small strips of every kind, for a dense screen.
    QImage denseStrips()
    {
        Sheet sheet(QSize(412, 146), 2.0);
        sheet.add(mainStrip(), 400, 2);
        sheet.add(legend(macd), 400, 1);
        sheet.add(quote("SH", "688030", kGroup), 400, 2);
        sheet.add(quote("SZ", "300030", kPlain), 400, 1);
        sheet.add(date(), 400, 1);
        return sheet.image();
    }

    chart::PaneResults prices, macd, several, none;
    test::Instrument stock = test::instrument("SH", "600030", "中信证券", 0.01);
};

} // namespace

TEST_F(LegendStrip, IsReadInTheDarkSkin)
{
    loadSkin("dark");
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("legend_dark"), chartStrips()));
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("legend_dark_dense"), denseStrips()));
}

TEST_F(LegendStrip, IsReadInTheLightSkin)
{
    loadSkin("light");
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("legend_light"), chartStrips()));
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("legend_light_dense"), denseStrips()));
}

TEST_F(LegendStrip, IsReadInTheColourBlindSafeSkin)
{
    loadSkin("colorblind");
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("legend_colorblind"), chartStrips()));
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("legend_colorblind_dense"), denseStrips()));
}

TEST_F(LegendStrip, IsCutBetweenPiecesWhereItIsNarrow)
{
    loadSkin("dark");
    Sheet sheet(QSize(332, 296), 1.0);
    for (const int width : { 120, 180, 250, 320 }) {
        sheet.add(mainStrip(), width, 2);
        sheet.add(legend(several), width, 2);
    }
    EXPECT_TRUE(test::matchesGolden(QStringLiteral("legend_narrow"), sheet.image()));
}
