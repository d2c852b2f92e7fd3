// SPDX-License-Identifier: MIT
#include "dock/IIndexDockableWidget.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/Trace.h"

#include <QEvent>

#include <gtest/gtest.h>

#include <memory>

namespace {

/// A panel that counts its releases and notes how it was shown and re-parented.
class Panel : public TC::IIndexDockableWidget
{
public:
    explicit Panel(const char* panelId = "investBuy", int count = 0, QWidget* parent = nullptr)
        : TC::IIndexDockableWidget(false, count, QString::fromLatin1(panelId), parent)
    {
    }

    void release() override
    {
        ++releases;
        TC::IIndexDockableWidget::release();
    }

    int releases = 0;
    QStringList happened;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ParentChange)
            happened << (isAcquired() ? QStringLiteral("moved while lent") : QStringLiteral("moved"));
        if (event->type() == QEvent::HideToParent)
            happened << QStringLiteral("hidden");
        return TC::IIndexDockableWidget::event(event);
    }
};

/// A panel whose release forgets the base class.
class StubbornPanel : public Panel
{
public:
    void release() override { ++releases; }
};

TEST(IndexDockableWidget, StartsIdleAndClosable)
{
    Panel panel;
    EXPECT_FALSE(panel.isAcquired());
    EXPECT_TRUE(panel.isCloseEnable());
    panel.testDoPendRelease();
    EXPECT_EQ(panel.releases, 0);
}

TEST(IndexDockableWidget, HandsIdentifierTitleAndParentToTheDockingBase)
{
    QWidget window;
    Panel panel("investBuy", 4, &window);
    EXPECT_EQ(panel.panelId(), QStringLiteral("investBuy"));
    EXPECT_EQ(panel.objectName(), QStringLiteral("investBuy"));
    EXPECT_EQ(panel.title(), QStringLiteral("买入 (4)"));
    EXPECT_EQ(panel.parentWidget(), &window);
    EXPECT_EQ(panel.dockOptions(), 0);
}

TEST(IndexDockableWidget, PassesTheBoolThroughUnchanged)
{
    TC::IIndexDockableWidget opaque(true, 0, QString(), nullptr);
    TC::IIndexDockableWidget transparent(false, 0, QString(), nullptr);
    EXPECT_TRUE(opaque.testAttribute(Qt::WA_OpaquePaintEvent));
    EXPECT_FALSE(transparent.testAttribute(Qt::WA_OpaquePaintEvent));
}

TEST(IndexDockableWidget, KeepsTheTitleOfItsConstruction)
{
    Panel panel("orderService");
    TC::embedded::setModuleRight(
        { QStringLiteral("mdl_auth"), QStringLiteral("mdl_auth_order_service_rename") }, true);
    panel.acquire();
    EXPECT_EQ(panel.title(), QStringLiteral("文件单和信号单"));
    EXPECT_EQ(Panel("orderService").title(), QStringLiteral("便捷交易和信号单"));
}

TEST(IndexDockableWidget, AcquireMarksThePanelAsLent)
{
    Panel panel;
    panel.acquire();
    EXPECT_TRUE(panel.isAcquired());
}

TEST(IndexDockableWidget, PendReleaseEndsTheLoanAtOnceAndMovesNothing)
{
    QWidget window;
    Panel panel("investBuy", 0, &window);
    window.show();
    panel.acquire();
    panel.pendRelease();
    EXPECT_FALSE(panel.isAcquired());
    EXPECT_EQ(panel.releases, 0);
    EXPECT_EQ(panel.parentWidget(), &window);
    EXPECT_TRUE(panel.isVisible());
}

TEST(IndexDockableWidget, PendingReleaseRunsTheDerivedPanelsOwn)
{
    Panel panel;
    panel.acquire();
    panel.pendRelease();
    panel.testDoPendRelease();
    EXPECT_EQ(panel.releases, 1);
    EXPECT_FALSE(panel.isAcquired());
}

TEST(IndexDockableWidget, SecondTestAfterAReleaseDoesNothing)
{
    Panel panel;
    panel.pendRelease();
    panel.testDoPendRelease();
    panel.testDoPendRelease();
    EXPECT_EQ(panel.releases, 1);
}

TEST(IndexDockableWidget, ReleaseClearsAPendingRelease)
{
    Panel panel;
    panel.pendRelease();
    panel.release();
    panel.testDoPendRelease();
    EXPECT_EQ(panel.releases, 1);
}

TEST(IndexDockableWidget, AcquireCancelsAPendingRelease)
{
    Panel panel;
    panel.pendRelease();
    panel.acquire();
    panel.testDoPendRelease();
    EXPECT_EQ(panel.releases, 0);
    EXPECT_TRUE(panel.isAcquired());
}

TEST(IndexDockableWidget, ReleaseThatForgetsTheBaseStaysPending)
{
    StubbornPanel panel;
    panel.pendRelease();
    panel.testDoPendRelease();
    panel.testDoPendRelease();
    EXPECT_EQ(panel.releases, 2);
}

TEST(IndexDockableWidget, ReleaseEndsTheLoanAndDetachesAndHides)
{
    QWidget window;
    auto* panel = new Panel("investBuy", 0, &window);
    const std::unique_ptr<Panel> owner(panel);
    window.show();
    ASSERT_TRUE(panel->isVisible());
    panel->acquire();
    panel->release();
    EXPECT_FALSE(panel->isAcquired());
    EXPECT_EQ(panel->parentWidget(), nullptr);
    EXPECT_TRUE(panel->isHidden());
}

TEST(IndexDockableWidget, ReleaseClearsTheFlagsThenDetachesThenHides)
{
    QWidget window;
    auto* panel = new Panel("investBuy", 0, &window);
    const std::unique_ptr<Panel> owner(panel);
    window.show();
    panel->acquire();
    panel->happened.clear();
    panel->release();
    // Leaving a shown parent hides the widget on the way; the explicit hiding comes last.
    EXPECT_EQ(panel->happened,
              QStringList({ QStringLiteral("hidden"), QStringLiteral("moved"), QStringLiteral("hidden") }));
}

TEST(IndexDockableWidget, ReleasedPanelStaysHiddenInANewParent)
{
    auto* panel = new Panel;
    panel->release();
    QWidget window;
    panel->setParent(&window);
    window.show();
    EXPECT_FALSE(panel->isVisible());
}

TEST(IndexDockableWidget, CloseEnableIsWhatWasSet)
{
    Panel panel;
    panel.setCloseEnable(false);
    EXPECT_FALSE(panel.isCloseEnable());
    panel.setCloseEnable(true);
    EXPECT_TRUE(panel.isCloseEnable());
}

TEST(IndexDockableWidget, CloseEnableIsAskedThroughTheDockingBase)
{
    Panel panel;
    panel.setCloseEnable(false);
    const WB::IDockableWidget& base = panel;
    EXPECT_FALSE(base.isCloseEnable());
}

TEST(IndexDockableWidget, CloseEnableOutlivesAReleaseAndALoan)
{
    Panel panel;
    panel.setCloseEnable(false);
    panel.acquire();
    panel.release();
    EXPECT_FALSE(panel.isCloseEnable());
}

TEST(IndexDockableWidget, OnlyTheChartAndTheStarMapHaveASimpleHeader)
{
    EXPECT_TRUE(Panel("indexMainPanel").isSimpleHeaderTitle());
    EXPECT_TRUE(Panel("starryPanel").isSimpleHeaderTitle());
    EXPECT_FALSE(Panel("IndexMainPanel").isSimpleHeaderTitle());
    EXPECT_FALSE(Panel("starrypanel").isSimpleHeaderTitle());
    EXPECT_FALSE(Panel("investBuy").isSimpleHeaderTitle());
    EXPECT_FALSE(Panel("").isSimpleHeaderTitle());
}

TEST(IndexDockableWidget, SimpleHeaderFollowsTheIdentifierNotTheObjectName)
{
    Panel panel("investBuy");
    panel.setObjectName(QStringLiteral("indexMainPanel"));
    EXPECT_FALSE(panel.isSimpleHeaderTitle());
}

} // namespace
