// SPDX-License-Identifier: MIT
#include "title/internal/TextShapes.h"

#include "title/internal/FontShapes.h"
#include "title/internal/GlyphStamps.h"

#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace TC::detail {

namespace {

/// By font, in the order of first use.
std::vector<std::unique_ptr<FontShapes>>& keptFonts()
{
    static std::vector<std::unique_ptr<FontShapes>> kept;
    return kept;
}

FontShapes& shapesOf(const QFont& font)
{
    constexpr std::size_t mostFonts = 4; // a strip uses three
    auto& kept = keptFonts();
    for (const auto& shapes : kept) {
        if (shapes->isOf(font))
            return *shapes;
    }
    if (kept.size() >= mostFonts)
        kept.erase(kept.begin());
    kept.push_back(std::make_unique<FontShapes>(font));
    return *kept.back();
}

bool isWhole(qreal number)
{
    return number == std::floor(number);
}

/// Whether glyphs land on the same pixels, whoever places them: by whole factors and whole pixels no place is
/// rounded in another way.
/// Large glyphs are painted as outlines.
bool keepsPixels(const QPainter& painter, const QFont& font)
{
    constexpr qreal largestGlyph = 48.0; // pixels of the device
    if (painter.paintEngine()->type() != QPaintEngine::Raster || painter.layoutDirection() == Qt::RightToLeft)
        return false;
    const QTransform& transform = painter.deviceTransform();
    return transform.type() <= QTransform::TxScale && transform.m11() == transform.m22()
        && transform.m11() >= 1.0 && isWhole(transform.m11()) && isWhole(transform.dx())
        && isWhole(transform.dy()) && font.pixelSize() > 0
        && font.pixelSize() * transform.m11() <= largestGlyph;
}

/// Coordinates far outside saturate.
bool isNear(const QRect& place)
{
    constexpr int farthest = 100000;
    const auto isNearOrigin = [](int coordinate) { return coordinate > -farthest && coordinate < farthest; };
    return isNearOrigin(place.x()) && isNearOrigin(place.y()) && place.width() < farthest
        && place.height() < farthest;
}

/// A text's top left corner where drawText has it, which cuts places towards 0.
QPointF cornerOf(const TextShape& shape, const QRect& place, int alignment)
{
    const auto cut = [](qreal coordinate) {
        constexpr qreal fixedPoint = 64.0; // places to a pixel
        return std::trunc(coordinate * fixedPoint) / fixedPoint;
    };
    const qreal roomBeside = place.width() - shape.exactWidth, roomBelow = place.height() - shape.height;
    return QPointF(cut(place.x() + ((alignment & Qt::AlignHCenter) != 0 ? roomBeside / 2 : 0.0)),
                   cut(place.y() + ((alignment & Qt::AlignVCenter) != 0 ? roomBelow / 2 : 0.0)));
}

/// Whether glyphs from a corner on stand right of and on or below either origin: beyond, places are rounded
/// the other way.
bool isRoundedDown(const QPointF& corner, const QList<QGlyphRun>& runs)
{
    return corner.x() >= 0.0 && std::all_of(runs.begin(), runs.end(), [&](const QGlyphRun& run) {
               const QVector<QPointF> positions = run.positions();
               return std::all_of(positions.begin(), positions.end(),
                                  [&](const QPointF& position) { return corner.y() + position.y() >= 0.0; });
           });
}

/// Paints a text glyph by glyph where that is certain to be the same; answers whether it was.
bool paintGlyphs(QPainter* painter, const QRect& place, int alignment, const QString& text, const QFont& font)
{
    constexpr int known = Qt::AlignLeft | Qt::AlignHCenter | Qt::AlignVCenter;
    if ((alignment & ~known) != 0 || !keepsPixels(*painter, font))
        return false;
    const TextShape& shape = shapesOf(font).shape(text);
    if (shape.runs.isEmpty() || !isNear(place))
        return false;
    const QPointF corner = cornerOf(shape, place, alignment);
    if (shape.pixels && paintStamps(painter, corner, shape.runs, *shape.pixels))
        return true;
    for (const QGlyphRun& run : shape.runs)
        painter->drawGlyphRun(corner, run);
    return true;
}

} // namespace

int textWidth(const QString& text, const QFont& font)
{
    return shapesOf(font).width(text);
}

bool isWithin(int pixels, const QString& text, const QFont& font)
{
    const TextShape& shape = shapesOf(font).shape(text);
    return !shape.runs.isEmpty() && shape.exactWidth <= pixels;
}

void paintLine(QPainter* painter, const QRect& place, int alignment, const QString& text, const QFont& font)
{
    if (!paintGlyphs(painter, place, alignment, text, font))
        painter->drawText(place, alignment | Qt::TextDontClip | Qt::TextSingleLine, text);
}

bool inkStaysIn(const QRect& room, const QPainter& painter, const QRect& place, int alignment,
                const QString& text, const QFont& font)
{
    const TextShape& shape = shapesOf(font).shape(text);
    if (shape.runs.isEmpty() || !isNear(place))
        return false;
    const QPointF corner = cornerOf(shape, place, alignment);
    if (shape.pixels && keepsPixels(painter, font) && painter.deviceTransform().isIdentity()
        && isRoundedDown(corner, shape.runs)) {
        // The pixels move with the whole pixel that the corner stands in.
        const QPoint pixel(static_cast<int>(corner.x()), static_cast<int>(std::floor(corner.y())));
        return shape.pixels->isEmpty() || room.contains(shape.pixels->translated(pixel));
    }
    constexpr qreal rasterized = 1.0; // pixels by which hinting and whole pixels may widen an outline
    return QRectF(room).contains(
        shape.ink.translated(corner).adjusted(-rasterized, -rasterized, rasterized, rasterized));
}

void forgetTexts()
{
    keptFonts().clear();
    forgetStamps();
}

} // namespace TC::detail
