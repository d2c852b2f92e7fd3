// SPDX-License-Identifier: MIT
#include "apps/chart/PictureBytes.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace chart {

namespace {

/// Paints on a device. @return whether the device took it.
bool paintOn(QPaintDevice& device, const PaintPicture& paint)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    paint(painter);
    return painter.end();
}

/// Each of these answers no bytes when the picture cannot be made.
QByteArray asPng(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return !image.isNull() && image.save(&buffer, "PNG") ? bytes : QByteArray();
}

constexpr int kDotsPerInch = 96; // so large is a pixel on paper

QByteArray asSvg(const QSize& size, const PaintPicture& paint)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(kDotsPerInch);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    generator.setTitle(QStringLiteral("Indicator chart"));
    return paintOn(generator, paint) ? bytes : QByteArray();
}

QByteArray asPdf(const QSize& size, const PaintPicture& paint)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kDotsPerInch);
    writer.setPageSize(
        QPageSize(QSizeF(size) * 72.0 / kDotsPerInch, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    return paintOn(writer, paint) ? bytes : QByteArray();
}

} // namespace

QImage pictureImage(const QSize& size, double dpr, const PaintPicture& paint)
{
    QImage image(size * dpr, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::transparent);
    return paintOn(image, paint) ? image : QImage();
}

QByteArray pictureBytes(const QString& suffix, const QSize& size, double dpr, const PaintPicture& paint)
{
    const QString form = suffix.toLower();
    return form == QLatin1String("svg") ? asSvg(size, paint)
        : form == QLatin1String("pdf")  ? asPdf(size, paint)
                                        : asPng(pictureImage(size, dpr, paint));
}

} // namespace chart
