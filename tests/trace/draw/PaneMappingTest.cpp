// SPDX-License-Identifier: MIT
#include "draw/PaneMapping.h"

#include "draw/CDrawStyle.h"
#include "host/embedded/EmbeddedHost.h"
#include "tests/support/FormulaBuilder.h"
#include "tests/support/Trace.h"
#include "tests/trace/draw/PlainSkin.h"

#include <climits>
#include <cmath>
#include <random>

namespace {

using TC::SlotLayout;
using TC::ValueScale;
using test::FormulaBuilder;

/// A pane, a window of bars and a range, drawn at random.
struct RandomPane
{
    explicit RandomPane(unsigned seed)
    {
        std::mt19937 random(seed);
        const auto between = [&](int low, int high) {
            return std::uniform_int_distribution<int>(low, high)(random);
        };
        rect = QRect(between(-50, 50), between(-50, 50), between(60, 900), between(40, 400));
        start = between(0, 20);
        end = start + between(1, 60);
        slotCount = between(2, 80);
        xOffset = between(-5, 15);
        fullWidth = between(0, 1) == 1;
        alignByIndex = between(0, 1) == 1;
        range.second = std::uniform_real_distribution<double>(-100.0, 100.0)(random);
        range.first = range.second + std::uniform_real_distribution<double>(0.5, 300.0)(random);
        std::uniform_real_distribution<double> value(range.second, range.first);
        for (int bar = 0; bar <= end; ++bar)
            values.push_back(value(random));
    }

    QRect rect;
    QPair<double, double> range;
    int start, end, slotCount, xOffset;
    bool fullWidth, alignByIndex;
    FormulaBuilder::Values values;
};

class PaneMapping : public test::PlainSkin
{
};

/// "path M 1,2 L 3,4": the points of a traced line at the places that the mapping gives; a path does not hold
/// a point twice in a row.
QString lineAt(const RandomPane& pane, const SlotLayout& slots, const ValueScale& scale)
{
    QStringList points;
    for (int bar = pane.start; bar <= pane.end; ++bar) {
        const QString point = QStringLiteral("%1,%2")
                                  .arg(std::min(slots.x(bar), pane.rect.right()))
                                  .arg(scale.row(pane.values[static_cast<std::size_t>(bar)]));
        if (points.isEmpty() || points.last() != point)
            points.append(point);
    }
    return QStringLiteral("path M ") + points.join(QStringLiteral(" L "));
}

} // namespace

TEST_F(PaneMapping, PlacesBarsAndValuesWhereTheLinePainterDoes)
{
    for (unsigned seed = 1; seed <= 201; ++seed) { // the last one with the usual client type again
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RandomPane pane(seed);
        TC::embedded::setClientType(seed % 3 == 1 ? 3 : 0);
        auto cache = FormulaBuilder().line(pane.values).build();
        const QStringList drawn = test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle().drawSimpleLine(&painter, pane.rect, cache, pane.range, Qt::SolidLine, 0,
                                            pane.start, pane.end, pane.slotCount, pane.xOffset,
                                            pane.fullWidth, false, 1.0f, false, pane.alignByIndex);
        });
        const SlotLayout slots = TC::lineSlots(pane.rect, pane.start, pane.end, pane.slotCount, pane.xOffset,
                                               pane.fullWidth, pane.alignByIndex);
        ASSERT_EQ(drawn.size(), 1);
        EXPECT_EQ(drawn.front().section(QStringLiteral(" pen="), 0, 0),
                  lineAt(pane, slots, TC::valueScale(pane.rect, pane.range)));
    }
}

TEST_F(PaneMapping, PlacesCandlesWhereTheCandlePainterDoes)
{
    for (unsigned seed = 1; seed <= 100; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RandomPane pane(seed);
        pane.end = pane.start; // one candle a trace
        const FormulaBuilder::Values& price = pane.values;
        auto cache = FormulaBuilder().output("KLINE", 12, { price, price, price, price }).build();
        const int bars = pane.slotCount;
        const SlotLayout slots = TC::candleSlots(pane.rect, pane.start - 7, bars);
        const QStringList drawn = test::traceOf([&](QPainter& painter) {
            cache.result.barValid.assign(cache.result.barValid.size(), 0);
            cache.result.barValid[static_cast<std::size_t>(pane.start)] = 1;
            TC::CDrawStyle().drawKLine(&painter, pane.rect, cache, pane.range, 0, pane.start - 7, pane.start,
                                       bars, 0, 86400, true, 1.0f, 2);
        });
        ASSERT_EQ(drawn.size(), 1);
        EXPECT_TRUE(drawn.front().startsWith(QStringLiteral("line %1,").arg(slots.x(pane.start))))
            << drawn.front().toStdString();
    }
}

TEST_F(PaneMapping, PlacesVolumesWhereTheVolumePainterDoes)
{
    for (unsigned seed = 1; seed <= 100; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RandomPane pane(seed);
        const double volume = std::abs(pane.values.front()) + 1.0;
        pane.range = { volume * 1.5, -3.0 };
        auto cache = FormulaBuilder().output("VOL", 27, { { volume }, { 1.0 }, { 2.0 } }).build();
        const QStringList drawn = test::traceOf([&](QPainter& painter) {
            TC::CDrawStyle().drawVolStick(&painter, pane.rect, cache, pane.range, 0, 0, 0, 0, true, true, 1,
                                          0.0, true);
        });
        const int row = TC::volumeScale(pane.rect, pane.range).row(volume);
        ASSERT_EQ(drawn.size(), 1);
        EXPECT_TRUE(drawn.front().startsWith(QStringLiteral("line %1,%2 ").arg(pane.rect.left()).arg(row)))
            << drawn.front().toStdString();
    }
}

TEST(SlotLayout, FindsEveryBarUnderItsOwnColumnWhereSlotsAreAPixelWideOrWider)
{
    for (int width = 100; width <= 1100; width += 7) {
        const SlotLayout slots { 40, width / 100.0, 13.0, -2.0 };
        for (int bar = 40; bar < 140; ++bar)
            ASSERT_EQ(slots.barAt(slots.x(bar)), bar) << "slots of " << slots.width;
    }
}

TEST(SlotLayout, FindsTheLastOfTheBarsThatShareAColumn)
{
    for (double width : { 0.013, 0.25, 0.9 }) {
        const SlotLayout slots { 0, width, 5.0, 0.0 };
        for (int column = -20; column < 60; ++column) {
            const int bar = slots.barAt(column);
            ASSERT_LE(slots.x(bar), column) << "slots of " << width << " at " << column;
            ASSERT_GT(slots.x(bar + 1), column) << "slots of " << width << " at " << column;
        }
    }
}

TEST(SlotLayout, AnswersItsFirstBarWithoutSlotsAndSaturates)
{
    EXPECT_EQ((SlotLayout { 7, 0.0, 0.0, 0.0 }).barAt(50), 7);
    EXPECT_EQ((SlotLayout { 7, NAN, 0.0, 0.0 }).barAt(50), 7);
    EXPECT_EQ((SlotLayout { 7, INFINITY, 0.0, 0.0 }).barAt(50), 7);
    EXPECT_EQ((SlotLayout { 7, 1e-12, 0.0, 0.0 }).barAt(INT_MAX), INT_MAX);
    EXPECT_EQ((SlotLayout { 7, 1e-12, 0.0, 0.0 }).barAt(INT_MIN), INT_MIN);
}

TEST(ValueScale, GivesTheValueOfARowBack)
{
    const ValueScale scale = TC::valueScale(QRect(3, 20, 50, 200), { 12.5, -7.5 }); // 10 rows a unit
    EXPECT_DOUBLE_EQ(scale.valueAt(219), -7.5);
    EXPECT_DOUBLE_EQ(scale.valueAt(119), 2.5);
    for (int row = -50; row < 400; ++row)
        EXPECT_NEAR(scale.at(scale.valueAt(row)), row, 1e-9);
    EXPECT_TRUE(std::isinf(TC::valueScale(QRect(0, 0, 50, 200), { 5.0, 5.0 }).pixelsPerUnit));
}
