// SPDX-License-Identifier: MIT
#include "draw/internal/ink/DeviceClip.h"
#include "draw/internal/ink/Surface.h"
#include "tests/support/Trace.h"

#include <QImage>
#include <QPainterPath>

#include <gtest/gtest.h>

#include <functional>

using TC::detail::DeviceClip;

namespace {

QImage canvas()
{
    QImage image(60, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    return image;
}

} // namespace

TEST(DeviceClip, CoversTheDeviceWhereThereIsNoClipAndLeavesNoTrace)
{
    QImage image = canvas();
    QPainter painter(&image);
    painter.translate(7, -3);
    {
        const DeviceClip clip(&painter);
        EXPECT_TRUE(painter.hasClipping());
        EXPECT_TRUE(painter.clipRegion().contains(QRect(-7, 3, 60, 40)));
        painter.setPen(Qt::red);
        painter.setBrush(Qt::green);
    }
    EXPECT_FALSE(painter.hasClipping());
    EXPECT_EQ(painter.pen(), QPen(Qt::red));
    EXPECT_EQ(painter.brush(), QBrush(Qt::green));
    EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(7, -3));
    painter.setClipping(true); // switches on the clip that was there before: none
    EXPECT_FALSE(painter.hasClipping());
}

TEST(DeviceClip, LeavesAClipOfThePaintersOwnAlone)
{
    QImage image = canvas();
    QPainter painter(&image);
    painter.setClipRect(3, 4, 5, 6);
    {
        const DeviceClip clip(&painter);
        EXPECT_EQ(painter.clipRegion(), QRegion(3, 4, 5, 6));
    }
    EXPECT_EQ(painter.clipRegion(), QRegion(3, 4, 5, 6));
}

TEST(DeviceClip, DoesNothingOnOtherEngines)
{
    test::traceOf([](QPainter& painter) {
        const DeviceClip clip(&painter);
        EXPECT_FALSE(painter.hasClipping());
    });
}

TEST(WholePixelClip, KnowsClipsThatCoverAPixelInPart)
{
    const auto isWhole = [](const std::function<void(QPainter&)>& clip) {
        QImage image = canvas();
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        clip(painter);
        painter.setRenderHint(QPainter::Antialiasing, false);
        const QTransform before = painter.worldTransform();
        const bool whole = TC::detail::wholePixelClip(painter).has_value();
        EXPECT_EQ(painter.worldTransform(), before);
        return whole;
    };
    QPainterPath rect, ellipse, nearlyRect;
    rect.addRect(5, 5, 20, 20);
    ellipse.addEllipse(5, 5, 30, 20);
    nearlyRect.addRoundedRect(5, 5, 20, 20, 0.4, 0.4);

    EXPECT_TRUE(isWhole([](QPainter&) {}));
    EXPECT_TRUE(isWhole([](QPainter& p) { p.setClipRect(5, 5, 20, 20); }));
    EXPECT_TRUE(isWhole([](QPainter& p) { p.setClipRegion(QRegion(5, 5, 30, 20, QRegion::Ellipse)); }));
    EXPECT_TRUE(isWhole([&](QPainter& p) { p.setClipPath(rect); }));
    EXPECT_FALSE(isWhole([&](QPainter& p) { p.setClipPath(ellipse); }));
    EXPECT_FALSE(isWhole([&](QPainter& p) { p.setClipPath(nearlyRect); }));
    EXPECT_FALSE(isWhole([&](QPainter& p) {
        p.setClipPath(nearlyRect);
        p.setClipRect(0, 0, 40, 40, Qt::IntersectClip);
    }));
    EXPECT_FALSE(isWhole([](QPainter& p) { p.setClipRect(QRectF(5.5, 5.0, 20.0, 20.0)); }));
}
