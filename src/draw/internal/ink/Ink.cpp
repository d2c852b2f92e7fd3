// SPDX-License-Identifier: MIT
#include "draw/internal/ink/Ink.h"

#include <algorithm>

namespace TC::detail {

Ink::Ink(QPainter* painter)
    : m_painter(painter)
    , m_surface(Surface::of(*painter))
    , m_isHollow(painter->brush().style() == Qt::NoBrush)
{
    if (m_surface)
        m_runs.emplace(*m_surface);
}

Ink::~Ink()
{
    if (m_runs)
        m_runs->store();
    if (m_isPenChosen && !m_isPenSent)
        m_painter->setPen(pen());
}

void Ink::setPen(const QPen& pen)
{
    m_color = pen.color();
    m_pen = pen;
    m_isPenChosen = true;
    m_isPenSent = false;
    m_isThin = coversWhole(pen);
    m_word = Surface::word(m_color);
}

void Ink::setPen(const QColor& color)
{
    m_color = color;
    m_pen.reset();
    m_isPenChosen = true;
    m_isPenSent = false;
    const QRgba64 paint = color.rgba64();
    m_isThin = paint.isOpaque();
    m_word = paint.toArgb32();
}

const QPen& Ink::pen()
{
    if (!m_pen)
        m_pen = QPen(m_color);
    return *m_pen;
}

QPainter* Ink::painter()
{
    if (m_runs)
        m_runs->store();
    if (!m_clip)
        m_clip.emplace(m_painter);
    if (m_isPenChosen && !m_isPenSent)
        m_painter->setPen(pen());
    m_isPenSent = true;
    return m_painter;
}

const Surface& Ink::surface()
{
    m_runs->store();
    return *m_surface;
}

void Ink::upright(int x, int row1, int row2)
{
    if (isStored())
        m_runs->add(x, std::min(row1, row2), std::max(row1, row2), m_word);
    else if (row1 == row2)
        // Qt gives a line without length a cap at either end, several device pixels wide where a pixel is
        // more than one of them.
        painter()->drawPoint(x, row1);
    else
        painter()->drawLine(x, row1, x, row2);
}

void Ink::level(int row, int x1, int x2)
{
    if (isStored())
        surface().fill(std::min(x1, x2), row, std::max(x1, x2), row, m_word);
    else
        painter()->drawLine(x1, row, x2, row);
}

void Ink::point(int x, int row)
{
    if (isStored())
        surface().fill(x, row, x, row, m_word);
    else
        painter()->drawPoint(x, row);
}

bool Ink::isRun(const QRect& rect) const
{
    return isStored() && m_isHollow && rect.width() == 0 && rect.height() > 0
        && m_surface->holds(rect.x(), rect.y(), rect.x(), rect.y() + rect.height());
}

void Ink::outline(const QRect& rect)
{
    const int left = std::min(rect.x(), rect.x() + rect.width());
    const int right = std::max(rect.x(), rect.x() + rect.width());
    const int top = std::min(rect.y(), rect.y() + rect.height());
    const int bottom = std::max(rect.y(), rect.y() + rect.height());
    // Where an outline is cut by the device's edge, the engine loses track of its corners.
    if (!isStored() || !m_isHollow || !m_surface->nearlyHolds(left, top, right, bottom)) {
        painter()->drawRect(rect);
        return;
    }
    if (left == right && top == bottom)
        return; // Qt draws no outline around nothing
    if (left == right) {
        m_runs->add(left, top, bottom, m_word);
        return;
    }
    const Surface& pixels = surface();
    pixels.fill(left, top, right, top, m_word);
    pixels.fill(left, bottom, right, bottom, m_word);
    pixels.fill(left, top, left, bottom, m_word);
    pixels.fill(right, top, right, bottom, m_word);
}

void Ink::ellipse(const QRect& rect)
{
    if (isEllipseStored()) {
        if (!m_stamp || !m_stamp->isOf(rect.size()))
            m_stamp.emplace(rect.size(), pen());
        if (m_stamp->fits(*m_surface, rect.topLeft())) {
            m_stamp->store(surface(), rect.topLeft(), m_word);
            return;
        }
    }
    painter()->drawEllipse(rect);
}

void Ink::fill(const QRect& rect, const QColor& color)
{
    const QRgba64 paint = color.rgba64();
    if (!m_surface || !paint.isOpaque()) {
        painter()->fillRect(rect, color);
        return;
    }
    const int x1 = std::min(rect.x(), rect.x() + rect.width());
    const int x2 = std::max(rect.x(), rect.x() + rect.width()) - 1;
    const int y1 = std::min(rect.y(), rect.y() + rect.height());
    const int y2 = std::max(rect.y(), rect.y() + rect.height()) - 1;
    if (x1 == x2 && y1 <= y2)
        m_runs->add(x1, y1, y2, paint.toArgb32());
    else if (x1 <= x2 && y1 <= y2)
        surface().fill(x1, y1, x2, y2, paint.toArgb32());
}

} // namespace TC::detail
