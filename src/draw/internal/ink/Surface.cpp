// SPDX-License-Identifier: MIT
#include "draw/internal/ink/Surface.h"

#include <QPaintEngine>

#include <algorithm>
#include <cmath>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace TC::detail {

namespace {

/// The clip region as it would be with `zoom` coordinates to a pixel.
QRegion zoomedClip(QPainter& painter, int zoom)
{
    const QTransform world = painter.worldTransform();
    const bool isEnabled = painter.worldMatrixEnabled();
    painter.setWorldTransform(QTransform::fromScale(1.0 / zoom, 1.0 / zoom), true);
    QRegion region = painter.clipRegion();
    painter.setWorldTransform(world);
    painter.setWorldMatrixEnabled(isEnabled);
    return region;
}

/// A rounded corner or a slanted edge that rounds to whole pixels is seen under the magnifying glass: the
/// engine counts coverage in 1/256 of a pixel. The weak glass answers for most shapes at a small price.
bool keepsToPixels(QPainter& painter, const QRegion& region)
{
    constexpr int weak = 4, strong = 1024;
    for (const int zoom : { weak, strong }) {
        if (zoomedClip(painter, zoom) != QTransform::fromScale(zoom, zoom).map(region))
            return false;
    }
    return true;
}

/// A hint of older programs that moves lines by half a pixel.
bool roundsAsQt4(const QPainter& painter)
{
    constexpr int qt4Compatible = 0x20;
    return static_cast<int>(painter.renderHints()) & qt4Compatible;
}

bool isBlending(const QPainter& painter)
{
    return painter.compositionMode() != QPainter::CompositionMode_SourceOver || painter.opacity() != 1.0;
}

#ifdef __SSE2__

__m128i loaded(const quint32* words)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(words));
}

/// Not 0 where one of four words that differ from `beneath` would cover a pixel that does as well.
quint32 hiddenInk(const quint32* words, const quint32* pixels, quint32 beneath)
{
    const __m128i empty = _mm_set1_epi32(static_cast<int>(beneath));
    const __m128i isOpen =
        _mm_or_si128(_mm_cmpeq_epi32(loaded(words), empty), _mm_cmpeq_epi32(loaded(pixels), empty));
    return static_cast<quint32>(_mm_movemask_epi8(isOpen)) ^ 0xffffU;
}

/// Stores those of four words that differ from `beneath`.
void replaceWords(const quint32* words, quint32* pixels, quint32 beneath)
{
    const __m128i isEmpty = _mm_cmpeq_epi32(loaded(words), _mm_set1_epi32(static_cast<int>(beneath)));
    const __m128i mixed =
        _mm_or_si128(_mm_and_si128(isEmpty, loaded(pixels)), _mm_andnot_si128(isEmpty, loaded(words)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), mixed);
}

#else

quint32 hiddenInk(const quint32* words, const quint32* pixels, quint32 beneath)
{
    quint32 hidden = 0;
    for (int i = 0; i < Surface::kWordsAtOnce; ++i)
        hidden |= words[i] == beneath ? 0 : pixels[i] ^ beneath;
    return hidden;
}

void replaceWords(const quint32* words, quint32* pixels, quint32 beneath)
{
    for (int i = 0; i < Surface::kWordsAtOnce; ++i)
        pixels[i] = words[i] == beneath ? pixels[i] : words[i];
}

#endif

} // namespace

bool isRaster(const QPainter& painter)
{
    const QPaintEngine* engine = painter.paintEngine();
    return engine && engine->type() == QPaintEngine::Raster;
}

bool isAntialiased(const QPainter& painter)
{
    constexpr int highQuality = 0x08; // a hint of older programs: the engine smooths for it as well
    return static_cast<int>(painter.renderHints()) & (QPainter::Antialiasing | highQuality);
}

bool isOnWholePixels(const QPainter& painter)
{
    constexpr double farthest = 1e6; // pixels; an int holds every place from there
    const QTransform& toDevice = painter.deviceTransform();
    return toDevice.type() <= QTransform::TxTranslate && std::trunc(toDevice.dx()) == toDevice.dx()
        && std::trunc(toDevice.dy()) == toDevice.dy() && std::abs(toDevice.dx()) <= farthest
        && std::abs(toDevice.dy()) <= farthest;
}

std::optional<QRegion> wholePixelClip(QPainter& painter)
{
    constexpr int farthest = 1'000'000; // pixels; magnified, an int still holds it
    const QTransform toDevice = painter.deviceTransform();
    const QPoint offset(static_cast<int>(toDevice.dx()), static_cast<int>(toDevice.dy()));
    const QPaintDevice* device = painter.paintEngine()->paintDevice();
    QRegion visible(0, 0, device->width(), device->height());
    const QRegion exposed = painter.paintEngine()->systemClip();
    if (!exposed.isEmpty())
        visible &= exposed;
    if (!painter.hasClipping())
        return visible;
    if (!painter.worldMatrixEnabled() && !painter.worldTransform().isIdentity())
        return std::nullopt; // the glass would switch it on
    const QRectF bounds = painter.clipBoundingRect();
    if (!QRectF(-farthest, -farthest, 2.0 * farthest, 2.0 * farthest).contains(bounds)
        || QRectF(bounds.toRect()) != bounds)
        return std::nullopt; // too far away for an int, or rounded by the engine in its own way
    const QRegion region = painter.clipRegion();
    if (!keepsToPixels(painter, region))
        return std::nullopt;
    return visible & region.translated(offset);
}

bool hidesBeneath(QPainter& painter)
{
    return isRaster(painter) && isOnWholePixels(painter) && !isAntialiased(painter) && !isBlending(painter)
        && wholePixelClip(painter);
}

std::optional<Surface> Surface::of(QPainter& painter)
{
    constexpr int largest = 30'000; // pixels a side; beyond, the engine's own fixed point overflows
    if (!isRaster(painter) || painter.paintEngine()->paintDevice()->devType() != QInternal::Image)
        return std::nullopt;
    const auto* image = static_cast<const QImage*>(painter.paintEngine()->paintDevice());
    if ((image->format() != QImage::Format_ARGB32_Premultiplied && image->format() != QImage::Format_RGB32)
        || image->width() > largest || image->height() > largest)
        return std::nullopt;
    if (!isOnWholePixels(painter) || isAntialiased(painter) || isBlending(painter) || roundsAsQt4(painter))
        return std::nullopt;
    const std::optional<QRegion> clip = wholePixelClip(painter);
    if (!clip || clip->rectCount() > 1)
        return std::nullopt;

    Surface surface;
    // The engine paints into these very bytes: an image that is being painted on has an owner only.
    surface.m_bits = const_cast<uchar*>(image->constBits());
    surface.m_stride = image->bytesPerLine();
    surface.m_format = image->format();
    surface.m_size = image->size();
    surface.m_clip = clip->boundingRect();
    const QTransform toDevice = painter.deviceTransform();
    surface.m_offset = QPoint(static_cast<int>(toDevice.dx()), static_cast<int>(toDevice.dy()));
    surface.m_open = surface.m_clip.translated(-surface.m_offset);
    return surface;
}

bool Surface::holds(int left, int top, int right, int bottom) const
{
    return left >= -m_offset.x() && top >= -m_offset.y() && right < m_size.width() - m_offset.x()
        && bottom < m_size.height() - m_offset.y();
}

bool Surface::nearlyHolds(int left, int top, int right, int bottom) const
{
    return left >= -m_offset.x() - 1 && top >= -m_offset.y() - 1 && right <= m_size.width() - m_offset.x()
        && bottom <= m_size.height() - m_offset.y();
}

Surface::Area Surface::cut(int left, int top, int right, int bottom) const
{
    if (isOpen(left, top, right, bottom))
        return { left + m_offset.x(), top + m_offset.y(), right + m_offset.x(), bottom + m_offset.y() };
    const auto bounded = [](int value, int move, int lowest, int highest) {
        return static_cast<int>(std::clamp<long long>(static_cast<long long>(value) + move, lowest, highest));
    };
    // One pixel past each edge, so that what lies outside stays empty.
    return { bounded(left, m_offset.x(), m_clip.left(), m_clip.right() + 1),
             bounded(top, m_offset.y(), m_clip.top(), m_clip.bottom() + 1),
             bounded(right, m_offset.x(), m_clip.left() - 1, m_clip.right()),
             bounded(bottom, m_offset.y(), m_clip.top() - 1, m_clip.bottom()) };
}

void Surface::fill(int left, int top, int right, int bottom, quint32 word) const
{
    const Area area = cut(left, top, right, bottom);
    if (area.x1 > area.x2)
        return;
    uchar* row = m_bits + area.y1 * m_stride;
    if (area.x1 == area.x2) {
        for (int y = area.y1; y <= area.y2; ++y, row += m_stride)
            reinterpret_cast<quint32*>(row)[area.x1] = word;
        return;
    }
    for (int y = area.y1; y <= area.y2; ++y, row += m_stride) {
        auto* pixels = reinterpret_cast<quint32*>(row);
        std::fill(pixels + area.x1, pixels + area.x2 + 1, word);
    }
}

void Surface::fillRows(int left, int top, int bottom, const quint32* words, int count) const
{
    const Area area = cut(left, top, left + count - 1, bottom);
    if (area.x1 > area.x2)
        return;
    const quint32* first = words + (area.x1 - left - m_offset.x());
    uchar* row = m_bits + area.y1 * m_stride;
    for (int y = area.y1; y <= area.y2; ++y, row += m_stride)
        std::copy_n(first, area.x2 - area.x1 + 1, reinterpret_cast<quint32*>(row) + area.x1);
}

std::optional<quint32> Surface::onlyWord(const QRect& place) const
{
    if (place.isEmpty() || !m_clip.contains(place))
        return std::nullopt;
    const quint32 word = *pixelsAt(place.left(), place.top());
    for (int y = place.top(); y <= place.bottom(); ++y) {
        const quint32* pixels = pixelsAt(place.left(), y);
        quint32 other = 0;
        for (int i = 0; i < place.width(); ++i)
            other |= pixels[i] ^ word;
        if (other != 0)
            return std::nullopt;
    }
    return word;
}

bool Surface::replace(const QRect& place, const quint32* words, quint32 beneath) const
{
    if (place.isEmpty() || !m_clip.contains(place))
        return false;
    const int fours = place.width() / kWordsAtOnce;
    quint32 hidden = 0;
    const quint32* word = words;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        const quint32* pixel = pixelsAt(place.left(), y);
        for (int i = 0; i < fours; ++i, word += kWordsAtOnce, pixel += kWordsAtOnce)
            hidden |= hiddenInk(word, pixel, beneath);
    }
    if (hidden != 0)
        return false;
    word = words;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        quint32* pixel = pixelsAt(place.left(), y);
        for (int i = 0; i < fours; ++i, word += kWordsAtOnce, pixel += kWordsAtOnce)
            replaceWords(word, pixel, beneath);
    }
    return true;
}

bool Surface::storeSlope(int first, int end, int across, int slope, bool isSteep, quint32 word) const
{
    const int last = across + (end - 1 - first) * slope;
    const QPoint low(first, std::min(across, last) >> 16), high(end - 1, std::max(across, last) >> 16);
    if (!m_clip.contains(isSteep ? low.transposed() : low)
        || !m_clip.contains(isSteep ? high.transposed() : high))
        return false;
    for (int place = first; place < end; ++place, across += slope) {
        const int other = across >> 16;
        uchar* row = m_bits + (isSteep ? place : other) * m_stride;
        reinterpret_cast<quint32*>(row)[isSteep ? other : place] = word;
    }
    return true;
}

} // namespace TC::detail
