#include "draw/CDrawStyle.h"
#include "tests/support/DamagedFormula.h"
#include "tests/support/Seeds.h"
#include "tests/support/Trace.h"

#include <QImage>

#include <gtest/gtest.h>

#include <climits>

namespace {

using TC::CDrawStyle;
using test::DamagedFormula;

constexpr unsigned kSeeds = 1500;

/// Half widths that hosts pass, and some that they should not.
int halfWidth(DamagedFormula& formula)
{
    static const int wild[] = { INT_MIN, -3, INT_MAX };
    const int width = formula.pick(-1, 12);
    return width < 0 ? wild[formula.pick(0, 2)] : width;
}

/// Calls a painter with damaged records, on the recording device and on pixels: the sanitizers watch.
template <class Paint>
void survives(const char* suite, int drawType, int columns, Paint paint)
{
    for (const unsigned seed : test::seedsFor(suite, kSeeds)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        DamagedFormula recorded(seed, drawType, columns), rastered(seed, drawType, columns);
        test::traceOf([&](QPainter& painter) { paint(painter, recorded); });

        QImage image(320, 260, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        QPainter painter(&image);
        paint(painter, rastered);
    }
}

} // namespace

TEST(DrawColorStick, SurvivesDamagedRecords)
{
    survives("draw_color_stick", 2, 1, [](QPainter& painter, DamagedFormula& formula) {
        QRect pane = formula.pane();
        const auto style = static_cast<Qt::PenStyle>(formula.pick(Qt::SolidLine, Qt::DashDotDotLine));
        CDrawStyle().drawColorStick(&painter, pane, formula.cache(), formula.range(), style, formula.output(),
                                    formula.start(), formula.end(), formula.xOffset(), formula.flag(),
                                    formula.barCount(), formula.flag(), formula.flag());
    });
}

TEST(DrawVolStick, SurvivesDamagedRecords)
{
    survives("draw_vol_stick", 27, 3, [](QPainter& painter, DamagedFormula& formula) {
        QRect pane = formula.pane();
        CDrawStyle().drawVolStick(&painter, pane, formula.cache(), formula.range(), formula.output(),
                                  formula.start(), formula.end(), halfWidth(formula), formula.flag(),
                                  formula.flag(), formula.barCount(), 10.0, formula.flag());
    });
}

TEST(DrawStackVolstick, SurvivesDamagedRecords)
{
    survives("draw_stack_volstick", 42, 3, [](QPainter& painter, DamagedFormula& formula) {
        QRect pane = formula.pane();
        CDrawStyle().drawStackVolstick(&painter, pane, formula.cache(), formula.range(), formula.output(),
                                       formula.start(), formula.end(), halfWidth(formula), formula.flag(),
                                       formula.barCount(), formula.flag());
    });
}

TEST(DrawStickKline, SurvivesDamagedRecords)
{
    survives("draw_stick_kline", 28, 5, [](QPainter& painter, DamagedFormula& formula) {
        QRect pane = formula.pane();
        CDrawStyle().drawStickKline(&painter, pane, formula.range(), formula.cache(), formula.start(),
                                    formula.end(), formula.output(), formula.xOffset(), formula.flag(),
                                    formula.barCount());
    });
}

TEST(DrawKLine, SurvivesDamagedRecords)
{
    survives("draw_kline", 12, 4, [](QPainter& painter, DamagedFormula& formula) {
        // the records carry a text column besides: only an output of exactly four columns is drawn
        for (auto& columns : formula.cache().meta.outputColumns)
            columns.resize(std::min<std::size_t>(columns.size(), 4));
        QRect pane = formula.pane();
        const int period = formula.flag() ? 60 : 86400;
        const float scale = formula.flag() ? 1.0F : 0.5F;
        CDrawStyle().drawKLine(&painter, pane, formula.cache(), formula.range(), formula.output(),
                               formula.start(), formula.end(), formula.barCount(), halfWidth(formula), period,
                               formula.pick(0, 3) == 0, scale, formula.pick(-1, 4));
    });
}
