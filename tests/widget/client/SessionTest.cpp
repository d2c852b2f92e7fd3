// SPDX-License-Identifier: MIT
/// @file What the window shows at its start, and what it keeps for the next one.

#include "apps/client/EmptyPage.h"
#include "apps/client/chart/TickView.h"
#include "apps/client/session/Session.h"
#include "apps/client/session/SessionKeeper.h"
#include "tests/widget/client/ClientWindow.h"

#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QUrl>

#include <algorithm>

using test::ClientWindow;
using test::sample;

namespace {

/// Another window in the same folders, as after a sudden end: nothing of the first one is closed in order.
class NextRun
{
public:
    NextRun()
    {
        m_window.resize(1400, 860);
        ClientWindow::showSettled(m_window);
    }
    client::MainWindow* operator->() { return &m_window; }

private:
    client::MainWindow m_window;
};

} // namespace

TEST_F(ClientWindow, FitsTheScreen)
{
    const client::MainWindow fresh;
    const QSize available = QGuiApplication::primaryScreen()->availableSize();
    EXPECT_LT(fresh.width(), std::max(available.width(), 1025));
    EXPECT_LT(fresh.height(), std::max(available.height(), 641));
    EXPECT_LE(fresh.minimumSizeHint().height(), 640);
}

TEST_F(ClientWindow, WithoutAFileSaysWhatToDoAndShowsNoAxes)
{
    for (QWidget* page :
         { static_cast<QWidget*>(m_window->chart()), static_cast<QWidget*>(m_window->ticks()) }) {
        auto* empty = page->findChild<client::EmptyPage*>();
        ASSERT_NE(empty, nullptr);
        EXPECT_TRUE(empty->isVisibleTo(page));
        EXPECT_FALSE(empty->findChild<QPushButton*>()->text().isEmpty());
        for (client::PlotWidget* plot : page->findChildren<client::PlotWidget*>())
            EXPECT_FALSE(plot->isVisibleTo(page));
    }
    EXPECT_EQ(m_window->statusBar()->currentMessage(), QStringLiteral("就绪"));
    EXPECT_EQ(m_window->focusWidget(), chart());
    openShare();
    EXPECT_FALSE(chart()->findChild<client::EmptyPage*>()->isVisibleTo(chart()));
    EXPECT_TRUE(plot(0)->isVisible());
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("中信证券 SH600030"));
}

TEST_F(ClientWindow, OpensABarsFileThatIsDroppedOnIt)
{
    QMimeData data;
    data.setUrls({ QUrl::fromLocalFile(sample("bars/DFM00.csv")) });
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &drop);
    EXPECT_EQ(panes()[0]->getStock(), QStringLiteral("M00"));
}

TEST_F(ClientWindow, ReopensWhatItShowedEvenAfterASuddenEnd)
{
    openShare();
    chart()->state()->show(1000, 1119);
    chart()->addPane({ QStringLiteral("KDJ") });
    m_window->chooseSkin(QStringLiteral("light"));
    ASSERT_TRUE(QTest::qWaitFor(
        [] {
            const client::Session kept = client::SessionKeeper::last();
            return kept.skin == QStringLiteral("light") && kept.panes.size() == 4 && kept.shown == 120;
        },
        30'000));
    NextRun next;
    const client::ChartState* state = next->chart()->state();
    EXPECT_EQ(next->windowTitle(), m_window->windowTitle());
    EXPECT_EQ(state->first(), 1000);
    EXPECT_EQ(state->last(), 1119);
    ASSERT_EQ(next->chart()->panes().size(), 4u);
    EXPECT_EQ(next->chart()->panes()[3]->data()->getFormulas(), QList<QString> { QStringLiteral("KDJ") });
    EXPECT_EQ(TC::embedded::currentSkin(), QStringLiteral("light"));
    TC::embedded::loadSkin(QStringLiteral("dark"));
}

TEST_F(ClientWindow, KeepsTheArrangementWithoutBeingClosed)
{
    m_window->docks()->dock(QStringLiteral("tradeBaskets"))->toggleView(false);
    ASSERT_TRUE(QTest::qWaitFor([] { return QFile::exists(client::DockArrangement::filePath()); }, 30'000));
    NextRun next;
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return next->docks()->dock(QStringLiteral("tradeBaskets"))->isClosed(); }));
}

TEST_F(ClientWindow, StartsWithTheUsualPanesWhateverTheSessionsFileHolds)
{
    for (const char* content : { "", "{", "[]", "{\"bars\":[1],\"panes\":{\"a\":1},\"shown\":-5}",
                                 "{\"bars\":\"%00%ff/none.csv\",\"shown\":1e99,\"skin\":\"none\"}" }) {
        QFile file(client::Session::path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        NextRun next;
        EXPECT_EQ(next->chart()->panes().size(), 3u) << content;
        EXPECT_EQ(next->chart()->state()->barTotal(), 0) << content;
    }
}

TEST(Session, ReadsWhatItWrote)
{
    client::Session session;
    session.skin = QStringLiteral("浅色");
    session.bars = QStringLiteral("/数据/SH600030.csv");
    session.ticks = QStringLiteral("/a b.csv");
    session.filter = QStringLiteral("zx");
    session.shown = 120;
    session.behind = 7;
    session.bookRule = true;
    session.panes = { { QStringLiteral("KLINE"), QStringLiteral("MA") }, {}, { QStringLiteral("MACD") } };
    session.parameters[QStringLiteral("MA")] = { 3, 7.5 };
    EXPECT_EQ(client::Session::fromJson(session.toJson()).toJson(), session.toJson());
    EXPECT_EQ(client::Session::fromJson(session.toJson()).bars, session.bars);
}
