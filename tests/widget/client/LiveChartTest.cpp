// SPDX-License-Identifier: MIT
/// @file Charts over files that another program appends to, and replays.

#include "apps/chart/BarAlignment.h"
#include "apps/client/chart/TickView.h"
#include "apps/client/live/Replay.h"
#include "apps/client/live/ReplayBar.h"
#include "apps/client/live/ReplayClock.h"
#include "engine/Formulas.h"
#include "engine/files/BarFile.h"
#include "engine/files/TickFile.h"
#include "host/TC/Instruments.h"
#include "tests/support/Workbooks.h"
#include "tests/widget/client/ClientWindow.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>

#include <cstring>

using test::ClientWindow;
using test::sample;

namespace {

/// How often a widget is painted.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget* widget) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

bool isSameBitForBit(const std::vector<std::vector<double>>& a, const std::vector<std::vector<double>>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& one, const auto& other) {
        return one.size() == other.size()
            && std::memcmp(one.data(), other.data(), one.size() * sizeof(double)) == 0;
    });
}

class LiveChart : public ClientWindow
{
protected:
    LiveChart()
    {
        m_lines = test::bytesOf(sample("bars/SH600030.csv")).split('\n');
        m_path = m_folder.filePath(QStringLiteral("SH600030.csv"));
    }

    client::ChartState* state() { return chart()->state(); }
    client::Replay* replay() { return m_window->findChild<client::Replay*>(); }

    QString told() { return m_window->statusBar()->currentMessage(); }

    /// The header and so many rows.
    QByteArray rows(int from, int count) { return m_lines.mid(1 + from, count).join('\n') + '\n'; }
    QByteArray head(int count) { return m_lines.front() + '\n' + rows(0, count); }

    void write(const QByteArray& bytes, QIODevice::OpenMode mode = QIODevice::WriteOnly)
    {
        QFile file(m_path);
        ASSERT_TRUE(file.open(mode));
        file.write(bytes);
    }
    void append(const QByteArray& bytes) { write(bytes, QIODevice::Append); }

    void followRows(int count)
    {
        write(head(count));
        ASSERT_TRUE(m_window->follow(m_path).isGood());
        awaitResults(count);
    }
    /// Waits until every pane has the results of so many bars.
    void awaitResults(int bars)
    {
        for (client::ChartPane* pane : panes())
            ASSERT_TRUE(QTest::qWaitFor([&] { return hasResults(pane, bars); }, 20'000)) << bars;
    }
    static bool hasResults(client::ChartPane* pane, int bars)
    {
        const auto& data = pane->data()->getData();
        return data.size() == pane->data()->getFormulaSize()
            && std::all_of(data.begin(), data.end(), [&](const auto& cache) {
                   return static_cast<int>(cache.result.barTimes.size()) == bars;
               });
    }
    /// Every pane shows what a computation from the beginning brings.
    void expectFreshResults(const engine::BarSeries& bars)
    {
        for (client::ChartPane* pane : panes()) {
            const auto data = pane->data()->getData();
            for (auto entry = data.begin(); entry != data.end(); ++entry) {
                const auto recipe = TC::embedded::resolveFormula(entry.key().formulaName);
                const auto fresh = engine::computeFormula(
                    recipe->formula, bars, { recipe->parameters.begin(), recipe->parameters.end() });
                EXPECT_TRUE(isSameBitForBit(entry->result.numberSeries, fresh->result.numberSeries))
                    << entry.key().formulaName.toStdString() << " of " << bars.size();
            }
        }
    }

    /// Of the instrument that was laid over the pane first; none until its result is here.
    static std::vector<double> overlaidCloses(client::PaneData* data)
    {
        const TC::CFormulaKey key(TC::getDetailQsKey(data->overlays().front().instrument),
                                  QStringLiteral("KLINE"));
        const auto found = data->getData().find(key);
        return found == data->getData().end() ? std::vector<double>() : found->result.numberSeries[3];
    }

    QList<QByteArray> m_lines;
    QString m_path;
};

} // namespace

TEST_F(LiveChart, ShowsEachRowThatIsAppendedWithTheResultsOfAFreshComputation)
{
    followRows(60);
    for (int row = 60; row < 66; ++row) {
        append(rows(row, 1));
        awaitResults(row + 1);
        EXPECT_EQ(state()->last(), row); // the newest bar stays in view
        expectFreshResults(*state()->bars());
    }
    std::string failure;
    const auto read = engine::readBars(m_path.toStdString(), failure);
    ASSERT_TRUE(read) << failure;
    EXPECT_EQ(read->close, state()->bars()->close);
    EXPECT_EQ(read->timeMs, state()->bars()->timeMs);
}

TEST_F(LiveChart, AnOverlayGrowsWithAFollowedFile)
{
    followRows(60);
    ASSERT_TRUE(m_window->overlayBars(sample("bars/SH510050.csv")).isGood());
    client::PaneData* data = panes()[0]->data();
    const auto overlaidBars = [&] { return overlaidCloses(data).size(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return overlaidBars() == 60U; }, 20'000));
    append(rows(60, 3));
    ASSERT_TRUE(QTest::qWaitFor([&] { return overlaidBars() == 63U; }, 20'000));
    append(rows(63, 1));
    ASSERT_TRUE(QTest::qWaitFor([&] { return overlaidBars() == 64U; }, 20'000));
    std::string failure;
    const auto other = engine::readBars(sample("bars/SH510050.csv").toStdString(), failure);
    ASSERT_TRUE(other) << failure;
    EXPECT_EQ(overlaidCloses(data), chart::alignedTo(state()->bars()->timeMs, *other).close);
}

TEST_F(LiveChart, AnOverlayComesAgainInAReplay)
{
    ASSERT_TRUE(m_window->openBars(sample("bars/SH600030.csv")).isGood());
    ASSERT_TRUE(m_window->overlayBars(sample("bars/SH510050.csv")).isGood());
    client::PaneData* data = panes()[0]->data();
    const int total = state()->barTotal();
    const auto hasBars = [&](int bars) { return static_cast<int>(overlaidCloses(data).size()) == bars; };
    ASSERT_TRUE(QTest::qWaitFor([&] { return hasBars(total); }, 20'000));
    state()->show(total - 50, total - 1);
    m_window->replayBars();
    ASSERT_EQ(data->overlays().size(), 1U);
    const int begun = state()->barTotal();
    ASSERT_LT(begun, total);
    ASSERT_TRUE(QTest::qWaitFor([&] { return hasBars(begun); }, 20'000));
    replay()->clock()->step();
    ASSERT_TRUE(QTest::qWaitFor([&] { return hasBars(begun + 1); }, 20'000));
    replay()->end();
    ASSERT_TRUE(QTest::qWaitFor([&] { return hasBars(total); }, 20'000));
}

TEST_F(LiveChart, LetsARowOfTheSameTimeReplaceTheLastBar)
{
    followRows(60);
    const QByteArray date = m_lines[60].split(',').front();
    append(date + ",10,13,9,12.5,777\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return state()->bars()->close.back() == 12.5; }, 20'000));
    EXPECT_EQ(state()->barTotal(), 60);
    EXPECT_EQ(state()->bars()->volume.back(), 777.0);
    append(rows(60, 1));
    awaitResults(61);
    expectFreshResults(*state()->bars());
}

TEST_F(LiveChart, LeavesALineWithoutItsEndUntilItHasOne)
{
    followRows(60);
    append(rows(60, 1) + m_lines[62].left(15));
    awaitResults(61);
    EXPECT_EQ(state()->barTotal(), 61);
    append(m_lines[62].mid(15) + '\n');
    awaitResults(62);
    EXPECT_EQ(state()->bars()->close.back(), m_lines[62].split(',')[4].toDouble());
}

TEST_F(LiveChart, ReadsAFileAnewThatWasCutAndSaysSo)
{
    followRows(60);
    write(head(40));
    ASSERT_TRUE(QTest::qWaitFor([&] { return state()->barTotal() == 40; }, 20'000));
    awaitResults(40);
    expectFreshResults(*state()->bars());
    EXPECT_TRUE(told().contains(QStringLiteral("重新读取")));
}

TEST_F(LiveChart, ReadsAFileAnewThatAnotherHasReplacedThoughItIsLonger)
{
    followRows(40);
    const QString other = m_folder.filePath(QStringLiteral("other"));
    QFile file(other);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(m_lines.front() + '\n' + rows(100, 50));
    file.close();
    ASSERT_EQ(std::rename(other.toLocal8Bit().constData(), m_path.toLocal8Bit().constData()), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return state()->barTotal() == 50; }, 20'000));
    EXPECT_EQ(state()->bars()->close.back(), m_lines[150].split(',')[4].toDouble());
    append(rows(150, 1)); // and is followed further
    awaitResults(51);
}

TEST_F(LiveChart, SaysThatAWrongRowEndsTheFollowingAndKeepsTheBarsBeforeIt)
{
    followRows(60);
    append("2099-01-01,1,x,1,1,1\n" + rows(60, 1));
    ASSERT_TRUE(QTest::qWaitFor([&] { return told().contains(QStringLiteral("不再跟随")); }, 20'000));
    EXPECT_EQ(state()->barTotal(), 60);
}

TEST_F(LiveChart, LeavesWhatIsInViewAndUnchangedUnpainted)
{
    followRows(400);
    state()->show(0, 99);
    awaitResults(400);
    paintNow(plot(1));
    QTest::qWait(1); // what the change of the view left to be done
    PaintCount volumes(plot(1)), macd(plot(2));
    append(rows(400, 1));
    awaitResults(401);
    paintNow(plot(1));
    EXPECT_EQ(state()->last(), 99);
    EXPECT_EQ(volumes.count, 0);
    EXPECT_EQ(macd.count, 0);
    state()->showLast();
    paintNow(plot(1));
    volumes.count = 0;
    append(rows(401, 1));
    awaitResults(402);
    paintNow(plot(1));
    EXPECT_GT(volumes.count, 0);
}

TEST_F(LiveChart, FollowsTradesOnTheTickPage)
{
    const QList<QByteArray> lines = test::bytesOf(sample("ticks/VALE3-2025-04-07.csv")).split('\n');
    const auto part = [&](int from, int count) { return lines.mid(from, count).join('\n') + '\n'; };
    write(part(0, 51));
    ASSERT_TRUE(m_window->follow(m_path).isGood());
    client::ChartState* ticks = m_window->ticks()->state();
    EXPECT_EQ(ticks->barTotal(), 50);
    append(part(51, 3));
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks->barTotal() == 53; }, 20'000));
    EXPECT_EQ(ticks->last(), 52);
    std::string failure;
    EXPECT_EQ(m_window->ticks()->opened().ticks->price,
              engine::readTicks(m_path.toStdString(), failure)->price);
}

TEST_F(LiveChart, StopsFollowingWhenAnotherFileIsOpened)
{
    followRows(60);
    ASSERT_TRUE(m_window->openBars(sample("bars/DFM00.csv")).isGood());
    const int bars = state()->barTotal();
    append(rows(60, 1));
    EXPECT_FALSE(QTest::qWaitFor([&] { return state()->barTotal() != bars; }, 600)); // three looks at it
}

TEST_F(LiveChart, ReplaysBarsInTwoStepsEach)
{
    openShare();
    const client::ChartState::Bars all = state()->bars();
    state()->show(500, 599);
    m_window->replayBars();
    ASSERT_TRUE(replay()->isOn());
    EXPECT_EQ(state()->barTotal(), 500);
    replay()->clock()->step();
    EXPECT_EQ(state()->barTotal(), 501);
    EXPECT_EQ(state()->bars()->close.back(), all->open[500]); // nothing else is known yet
    EXPECT_EQ(state()->bars()->high.back(), all->open[500]);
    EXPECT_EQ(state()->bars()->volume.back(), 0.0);
    replay()->clock()->step();
    EXPECT_EQ(state()->barTotal(), 501);
    EXPECT_EQ(state()->bars()->close.back(), all->close[500]);
    EXPECT_EQ(state()->bars()->volume.back(), all->volume[500]);
    awaitResults(501);
    expectFreshResults(*state()->bars());
    replay()->end();
    EXPECT_EQ(state()->bars(), all);
    EXPECT_EQ(state()->first(), 500);
    EXPECT_EQ(state()->last(), 599);
}

TEST_F(LiveChart, ReplaysBarsAtThousandfoldSpeedToTheEnd)
{
    openShare();
    const int total = state()->barTotal();
    state()->show(total - 300, total - 1);
    m_window->replayBars();
    auto* bar = m_window->findChild<client::ReplayBar*>();
    ASSERT_TRUE(bar && bar->isVisible());
    replay()->clock()->setSpeed(client::ReplayClock::kFastest);
    const auto buttons = bar->findChildren<QPushButton*>();
    QTest::mouseClick(buttons.front(), Qt::LeftButton);
    EXPECT_EQ(buttons.front()->text(), QStringLiteral("暂停"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return state()->barTotal() == total; }, 20'000));
    EXPECT_FALSE(replay()->clock()->isRunning());
    awaitResults(total);
    expectFreshResults(*state()->bars());
    QTest::mouseClick(buttons.back(), Qt::LeftButton);
    EXPECT_FALSE(bar->isVisible());
}

TEST_F(LiveChart, ReplaysTradesTickByTick)
{
    ASSERT_TRUE(m_window->openTicks(sample("ticks/VALE3-2025-04-07.csv")).isGood());
    client::ChartState* ticks = m_window->ticks()->state();
    const int total = ticks->barTotal();
    ticks->show(100, 199);
    m_window->replayTicks();
    EXPECT_EQ(ticks->barTotal(), 100);
    replay()->clock()->step();
    EXPECT_EQ(ticks->barTotal(), 101);
    replay()->end();
    EXPECT_EQ(ticks->barTotal(), total);
    EXPECT_EQ(ticks->first(), 100);
}
