// SPDX-License-Identifier: MIT
/// @file The examples of the reference: painting a pane, and where bars and values stand in it.

#include "draw/CDrawStyle.h"
#include "draw/PaneMapping.h"
#include "draw/tickPaintData.h"
#include "engine/Formulas.h"
#include "tests/unit/examples/ThreeDays.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using test::threeDays;

TEST(DrawExamples, APaneIsScaledAndPainted)
{
    QImage image(90, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    const engine::BarSeries bars = threeDays();
    //! [CDrawStyle]
    const auto records = engine::computeFormula("KLINE", bars);
    TC::RPCFormulaResultCache candles { records->meta, records->result };

    QRect pane(0, 0, 90, 60); // begins at the painter's origin
    double max = 0.0, min = 0.0;
    TC::CDrawStyle::calcMaxMin(max, min, 0, 2, candles, pane, true, false, 1.0f);

    TC::CDrawStyle style;
    const int output = 0, firstBar = 0, lastBar = 2, slots = 3, halfWidth = 10, daySeconds = 86400;
    style.drawKLine(&painter, pane, candles, { max, min }, output, firstBar, lastBar, slots, halfWidth,
                    daySeconds, false, 1.0f, 2);
    //! [CDrawStyle]
    painter.end();
    EXPECT_EQ(max, 12.5);
    EXPECT_EQ(min, 9.5);
    QImage empty(image.size(), image.format());
    empty.fill(Qt::black);
    EXPECT_NE(image, empty);
}

TEST(DrawExamples, ABarIsFoundUnderThePointer)
{
    //! [SlotLayout]
    const QRect pane(0, 0, 300, 100);
    const TC::SlotLayout layout = TC::candleSlots(pane, 40, 30); // bars 40 to 69, 10 pixels each
    const int left = layout.x(42);                               // 20: where bar 42 begins
    const int pointed = layout.barAt(25);                        // 42: the bar at pixel 25
    //! [SlotLayout]
    EXPECT_EQ(left, 20);
    EXPECT_EQ(pointed, 42);
}

TEST(DrawExamples, ARowIsReadAsAValue)
{
    //! [ValueScale]
    const QRect pane(0, 0, 300, 101);                                  // rows 0 to 100
    const TC::ValueScale scale = TC::valueScale(pane, { 20.0, 10.0 }); // maximum, minimum
    const int row = scale.row(10.0);         // 100: the minimum stands at the bottom
    const double value = scale.valueAt(row); // 10.0
    //! [ValueScale]
    EXPECT_EQ(row, 100);
    EXPECT_EQ(value, 10.0);
}

TEST(DrawExamples, ATradeIsToldByItsPriceAndItsColour)
{
    //! [tickPaintData]
    TC::tickPaintData trade;
    trade.price = 10.02;
    trade.rise = true; // in the rise colour
    trade.clear();     // no trade any more
    const bool isTrade = trade.price != DBL_MAX;
    //! [tickPaintData]
    EXPECT_FALSE(isTrade);
    EXPECT_FALSE(trade.rise);
}
