// SPDX-License-Identifier: MIT
#include "title/internal/GlyphStamps.h"

#include "title/internal/PaintedPixels.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <memory>

namespace TC::detail {

namespace {

constexpr int kFixedPoint = 64; ///< places to a pixel, as the engine rounds them
constexpr int kQuarter = 16;    ///< places between which the engine makes no difference, along a row

/// In the order of first use.
std::vector<std::unique_ptr<GlyphStamps>>& keptStamps()
{
    static std::vector<std::unique_ptr<GlyphStamps>> kept;
    return kept;
}

GlyphStamps& stampsOf(const GlyphPaint& paint)
{
    constexpr std::size_t mostPaints = 48; // colours of a pane's legends, in either skin
    auto& kept = keptStamps();
    for (const auto& stamps : kept) {
        if (stamps->isOf(paint))
            return *stamps;
    }
    if (kept.size() >= mostPaints)
        kept.erase(kept.begin());
    kept.push_back(std::make_unique<GlyphStamps>(paint));
    return *kept.back();
}

/// Whether glyphs show nothing but their own coverage in the pen's colour. One that lets through what lies
/// beneath would come out a level off at times.
bool paintsPlainly(const QPainter& painter)
{
    constexpr int opaque = 255;
    return painter.renderHints() == QPainter::TextAntialiasing && painter.pen().style() != Qt::NoPen
        && painter.pen().brush().style() == Qt::SolidPattern && painter.pen().color().alpha() == opaque;
}

/// A place in 1/64 of a pixel of the device, on which layouts put glyphs and texts are; empty where it lies
/// on the device's edge, or left of or above either origin, where rounding turns round.
std::optional<QPoint> fixedPlace(const QPointF& place, const QPoint& offset)
{
    const double x = place.x() * kFixedPoint, y = place.y() * kFixedPoint;
    if (x < 0.0 || y < 0.0)
        return std::nullopt;
    const QPoint fixed = QPoint(static_cast<int>(x), static_cast<int>(y)) + offset * kFixedPoint;
    return fixed.x() > 0 && fixed.y() >= 0 ? std::optional<QPoint>(fixed) : std::nullopt;
}

void paintRun(QPainter* painter, const Surface& surface, const QPointF& corner, const QGlyphRun& run,
              GlyphStamps& stamps)
{
    const QVector<quint32> glyphs = run.glyphIndexes();
    const QVector<QPointF> positions = run.positions();
    for (int i = 0; i < std::min(glyphs.size(), positions.size()); ++i) {
        const std::optional<QPoint> origin = fixedPlace(corner + positions.at(i), surface.offset());
        if (origin && stamps.store(surface, glyphs.at(i), *origin))
            continue;
        QGlyphRun single = run;
        single.setRawData(&glyphs.at(i), &positions.at(i), 1);
        painter->drawGlyphRun(corner, single);
    }
}

} // namespace

std::vector<quint32> GlyphStamps::painted(const QGlyphRun& run, const QRect& place,
                                          const QPoint& fraction) const
{
    // On column 0 itself the engine shifts glyphs by another fraction than on all others.
    constexpr int margin = 16; // pixels
    QImage image(place.size() + QSize(margin, 0), m_paint.format);
    const QPointF origin = QPointF(fraction) / kFixedPoint - place.topLeft() + QPointF(margin, 0.0);
    for (int time = 0; time < 2; ++time) { // the engine paints some glyphs otherwise before it keeps them
        image.fill(m_paint.beneath);
        QPainter painter(&image);
        painter.setPen(QColor(m_paint.color));
        painter.drawGlyphRun(origin, run);
    }
    std::vector<quint32> words;
    words.reserve(static_cast<std::size_t>(place.width()) * static_cast<std::size_t>(place.height()));
    for (int y = 0; y < place.height(); ++y) {
        const auto* pixels = reinterpret_cast<const quint32*>(image.constScanLine(y)) + margin;
        words.insert(words.end(), pixels, pixels + place.width());
    }
    return words;
}

/// Whatever lies between two places that come out the same comes out the same as well.
GlyphStamps::Stamp GlyphStamps::learn(quint32 glyph, int quarter, int down) const
{
    QGlyphRun run;
    run.setRawFont(m_paint.font);
    run.setGlyphIndexes({ glyph });
    run.setPositions({ QPointF() });
    const std::optional<QRect> touched = paintedPixels({ run }, m_paint.font.boundingRect(glyph));
    Stamp stamp;
    stamp.isKnown = touched.has_value();
    if (!touched || touched->isEmpty())
        return stamp;
    constexpr int step = Surface::kWordsAtOnce;
    stamp.place =
        QRect(touched->topLeft(), QSize((touched->width() + step - 1) / step * step, touched->height()));
    const int first = quarter * kQuarter, last = first + kQuarter - 1;
    stamp.words = painted(run, stamp.place, QPoint(first, down));
    stamp.isKnown = stamp.words == painted(run, stamp.place, QPoint(last, down));
    return stamp;
}

bool GlyphStamps::store(const Surface& surface, quint32 glyph, const QPoint& origin)
{
    constexpr std::size_t mostStamps = 512;
    const QPoint pixel(origin.x() / kFixedPoint, origin.y() / kFixedPoint);
    const int quarter = origin.x() % kFixedPoint / kQuarter, down = origin.y() % kFixedPoint;
    const quint64 key = quint64 { glyph } << 8 | static_cast<quint64>(quarter << 6 | down);
    auto known = m_stamps.find(key);
    if (known == m_stamps.end()) {
        if (m_stamps.size() >= mostStamps)
            m_stamps.clear();
        known = m_stamps.emplace(key, learn(glyph, quarter, down)).first;
    }
    const Stamp& stamp = known->second;
    return stamp.isKnown
        && (stamp.place.isEmpty()
            || surface.replace(stamp.place.translated(pixel), stamp.words.data(), m_paint.beneath));
}

bool paintStamps(QPainter* painter, const QPointF& corner, const QList<QGlyphRun>& runs, const QRect& pixels)
{
    if (!paintsPlainly(*painter))
        return false;
    const std::optional<Surface> surface = Surface::of(*painter);
    if (!surface)
        return false;
    const QPoint pixel(static_cast<int>(std::floor(corner.x())), static_cast<int>(std::floor(corner.y())));
    const std::optional<quint32> beneath = surface->onlyWord(pixels.translated(pixel + surface->offset()));
    if (!beneath)
        return false;
    for (const QGlyphRun& run : runs)
        paintRun(painter, *surface, corner, run,
                 stampsOf({ run.rawFont(), painter->pen().color().rgba64(), *beneath, surface->format() }));
    return true;
}

void forgetStamps()
{
    keptStamps().clear();
}

} // namespace TC::detail
