// SPDX-License-Identifier: MIT
/// @file A large file is read while the window goes on.

#include "apps/client/lists/MessageList.h"
#include "apps/client/opening/BarsOpening.h"
#include "tests/widget/client/ClientWindow.h"

#include <QDate>
#include <QProgressBar>
#include <QPushButton>

using test::ClientWindow;

namespace {

constexpr int kManyBars = 200'000; // a file of 8 MB

/// One bar a day.
QByteArray manyRows()
{
    QByteArray rows;
    QDate day(1500, 1, 1);
    for (int bar = 0; bar < kManyBars; ++bar, day = day.addDays(1))
        rows += day.toString(Qt::ISODate).toUtf8() + ",10.00,11.00,9.00,10.50,123456\n";
    return rows;
}

class LargeFile : public ClientWindow
{
protected:
    client::BarsOpening* opening() { return m_window->findChild<client::BarsOpening*>(); }
    QString messages() { return m_window->findChild<client::MessageList*>()->toPlainText(); }
    bool waitForTheEnd()
    {
        return QTest::qWaitFor([this] { return !m_window->isOpening(); }, 120'000);
    }
};

} // namespace

TEST_F(LargeFile, IsReadWhileTheWindowShowsWhatItShowedAndHowFarItIs)
{
    openShare();
    const int shown = chart()->state()->barTotal();
    ASSERT_TRUE(m_window->openBars(barsFile("many.csv", manyRows())).isGood());
    EXPECT_TRUE(m_window->isOpening());
    EXPECT_TRUE(opening()->isVisible());
    EXPECT_EQ(chart()->state()->barTotal(), shown);
    auto* bar = opening()->findChild<QProgressBar*>();
    EXPECT_EQ(bar->value(), 0);
    ASSERT_TRUE(waitForTheEnd());
    EXPECT_GT(bar->value(), bar->maximum() / 2); // it was told on the way
    EXPECT_FALSE(opening()->isVisible());
    EXPECT_EQ(chart()->state()->barTotal(), kManyBars);
    EXPECT_TRUE(messages().contains(QStringLiteral("（%1 根K线）").arg(kManyBars)))
        << messages().toStdString();
}

TEST_F(LargeFile, LeavesTheChartAsItWasWhenItsReadingIsCancelled)
{
    openShare();
    const int shown = chart()->state()->barTotal();
    ASSERT_TRUE(m_window->openBars(barsFile("many.csv", manyRows())).isGood());
    opening()->findChild<QPushButton*>()->click();
    EXPECT_FALSE(m_window->isOpening());
    EXPECT_FALSE(opening()->isVisible());
    EXPECT_TRUE(messages().contains(QStringLiteral("已取消读取"))) << messages().toStdString();
    ASSERT_TRUE(m_window->openBars(test::sample("bars/DFM00.csv")).isGood());
    EXPECT_NE(chart()->state()->barTotal(), shown);
    EXPECT_NE(chart()->state()->barTotal(), kManyBars);
}

TEST_F(LargeFile, GivesWayToAFileThatIsOpenedLater)
{
    ASSERT_TRUE(m_window->openBars(barsFile("many.csv", manyRows())).isGood());
    openShare();
    EXPECT_FALSE(m_window->isOpening());
    const int shown = chart()->state()->barTotal();
    ASSERT_TRUE(m_window->openBars(barsFile("many.csv", manyRows())).isGood());
    ASSERT_TRUE(waitForTheEnd()); // the first reading has ended long ago
    EXPECT_NE(chart()->state()->barTotal(), shown);
}

TEST_F(LargeFile, WithAFaultLeavesTheChartAsItWasAndSaysWhere)
{
    openShare();
    const int shown = chart()->state()->barTotal();
    ASSERT_TRUE(m_window->openBars(barsFile("bad.csv", manyRows() + "2100-01-01,x,1,1,1,1\n")).isGood());
    ASSERT_TRUE(waitForTheEnd());
    EXPECT_EQ(chart()->state()->barTotal(), shown);
    EXPECT_TRUE(messages().contains(QStringLiteral("bad.csv:%1:").arg(kManyBars + 2)))
        << messages().toStdString();
}

TEST_F(LargeFile, IsEndedByTheWindowsEnd)
{
    ASSERT_TRUE(m_window->openBars(barsFile("many.csv", manyRows())).isGood());
    m_window.reset();
}
