// SPDX-License-Identifier: MIT
#include "host/WB/CBaseWidget.h"
#include "tests/support/Trace.h"

#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <memory>

namespace {

struct Link : WB::CEventDeliverer
{
    using WB::CEventDeliverer::CEventDeliverer;
    bool handleDeliveredEvent(int id, const QString& text, void*) override
    {
        seen << QStringLiteral("%1 %2").arg(id).arg(text);
        return handles;
    }
    QStringList seen;
    bool handles = false;
};

struct Widget : WB::CBaseWidget
{
    explicit Widget(QWidget* parent)
        : WB::CBaseWidget(QStringLiteral("widget"), false, parent)
    {
    }
    bool handleDeliveredEvent(int id, const QString&, void*) override
    {
        events << id;
        return handles;
    }
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    QList<int> events;
    bool handles = false;
    int presses = 0;
};

} // namespace

TEST(EventDeliverer, OffersAnEventUpwardUntilALinkHandlesIt)
{
    Link top, middle(&top), bottom(&middle);
    middle.handles = true;
    EXPECT_TRUE(bottom.deliverEvent(188, QStringLiteral("x")));
    EXPECT_EQ(bottom.seen, QStringList(QStringLiteral("188 x")));
    EXPECT_EQ(middle.seen, QStringList(QStringLiteral("188 x")));
    EXPECT_TRUE(top.seen.isEmpty());
}

TEST(EventDeliverer, SaysWhenNobodyHandlesAnEvent)
{
    Link top, bottom(&top);
    EXPECT_FALSE(bottom.deliverEvent(1, QString()));
    EXPECT_EQ(top.seen.size(), 1);
}

TEST(EventDeliverer, SurvivesItsParent)
{
    auto top = std::make_unique<Link>();
    Link bottom(top.get());
    top.reset();
    EXPECT_FALSE(bottom.deliverEvent(1, QString()));
}

TEST(EventWidget, FindsTheNearestParentThatTakesEvents)
{
    Widget top(nullptr);
    top.handles = true;
    QWidget plain(&top);
    Widget bottom(&plain);
    EXPECT_TRUE(bottom.deliverEvent(5, QString()));
    EXPECT_EQ(top.events, QList<int> { 5 });
}

TEST(BaseWidget, CarriesItsNameAndDoesNotTurnADoubleClickIntoAPress)
{
    Widget widget(nullptr);
    EXPECT_EQ(widget.objectName(), QStringLiteral("widget"));
    widget.show();
    QTest::mouseDClick(&widget, Qt::LeftButton);
    EXPECT_EQ(widget.presses, 0);
}
