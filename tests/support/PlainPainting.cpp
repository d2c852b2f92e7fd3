// SPDX-License-Identifier: MIT
#include "tests/support/PlainPainting.h"

#include <QPaintDevice>
#include <QPaintEngine>

namespace test {

namespace {

/// Hands primitives on as the calls that they came from.
class ForwardingEngine : public QPaintEngine
{
public:
    explicit ForwardingEngine(QPainter& target)
        : QPaintEngine(QPaintEngine::AllFeatures)
        , m_target(target)
    {
    }

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& changed) override
    {
        if (changed.state() & DirtyPen)
            m_pen = changed.pen();
        if (changed.state() & DirtyBrush)
            m_brush = changed.brush();
        if (changed.state() & DirtyFont)
            m_target.setFont(changed.font());
    }

    void drawLines(const QLine* lines, int count) override
    {
        usePens();
        m_target.drawLines(lines, count);
    }
    void drawPoints(const QPoint* points, int count) override
    {
        usePens();
        m_target.drawPoints(points, count);
    }
    void drawRects(const QRect* rects, int count) override
    {
        for (int i = 0; i < count; ++i)
            drawRect(rects[i]);
    }
    void drawRects(const QRectF* rects, int count) override
    {
        for (int i = 0; i < count; ++i)
            drawRect(rects[i].toRect());
    }
    void drawEllipse(const QRect& rect) override
    {
        usePens();
        m_target.drawEllipse(rect);
    }
    void drawEllipse(const QRectF& rect) override { drawEllipse(rect.toRect()); }
    void drawPath(const QPainterPath& path) override
    {
        if (m_pen.style() == Qt::NoPen)
            m_target.fillPath(path, m_brush);
        else
            m_target.strokePath(path, m_pen);
    }
    void drawTextItem(const QPointF& point, const QTextItem& item) override
    {
        m_target.setPen(m_pen);
        m_target.drawText(point, item.text());
    }
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override { qFatal("no painter draws polygons"); }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override
    {
        qFatal("no painter draws pictures");
    }

private:
    void usePens()
    {
        m_target.setPen(m_pen);
        m_target.setBrush(m_brush);
    }
    void drawRect(const QRect& rect)
    {
        if (m_pen.style() == Qt::NoPen) {
            m_target.fillRect(rect, m_brush.color());
        } else {
            usePens();
            m_target.drawRect(rect);
        }
    }

    QPainter& m_target;
    QPen m_pen;
    QBrush m_brush;
};

class ForwardingDevice : public QPaintDevice
{
public:
    explicit ForwardingDevice(QPainter& target)
        : m_engine(target)
    {
    }
    QPaintEngine* paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmHeight: return 4000;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY: return 96;
        case PdmDevicePixelRatioScaled: return static_cast<int>(devicePixelRatioFScale());
        default: return 1;
        }
    }

private:
    mutable ForwardingEngine m_engine;
};

} // namespace

void paintPlainly(QPainter& target, const std::function<void(QPainter&)>& paint)
{
    ForwardingDevice device(target);
    QPainter painter(&device);
    painter.setFont(target.font());
    painter.setBrush(target.brush());
    paint(painter);
}

} // namespace test
