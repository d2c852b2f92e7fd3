#include "title/internal/TextShapes.h"

#include "title/internal/FontShapes.h"

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

/// Glyphs land on the same pixels whether Qt or we place them where both place them on whole pixels of the
/// device: at other scales Qt rounds a text's places one after the other.
bool keepsPixels(const QPainter& painter)
{
    constexpr qreal largestScale = 4.0;
    if (painter.paintEngine()->type() != QPaintEngine::Raster || painter.layoutDirection() == Qt::RightToLeft)
        return false;
    const QTransform& transform = painter.deviceTransform();
    return transform.type() <= QTransform::TxScale && transform.m11() == transform.m22()
        && transform.m11() >= 1.0 && transform.m11() <= largestScale && isWhole(transform.m11())
        && isWhole(transform.dx()) && isWhole(transform.dy());
}

/// Large glyphs are painted as outlines, and coordinates far outside saturate.
bool isOfUsualSize(const TextShape& shape, const QRect& place)
{
    constexpr qreal highestLine = 30.0;
    constexpr int farthest = 100000;
    return shape.height <= highestLine && std::abs(place.x()) < farthest && std::abs(place.y()) < farthest
        && place.width() < farthest && place.height() < farthest;
}

QPointF cornerOf(const TextShape& shape, const QRect& place, int alignment)
{
    const qreal roomBeside = place.width() - shape.exactWidth, roomBelow = place.height() - shape.height;
    return QPointF(place.x() + ((alignment & Qt::AlignHCenter) != 0 ? roomBeside / 2 : 0.0),
                   place.y() + ((alignment & Qt::AlignVCenter) != 0 ? roomBelow / 2 : 0.0));
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
    constexpr int known = Qt::AlignLeft | Qt::AlignHCenter | Qt::AlignVCenter;
    if ((alignment & ~known) == 0 && font.pixelSize() > 0 && keepsPixels(*painter)) {
        const TextShape& shape = shapesOf(font).shape(text);
        if (!shape.runs.isEmpty() && isOfUsualSize(shape, place)) {
            const QPointF corner = cornerOf(shape, place, alignment);
            for (const QGlyphRun& run : shape.runs)
                painter->drawGlyphRun(corner, run);
            return;
        }
    }
    painter->drawText(place, alignment | Qt::TextDontClip | Qt::TextSingleLine, text);
}

void forgetTexts()
{
    keptFonts().clear();
}

} // namespace TC::detail
