// SPDX-License-Identifier: MIT
#pragma once
/// @file Where ink may take a shorter way to the same pixels.
///
/// The plain primitives are the painters. On the raster engine some of their pixels can be left out, or
/// stored straight into the image, without a difference; the questions that decide it are answered here.
/// Every other engine gets every primitive in its order.

#include <QImage>
#include <QPainter>
#include <QPen>
#include <QRegion>

#include <optional>

namespace TC::detail {

/// Whether the painter paints on the raster engine.
bool isRaster(const QPainter& painter);

/// Whether paint of a colour lets nothing shine through.
inline bool isOpaque(const QColor& color)
{
    return color.rgba64().isOpaque();
}

/// Whether a pen of one pixel covers every pixel of its line.
inline bool coversWhole(const QPen& pen)
{
    return pen.style() == Qt::SolidLine && pen.widthF() == 1.0 && isOpaque(pen.color());
}

/// Whether edges are smoothed, by either of the hints that ask for it.
bool isAntialiased(const QPainter& painter);

/// Whether the painter's coordinates are pixels of its device, moved by whole pixels at most.
bool isOnWholePixels(const QPainter& painter);

/// Pixels of the device that the painter's clip lets through, by a clip that covers each pixel wholly or not
/// at all. Empty when a pixel may be covered in part: such pixels show how often they were painted.
/// Asks for isOnWholePixels; looks at the painter through other transforms and puts its own back.
std::optional<QRegion> wholePixelClip(QPainter& painter);

/// Whether opaque lines of width 1 and opaque rectangles replace the pixels under them, so that what later
/// ink covers can be left out: raster engine, whole pixels, no smoothing, no blending.
bool hidesBeneath(QPainter& painter);

/// Pixels of a raster image, behind a rectangular clip, that opaque ink is stored into.
class Surface
{
public:
    /// The pixels behind a painter; empty where storing could differ from painting, or where the format of
    /// the image is not one of 32 bits without a separate alpha.
    static std::optional<Surface> of(QPainter& painter);

    /// The word that opaque paint of a colour leaves in a pixel.
    static quint32 word(const QColor& color) { return color.rgba64().toArgb32(); }

    /// Stores one word into a rectangle of painter coordinates, all edges inclusive, cut to the clip.
    void fill(int left, int top, int right, int bottom, quint32 word) const;

    /// Whether a rectangle of painter coordinates, all edges inclusive, lies wholly inside the clip.
    bool isOpen(int left, int top, int right, int bottom) const
    {
        return left >= m_open.left() && top >= m_open.top() && right <= m_open.right()
            && bottom <= m_open.bottom();
    }
    /// Stores a word into a pixel that lies inside the clip, painter coordinates.
    void set(int x, int y, quint32 word) const { *pixelsAt(x + m_offset.x(), y + m_offset.y()) = word; }

    /// Stores the same words, one per column from `left` on, into every row from `top` to `bottom`.
    void fillRows(int left, int top, int bottom, const quint32* words, int count) const;

    /// Stores one pixel for each place on a line's longer axis, device coordinates: the rows from `first` on
    /// where the line is steep, else the columns.
    /// @param end  exclusive.
    /// @param across  of the first pixel on the other axis, in 1/65536 of a pixel; `slope` is its change.
    /// @return false, and nothing stored, where one of them lies outside the clip.
    bool storeSlope(int first, int end, int across, int slope, bool isSteep, quint32 word) const;

    /// The word that every pixel of a rectangle of device coordinates holds; empty where they differ or one
    /// lies outside the clip.
    std::optional<quint32> onlyWord(const QRect& place) const;

    static constexpr int kWordsAtOnce = 4; ///< that `replace` compares

    /// Stores the words of a rectangle of device coordinates, row by row, that differ from `beneath`.
    /// @param place  a multiple of kWordsAtOnce wide.
    /// @return false, and nothing stored, where a pixel to be changed holds another word than `beneath` or
    ///         the rectangle leaves the clip.
    bool replace(const QRect& place, const quint32* words, quint32 beneath) const;

    /// Whether a rectangle of painter coordinates, all edges inclusive, lies wholly on the device.
    bool holds(int left, int top, int right, int bottom) const;

    /// Whether it lies there or no more than one pixel beside, where the engine does not cut lines yet.
    bool nearlyHolds(int left, int top, int right, int bottom) const;

    /// From painter to device coordinates, pixels.
    QPoint offset() const { return m_offset; }
    /// Size of the device in pixels; lines are cut by it, not by the clip.
    QSize deviceSize() const { return m_size; }
    QImage::Format format() const { return m_format; }

private:
    /// The part of a rectangle of painter coordinates inside the clip, in device coordinates.
    struct Area
    {
        int x1, y1, x2, y2; ///< inclusive; nothing where one runs backward
    };
    Area cut(int left, int top, int right, int bottom) const;
    quint32* pixelsAt(int x, int y) const { return reinterpret_cast<quint32*>(m_bits + y * m_stride) + x; }

    uchar* m_bits = nullptr;
    qsizetype m_stride = 0; ///< bytes
    QImage::Format m_format = QImage::Format_Invalid;
    QSize m_size;
    QRect m_clip; ///< device coordinates, inside the image
    QPoint m_offset;
    QRect m_open; ///< the clip in painter coordinates
};

} // namespace TC::detail
