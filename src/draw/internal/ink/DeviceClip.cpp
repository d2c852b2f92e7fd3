// SPDX-License-Identifier: MIT
#include "draw/internal/ink/DeviceClip.h"

#include "draw/internal/ink/Surface.h"

#include <QPaintEngine>

#include <cmath>

namespace TC::detail {

DeviceClip::DeviceClip(QPainter* painter)
{
    if (!isRaster(*painter) || painter->hasClipping())
        return;
    const QTransform toDevice = painter->deviceTransform();
    if (toDevice.type() > QTransform::TxScale)
        return; // a turned rectangle would be a clip path
    if (std::abs(toDevice.m11()) < 1.0 || std::abs(toDevice.m22()) < 1.0)
        return; // pens thinner than a pixel blend, and round in another way under a clip
    const QPaintDevice* device = painter->paintEngine()->paintDevice();
    const QRectF whole = toDevice.inverted().mapRect(QRectF(0, 0, device->width(), device->height()));
    constexpr double farthest = 1e8;
    if (!QRectF(-farthest, -farthest, 2 * farthest, 2 * farthest).contains(whole))
        return;
    m_painter = painter;
    painter->save();
    painter->setClipRect(whole.toAlignedRect().adjusted(-1, -1, 1, 1));
}

DeviceClip::~DeviceClip()
{
    if (!m_painter)
        return;
    const QPen pen = m_painter->pen();
    const QBrush brush = m_painter->brush();
    const QFont font = m_painter->font();
    m_painter->restore();
    if (m_painter->pen() != pen)
        m_painter->setPen(pen);
    if (m_painter->brush() != brush)
        m_painter->setBrush(brush);
    if (m_painter->font() != font)
        m_painter->setFont(font);
}

} // namespace TC::detail
