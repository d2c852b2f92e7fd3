// SPDX-License-Identifier: MIT
#include "title/internal/PaintedPixels.h"

#include "tests/support/TestFont.h"

#include <QImage>
#include <QPainter>
#include <QRawFont>
#include <QRegion>

#include <gtest/gtest.h>

using TC::detail::paintedPixels;

namespace {

/// One letter on its base line.
QGlyphRun letterRun(const QRawFont& font)
{
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes(font.glyphIndexesForString(QStringLiteral("M")));
    run.setPositions({ QPointF() });
    return run;
}

/// Pixels that are not empty once the letter has been painted that far right of and below its place.
QRect inkOf(const QGlyphRun& run, qreal aside)
{
    constexpr int origin = 60;
    QImage image(120, 120, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter(&image).drawGlyphRun(QPointF(origin + aside, origin + aside), run);
    QRegion inked;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != 0)
                inked += QRect(x - origin, y - origin, 1, 1);
        }
    }
    return inked.boundingRect();
}

} // namespace

TEST(PaintedPixels, AreThoseThatALetterInks)
{
    const QRawFont font = QRawFont::fromFont(test::font(40));
    const QGlyphRun run = letterRun(font);
    const QRectF outline = font.boundingRect(run.glyphIndexes().first());
    const std::optional<QRect> pixels = paintedPixels({ run }, outline);
    ASSERT_TRUE(pixels);
    EXPECT_EQ(*pixels, inkOf(run, 0.0) | inkOf(run, 63.0 / 64.0));
}

TEST(PaintedPixels, AreNotKnownOfInkThatLeavesTheOutlines)
{
    const QRawFont font = QRawFont::fromFont(test::font(40));
    EXPECT_FALSE(paintedPixels({ letterRun(font) }, QRectF(0, -10, 10, 10)));
}

TEST(PaintedPixels, AreNoneWithoutInk)
{
    const std::optional<QRect> pixels = paintedPixels({}, QRectF());
    ASSERT_TRUE(pixels);
    EXPECT_TRUE(pixels->isEmpty());
}
