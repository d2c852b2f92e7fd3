// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/FormulaBuilder.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <functional>

using TC::CDrawStyle;
using test::FormulaBuilder;

namespace {

/// Device pixels that a painter covers on a pane of 40 × 40 pixels.
QRect inkedArea(int pixelRatio, const std::function<void(QPainter&, QRect&)>& paint)
{
    QImage image(QSize(40, 40) * pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        QRect pane(0, 0, 40, 40);
        paint(painter, pane);
    }
    QRect inked;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            inked |= qAlpha(image.pixel(x, y)) != 0 ? QRect(x, y, 1, 1) : QRect();
    }
    return inked;
}

/// What a bar without extent looks like, by device pixels a pixel.
class PointSize : public testing::TestWithParam<int>
{
protected:
    static QSize onePixel() { return QSize(GetParam(), GetParam()); }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(AtPixelRatios, PointSize, testing::Values(1, 2, 3),
                         testing::PrintToStringParamName());

TEST_P(PointSize, AVertLineBetweenEqualPricesIsOnePixel)
{
    auto cache = FormulaBuilder().output("V", 34, { { 0.0, 1.0 }, { 5.0, 5.0 }, { 5.0, 5.0 } }).build();
    const QRect inked = inkedArea(GetParam(), [&](QPainter& painter, QRect& pane) {
        CDrawStyle().drawVertLine(&painter, pane, cache, { 10.0, 0.0 }, Qt::SolidLine, 0, 0, 1, 0, 1);
    });
    EXPECT_EQ(inked.size(), onePixel());
}

TEST_P(PointSize, AStickLineBetweenEqualPricesIsOnePixel)
{
    auto cache =
        FormulaBuilder()
            .output("S", 28, { { 0.0, 1.0 }, { 5.0, 5.0 }, { 5.0, 5.0 }, { 0.0, 0.0 }, { 0.0, 0.0 } })
            .build();
    const QRect inked = inkedArea(GetParam(), [&](QPainter& painter, QRect& pane) {
        CDrawStyle().drawStickKline(&painter, pane, { 10.0, 0.0 }, cache, 0, 1, 0, 0, false, 1);
    });
    EXPECT_EQ(inked.size(), onePixel());
}

TEST_P(PointSize, TheMarkOfAThinVolumeOnTheBottomRowIsOnePixel)
{
    auto cache = FormulaBuilder().output("VOL", 27, { { 0.0, -0.1 }, { 1.0, 1.0 }, { 2.0, 2.0 } }).build();
    const QRect inked = inkedArea(GetParam(), [&](QPainter& painter, QRect& pane) {
        CDrawStyle().drawVolStick(&painter, pane, cache, { 10.0, 0.0 }, 0, 0, 1, 0, true, false, 1, 0.0,
                                  true);
    });
    EXPECT_EQ(inked.size(), onePixel());
}

TEST_P(PointSize, ATradeWithoutVolumeIsOnePixel)
{
    auto cache = FormulaBuilder()
                     .series({ 1.0, 1.0 })
                     .series({ 1.0, 1.0 })
                     .output("T", 4, { { DBL_MAX, 0.0 }, { 0.0, 0.0 }, { 5.0, 5.0 } })
                     .build();
    const QRect inked = inkedArea(GetParam(), [&](QPainter& painter, QRect& pane) {
        CDrawStyle().drawTickVolStick(&painter, pane, cache, { 10.0, 0.0 }, 0, 0, 1, 0, true, false, 1, 0.0);
    });
    EXPECT_EQ(inked.size(), onePixel());
}

TEST_P(PointSize, ACandleThatEndsOnItsBodyIsNoWiderThanItsBody)
{
    auto cache = FormulaBuilder().output("K", 12, { { 2.0 }, { 8.0 }, { 2.0 }, { 8.0 } }).build();
    const QRect inked = inkedArea(GetParam(), [&](QPainter& painter, QRect& pane) {
        painter.translate(10, 0);
        CDrawStyle().drawKLine(&painter, pane, cache, { 10.0, 0.0 }, 0, 0, 0, 1, 0, 86400, true, 1.0F, 2);
    });
    EXPECT_EQ(inked.width(), GetParam());
}
