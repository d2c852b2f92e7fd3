// SPDX-License-Identifier: MIT
#include "draw/CDrawStyle.h"
#include "tests/support/DamagedPainting.h"

#include <climits>

namespace {

using TC::CDrawStyle;
using test::DamagedFormula;
using test::expectSoundOverDamage;

constexpr unsigned kSeeds = 1500;

/// Half widths that hosts pass, and some that they should not.
int halfWidth(DamagedFormula& formula)
{
    static const int wild[] = { INT_MIN, -3, INT_MAX };
    const int width = formula.pick(-1, 12);
    return width < 0 ? wild[formula.pick(0, 2)] : width;
}

} // namespace

TEST(DrawColorStick, DrawsDamagedRecordsSoundly)
{
    expectSoundOverDamage(
        "draw_color_stick", kSeeds, 2, 1, [](QPainter& painter, QRect& pane, DamagedFormula& formula) {
            const auto style = static_cast<Qt::PenStyle>(formula.pick(Qt::SolidLine, Qt::DashDotDotLine));
            CDrawStyle().drawColorStick(&painter, pane, formula.cache(), formula.range(), style,
                                        formula.output(), formula.start(), formula.end(), formula.xOffset(),
                                        formula.flag(), formula.barCount(), formula.flag(), formula.flag());
        });
}

TEST(DrawVolStick, DrawsDamagedRecordsSoundly)
{
    expectSoundOverDamage(
        "draw_vol_stick", kSeeds, 27, 3, [](QPainter& painter, QRect& pane, DamagedFormula& formula) {
            CDrawStyle().drawVolStick(&painter, pane, formula.cache(), formula.range(), formula.output(),
                                      formula.start(), formula.end(), halfWidth(formula), formula.flag(),
                                      formula.flag(), formula.barCount(), 10.0, formula.flag());
        });
}

TEST(DrawStackVolstick, DrawsDamagedRecordsSoundly)
{
    expectSoundOverDamage(
        "draw_stack_volstick", kSeeds, 42, 3, [](QPainter& painter, QRect& pane, DamagedFormula& formula) {
            CDrawStyle().drawStackVolstick(&painter, pane, formula.cache(), formula.range(), formula.output(),
                                           formula.start(), formula.end(), halfWidth(formula), formula.flag(),
                                           formula.barCount(), formula.flag());
        });
}

TEST(DrawStickKline, DrawsDamagedRecordsSoundly)
{
    expectSoundOverDamage(
        "draw_stick_kline", kSeeds, 28, 5, [](QPainter& painter, QRect& pane, DamagedFormula& formula) {
            CDrawStyle().drawStickKline(&painter, pane, formula.range(), formula.cache(), formula.start(),
                                        formula.end(), formula.output(), formula.xOffset(), formula.flag(),
                                        formula.barCount());
        });
}

TEST(DrawKLine, DrawsDamagedRecordsSoundly)
{
    expectSoundOverDamage(
        "draw_kline", kSeeds, 12, 4, [](QPainter& painter, QRect& pane, DamagedFormula& formula) {
            // the records carry a text column besides: only an output of exactly four columns is drawn
            for (auto& columns : formula.cache().meta.outputColumns)
                columns.resize(std::min<std::size_t>(columns.size(), 4));
            const int period = formula.flag() ? 60 : 86400;
            const float scale = formula.flag() ? 1.0F : 0.5F;
            CDrawStyle().drawKLine(&painter, pane, formula.cache(), formula.range(), formula.output(),
                                   formula.start(), formula.end(), formula.barCount(), halfWidth(formula),
                                   period, formula.pick(0, 3) == 0, scale, formula.pick(-1, 4));
        });
}
