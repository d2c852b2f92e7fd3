// SPDX-License-Identifier: MIT
#include "title/internal/PaintedPixels.h"

#include "tests/support/TestFont.h"

#include <QRawFont>

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

} // namespace

TEST(PaintedPixels, AreThoseThatALetterInks)
{
    const QRawFont font = QRawFont::fromFont(test::font(40));
    const QGlyphRun run = letterRun(font);
    const QRectF outline = font.boundingRect(run.glyphIndexes().first());
    const std::optional<QRect> pixels = paintedPixels({ run }, outline);
    ASSERT_TRUE(pixels);
    EXPECT_TRUE(outline.adjusted(-1, -1, 2, 2).contains(*pixels));
    EXPECT_GT(pixels->width(), 20);
    EXPECT_GT(pixels->height(), 20);
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
