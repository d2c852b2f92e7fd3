#include "apps/render/PictureFile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>

namespace render {

namespace {

using Paint = std::function<void(QPainter&)>;

QByteArray asPng(const QSize& size, double dpr, const Paint& paint)
{
    QImage image(size * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray asSvg(const QSize& size, const Paint& paint)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    generator.setTitle(QStringLiteral("Indicator chart"));
    QPainter painter(&generator);
    paint(painter);
    painter.end();
    return bytes;
}

QByteArray asPdf(const QSize& size, const Paint& paint)
{
    constexpr int dotsPerInch = 96;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(dotsPerInch);
    writer.setPageSize(QPageSize(QSizeF(size) * 72.0 / dotsPerInch, QPageSize::Point));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter(&writer);
    paint(painter);
    painter.end();
    return bytes;
}

} // namespace

QString writePicture(const QString& path, const QSize& size, double dpr, const Paint& paint)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const QByteArray bytes = suffix == QLatin1String("svg") ? asSvg(size, paint)
        : suffix == QLatin1String("pdf")                    ? asPdf(size, paint)
                                                            : asPng(size, dpr, paint);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return QStringLiteral("%1: %2").arg(path, file.errorString());
    return QString();
}

} // namespace render
