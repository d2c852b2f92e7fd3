// SPDX-License-Identifier: MIT
#include "host/embedded/skin/SkinPicture.h"

#include "host/embedded/text/OrdinaryFile.h"

#include <QPainter>
#include <QSvgRenderer>

namespace TC::embedded {

namespace {

constexpr int kScale = 3;                           // drawn once, sharp up to this device pixel ratio
constexpr int kLargestFile = 1024 * 1024;           // bytes
constexpr int kLargestSide = 512;                   // pixels at device pixel ratio 1
constexpr qint64 kMostPixels = qint64 { 32 } << 20; // device pixels of one skin: 128 MiB

} // namespace

QString SkinPictures::read(const QString& fileName, QPixmap& pixmap)
{
    QByteArray svg;
    QSvgRenderer renderer;
    const bool isRead = readOrdinaryFile(m_folder.filePath(fileName), kLargestFile, svg).isEmpty()
        && !svg.startsWith("\x1f\x8b") // compressed, of unknown size
        && renderer.load(svg);
    if (!isRead)
        return QStringLiteral("does not name a readable SVG file of at most %1 bytes").arg(kLargestFile);
    const QSize size = renderer.defaultSize();
    if (size.isEmpty() || size.width() > kLargestSide || size.height() > kLargestSide)
        return QStringLiteral("names a picture of %1 x %2 pixels; 1 to %3 a side are possible")
            .arg(size.width())
            .arg(size.height())
            .arg(kLargestSide);
    const QSize drawn = size * kScale;
    m_pixels += qint64 { drawn.width() } * drawn.height();
    if (m_pixels > kMostPixels)
        return QStringLiteral("is one picture too many: together they are too large");
    QPixmap picture(drawn);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    renderer.render(&painter);
    painter.end();
    picture.setDevicePixelRatio(kScale);
    pixmap = picture;
    return QString();
}

} // namespace TC::embedded
