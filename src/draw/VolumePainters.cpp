// SPDX-License-Identifier: MIT
/// @file Volume bars: coloured by rise and fall, and stacked.

#include "draw/CDrawStyle.h"

#include "data/internal/RecordViews.h"
#include "draw/internal/BarLayout.h"
#include "draw/internal/Pens.h"
#include "draw/internal/RiseFall.h"
#include "draw/internal/ink/Ink.h"
#include "draw/internal/ink/ShownSticks.h"

#include <QPainter>

namespace TC {

using namespace detail;

namespace {

BodyLayout volumeLayout(const QRect& rect, const BarWindow& bars, int halfWidth, bool alignByIndex)
{
    const double width = slotWidth(rect, bars.divisor());
    int start = 0;
    if (bars.slotCount > 0 && alignByIndex)
        start = toPixel(bars.first * width);
    else if (bars.slotCount > 0 && !isClientType3()) // which starts at the pane's left edge
        start = toPixel(bars.rightShift() * width);
    return { bars.first, width, rect.left(), start, halfWidth };
}

BodyLayout stackLayout(const QRect& rect, const BarWindow& bars, int halfWidth, bool alignByIndex)
{
    const double width = slotWidth(rect, bars.divisor());
    int start = 0;
    if (bars.slotCount > 0) {
        // Deliberate: aligned by index, the pane's left edge counts here and again in the layout; and
        // client type 3 starts half a body further right.
        start = alignByIndex  ? toPixel(rect.left() + bars.first * width)
            : isClientType3() ? halfWidth
                              : toPixel(bars.rightShift() * width);
    }
    return { bars.first, width, rect.left(), start, halfWidth };
}

/// The ink of one volume bar, from numbers already in pixels.
struct VolumeBar
{
    int left, top;
    long long width;
    bool rises;
};

void drawThinVolume(Ink& ink, const QRect& rect, const VolumeBar& bar)
{
    const int lifted = saturatedSum(rect.bottom(), -1);
    if (bar.top == rect.bottom())
        ink.point(bar.left, lifted);
    else
        ink.upright(bar.left, bar.top, rect.bottom());
}

/// Lowest row that a thin stick's top can stand on while the stick reaches the bottom as one line; lower ones
/// may leave a mark instead, two rows above the bottom at most.
int lowestLineTop(const QRect& rect, bool thinLines)
{
    const long long lowestOfPane = rect.bottom() - 2LL;
    return saturatedSum(0, thinLines ? lowestOfPane : std::min(lowestOfPane, rect.height() - 2LL));
}

void drawVolumeBody(Ink& ink, const QRect& rect, const VolumeBar& bar, const QColor& color)
{
    // Deliberate: the height counts from row 0, not from the pane's bottom, so that bodies of a pane that
    // stands lower end above its bottom; and the marks of the lowest bars stand two rows above it.
    const long long height = std::max(static_cast<long long>(rect.height()) - bar.top, 1LL);
    const int markRow = saturatedSum(rect.bottom(), -2);
    if (bar.width == 1) {
        if (height == 1)
            ink.point(bar.left, markRow);
        else
            ink.upright(bar.left, bar.top, rect.bottom());
    } else if (height == 1) {
        ink.level(markRow, bar.left, saturatedSum(bar.left, bar.width));
    } else if (bar.rises) {
        ink.outline(paintableRect(bar.left, bar.top, bar.width, height));
    } else {
        ink.fill(paintableRect(bar.left, bar.top + 1LL, bar.width, height), color);
    }
}

} // namespace

void CDrawStyle::drawVolStick(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                              QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                              int halfWidth, bool thinLines, bool fullWidth, int barCount,
                              double previousClose, bool alignByIndex)
{
    const OutputView output(cache, outputIndex);
    const ColumnView volumes = output.column(0), opens = output.column(1), closes = output.column(2);
    if (!volumes.exists() || !opens.exists() || !closes.exists())
        return;

    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    const BodyLayout layout = volumeLayout(rect, bars, halfWidth, alignByIndex);
    const ValueScale scale = volumeScale(rect, range);
    const QColor riseColor = WB::skinColor(kRiseColor), fallColor = WB::skinColor(kFallColor);

    // Of thin sticks on one column only those in sight are walked over.
    const bool isThin = thinLines || layout.bodyWidth() == 1;
    const bool hides = isThin && isOpaque(riseColor) && isOpaque(fallColor) && hidesBeneath(*painter);
    const StandingValues sticks {
        *volumes.values(), *opens.values(), *closes.values(), scale, lowestLineTop(rect, thinLines), hides
    };

    Ink ink(painter);
    forEachShownStick(cache.result, bars, layout, sticks, [&](const StandingStick& stick) {
        if (isMissing(stick.value) || isZero(stick.value))
            return;
        if (!hasPixel(layout.at(stick.bar)) || !hasPixel(scale.at(stick.value)))
            return;
        // The bar before counts even when it is not valid and has no body of its own.
        const bool first = stick.bar == startIndex;
        const bool rises =
            volumeRises(stick.open, stick.close, first,
                        first ? std::optional<double>(previousClose) : closes.raw(stick.bar - 1));
        const QColor& color = rises ? riseColor : fallColor;
        ink.setPen(color);
        const VolumeBar body { layout.bodyLeft(stick.bar), scale.row(stick.value), layout.bodyWidth(),
                               rises };
        if (thinLines)
            drawThinVolume(ink, rect, body);
        else
            drawVolumeBody(ink, rect, body, color);
    });
}

namespace {

/// Colours of a stack, one per column of the output. Deliberate: they are the colour entries of the outputs
/// that follow, as named colours, whether those outputs chose their colour or not.
QList<QColor> stackColors(const se::RPCFormulaMetaResult& meta, const OutputView& output)
{
    constexpr int white = 0xFFFFFF;
    QList<QColor> colors;
    for (int k = 0; k < output.columnCount(); ++k) {
        const int* packed = elementAt(meta.color, saturatedSum(output.index(), k));
        QColor color;
        color.setNamedColor(QString::fromStdString(CDrawStyle::colorName(packed ? *packed : white)));
        colors.append(color);
    }
    return colors;
}

} // namespace

void CDrawStyle::drawStackVolstick(QPainter* painter, QRect& rect, RPCFormulaResultCache& cache,
                                   QPair<double, double> range, int outputIndex, int startIndex, int endIndex,
                                   int halfWidth, bool fullWidth, int barCount, bool alignByIndex)
{
    const OutputView output(cache, outputIndex);
    const QList<QColor> colors = stackColors(cache.meta, output);
    std::vector<ColumnView> parts;
    parts.reserve(static_cast<std::size_t>(output.columnCount()));
    for (int k = 0; k < output.columnCount(); ++k)
        parts.push_back(output.column(k));

    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    const BodyLayout layout = stackLayout(rect, bars, halfWidth, alignByIndex);
    const ValueScale scale = volumeScale(rect, range);

    Ink ink(painter);
    forEachValidBar(cache.result, startIndex, endIndex, [&](int bar) {
        if (!hasPixel(layout.at(bar)))
            return;
        const int left = layout.bodyLeft(bar);
        double sum = 0.0;
        for (int k = 0; k < colors.size(); ++k) {
            const std::optional<double> value = parts[static_cast<std::size_t>(k)].raw(bar);
            if (!value || isMissing(*value) || isZero(*value))
                continue; // the part keeps its colour: the next one does not move up
            sum += *value;
            const double pixels = scale.pixelsPerUnit * *value;
            if (!hasPixel(scale.at(sum)) || !hasPixel(pixels))
                continue;
            const int height = std::max(toPixel(pixels), 1);
            if (height == 1) {
                // Deliberate: the mark of a part too small to see lies at the bottom, not on its stack.
                ink.setPen(colors[k]);
                ink.level(rect.bottom(), left, saturatedSum(left, layout.bodyWidth()));
            } else {
                ink.fill(paintableRect(left, scale.row(sum) + 1LL, layout.bodyWidth(), height), colors[k]);
            }
        }
    });
}

} // namespace TC
