// SPDX-License-Identifier: MIT
#include "apps/render/PictureFile.h"

#include "apps/base/WholeFile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace render {

namespace {

using Paint = std::function<void(QPainter&)>;

/// Paints on a device. @return whether the device took it.
bool paintOn(QPaintDevice& device, const Paint& paint)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    paint(painter);
    return painter.end();
}

/// Each of these answers no bytes when the picture cannot be made.
QByteArray asPng(const QSize& size, double dpr, const Paint& paint)
{
    QImage image(size * dpr, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return QByteArray();
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::transparent);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return paintOn(image, paint) && image.save(&buffer, "PNG") ? bytes : QByteArray();
}

constexpr int kDotsPerInch = 96; // so large is a pixel on paper

QByteArray asSvg(const QSize& size, const Paint& paint)
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

QByteArray asPdf(const QSize& size, const Paint& paint)
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

base::Result<void> writePicture(const QString& path, const QSize& size, double dpr, const Paint& paint)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const QByteArray bytes = suffix == QLatin1String("svg") ? asSvg(size, paint)
        : suffix == QLatin1String("pdf")                    ? asPdf(size, paint)
                                                            : asPng(size, dpr, paint);
    if (bytes.isEmpty())
        return base::Failure { QStringLiteral("%1: the picture cannot be made").arg(path) };
    if (const auto fault = base::writeWholeFile(path, bytes))
        return base::Failure { fault->english() };
    return {};
}

} // namespace render
