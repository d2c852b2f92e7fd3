// SPDX-License-Identifier: MIT
#pragma once
/// @file Painted pictures in the forms of files.

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <functional>

class QPainter;

namespace chart {

using PaintPicture = std::function<void(QPainter&)>;

/// @param size  logical pixels.
/// @param dpr  device pixels per logical pixel.
/// @return null when there is no room for it.
QImage pictureImage(const QSize& size, double dpr, const PaintPicture& paint);

/// A picture as a file holds it; SVG and PDF have their size at 96 dots an inch.
/// @param suffix  svg or pdf, in any case; anything else makes a PNG.
/// @param dpr  as for pictureImage; PNG only.
/// @return no bytes when the picture cannot be made.
QByteArray pictureBytes(const QString& suffix, const QSize& size, double dpr, const PaintPicture& paint);

} // namespace chart
