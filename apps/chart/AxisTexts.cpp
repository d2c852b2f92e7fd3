// SPDX-License-Identifier: MIT
#include "apps/chart/AxisTexts.h"

#include "draw/CDrawStyle.h"

#include <QFontMetrics>
#include <QPaintEngine>
#include <QPainter>

namespace chart {

class AxisTexts::Engine : public QPaintEngine
{
public:
    Engine(QPainter* painter, const ValueAxis& axis, int decimals)
        : QPaintEngine(AllFeatures)
        , m_painter(painter)
        , m_axis(axis)
        , m_decimals(decimals)
        , m_base(painter->transform())
    {
    }

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& now) override
    {
        const DirtyFlags dirty = now.state();
        if (dirty & DirtyPen)
            m_painter->setPen(now.pen());
        if (dirty & DirtyBrush)
            m_painter->setBrush(now.brush());
        if (dirty & DirtyTransform)
            m_painter->setTransform(now.transform() * m_base);
        if (dirty & DirtyHints)
            m_painter->setRenderHints(now.renderHints());
    }

    void drawLines(const QLine* lines, int count) override
    {
        m_painter->drawLines(lines, count);
        noteLeader(count > 0 ? QLineF(lines[count - 1]) : QLineF());
    }
    void drawLines(const QLineF* lines, int count) override
    {
        m_painter->drawLines(lines, count);
        noteLeader(count > 0 ? lines[count - 1] : QLineF());
    }
    void drawRects(const QRect* rects, int count) override { m_painter->drawRects(rects, count); }
    void drawRects(const QRectF* rects, int count) override { m_painter->drawRects(rects, count); }
    void drawPoints(const QPoint* points, int count) override { m_painter->drawPoints(points, count); }
    void drawPoints(const QPointF* points, int count) override { m_painter->drawPoints(points, count); }
    void drawPath(const QPainterPath& path) override { m_painter->drawPath(path); }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override
    {
        if (mode == PolylineMode)
            m_painter->drawPolyline(points, count);
        else
            m_painter->drawPolygon(points, count);
    }
    void drawPixmap(const QRectF& to, const QPixmap& pixmap, const QRectF& from) override
    {
        m_painter->drawPixmap(to, pixmap, from);
    }

    /// A label keeps the end at which its leader stands.
    void drawTextItem(const QPointF& place, const QTextItem& item) override
    {
        bool isNumber = false;
        const double number = item.text().toDouble(&isNumber);
        const QString text =
            isNumber ? TC::CDrawStyle::toStringByPrec(m_decimals, m_axis.valueAt(number), 0.0) : item.text();
        m_painter->setFont(item.font());
        const bool isLeftOfLeader = place.x() < m_leader;
        const double width = QFontMetricsF(item.font()).horizontalAdvance(text);
        m_painter->drawText(isLeftOfLeader ? place + QPointF(item.width() - width, 0.0) : place, text);
    }

private:
    void noteLeader(const QLineF& line) { m_leader = std::min(line.x1(), line.x2()); }

    QPainter* m_painter;
    ValueAxis m_axis;
    int m_decimals;
    QTransform m_base;
    double m_leader = 0.0; ///< left end of the last line
};

AxisTexts::AxisTexts(QPainter* painter, const ValueAxis& axis, int decimals)
    : m_painter(painter)
    , m_engine(std::make_unique<Engine>(painter, axis, decimals))
{
}

AxisTexts::~AxisTexts() = default;

QPaintEngine* AxisTexts::paintEngine() const
{
    return m_engine.get();
}

int AxisTexts::metric(PaintDeviceMetric metric) const
{
    QPaintDevice* real = m_painter->device();
    switch (metric) {
    case PdmDevicePixelRatio: return 1; // the painter scales
    case PdmDevicePixelRatioScaled: return static_cast<int>(QPaintDevice::devicePixelRatioFScale());
    case PdmWidth: return real->width();
    case PdmHeight: return real->height();
    case PdmDpiX: return real->logicalDpiX();
    case PdmDpiY: return real->logicalDpiY();
    case PdmPhysicalDpiX: return real->physicalDpiX();
    case PdmPhysicalDpiY: return real->physicalDpiY();
    default: return QPaintDevice::metric(metric);
    }
}

} // namespace chart
