// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/DamagedFormula.h"
#include "tests/support/Seeds.h"
#include "tests/support/Trace.h"

#include <QImage>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <functional>

using TC::CDrawStyle;
using test::DamagedFormula;

namespace {

constexpr unsigned kSeeds = 300;

/// A pane whose edges lie at the limits of int, of a size that an int holds.
QRect paneAtTheLimits(DamagedFormula& formula)
{
    const auto span = [&formula] {
        static const int firsts[] = { INT_MIN, -1'000'000'000, 0, 1'000'000'000, INT_MAX - 200 };
        static const int lengths[] = { 0, 1, 60, 201 };
        const int first = firsts[formula.pick(0, 4)];
        return QPair<int, int>(first,
                               static_cast<int>(static_cast<long long>(first) - 1
                                                + lengths[formula.pick(first == INT_MIN ? 1 : 0, 3)]));
    };
    const auto across = span(), down = span();
    return QRect(QPoint(across.first, down.first), QPoint(across.second, down.second));
}

/// One painter with what it draws.
struct LimitedPainter
{
    const char* name;
    int drawType, columns;
    std::function<void(QPainter*, QRect&, DamagedFormula&, int size)> paint;
};

void PrintTo(const LimitedPainter& painter, std::ostream* out)
{
    *out << painter.name;
}

Qt::PenStyle anyStyle(DamagedFormula& f)
{
    return static_cast<Qt::PenStyle>(f.pick(Qt::NoPen, Qt::DashDotDotLine));
}

const LimitedPainter kPainters[] = {
    { "simple_line", 0, 1,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          const bool fill = f.flag(), align = f.flag();
          CDrawStyle().drawSimpleLine(painter, pane, f.cache(), f.range(), anyStyle(f), f.output(), f.start(),
                                      f.end(), f.barCount(), f.xOffset(), f.flag(), f.flag(), 0.5f, fill,
                                      align);
      } },
    { "segment_line", 1, 1,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          CDrawStyle().drawSegmentLine(painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(),
                                       f.barCount(), f.xOffset(), f.flag());
      } },
    { "vert_line", 34, 3,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          CDrawStyle().drawVertLine(painter, pane, f.cache(), f.range(), Qt::SolidLine, f.output(), f.start(),
                                    f.end(), f.xOffset(), f.barCount());
      } },
    { "bool_line", 37, 1,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          for (int& type : f.cache().result.columnType)
              type = type == 0 ? 2 : type;
          CDrawStyle().drawBoolLine(painter, pane, f.cache(), f.range(), anyStyle(f), f.output(), f.start(),
                                    f.end(), f.xOffset(), f.barCount());
      } },
    { "point_dot", 10, 1,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          CDrawStyle::drawPointDot(painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(),
                                   f.xOffset(), f.flag(), f.barCount());
      } },
    { "circle_dot", 11, 1,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          const bool align = f.flag();
          CDrawStyle::drawCircleDot(painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(),
                                    f.xOffset(), f.flag(), f.barCount(), align);
      } },
    { "color_stick", 2, 1,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          const bool full = f.flag(), align = f.flag();
          CDrawStyle().drawColorStick(painter, pane, f.cache(), f.range(), anyStyle(f), f.output(), f.start(),
                                      f.end(), f.xOffset(), full, f.barCount(), f.flag(), align);
      } },
    { "vol_stick", 27, 3,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int size) {
          const bool thin = f.flag(), align = f.flag();
          CDrawStyle().drawVolStick(painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(), size,
                                    thin, f.flag(), f.barCount(), 10.0, align);
      } },
    { "stack_vol_stick", 42, 3,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int size) {
          const bool align = f.flag();
          CDrawStyle().drawStackVolstick(painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(),
                                         size, f.flag(), f.barCount(), align);
      } },
    { "stick_kline", 28, 5,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          CDrawStyle().drawStickKline(painter, pane, f.range(), f.cache(), f.start(), f.end(), f.output(),
                                      f.xOffset(), f.flag(), f.barCount());
      } },
    { "kline", 12, 4,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int size) {
          // the records carry a text column besides: only an output of exactly four columns is drawn
          for (auto& columns : f.cache().meta.outputColumns)
              columns.resize(std::min<std::size_t>(columns.size(), 4));
          static const float scales[] = { 1.0F, 0.0F, 1e38F, NAN, INFINITY };
          CDrawStyle().drawKLine(painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(),
                                 f.barCount(), size, 60, false, scales[f.pick(0, 4)], 2);
      } },
    { "tick", 3, 4,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int size) {
          CDrawStyle().drawTick(painter, pane, f.range(), f.cache(), f.start(), f.end(), f.output(), size,
                                0.0, 0.0, f.flag(), f.barCount());
      } },
    { "tick_vol_stick", 4, 12,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int size) {
          const bool asLine = f.flag();
          CDrawStyle().drawTickVolStickNew(painter, pane, f.cache(), f.range(), f.output(), f.start(),
                                           f.end(), size, asLine, f.flag(), f.barCount(), 0.0);
      } },
    { "text", 13, 2,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          CDrawStyle().drawText(painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(),
                                f.xOffset(), f.barCount());
      } },
    { "text_ex", 31, 4,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          CDrawStyle().drawTextEx(painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end());
      } },
    { "number", 26, 4,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          CDrawStyle().drawNumber(painter, pane, f.range(), f.cache(), f.start(), f.end(), f.output(),
                                  f.xOffset(), f.flag(), f.barCount());
      } },
    { "icon", 19, 3,
      [](QPainter* painter, QRect& pane, DamagedFormula& f, int) {
          CDrawStyle().drawIcon(painter, pane, QString(), f.range(), f.cache(), f.start(), f.end(),
                                f.output(), f.xOffset(), f.barCount());
      } },
};

class PaintersAtTheLimits : public testing::TestWithParam<LimitedPainter>
{
};

} // namespace

INSTANTIATE_TEST_SUITE_P(OfInt, PaintersAtTheLimits, testing::ValuesIn(kPainters),
                         [](const auto& painter) { return std::string(painter.param.name); });

/// The sanitizers watch: nothing here may overflow on the way to a primitive.
TEST_P(PaintersAtTheLimits, LeaveThePaneAsItIsAndThePainterUsable)
{
    for (const unsigned seed : test::seedsFor("pane_limits", kSeeds)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        DamagedFormula formula(seed, GetParam().drawType, GetParam().columns);
        QRect pane = paneAtTheLimits(formula);
        const QRect before = pane;
        const int size = formula.pick(0, 4);
        const QStringList drawn =
            test::traceOf([&](QPainter& painter) { GetParam().paint(&painter, pane, formula, size); });
        EXPECT_FALSE(drawn.join(QLatin1Char(' ')).contains(QStringLiteral("nan")));
        EXPECT_EQ(pane, before);

        QImage image(120, 80, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        QPainter painter(&image);
        GetParam().paint(&painter, pane, formula, size);
        EXPECT_TRUE(painter.end());
    }
}
