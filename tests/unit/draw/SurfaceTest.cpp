// SPDX-License-Identifier: MIT
#include "draw/internal/ink/Surface.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using TC::detail::Surface;

TEST(Surface, HoldsWhatIsOnTheDeviceAndNearlyAPixelBeside)
{
    QImage image(10, 8, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.translate(2, 1); // the device reaches from (-2, -1) to (7, 6)
    const std::optional<Surface> surface = Surface::of(painter);
    ASSERT_TRUE(surface);
    struct Edges
    {
        int left, top, right, bottom;
        bool isHeld, isNearlyHeld;
    };
    const Edges all[] = {
        { -2, -1, 7, 6, true, true },   { -3, -1, 7, 6, false, true },  { -2, -2, 7, 6, false, true },
        { -2, -1, 8, 6, false, true },  { -2, -1, 7, 7, false, true },  { -4, -1, 7, 6, false, false },
        { -2, -3, 7, 6, false, false }, { -2, -1, 9, 6, false, false }, { -2, -1, 7, 8, false, false },
    };
    for (const Edges& edges : all) {
        SCOPED_TRACE(testing::Message()
                     << edges.left << ' ' << edges.top << ' ' << edges.right << ' ' << edges.bottom);
        EXPECT_EQ(surface->holds(edges.left, edges.top, edges.right, edges.bottom), edges.isHeld);
        EXPECT_EQ(surface->nearlyHolds(edges.left, edges.top, edges.right, edges.bottom), edges.isNearlyHeld);
    }
}
