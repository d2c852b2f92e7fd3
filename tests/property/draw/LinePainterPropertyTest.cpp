#include "draw/CDrawStyle.h"
#include "tests/support/DamagedFormula.h"
#include "tests/support/Seeds.h"
#include "tests/support/Trace.h"

#include <QImage>

#include <gtest/gtest.h>

#include <functional>

namespace {

using test::DamagedFormula;

/// Runs a painter over damaged records, on the recording device and on pixels.
void paintDamaged(int drawType, int columns,
                  const std::function<void(QPainter&, QRect&, DamagedFormula&)>& paint)
{
    for (const unsigned seed : test::seedsFor("line_painters", 400)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        const auto onPainter = [&](QPainter& painter) {
            DamagedFormula formula(seed, drawType, columns);
            QRect pane = formula.pane();
            paint(painter, pane, formula);
        };
        test::traceOf(onPainter);
        QImage image(120, 80, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        onPainter(painter);
    }
}

} // namespace

TEST(LinePainters, SurviveDamagedRecords)
{
    paintDamaged(0, 1, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
        const bool fill = f.flag(), align = f.flag();
        TC::CDrawStyle().drawSimpleLine(&painter, pane, f.cache(), f.range(), Qt::SolidLine, f.output(),
                                        f.start(), f.end(), f.barCount(), f.xOffset(), f.flag(), f.flag(),
                                        0.5f, fill, align);
    });
    paintDamaged(1, 1, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
        TC::CDrawStyle().drawSegmentLine(&painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(),
                                         f.barCount(), f.xOffset(), f.flag());
    });
    paintDamaged(34, 3, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
        TC::CDrawStyle().drawVertLine(&painter, pane, f.cache(), f.range(), Qt::SolidLine, f.output(),
                                      f.start(), f.end(), f.xOffset(), f.barCount());
    });
    paintDamaged(37, 1, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
        for (int& type : f.cache().result.columnType)
            type = type == 0 ? 2 : type;
        TC::CDrawStyle().drawBoolLine(&painter, pane, f.cache(), f.range(), Qt::SolidLine, f.output(),
                                      f.start(), f.end(), f.xOffset(), f.barCount());
    });
    paintDamaged(10, 1, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
        TC::CDrawStyle::drawPointDot(&painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(),
                                     f.xOffset(), f.flag(), f.barCount());
    });
    paintDamaged(11, 1, [](QPainter& painter, QRect& pane, DamagedFormula& f) {
        TC::CDrawStyle::drawCircleDot(&painter, pane, f.cache(), f.range(), f.output(), f.start(), f.end(),
                                      f.xOffset(), f.flag(), f.barCount(), f.flag());
    });
}
