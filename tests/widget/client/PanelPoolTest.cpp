// SPDX-License-Identifier: MIT
#include "apps/client/docking/PanelPool.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace {

const QString kTicks = QStringLiteral("transactionPanel");

/// A panel that notes what the pool does with it.
class NotingPanel : public TC::IIndexDockableWidget
{
public:
    explicit NotingPanel(const QString& panelId)
        : TC::IIndexDockableWidget(false, 0, panelId, nullptr)
    {
    }

    void acquire() override
    {
        happened << QStringLiteral("acquire");
        TC::IIndexDockableWidget::acquire();
    }
    void release() override
    {
        happened << QStringLiteral("release");
        if (!busy)
            TC::IIndexDockableWidget::release();
    }

    QStringList happened;
    bool busy = false;
};

class PanelPoolTest : public testing::Test
{
protected:
    PanelPoolTest()
    {
        pool.setMaker(kTicks, [] { return new NotingPanel(kTicks); });
    }

    NotingPanel* lend() { return static_cast<NotingPanel*>(pool.lend(kTicks)); }

    client::PanelPool pool;
};

TEST_F(PanelPoolTest, LendsANewPanelMarkedAsLent)
{
    NotingPanel* panel = lend();
    ASSERT_NE(panel, nullptr);
    EXPECT_TRUE(panel->isAcquired());
    EXPECT_EQ(panel->parentWidget(), nullptr);
    EXPECT_EQ(pool.lentCount(kTicks), 1);
}

TEST_F(PanelPoolTest, LendsNothingForAnUnknownIdentifier)
{
    EXPECT_EQ(pool.lend(QStringLiteral("nowhere")), nullptr);
}

TEST_F(PanelPoolTest, LendsNothingWhenTheMakerMakesNothing)
{
    pool.setMaker(QStringLiteral("buyPositionPanel"), [] { return nullptr; });
    EXPECT_EQ(pool.lend(QStringLiteral("buyPositionPanel")), nullptr);
    EXPECT_EQ(pool.panelCount(QStringLiteral("buyPositionPanel")), 0);
}

TEST_F(PanelPoolTest, LendsASecondPanelWhileTheFirstIsOut)
{
    NotingPanel* first = lend();
    EXPECT_NE(lend(), first);
    EXPECT_EQ(pool.panelCount(kTicks), 2);
}

TEST_F(PanelPoolTest, TakenBackPanelStaysInPlaceUntilTheEventLoopRuns)
{
    QWidget window;
    NotingPanel* panel = lend();
    panel->setParent(&window);
    pool.takeBack(panel);
    EXPECT_FALSE(panel->isAcquired());
    EXPECT_EQ(panel->parentWidget(), &window);
    QCoreApplication::processEvents();
    EXPECT_EQ(panel->parentWidget(), nullptr);
    EXPECT_TRUE(panel->isHidden());
    EXPECT_EQ(panel->happened, QStringList({ QStringLiteral("acquire"), QStringLiteral("release") }));
}

TEST_F(PanelPoolTest, ReleasedPanelIsLentAgain)
{
    NotingPanel* panel = lend();
    pool.takeBack(panel);
    pool.carryOutReleases();
    EXPECT_EQ(lend(), panel);
    EXPECT_EQ(pool.panelCount(kTicks), 1);
}

TEST_F(PanelPoolTest, LendingCarriesOutTheReleaseThatIsDue)
{
    QWidget window;
    NotingPanel* panel = lend();
    panel->setParent(&window);
    pool.takeBack(panel);
    EXPECT_EQ(lend(), panel);
    EXPECT_EQ(panel->parentWidget(), nullptr);
}

TEST_F(PanelPoolTest, KeptPanelIsNotReleased)
{
    QWidget window;
    NotingPanel* panel = lend();
    panel->setParent(&window);
    pool.takeBack(panel);
    pool.keep(panel);
    QCoreApplication::processEvents();
    EXPECT_TRUE(panel->isAcquired());
    EXPECT_EQ(panel->parentWidget(), &window);
    EXPECT_FALSE(panel->happened.contains(QStringLiteral("release")));
}

TEST_F(PanelPoolTest, PanelThatPutsItsReleaseOffStaysDue)
{
    QWidget window;
    NotingPanel* panel = lend();
    panel->setParent(&window);
    panel->busy = true;
    pool.takeBack(panel);
    pool.carryOutReleases();
    EXPECT_EQ(panel->parentWidget(), &window);
    EXPECT_NE(lend(), panel);
    panel->busy = false;
    pool.carryOutReleases();
    EXPECT_EQ(panel->parentWidget(), nullptr);
    EXPECT_EQ(lend(), panel);
}

TEST_F(PanelPoolTest, TakesBackOnlyItsOwnPanelsAndOnlyLentOnes)
{
    NotingPanel stranger(kTicks);
    stranger.acquire();
    pool.takeBack(&stranger);
    pool.takeBack(nullptr);
    EXPECT_TRUE(stranger.isAcquired());

    NotingPanel* panel = lend();
    pool.takeBack(panel);
    pool.carryOutReleases();
    pool.takeBack(panel);
    pool.carryOutReleases();
    EXPECT_EQ(panel->happened.filter(QStringLiteral("release")).size(), 1);
}

TEST_F(PanelPoolTest, PanelThatDiesWithItsBorrowerIsReplaced)
{
    {
        QWidget window;
        NotingPanel* panel = lend();
        panel->setParent(&window);
        pool.takeBack(panel);
    }
    EXPECT_EQ(pool.panelCount(kTicks), 0);
    QCoreApplication::processEvents();
    EXPECT_NE(lend(), nullptr);
    EXPECT_EQ(pool.panelCount(kTicks), 1);
}

TEST_F(PanelPoolTest, DeletesItsPanelsAtTheEnd)
{
    QPointer<TC::IIndexDockableWidget> lent, idle;
    {
        client::PanelPool shortLived;
        shortLived.setMaker(kTicks, [] { return new NotingPanel(kTicks); });
        lent = shortLived.lend(kTicks);
        idle = shortLived.lend(kTicks);
        shortLived.takeBack(idle);
    }
    EXPECT_TRUE(lent.isNull());
    EXPECT_TRUE(idle.isNull());
}

} // namespace
