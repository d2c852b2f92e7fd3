// SPDX-License-Identifier: MIT
/// @file The chart under pointer and wheel: axes, crosshair, zoom.

#include "apps/chart/ChartMeasures.h"
#include "apps/client/chart/TimeAxisWidget.h"
#include "title/CIndexTitleWidget.h"
#include "tests/widget/client/ClientWindow.h"

using test::ClientWindow;
using test::sample;

namespace {

client::TimeAxisWidget* timeAxis(client::ChartView* chart)
{
    return chart->findChild<client::TimeAxisWidget*>();
}

} // namespace

TEST_F(ClientWindow, DatesTenDaysByDayAndNeverByMidnight)
{
    openShare();
    chart()->state()->show(2000, 2009);
    const QStringList texts = textsPainted([&](QPainter& painter) { timeAxis(chart())->paintOn(painter); });
    EXPECT_GE(texts.size(), 2);
    EXPECT_TRUE(texts.filter(QStringLiteral("00:00")).isEmpty())
        << texts.join(QLatin1Char(' ')).toStdString();
    EXPECT_EQ(texts.filter(QStringLiteral("2011-")).size(), 1) << texts.join(QLatin1Char(' ')).toStdString();
}

TEST_F(ClientWindow, ShowsTheDateOfMinuteBarsWhereTheDayChanges)
{
    openShare();
    auto minutes = std::make_shared<engine::BarSeries>(*chart()->state()->bars());
    const std::int64_t morning = QDateTime(QDate(2024, 1, 2), QTime(9, 31)).toMSecsSinceEpoch();
    for (std::size_t bar = 0; bar < minutes->size(); ++bar)
        minutes->timeMs[bar] = morning + static_cast<std::int64_t>(bar / 240) * 86'400'000
            + static_cast<std::int64_t>(bar % 240) * 60'000;
    chart()->state()->setBars(chart()->state()->instrument(), minutes);
    chart()->state()->show(120, 360);
    const QStringList texts = textsPainted([&](QPainter& painter) { timeAxis(chart())->paintOn(painter); });
    EXPECT_TRUE(texts.contains(QStringLiteral("01-03"))) << texts.join(QLatin1Char(' ')).toStdString();
    EXPECT_TRUE(texts.contains(QStringLiteral("10:00"))) << texts.join(QLatin1Char(' ')).toStdString();
    EXPECT_TRUE(
        texts.filter(QRegularExpression(QStringLiteral(":.[1-9]$"))).filter(QStringLiteral("5")).size()
        == texts.filter(QRegularExpression(QStringLiteral(":.[1-9]$"))).size());
}

TEST_F(ClientWindow, PaintsAPlotOnceHoweverOftenTheCrosshairMoves)
{
    client::ChartState state;
    auto bars = std::make_shared<engine::BarSeries>();
    bars->timeMs.resize(400);
    state.setBars(nullptr, bars);
    int painted = 0;
    client::PlotWidget plot(
        &state,
        [&painted] {
            ++painted;
            return chart::PaneContent();
        },
        nullptr);
    plot.resize(600, 300);
    plot.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&plot));
    for (int column = 10; column < 500; column += 7) {
        moveTo(&plot, QPoint(column, column / 2));
        paintNow(&plot);
    }
    EXPECT_EQ(painted, 1);
    state.pan(-20);
    paintNow(&plot);
    EXPECT_EQ(painted, 2);
    plot.resize(700, 300);
    paintNow(&plot);
    EXPECT_EQ(painted, 3);
}

TEST_F(ClientWindow, CrosshairLeavesNoTraceBehind)
{
    openShare();
    paintNow(plot(0));
    const QImage before = plot(0)->grab().toImage();
    for (int column = 30; column < 300; column += 11) {
        moveTo(plot(0), QPoint(column, 40 + column / 3));
        paintNow(plot(0));
    }
    EXPECT_NE(plot(0)->grab().toImage(), before);
    moveTo(plot(0), QPoint(plot(0)->width() - 3, 5)); // on the value axis
    paintNow(plot(0));
    EXPECT_EQ(plot(0)->grab().toImage(), before);
}

TEST_F(ClientWindow, KeepsTheBarUnderThePointerWhileZooming)
{
    openShare();
    client::ChartState* state = chart()->state();
    state->show(1500, 1749);
    for (const QPoint& place : { QPoint(83, 40), QPoint(400, 40), QPoint(701, 40) }) {
        moveTo(plot(0), place);
        const int bar = state->crosshairBar();
        for (int notch : { 1, 1, 1, 1, -1, -1, 1, 1, 1, -1, -1, -1, -1, -1 }) {
            turnWheel(plot(0), place, notch);
            EXPECT_EQ(state->crosshairBar(), bar) << place.x() << " notch " << notch;
        }
        for (int key : { Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Up, Qt::Key_Down }) {
            QTest::keyClick(chart(), static_cast<Qt::Key>(key));
            EXPECT_EQ(state->crosshairBar(), bar) << place.x();
        }
    }
}

TEST_F(ClientWindow, TakesTheBarUnderARestingPointerAfterEveryMove)
{
    openShare();
    client::ChartState* state = chart()->state();
    const QPoint place(300, 40);
    moveTo(plot(0), place);
    for (int key : { Qt::Key_Left, Qt::Key_Home, Qt::Key_Right, Qt::Key_End }) {
        const bool isCursorKey = key == Qt::Key_Left || key == Qt::Key_Right;
        QTest::keyClick(chart(), static_cast<Qt::Key>(key),
                        isCursorKey ? Qt::ControlModifier : Qt::NoModifier);
        EXPECT_EQ(state->crosshairBar(), state->view(plot(0)->width() - chart::kAxisWidth).barAt(place.x()));
    }
}

TEST_F(ClientWindow, LegendsShowTheLastBarInViewWhereThereIsNoCrosshair)
{
    openShare();
    client::ChartState* state = chart()->state();
    const auto legend = [this] { return panes()[0]->title()->grab().toImage(); };
    const QImage newest = legend();
    state->show(100, 200);
    const QImage looksBack = legend();
    EXPECT_NE(looksBack, newest);
    state->setCrosshairBar(200);
    EXPECT_EQ(legend(), looksBack);
    state->setCrosshairBar(150);
    EXPECT_NE(legend(), looksBack);
    state->setCrosshairBar(-1);
    EXPECT_EQ(legend(), looksBack);
    state->showLast();
    EXPECT_EQ(legend(), newest);
}
