// SPDX-License-Identifier: MIT
#pragma once
/// @file What holds for every painter over damaged records.

#include "tests/support/DamagedFormula.h"
#include "tests/support/Seeds.h"
#include "tests/support/Trace.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace test {

/// Runs `paint(painter, pane, formula)` over damaged records of the suite's seeds: the pane stays as it is,
/// no coordinate is "not a number", the same record gives the same primitives on a device that records, and
/// on pixels the painter is left usable. Some record must get through to ink, or the test would show nothing.
template <class Paint>
void expectSoundOverDamage(const char* suite, unsigned seeds, int drawType, int columns, Paint paint)
{
    bool hasDrawn = false;
    for (const unsigned seed : seedsFor(suite, seeds)) {
        SCOPED_TRACE(testing::Message() << suite << ", seed " << seed);
        const auto onPainter = [&](QPainter& painter) {
            DamagedFormula formula(seed, drawType, columns);
            QRect pane = formula.pane();
            paint(painter, pane, formula);
            EXPECT_EQ(pane, formula.pane());
        };
        const QStringList drawn = traceOf(onPainter);
        EXPECT_EQ(traceOf(onPainter), drawn);
        EXPECT_FALSE(drawn.join(QLatin1Char(' ')).contains(QStringLiteral("nan")));
        hasDrawn = hasDrawn || !drawn.isEmpty();

        QImage image(320, 260, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        QPainter painter(&image);
        onPainter(painter);
        EXPECT_TRUE(painter.end());
    }
    EXPECT_TRUE(hasDrawn) << suite;
}

} // namespace test
