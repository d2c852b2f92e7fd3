// SPDX-License-Identifier: MIT
#include "title/internal/RowCount.h"

#include "host/WB/SkinLookup.h"
#include "title/internal/TextShapes.h"

namespace TC::detail {

namespace {

/// Calls visit(step) for every piece of every object.
template <class Visit>
void forEachStep(const QList<CArrowColorSimpleText>& row, const PieceSteps& steps, Visit visit)
{
    for (const CArrowColorSimpleText& object : row) {
        const QVector<ArrowColorTextData> pieces = object.getTextColor();
        for (const ArrowColorTextData& piece : pieces) {
            const int arrow = piece.arrowType == 1 ? steps.upArrow
                : piece.arrowType == 2             ? steps.downArrow
                                                   : 0;
            // Deliberate: this key names a colour; no font answers to it, so that the application's
            // default font measures.
            const int text = textWidth(piece.text, WB::skinFont("clr_stock_index"));
            visit(static_cast<long long>(steps.gap) + arrow + text);
        }
    }
}

} // namespace

int countRows(const LegendRows& rows, const QRect& rect, const PieceSteps& steps)
{
    int count = 1;
    // Deliberate: the pen is compared with the rectangle's width, not with its right edge.
    const long long width = rect.width();
    long long x = rect.left();
    forEachStep(rows.first, steps, [&](long long step) {
        if (x + step > width) {
            ++count;
            x = rect.left();
        }
        x += step;
    });
    x = steps.gap + 1LL;
    forEachStep(rows.second, steps, [&](long long step) {
        if (x + step <= width) {
            x += step;
            return;
        }
        ++count;
        // Deliberate: a piece wider than the strip takes a row and leaves the pen at its start.
        x = rect.left() + (step <= width ? step : 0);
    });
    return count;
}

} // namespace TC::detail
