// SPDX-License-Identifier: MIT
#include "tests/support/InkScene.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/PlainPainting.h"
#include "tests/support/Seeds.h"

#include <QPainterPath>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <sstream>

namespace test {

namespace {

QRect randomRect(Dice& dice, const QSize& size)
{
    return QRect(dice.pick(-10, size.width() - 1), dice.pick(-10, size.height() - 1),
                 dice.pick(1, size.width() + 20), dice.pick(1, size.height() + 20));
}

QPainterPath randomClipPath(Dice& dice, const QSize& size)
{
    QPainterPath path;
    const QRectF rect = randomRect(dice, size);
    switch (dice.pick(0, 4)) {
    case 0: path.addEllipse(rect); break;
    case 1: path.addRoundedRect(rect, 0.4, 0.4); break; // rounds to a rectangle of whole pixels
    case 2: path.addRoundedRect(rect, 9, 9); break;
    case 3: path.addRect(rect.translated(0.5, 0.25)); break;
    default:
        path.moveTo(rect.topLeft());
        path.lineTo(rect.topRight() + QPointF(0.4, 0));
        path.lineTo(rect.bottomRight());
        path.lineTo(rect.bottomLeft());
        path.closeSubpath();
    }
    return path;
}

} // namespace

RandomSurface::RandomSurface(Dice& dice)
    : size(dice.pick(1, 12) == 1 ? QSize(dice.pick(1, 9), dice.pick(1, 9))
                                 : QSize(dice.pick(20, 260), dice.pick(20, 160)))
{
    const auto add = [this](const char* what, std::function<void(QPainter&)> step) {
        name += std::string(" ") + what;
        steps.push_back(std::move(step));
    };
    if (dice.oneIn(3)) {
        static const QImage::Format formats[] = { QImage::Format_RGB32, QImage::Format_ARGB32,
                                                  QImage::Format_RGB16, QImage::Format_RGB888,
                                                  QImage::Format_A2RGB30_Premultiplied };
        format = formats[dice.pick(0, 4)];
        name += " format " + std::to_string(format);
    }
    if (dice.oneIn(6)) {
        static const qreal ratios[] = { 1.25, 1.5, 2.0 };
        pixelRatio = ratios[dice.pick(0, 2)];
        name += " ratio " + std::to_string(pixelRatio);
    }
    if (dice.oneIn(4)) {
        const QPoint by(dice.pick(-20, 20), dice.pick(-20, 20));
        add("moved", [by](QPainter& p) { p.translate(by); });
    }
    if (dice.oneIn(10)) {
        const QPointF by(dice.real(-3, 3), dice.real(-3, 3));
        add("moved by a fraction", [by](QPainter& p) { p.translate(by); });
    }
    if (dice.oneIn(12)) {
        const QPointF by(dice.real(0.3, 3), dice.real(-3, 3));
        add("scaled", [by](QPainter& p) { p.scale(by.x(), by.y()); });
    }
    if (dice.oneIn(20))
        add("rotated", [](QPainter& p) { p.rotate(10); });
    if (dice.oneIn(12))
        add("antialiased", [](QPainter& p) { p.setRenderHint(QPainter::Antialiasing); });
    if (dice.oneIn(20))
        add("half opaque", [](QPainter& p) { p.setOpacity(0.5); });
    if (dice.oneIn(20)) {
        const auto mode = static_cast<QPainter::CompositionMode>(dice.pick(0, 23));
        add("composed", [mode](QPainter& p) { p.setCompositionMode(mode); });
    }
    if (dice.oneIn(12))
        add("brush", [](QPainter& p) { p.setBrush(QColor(10, 80, 120)); });
    const QRect clip = randomRect(dice, size);
    const QPainterPath path = randomClipPath(dice, size);
    switch (dice.pick(0, 15)) {
    case 0:
    case 1:
    case 2: add("clip rect", [clip](QPainter& p) { p.setClipRect(clip); }); break;
    case 3:
        add("clip region", [clip](QPainter& p) { p.setClipRegion(QRegion(clip, QRegion::Ellipse)); });
        break;
    case 4: add("clip path", [path](QPainter& p) { p.setClipPath(path); }); break;
    case 5:
    case 6:
        add("antialiased clip path", [path](QPainter& p) {
            const bool was = p.testRenderHint(QPainter::Antialiasing);
            p.setRenderHint(QPainter::Antialiasing);
            p.setClipPath(path);
            p.setRenderHint(QPainter::Antialiasing, was);
        });
        break;
    case 7:
        add("antialiased clip path and rect", [path, clip](QPainter& p) {
            const bool was = p.testRenderHint(QPainter::Antialiasing);
            p.setRenderHint(QPainter::Antialiasing);
            p.setClipPath(path);
            p.setClipRect(clip, Qt::IntersectClip);
            p.setRenderHint(QPainter::Antialiasing, was);
        });
        break;
    case 8:
        add("clip switched off", [path](QPainter& p) {
            p.setClipPath(path);
            p.setClipping(false);
        });
        break;
    case 9:
        add("clip of fractions", [clip](QPainter& p) { p.setClipRect(QRectF(clip).translated(0.5, 0.3)); });
        break;
    default: break;
    }
}

QImage RandomSurface::image() const
{
    QImage image(size * pixelRatio, format);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(QColor(20, 30, 40));
    return image;
}

void RandomSurface::prepare(QPainter& painter) const
{
    for (const auto& step : steps)
        step(painter);
}

std::vector<double> randomSeries(Dice& dice, int count)
{
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(count));
    const int kind = dice.pick(0, 8);
    const double step = dice.oneIn(2) ? dice.real(0.01, 1.0) : dice.real(1.0, 30.0);
    double level = 50.0;
    for (int i = 0; i < count; ++i) {
        level += dice.real(-step, step);
        switch (kind) {
        case 0:
        case 1: values.push_back(level); break;
        case 2: values.push_back(std::fabs(level - 50.0)); break;
        case 3: values.push_back(dice.real(0.0, 100.0)); break;
        case 4: values.push_back(std::floor(level / 10.0) * 10.0); break; // long levels
        case 5: values.push_back(dice.oneIn(50) ? dice.real(-2000.0, 2000.0) : 50.0); break;
        case 6: values.push_back(level * 40.0 - 2000.0); break; // mostly outside
        case 7: values.push_back(dice.oneIn(9) ? (dice.oneIn(2) ? NAN : DBL_MAX) : level); break;
        default: {
            static const double odd[] = {
                INT_MAX, INT_MAX + 0.5, INT_MIN, 1e15, -1e15, INFINITY, DBL_MAX, 0.0
            };
            values.push_back(dice.oneIn(20) ? odd[dice.pick(0, 7)] : level);
        }
        }
    }
    return values;
}

std::vector<int> randomFlags(Dice& dice, int count)
{
    std::vector<int> flags(static_cast<std::size_t>(count), 1);
    if (dice.oneIn(3)) {
        const int rarity = dice.pick(2, 200);
        for (int& flag : flags)
            flag = dice.oneIn(rarity) ? 0 : dice.pick(1, 3);
    }
    return flags;
}

int randomBarCount(Dice& dice)
{
    if (dice.oneIn(60))
        return 200'000;
    return static_cast<int>(std::exp(dice.real(std::log(2.0), std::log(9000.0))));
}

void expectPlainPixels(const char* suite, unsigned count,
                       const std::function<InkCall(Dice&, const QSize&)>& make)
{
    for (const unsigned seed : seedsFor(suite, count)) {
        Dice dice(seed);
        const RandomSurface surface(dice);
        TC::embedded::setClientType(dice.oneIn(8) ? 3 : 1);
        const int alpha = dice.oneIn(10) ? 120 : 255;
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_rise"), QColor(255, 40, 30, alpha));
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_fall"), QColor(30, 220, 90, alpha));
        const InkCall paint = make(dice, surface.size);

        QImage inked = surface.image(), plain = surface.image();
        {
            QPainter painter(&inked);
            surface.prepare(painter);
            paint(painter);
        }
        {
            QPainter painter(&plain);
            surface.prepare(painter);
            paintPlainly(painter, paint);
        }
        EXPECT_EQ(difference(inked, plain), "") << "seed " << seed << ":" << surface.name;
    }
}

std::string difference(const QImage& a, const QImage& b)
{
    if (a == b)
        return {};
    std::ostringstream text;
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y) && count++ == 0)
                text << "first at " << x << "," << y << " " << std::hex << a.pixel(x, y) << " instead of "
                     << b.pixel(x, y) << std::dec;
        }
    }
    text << ", " << count << " pixels in all";
    return text.str();
}

} // namespace test
