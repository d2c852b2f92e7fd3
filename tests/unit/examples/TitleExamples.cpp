// SPDX-License-Identifier: MIT
/// @file The examples of the reference: legends, legend strips and panels.

#include "data/IndexBaseData.h"
#include "dock/IIndexDockableWidget.h"
#include "engine/Formulas.h"
#include "host/TC/CStockManager.h"
#include "host/TC/UiParams.h"
#include "host/utils/CSingletonT.h"
#include "title/CArrowColorSimpleText.h"
#include "title/CIndexPanelBaseWidget.h"
#include "title/CIndexTitleWidget.h"

#include <boost/make_shared.hpp>

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

//! [CIndexPanelBaseWidget]
/// A panel of the client: it answers what the pages around it ask.
class Panel : public TC::CIndexPanelBaseWidget
{
public:
    explicit Panel(QWidget* parent)
        : CIndexPanelBaseWidget(QStringLiteral("panel"), parent)
    {
    }
    QString getMarket() const override { return QStringLiteral("SH"); }
    QString getStock() const override { return QStringLiteral("600000"); }
    void setPeroid(TC::EFormulaPeriod period) override { m_period = period; }
    TC::EFormulaPeriod period() const { return m_period; }

private:
    TC::EFormulaPeriod m_period = TC::EFormulaPeriod_Day;
};
//! [CIndexPanelBaseWidget]

} // namespace

TEST(TitleExamples, ALegendOfOneRowIsPainted)
{
    QImage image(200, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    //! [CArrowColorSimpleText]
    TC::CArrowColorSimpleText legend;
    legend.setTextColor(QStringLiteral("MA5:"), Qt::white, 0);
    legend.setTextColor(QStringLiteral("12.34"), Qt::red, 1); // with an arrow up
    legend.drawText(&painter, 4, 0, 200, 16, Qt::AlignVCenter, false, false);
    const QVector<QRect> places = legend.placeTexts(4, 0, 200, 16); // where each text stands
    //! [CArrowColorSimpleText]
    ASSERT_EQ(places.size(), 2);
    EXPECT_GT(places[1].left(), places[0].right());

    //! [ArrowColorTextData]
    const TC::ArrowColorTextData piece =
        TC::CArrowColorSimpleText::buildTextColor(QStringLiteral("-1.20%"), Qt::green, 2); // an arrow down
    //! [ArrowColorTextData]
    EXPECT_EQ(piece.arrowType, 2);
}

TEST(TitleExamples, AStripShowsTheLegendOfABar)
{
    QWidget pane;
    //! [CIndexTitleWidget]
    TC::IndexBaseData data(nullptr); // the pane's results; outlives the strip
    const auto settings = boost::make_shared<TC::CKLineUiParam>();
    TC::CIndexTitleWidget strip(&data, TC::EIndexDisplay_Legend, TC::EIndexView_Plain, TC::EIndexView_Plain,
                                4, 0, settings, &pane);
    strip.setStock(
        utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(QStringLiteral("SH600000")));
    strip.updateIndexId(-1); // the last bar
    strip.updateView();
    strip.updateTitleHeight(); // as many rows as the legend takes, two at most
    //! [CIndexTitleWidget]
    EXPECT_EQ(strip.height(), strip.titleHeight());

    //! [CKLineUiParam]
    settings->barCount = 240;   // bars of the price series
    settings->displayFlags = 2; // the positions of the user's accounts show
    //! [CKLineUiParam]
    //! [CRealtimeUiParam]
    const auto intraday = boost::make_shared<TC::CRealtimeUiParam>();
    intraday->displayFlags = 2; // likewise
    strip.setRealtimeUiParam(intraday);
    //! [CRealtimeUiParam]
    EXPECT_EQ(intraday->displayFlags, settings->displayFlags);
}

TEST(TitleExamples, APanelAnswersThePageAroundIt)
{
    QWidget page;
    Panel panel(&page);
    panel.setPeroid(TC::EFormulaPeriod_Week);
    EXPECT_EQ(panel.period(), TC::EFormulaPeriod_Week);
    EXPECT_EQ(panel.getMarket() + panel.getStock(), QStringLiteral("SH600000"));
}

TEST(TitleExamples, APoolTakesAPanelBack)
{
    //! [IIndexDockableWidget]
    TC::IIndexDockableWidget panel(true, 2, QStringLiteral("indexMainPanel"), nullptr); // "... (2)"
    panel.acquire();
    panel.pendRelease();       // wanted back
    panel.testDoPendRelease(); // later, when nothing uses it any more: hidden, without a parent
    //! [IIndexDockableWidget]
    EXPECT_FALSE(panel.isAcquired());
    EXPECT_TRUE(panel.title().endsWith(QStringLiteral(" (2)")));
}
