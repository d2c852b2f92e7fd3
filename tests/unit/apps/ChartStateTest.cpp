// SPDX-License-Identifier: MIT
#include "apps/client/chart/ChartState.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

std::shared_ptr<engine::BarSeries> bars(std::size_t count)
{
    auto series = std::make_shared<engine::BarSeries>();
    series->timeMs.resize(count);
    return series;
}

class ChartState : public testing::Test
{
protected:
    client::ChartState m_state;
};

} // namespace

TEST_F(ChartState, ShowsTheNewestBarsAtFirst)
{
    m_state.setBars(nullptr, bars(1000));
    EXPECT_EQ(m_state.first(), 750);
    EXPECT_EQ(m_state.last(), 999);
}

TEST_F(ChartState, ShowsNothingWithoutBars)
{
    m_state.setBars(nullptr, bars(0));
    EXPECT_EQ(m_state.last() - m_state.first() + 1, 0);
    m_state.zoom(0.5, 0);
    m_state.pan(5);
    m_state.showFirst();
    EXPECT_EQ(m_state.last() - m_state.first() + 1, 0);
}

TEST_F(ChartState, KeepsTheAnchorInPlaceWhileZooming)
{
    m_state.setBars(nullptr, bars(1000));
    m_state.show(500, 599);
    m_state.zoom(0.5, 550);
    EXPECT_EQ(m_state.first(), 525);
    EXPECT_EQ(m_state.last(), 574);
}

TEST_F(ChartState, ZoomsNoFurtherThanTenBarsAndAllBars)
{
    m_state.setBars(nullptr, bars(300));
    for (int i = 0; i < 50; ++i)
        m_state.zoom(0.5, 100);
    EXPECT_EQ(m_state.last() - m_state.first() + 1, 10);
    for (int i = 0; i < 50; ++i)
        m_state.zoom(2.0, 100);
    EXPECT_EQ(m_state.first(), 0);
    EXPECT_EQ(m_state.last(), 299);
}

TEST_F(ChartState, PansAsFarAsThereAreBars)
{
    m_state.setBars(nullptr, bars(300));
    m_state.showFirst();
    EXPECT_EQ(m_state.first(), 0);
    EXPECT_EQ(m_state.last(), 249);
    m_state.pan(30);
    EXPECT_EQ(m_state.first(), 30);
    m_state.pan(1000);
    EXPECT_EQ(m_state.last(), 299);
}

TEST_F(ChartState, SaysWhenTheCrosshairMovesToAnotherBar)
{
    m_state.setBars(nullptr, bars(10));
    QSignalSpy moved(&m_state, &client::ChartState::sigCrosshairChanged);
    m_state.setCrosshairBar(3);
    m_state.setCrosshairBar(3);
    m_state.setCrosshairBar(99);
    EXPECT_EQ(moved.count(), 2);
    EXPECT_EQ(m_state.crosshairBar(), -1);
}
