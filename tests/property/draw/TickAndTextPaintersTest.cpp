// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/DamagedFormula.h"
#include "tests/support/Seeds.h"
#include "tests/support/Trace.h"

#include <QImage>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <functional>

using TC::CDrawStyle;
using test::DamagedFormula;
using test::seedsFor;
using test::traceOf;

namespace {

constexpr unsigned kSeeds = 1000;

/// The arguments that a painter takes besides the formula.
struct Extras
{
    int size;
    bool asLine, fullWidth;
};

/// One painter, fed with a damaged formula.
struct DamagedPainter
{
    const char* suite;
    int drawType, columns, primitivesPerBar;
    std::function<void(QPainter&, QRect&, DamagedFormula&, const Extras&)> paint;
};

void PrintTo(const DamagedPainter& painter, std::ostream* out)
{
    *out << painter.suite;
}

using StickPainter = decltype(&CDrawStyle::drawTickVolStick);

auto stickPainter(StickPainter paint)
{
    return [paint](QPainter& painter, QRect& pane, DamagedFormula& f, const Extras& extras) {
        CDrawStyle style;
        (style.*paint)(&painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(), extras.size,
                       extras.asLine, extras.fullWidth, f.barCount(), 0.0);
    };
}

const DamagedPainter kPainters[] = {
    { "draw_tick", 3, 4, 2,
      [](QPainter& painter, QRect& pane, DamagedFormula& f, const Extras& extras) {
          CDrawStyle().drawTick(&painter, pane, f.range(), f.cache(), f.start(), f.end(), f.output(),
                                extras.size, 0.0, 0.0, extras.fullWidth, f.barCount());
      } },
    { "draw_tick_vol_stick", 4, 3, 1, stickPainter(&CDrawStyle::drawTickVolStick) },
    { "draw_tick_vol_stick_new", 4, 12, 1, stickPainter(&CDrawStyle::drawTickVolStickNew) },
    { "draw_text", 13, 2, 1,
      [](QPainter& painter, QRect& pane, DamagedFormula& f, const Extras&) {
          CDrawStyle().drawText(&painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(),
                                f.xOffset(), f.barCount());
      } },
    { "draw_text_ex", 31, 4, 1,
      [](QPainter& painter, QRect& pane, DamagedFormula& f, const Extras&) {
          CDrawStyle().drawTextEx(&painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end());
      } },
    { "draw_number", 26, 4, 1,
      [](QPainter& painter, QRect& pane, DamagedFormula& f, const Extras& extras) {
          CDrawStyle().drawNumber(&painter, pane, f.range(), f.cache(), f.start(), f.end(), f.output(),
                                  f.xOffset(), extras.fullWidth, f.barCount());
      } },
    { "draw_icon", 19, 3, 1,
      [](QPainter& painter, QRect& pane, DamagedFormula& f, const Extras&) {
          CDrawStyle().drawIcon(&painter, pane, QString(), f.range(), f.cache(), f.start(), f.end(),
                                f.output(), f.xOffset(), f.barCount());
      } },
};

class TickAndTextPainters : public testing::TestWithParam<DamagedPainter>
{
};

Extras extrasOf(DamagedFormula& formula)
{
    static const int sizes[] = { 0, 1, 2, 5, -3, 1'000'000, INT_MAX, INT_MIN };
    // Wild sizes seldom, so that most runs reach the ordinary shapes.
    return { sizes[formula.pick(0, formula.pick(0, 3) == 0 ? 7 : 3)], formula.flag(), formula.flag() };
}

} // namespace

INSTANTIATE_TEST_SUITE_P(OnDamagedRecords, TickAndTextPainters, testing::ValuesIn(kPainters),
                         [](const auto& painter) { return std::string(painter.param.suite); });

TEST_P(TickAndTextPainters, DrawNoMoreThanTheirPrimitivesPerBar)
{
    bool hasDrawn = false;
    for (const unsigned seed : seedsFor(GetParam().suite, kSeeds)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        DamagedFormula formula(seed, GetParam().drawType, GetParam().columns);
        const Extras extras = extrasOf(formula);
        QRect pane = formula.pane();
        const auto bars = static_cast<int>(formula.cache().result.barTimes.size());
        const QStringList drawn =
            traceOf([&](QPainter& painter) { GetParam().paint(painter, pane, formula, extras); });

        EXPECT_LE(drawn.size(), bars * GetParam().primitivesPerBar);
        EXPECT_EQ(pane, formula.pane());
        EXPECT_FALSE(drawn.join(QLatin1Char(' ')).contains(QStringLiteral("nan")));
        hasDrawn = hasDrawn || !drawn.isEmpty();
    }
    EXPECT_TRUE(hasDrawn); // or the damage never lets a record through
}

TEST_P(TickAndTextPainters, PaintTheirPrimitivesOnAnImage)
{
    for (const unsigned seed : seedsFor(GetParam().suite, kSeeds / 4)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        DamagedFormula formula(seed, GetParam().drawType, GetParam().columns);
        const Extras extras = extrasOf(formula);
        QRect pane = formula.pane();
        QImage image(350, 250, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        QPainter painter(&image);
        GetParam().paint(painter, pane, formula, extras);
        EXPECT_TRUE(painter.end());
    }
}

TEST(DrawTickVolStickNewOnRandomBooks, MovesNoStickAndChangesDirectionsOnly)
{
    static const QRegularExpression pen(QStringLiteral(" pen=[^ ]*"));
    int changed = 0;
    for (const unsigned seed : seedsFor("draw_tick_vol_stick_new", kSeeds)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        DamagedFormula formula(seed, 4, 12);
        QRect pane = formula.pane();
        const auto drawn = [&](StickPainter paint) {
            const Extras asLines { 2, true, false };
            return traceOf([&](QPainter& painter) { stickPainter(paint)(painter, pane, formula, asLines); });
        };
        QStringList plain = drawn(&CDrawStyle::drawTickVolStick);
        QStringList withBook = drawn(&CDrawStyle::drawTickVolStickNew);
        changed += plain != withBook;

        EXPECT_EQ(plain.replaceInStrings(pen, QString()), withBook.replaceInStrings(pen, QString()));
    }
    EXPECT_GT(changed, 0);
}
