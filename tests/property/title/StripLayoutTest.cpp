// SPDX-License-Identifier: MIT
#include "title/internal/StripLayout.h"

#include "tests/support/Legend.h"
#include "tests/support/Seeds.h"
#include "title/internal/LegendClip.h"
#include "title/internal/LegendPaint.h"
#include "title/internal/TradeSummary.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <random>

using namespace TC::detail;

namespace {

/// A strip's own painter: pixel by pixel, without a clip.
struct Canvas
{
    QImage image { 1, 1, QImage::Format_RGB32 };
    QPainter painter { &image };
};

/// Everything of a strip that must keep clear of everything else.
QVector<QRect> parts(const StripLayout& layout)
{
    QVector<QRect> all;
    for (const QRect& part : { layout.name, layout.icon, layout.period, layout.adjustment, layout.button }) {
        if (!part.isEmpty())
            all.append(part);
    }
    for (const QLine& line : layout.separators)
        all.append(QRect(line.p1(), line.p2()));
    return all;
}

void expectApart(const StripContent& content)
{
    const StripLayout layout = layOutStrip(content);
    const QVector<QRect> all = parts(layout);
    const QRect strip(QPoint(0, 0), content.size);
    for (int i = 0; i < all.size(); ++i) {
        EXPECT_TRUE(strip.contains(all[i])) << "part " << i << " at width " << content.size.width();
        for (int k = i + 1; k < all.size(); ++k)
            EXPECT_FALSE(all[i].intersects(all[k])) << i << " and " << k << " at " << content.size.width();
    }
    if (layout.legend.isEmpty())
        return;
    EXPECT_TRUE(strip.contains(layout.legend));
    EXPECT_FALSE(layout.legend.intersects(layout.button));

    const bool mainChart = content.displayType == TC::EIndexDisplay_Heading;
    const LegendOrigin origin = legendOrigin(layout.rowsRect, content.viewType, layout.rowsOffset, mainChart);
    const int right = layout.legend.right() + 1;
    const auto rowKeepsClear = [&](int x, int y) {
        const QRect row(x, y, right - x, kLegendRowHeight);
        for (const QRect& part : all) {
            EXPECT_FALSE(x < right && row.intersects(part)) << "row at " << x << "," << y;
        }
    };
    rowKeepsClear(origin.firstX, 0);
    rowKeepsClear(origin.secondX, origin.secondY);
    EXPECT_GE(origin.firstX, layout.legend.left());
    EXPECT_GE(origin.secondX, layout.legend.left());
    EXPECT_TRUE(mainChart || origin.secondX >= origin.firstX + content.firstRowWidth);
}

StripContent heading(int width, int viewType, int subViewType)
{
    StripContent content;
    content.size = QSize(width, 32);
    content.displayType = TC::EIndexDisplay_Heading;
    content.viewType = static_cast<TC::EIndexViewType>(viewType);
    content.subViewType = static_cast<TC::EIndexViewType>(subViewType);
    content.leftOffset = 12;
    content.nameWidth = 52;
    content.periodWidth = 36;
    return content;
}

} // namespace

TEST(StripLayout, NothingOverlapsAtAnyWidth)
{
    for (int width = 120; width <= 4000; ++width) {
        for (const int viewType : { 0, 1, 2, 3, 6 }) {
            for (const int subViewType : { 0, 1, 2 }) {
                StripContent content = heading(width, viewType, subViewType);
                content.icon = viewType == 3 ? QSize(18, 16) : QSize();
                expectApart(content);
                content.displayType = TC::EIndexDisplay_Legend;
                content.hasButton = viewType != 3;
                content.firstRowWidth = width % 300;
                expectApart(content);
                if (testing::Test::HasFailure())
                    return;
            }
        }
    }
}

TEST(StripLayout, NothingOverlapsForAnyContent)
{
    for (const unsigned seed : test::seedsFor("strip_layout", 20000)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        const auto pick = [&](int lowest, int highest) {
            return std::uniform_int_distribution<int>(lowest, highest)(random);
        };
        StripContent content;
        content.size = QSize(pick(0, 900), pick(0, 80));
        content.displayType = static_cast<TC::EIndexDisplayType>(pick(0, 2));
        content.viewType = static_cast<TC::EIndexViewType>(pick(0, 7));
        content.subViewType = static_cast<TC::EIndexViewType>(pick(0, 3));
        content.leftOffset = pick(-50, 400);
        content.nameWidth = pick(0, 300);
        content.periodWidth = pick(0, 120);
        content.icon = QSize(pick(0, 40), pick(0, 40));
        content.hasButton = content.displayType != TC::EIndexDisplay_Heading && pick(0, 1) == 1
            && content.size.width() >= 17 && content.size.height() >= 12;
        content.firstRowWidth = pick(0, 400);
        expectApart(content);
        if (testing::Test::HasFailure())
            return;
    }
}

TEST(StripLayout, AWideHeadingStripShowsEveryColumn)
{
    StripContent content = heading(800, 0, 0);
    content.icon = QSize(18, 16);
    const StripLayout layout = layOutStrip(content);
    EXPECT_EQ(layout.name, QRect(4, 0, 52, 32));
    EXPECT_EQ(layout.icon, QRect(62 - 3, 8, 18, 16)); // 62: behind the name's column
    EXPECT_EQ(layout.period, QRect(62 + 21 + 4, 0, 36, 16));
    EXPECT_EQ(layout.adjustment, QRect(62 + 21 + 4, 16, 36, 16));
    EXPECT_EQ(layout.separators, QVector<QLine>({ QLine(82, 0, 82, 31), QLine(128, 0, 128, 31) }));
    EXPECT_EQ(layout.legend.left(), 62 + 21 + 46 + 3 + 1);
    EXPECT_EQ(layout.legend.right() + 1, 800 - 50);
}

TEST(StripLayout, TheLegendIsDrawnFromTheStripsTopAndOverItsWholeHeight)
{
    const StripLayout layout = layOutStrip(heading(800, 0, 0));
    const int behindTheHeading = 62 + 46 + 3; // name, period, gap
    EXPECT_EQ(layout.rowsRect, QRect(behindTheHeading, 0, 800 - 50 - (behindTheHeading + 1), 32));
    EXPECT_EQ(layout.rowsOffset, 0); // the view brings its own indent
}

TEST(StripLayout, AnIconNeedsItsColumnToTheLastPixel)
{
    StripContent content = heading(62 + 21, 0, 0); // name, icon
    content.icon = QSize(18, 16);
    EXPECT_FALSE(layOutStrip(content).icon.isEmpty());
    content.size.setWidth(62 + 20);
    EXPECT_TRUE(layOutStrip(content).icon.isEmpty());
    EXPECT_FALSE(layOutStrip(content).name.isEmpty());
}

TEST(StripLayout, AHeadingWithoutANameHasNoColumn)
{
    StripContent content = heading(800, 0, 0);
    content.nameWidth = 0;
    const StripLayout layout = layOutStrip(content);
    EXPECT_TRUE(layout.separators.isEmpty());
    EXPECT_TRUE(layout.period.isEmpty());
    EXPECT_EQ(layout.rowsRect.left(), 0);
}

TEST(StripLayout, ALongNameIsShortenedAndLeavesTheOtherColumnsOut)
{
    StripContent content = heading(200, 0, 0);
    content.nameWidth = 1000;
    content.icon = QSize(18, 16);
    const StripLayout layout = layOutStrip(content);
    EXPECT_EQ(layout.name, QRect(4, 0, 190, 32));
    EXPECT_TRUE(layout.icon.isEmpty());
    EXPECT_TRUE(layout.period.isEmpty());
    EXPECT_TRUE(layout.legend.isEmpty());
}

TEST(StripLayout, AShortNameShowsAndAStumpOfALongOneDoesNot)
{
    StripContent content = heading(400, 0, 0);
    content.nameWidth = 12;
    EXPECT_EQ(layOutStrip(content).name, QRect(4, 0, 12, 32));
    content.size.setWidth(33);
    content.nameWidth = 100;
    EXPECT_TRUE(layOutStrip(content).name.isEmpty());
    content.size.setWidth(34);
    EXPECT_EQ(layOutStrip(content).name.width(), 24);
}

TEST(StripLayout, TheReserveFollowsTheLayout)
{
    StripContent content = heading(500, 3, 2);
    EXPECT_EQ(layOutStrip(content).legend.right() + 1, 500 - 71);
    content.viewType = TC::EIndexView_Plain;
    EXPECT_EQ(layOutStrip(content).legend.right() + 1, 500 - 50);
    content.displayType = TC::EIndexDisplay_Legend;
    content.hasButton = true;
    EXPECT_EQ(layOutStrip(content).legend.right() + 1, 500 - 70);
    EXPECT_EQ(layOutStrip(content).button, QRect(483, 0, 12, 12));
}

TEST(StripLayout, AStripWithoutSizeHoldsNothing)
{
    for (const QSize size : { QSize(0, 0), QSize(0, 32), QSize(500, 0), QSize(-5, 16) }) {
        StripContent content = heading(500, 0, 0);
        content.size = size;
        EXPECT_TRUE(parts(layOutStrip(content)).isEmpty());
        EXPECT_TRUE(layOutStrip(content).legend.isEmpty());
    }
}

TEST(WholePieces, LeavesOutWhatCrossesTheEdgeWithItsArrow)
{
    test::setArrows(QSize(9, 10), QSize(9, 10));
    TC::CArrowColorSimpleText object(QStringLiteral("fnt_index_title_text"));
    object.setTextColor(QStringLiteral("abc"), Qt::red, 0);
    object.setTextColor(QStringLiteral("def"), Qt::red, 1);
    object.setGraphType(false);
    LegendRows rows;
    rows.first = { object };
    const int first = test::widthOf(QStringLiteral("abc")), second = test::widthOf(QStringLiteral("def"));
    const int end = first + 9 + 3 + second + 9; // with the second piece's arrow
    const auto right = [&](int width) {
        const LegendOrigin origin = legendOrigin(QRect(0, 0, 5000, 16), TC::EIndexView_Plain, 0, false);
        return wholePieces(Canvas().painter, QRect(0, 0, width, 16), rows, origin, 5000, {})
            .region()
            .boundingRect()
            .right();
    };
    EXPECT_GE(right(end), end - 1);
    EXPECT_LE(right(end - 1), first + 1);
    EXPECT_EQ(right(first - 1), QRegion().boundingRect().right());
}

TEST(WholePieces, LeaveRoomForInkOnePixelBesideATextAndTwoBelowIt)
{
    TC::CArrowColorSimpleText object(QStringLiteral("fnt_index_title_text"));
    object.setTextColor(QStringLiteral("abc"), Qt::red, 0);
    LegendRows rows;
    rows.first = { object };
    const LegendOrigin origin = legendOrigin(QRect(20, 0, 500, 32), TC::EIndexView_Plain, 0, true);
    EXPECT_EQ(wholePieces(Canvas().painter, QRect(0, 0, 500, 32), rows, origin, 500, {}).region(),
              QRegion(19, 0, test::widthOf(QStringLiteral("abc")) + 2, 18));
}

TEST(StripLayout, APlainHeadingStripWithoutIndentStartsItsRowsAtTheirOwnRule)
{
    StripContent content = heading(800, TC::EIndexView_Plain, TC::EIndexView_Plain);
    content.leftOffset = 25; // counts in the indented view alone
    EXPECT_EQ(layOutStrip(content).rowsOffset, 0);
    content.subViewType = TC::EIndexView_Indented;
    EXPECT_EQ(layOutStrip(content).rowsOffset, 25);
}

TEST(WholePieces, LeavesOutRowsBelowTheStrip)
{
    TC::CArrowColorSimpleText object(QStringLiteral("fnt_index_title_text"));
    object.setTextColor(QStringLiteral("abc"), Qt::red, 0);
    LegendRows rows;
    rows.second = { object };
    const auto visible = [&](int height) {
        const QRect strip(0, 0, 500, height);
        const LegendOrigin origin = legendOrigin(strip, TC::EIndexView_Plain, 0, true);
        return !wholePieces(Canvas().painter, strip, rows, origin, 500, {}).pieces.isEmpty();
    };
    EXPECT_TRUE(visible(32));
    EXPECT_FALSE(visible(31));
}

TEST(WholePieces, NeedNoClipForThoseLeftOut)
{
    TC::CArrowColorSimpleText object(QStringLiteral("fnt_index_title_text"));
    object.setTextColor(QStringLiteral("abc"), Qt::red, 0);
    object.setTextColor(QStringLiteral("def"), Qt::red, 0);
    object.setGraphType(false);
    LegendRows rows;
    rows.first = { object };
    const QRect area(0, 0, 20 + test::widthOf(QStringLiteral("abc")) + 5, 16);
    const LegendOrigin origin = legendOrigin(QRect(20, 0, 5000, 16), TC::EIndexView_Plain, 0, false);
    const LegendClip visible = wholePieces(Canvas().painter, area, rows, origin, 5000, {});
    EXPECT_EQ(visible.pieces.size(), 1);
    EXPECT_FALSE(visible.isNeeded);

    const auto painted = [&](bool whole) {
        QImage image(200, 16, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        if (!whole)
            painter.setClipRegion(visible.region());
        paintLegend(&painter, rows, origin, 5000, {}, whole ? &area : nullptr);
        painter.end();
        return image;
    };
    QImage empty(200, 16, QImage::Format_RGB32);
    empty.fill(Qt::white);
    EXPECT_EQ(painted(true), painted(false));
    EXPECT_NE(painted(true), empty);
}

TEST(FitSummary, LeavesOutAccountsThenVolumesThenEverything)
{
    TradeSummary trading;
    trading.accounts = QStringList({ QStringLiteral("a"), QStringLiteral("b") });
    trading.profitLoss = 5.0;
    trading.buyVolume = 3;
    const auto width = [](const TradeSummary& shown) {
        int sum = 0;
        for (const TC::ArrowColorTextData& text : summaryTexts(shown, 0.01))
            sum += summaryTextWidth(text.text);
        return sum;
    };
    const auto fitted = [&](int room) { return fitSummary(trading, QRect(0, 0, room, 32), 0, 0.01); };
    const int all = width(trading);
    for (const TC::ArrowColorTextData& text : summaryTexts(trading, 0.01))
        EXPECT_EQ(text.arrowType, 0) << text.text.toStdString();
    EXPECT_EQ(fitted(all).accounts.size(), 2);
    EXPECT_EQ(fitted(all - 1).accounts.size(), 1);
    TradeSummary withoutAccounts = trading;
    withoutAccounts.accounts.clear();
    EXPECT_EQ(fitted(width(withoutAccounts)).accounts.size(), 0);
    EXPECT_EQ(fitted(width(withoutAccounts)).buyVolume, 3);
    EXPECT_EQ(fitted(width(withoutAccounts) - 1).buyVolume, 0);
    EXPECT_EQ(fitted(width(withoutAccounts) - 1).profitLoss, 5.0);
    EXPECT_EQ(fitted(5).profitLoss, 0.0);
    EXPECT_EQ(fitSummary(trading, QRect(0, 0, all, 18), 0, 0.01).accounts.size(), 2);
    EXPECT_TRUE(summaryTexts(fitSummary(trading, QRect(0, 0, all, 17), 0, 0.01), 0.01).isEmpty());
}
