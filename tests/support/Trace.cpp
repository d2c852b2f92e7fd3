// SPDX-License-Identifier: MIT
#include "tests/support/Trace.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainterPath>

namespace test {

namespace {

QString number(double value)
{
    return QString::number(value, 'g', 10);
}

QString point(const QPointF& p)
{
    return number(p.x()) + QLatin1Char(',') + number(p.y());
}

QString box(const QRectF& r)
{
    return point(r.topLeft()) + QLatin1Char(' ') + number(r.width()) + QLatin1Char('x') + number(r.height());
}

QString colorText(const QColor& color)
{
    return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
}

QString brushText(const QBrush& brush)
{
    if (brush.style() == Qt::NoBrush)
        return QStringLiteral("none");
    if (brush.style() != Qt::LinearGradientPattern)
        return colorText(brush.color());
    const auto* gradient = static_cast<const QLinearGradient*>(brush.gradient());
    QString text = QStringLiteral("linear(%1 %2").arg(point(gradient->start()), point(gradient->finalStop()));
    for (const QGradientStop& stop : gradient->stops())
        text += QStringLiteral(" %1:%2").arg(number(stop.first), colorText(stop.second));
    return text + QLatin1Char(')');
}

/// Records every primitive; claims every feature, so that QPainter emulates nothing.
class RecordingEngine : public QPaintEngine
{
public:
    explicit RecordingEngine(QStringList& lines)
        : QPaintEngine(AllFeatures)
        , m_lines(lines)
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
            m_font = changed.font();
    }

    void drawLines(const QLineF* lines, int count) override
    {
        for (int i = 0; i < count; ++i)
            m_lines << QStringLiteral("line %1 %2 pen=%3")
                           .arg(point(lines[i].p1()), point(lines[i].p2()), penText(m_pen));
    }
    void drawLines(const QLine* lines, int count) override
    {
        for (int i = 0; i < count; ++i) {
            const QLineF line(lines[i]);
            drawLines(&line, 1);
        }
    }

    void drawRects(const QRectF* rects, int count) override
    {
        for (int i = 0; i < count; ++i) {
            if (m_pen.style() == Qt::NoPen)
                m_lines << QStringLiteral("fill %1 %2").arg(box(rects[i]), brushText(m_brush));
            else
                m_lines << QStringLiteral("rect %1 %2").arg(box(rects[i]), outline());
        }
    }
    void drawRects(const QRect* rects, int count) override
    {
        for (int i = 0; i < count; ++i) {
            const QRectF rect(rects[i]);
            drawRects(&rect, 1);
        }
    }

    void drawEllipse(const QRectF& rect) override
    {
        m_lines << QStringLiteral("ellipse %1 %2").arg(box(rect), outline());
    }
    void drawEllipse(const QRect& rect) override { drawEllipse(QRectF(rect)); }

    void drawPath(const QPainterPath& path) override
    {
        QString text = QStringLiteral("path");
        for (int i = 0; i < path.elementCount(); ++i) {
            const QPainterPath::Element element = path.elementAt(i);
            const QString kind = element.isMoveTo() ? QStringLiteral(" M ")
                : element.isLineTo()                ? QStringLiteral(" L ")
                                                    : QStringLiteral(" C ");
            text += kind + point(element);
        }
        m_lines << text + QLatin1Char(' ')
                + (m_brush.style() == Qt::NoBrush ? QStringLiteral("pen=") + penText(m_pen) : outline());
    }

    void drawPoints(const QPointF* points, int count) override
    {
        for (int i = 0; i < count; ++i)
            m_lines << QStringLiteral("point %1 pen=%2").arg(point(points[i]), penText(m_pen));
    }
    void drawPoints(const QPoint* points, int count) override
    {
        for (int i = 0; i < count; ++i) {
            const QPointF p(points[i]);
            drawPoints(&p, 1);
        }
    }

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override
    {
        QString text = mode == PolylineMode ? QStringLiteral("polyline") : QStringLiteral("polygon");
        for (int i = 0; i < count; ++i)
            text += QLatin1Char(' ') + point(points[i]);
        m_lines << text + QLatin1Char(' ') + outline();
    }
    void drawPolygon(const QPoint* points, int count, PolygonDrawMode mode) override
    {
        QVector<QPointF> converted;
        for (int i = 0; i < count; ++i)
            converted << points[i];
        drawPolygon(converted.constData(), count, mode);
    }

    void drawTextItem(const QPointF& position, const QTextItem& item) override
    {
        const QFont font = item.font();
        QString text = QStringLiteral("text %1 \"%2\" %3 %4px")
                           .arg(point(position), item.text(), colorText(m_pen.color()),
                                QString::number(font.pixelSize())); // at once: the text may hold "%1"
        if (font.bold())
            text += QStringLiteral(" bold");
        if (font.underline())
            text += QStringLiteral(" underline");
        m_lines << text;
    }

    void drawPixmap(const QRectF& target, const QPixmap&, const QRectF&) override
    {
        m_lines << QStringLiteral("pixmap %1").arg(box(target));
    }
    void drawImage(const QRectF& target, const QImage&, const QRectF&, Qt::ImageConversionFlags) override
    {
        m_lines << QStringLiteral("image %1").arg(box(target));
    }

private:
    QString outline() const
    {
        return QStringLiteral("pen=%1 brush=%2").arg(penText(m_pen), brushText(m_brush));
    }

    QStringList& m_lines;
    QPen m_pen;
    QBrush m_brush;
    QFont m_font;
};

class RecordingDevice : public QPaintDevice
{
public:
    RecordingDevice(int width, int height, QStringList& lines)
        : m_engine(lines)
        , m_width(width)
        , m_height(height)
    {
    }

    QPaintEngine* paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth: return m_width;
        case PdmHeight: return m_height;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY: return 96;
        case PdmDepth: return 32;
        case PdmDevicePixelRatio: return 1;
        case PdmDevicePixelRatioScaled: return static_cast<int>(devicePixelRatioFScale());
        default: return QPaintDevice::metric(metric);
        }
    }

private:
    mutable RecordingEngine m_engine;
    int m_width, m_height;
};

} // namespace

QString penText(const QPen& pen)
{
    static const char* const styles[] = { "none", "solid", "dash", "dot", "dashdot", "dashdotdot", "custom" };
    const int style = pen.style();
    if (style == Qt::NoPen)
        return QStringLiteral("none");
    const QString name =
        style >= 0 && style < 7 ? QString::fromLatin1(styles[style]) : QString::number(style);
    return QStringLiteral("%1/%2/%3").arg(colorText(pen.color()), number(pen.widthF()), name);
}

QStringList traceOf(const std::function<void(QPainter&)>& paint, int width, int height)
{
    QStringList lines;
    RecordingDevice device(width, height, lines);
    QPainter painter(&device);
    paint(painter);
    painter.end();
    return lines;
}

} // namespace test
