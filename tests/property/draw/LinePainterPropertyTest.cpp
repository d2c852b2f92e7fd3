// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/DamagedPainting.h"

namespace {

using test::DamagedFormula;
using test::expectSoundOverDamage;

constexpr unsigned kSeeds = 400;

} // namespace

TEST(DrawSimpleLine, DrawsDamagedRecordsSoundly)
{
    expectSoundOverDamage(
        "line_painters", kSeeds, 0, 1, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
            const bool fill = f.flag(), align = f.flag();
            TC::CDrawStyle().drawSimpleLine(&painter, pane, f.cache(), f.range(), Qt::SolidLine, f.output(),
                                            f.start(), f.end(), f.barCount(), f.xOffset(), f.flag(), f.flag(),
                                            0.5f, fill, align);
        });
}

TEST(DrawSegmentLine, DrawsDamagedRecordsSoundly)
{
    expectSoundOverDamage(
        "line_painters", kSeeds, 1, 1, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
            TC::CDrawStyle().drawSegmentLine(&painter, pane, f.cache(), f.range(), f.output(), f.start(),
                                             f.end(), f.barCount(), f.xOffset(), f.flag());
        });
}

TEST(DrawVertLine, DrawsDamagedRecordsSoundly)
{
    expectSoundOverDamage(
        "line_painters", kSeeds, 34, 3, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
            TC::CDrawStyle().drawVertLine(&painter, pane, f.cache(), f.range(), Qt::SolidLine, f.output(),
                                          f.start(), f.end(), f.xOffset(), f.barCount());
        });
}

TEST(DrawBoolLine, DrawsDamagedRecordsSoundly)
{
    expectSoundOverDamage(
        "line_painters", kSeeds, 37, 1, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
            for (int& type : f.cache().result.columnType)
                type = type == 0 ? 2 : type;
            TC::CDrawStyle().drawBoolLine(&painter, pane, f.cache(), f.range(), Qt::SolidLine, f.output(),
                                          f.start(), f.end(), f.xOffset(), f.barCount());
        });
}

TEST(DrawPointDot, DrawsDamagedRecordsSoundly)
{
    expectSoundOverDamage(
        "line_painters", kSeeds, 10, 1, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
            TC::CDrawStyle::drawPointDot(&painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(),
                                         f.xOffset(), f.flag(), f.barCount());
        });
}

TEST(DrawCircleDot, DrawsDamagedRecordsSoundly)
{
    expectSoundOverDamage(
        "line_painters", kSeeds, 11, 1, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
            TC::CDrawStyle::drawCircleDot(&painter, pane, f.cache(), f.range(), f.output(), f.start(),
                                          f.end(), f.xOffset(), f.flag(), f.barCount(), f.flag());
        });
}
