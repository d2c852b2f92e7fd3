// SPDX-License-Identifier: MIT
/// @file Periods of the chart, chosen by menu and keys, and the margin right of the newest bar.

#include "apps/chart/ChartMeasures.h"
#include "tests/widget/client/ClientWindow.h"

#include <algorithm>

using test::ClientWindow;
using test::sample;

namespace {

/// A trading day of minute bars in two sessions, from 9:31 and from 13:01.
QByteArray minutesOf(const char* date)
{
    QByteArray rows;
    for (int hour : { 9, 13 }) {
        for (int minute = 31; minute < 51; ++minute)
            rows += QByteArray(date) + ' ' + QByteArray::number(hour).rightJustified(2, '0') + ':'
                + QByteArray::number(minute) + ",10,11,9,10.5,100\n";
    }
    return rows;
}

} // namespace

TEST_F(ClientWindow, GathersDaysIntoLongerPeriodsByMenu)
{
    openShare();
    const client::ChartState* state = chart()->state();
    const engine::BarSeries days = *state->bars();
    entry(QStringLiteral("月线"))->trigger();
    awaitResults();
    EXPECT_EQ(state->period(), TC::EFormulaPeriod_Month);
    EXPECT_LT(state->barTotal(), static_cast<int>(days.size()) / 18);
    EXPECT_EQ(state->bars()->timeMs.back(), days.timeMs.back()) << "the last month is not finished";
    EXPECT_EQ(state->bars()->close.back(), days.close.back());
    EXPECT_EQ(state->last(), state->barTotal() - 1);
    const auto& candles = panes()[0]->data()->getData().first().result;
    EXPECT_EQ(candles.barTimes.size(), state->bars()->size()) << "formulas run on the gathered bars";

    entry(QStringLiteral("原始周期"))->trigger();
    EXPECT_EQ(state->bars(), state->source());
}

TEST_F(ClientWindow, OffersOnlyPeriodsThatTheBarsCanMake)
{
    openShare();
    EXPECT_FALSE(entry(QStringLiteral("15分钟"))->isEnabled());
    EXPECT_FALSE(entry(QStringLiteral("日线"))->isEnabled());
    EXPECT_TRUE(entry(QStringLiteral("季线"))->isEnabled());
    EXPECT_TRUE(entry(QStringLiteral("原始周期"))->isChecked());
    ASSERT_TRUE(
        m_window->openBars(barsFile("SH600001.csv", minutesOf("2024-01-08") + minutesOf("2024-01-09")))
            .isGood());
    EXPECT_TRUE(entry(QStringLiteral("15分钟"))->isEnabled());
    EXPECT_TRUE(entry(QStringLiteral("日线"))->isEnabled());
    entry(QStringLiteral("15分钟"))->trigger();
    EXPECT_TRUE(entry(QStringLiteral("15分钟"))->isChecked());
    EXPECT_EQ(chart()->state()->barTotal(), 6); // 40 minutes a day: two whole quarters and a part
    entry(QStringLiteral("日线"))->trigger();
    EXPECT_EQ(chart()->state()->barTotal(), 2);
    EXPECT_EQ(chart()->state()->bars()->volume.front(), 4000);
}

TEST_F(ClientWindow, ChangesThePeriodByKeys)
{
    openShare();
    EXPECT_EQ(entry(QStringLiteral("周线"))->shortcut(), QKeySequence(QStringLiteral("Ctrl+6")));
    EXPECT_EQ(entry(QStringLiteral("年线"))->shortcut(), QKeySequence(QStringLiteral("Ctrl+9")));
    QStringList seen;
    for (int press = 0; press < 6; ++press) {
        entry(QStringLiteral("下一周期"))->trigger();
        seen << chart()->state()->chosenPeriod();
    }
    EXPECT_EQ(seen.join(QLatin1Char(' ')), QStringLiteral("WEEK MONTH QUARTER YEAR  WEEK"));
}

TEST_F(ClientWindow, KeepsThePlaceInTimeWhenThePeriodChanges)
{
    openShare();
    client::ChartState* state = chart()->state();
    state->show(1000, 1099);
    const std::int64_t until = state->bars()->timeMs[1099];
    state->setPeriod(QStringLiteral("WEEK"));
    EXPECT_EQ(state->last() - state->first() + 1, 100);
    const auto last = static_cast<std::size_t>(state->last());
    EXPECT_GE(state->bars()->timeMs[last], until);
    EXPECT_LT(state->bars()->timeMs[last - 1], until);
}

TEST_F(ClientWindow, KeepsPeriodAndMarginForTheNextRun)
{
    openShare();
    chart()->state()->setPeriod(QStringLiteral("QUARTER"));
    chart()->state()->setMargin(20);
    m_window->close();
    m_window = std::make_unique<client::MainWindow>();
    m_window->show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return chart()->state()->barTotal() > 0; }));
    EXPECT_EQ(chart()->state()->period(), TC::EFormulaPeriod_Quarter);
    EXPECT_EQ(chart()->state()->margin(), 20);
}

TEST_F(ClientWindow, LeavesSlotsFreeRightOfTheNewestBarOnly)
{
    openShare();
    client::ChartState* state = chart()->state();
    state->setMargin(10);
    state->show(state->barTotal() - 40, state->barTotal() - 1);
    const int plotWidth = plot(0)->width() - chart::kAxisWidth;
    EXPECT_NEAR(state->view(plotWidth).width, plotWidth * 0.8, 1.0);
    state->pan(-4);
    EXPECT_EQ(state->last(), state->barTotal() - 1) << "the margin gives way first";
    EXPECT_NEAR(state->view(plotWidth).width, plotWidth * 0.88, 1.0);
    state->pan(-20);
    EXPECT_EQ(state->view(plotWidth).width, plotWidth);
    EXPECT_EQ(state->last() - state->first() + 1, 50);
    QTest::keyClick(chart(), Qt::Key_End);
    EXPECT_NEAR(state->view(plotWidth).width, plotWidth * 0.8, 1.0);
    moveTo(plot(0), QPoint(plotWidth - 3, 40)); // in the margin
    EXPECT_EQ(state->crosshairBar(), state->barTotal() - 1);
}
