// SPDX-License-Identifier: MIT
/// @file The tick page under the pointer.

#include "apps/chart/ChartMeasures.h"
#include "apps/client/chart/TickView.h"
#include "tests/widget/client/ClientWindow.h"
#include "title/CIndexTitleWidget.h"

using test::ClientWindow;
using test::sample;

namespace {

/// Columns of a picture in which the colour stands.
QSet<int> columnsOf(const QImage& picture, const QColor& color)
{
    QSet<int> columns;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width() - chart::kAxisWidth; ++x) {
            if (picture.pixelColor(x, y) == color)
                columns << x;
        }
    }
    return columns;
}

} // namespace

TEST_F(ClientWindow, CrossesSticksAndCrosshairOfATradeShareAColumnToTheLastTrade)
{
    ASSERT_TRUE(m_window->openTicks(sample("ticks/VALE3-2025-04-07.csv")).isGood());
    client::TickView* ticks = m_window->ticks();
    client::ChartState* state = ticks->state();
    EXPECT_EQ(state->last(), state->barTotal() - 1);
    const auto plots = ticks->findChildren<client::PlotWidget*>();
    ASSERT_EQ(plots.size(), 2);
    const QColor rise(0xff, 0x4d, 0x4d), fall(0x21, 0xc1, 0x7a);
    for (int count : { 10, 25, 60 }) {
        state->show(state->barTotal() - count, state->barTotal() - 1);
        const chart::BarView view { state->first(), state->last(), plots[0]->width() - chart::kAxisWidth };
        const QImage crosses = plots[0]->grab().toImage(), sticks = plots[1]->grab().toImage();
        const QSet<int> crossColumns = columnsOf(crosses, rise) + columnsOf(crosses, fall),
                        stickColumns = columnsOf(sticks, rise) + columnsOf(sticks, fall);
        for (int bar = state->first(); bar <= state->last(); ++bar) {
            const int centre = view.centre(bar);
            EXPECT_TRUE(crossColumns.contains(centre)) << count << ": " << bar;
            // The arms reach as far to the left as to the right, within the picture.
            EXPECT_EQ(crossColumns.contains(centre - 2), crossColumns.contains(centre + 2)) << bar;
            EXPECT_EQ(stickColumns.contains(centre - view.halfWidth()),
                      stickColumns.contains(centre + view.halfWidth()))
                << count << ": " << bar;
        }
    }
}

TEST_F(ClientWindow, LegendsOfTheTickPageFollowTheCrosshair)
{
    ASSERT_TRUE(m_window->openTicks(sample("ticks/VALE3-2025-04-07.csv")).isGood());
    client::TickView* ticks = m_window->ticks();
    const auto titles = ticks->findChildren<TC::CIndexTitleWidget*>();
    ASSERT_EQ(titles.size(), 2);
    QTest::qWait(20);
    const auto plots = ticks->findChildren<client::PlotWidget*>();
    moveTo(plots[0], QPoint(30, 30));
    const QImage left[] = { titles[0]->grab().toImage(), titles[1]->grab().toImage() };
    moveTo(plots[0], QPoint(500, 30));
    EXPECT_NE(titles[0]->grab().toImage(), left[0]);
    EXPECT_NE(titles[1]->grab().toImage(), left[1]);
}
