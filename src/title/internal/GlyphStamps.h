// SPDX-License-Identifier: MIT
#pragma once
/// @file Glyphs as pixels on a background of one colour, which they take wherever they stand on it.

#include "draw/internal/ink/Surface.h"

#include <QColor>
#include <QGlyphRun>
#include <QPointF>
#include <QRawFont>
#include <QRect>

#include <optional>
#include <unordered_map>
#include <vector>

class QPainter;

namespace TC::detail {

/// What the pixels of a glyph depend on besides its place.
struct GlyphPaint
{
    QRawFont font;
    QRgba64 color;
    quint32 beneath;       ///< word of the background's pixels
    QImage::Format format; ///< of the image

    bool operator==(const GlyphPaint& other) const
    {
        return color == other.color && beneath == other.beneath && format == other.format
            && font == other.font;
    }
};

/// Glyphs of one font in one colour on one background, learnt one by one from the engine's own.
class GlyphStamps
{
public:
    explicit GlyphStamps(const GlyphPaint& paint)
        : m_paint(paint)
    {
    }

    bool isOf(const GlyphPaint& paint) const { return m_paint == paint; }

    /// Stores a glyph.
    /// @param origin  device coordinates in 1/64 of a pixel, not negative.
    /// @return false, and nothing stored, where other ink lies beneath, or the clip or the device ends.
    bool store(const Surface& surface, quint32 glyph, const QPoint& origin);

private:
    struct Stamp
    {
        QRect place;                ///< from the whole pixel of the glyph's origin; empty: no ink
        std::vector<quint32> words; ///< row by row
        bool isKnown = false;
    };

    /// @param quarter  of a pixel along the row, 0 to 3; `down`: in 1/64 of a pixel.
    Stamp learn(quint32 glyph, int quarter, int down) const;
    std::vector<quint32> painted(const QGlyphRun& run, const QRect& place, const QPoint& fraction) const;

    GlyphPaint m_paint;
    std::unordered_map<quint64, Stamp> m_stamps; ///< by glyph and fractions of a pixel
};

/// Paints glyphs on a background of one colour by their known pixels; the painter paints those that touch
/// one another.
/// @param corner  that the runs' positions count from, painter coordinates.
/// @param pixels  that paintedPixels finds.
/// @return false, and nothing painted, where the pixels could differ from those of QPainter::drawGlyphRun.
bool paintStamps(QPainter* painter, const QPointF& corner, const QList<QGlyphRun>& runs, const QRect& pixels);

/// Drops all that was learnt.
void forgetStamps();

} // namespace TC::detail
