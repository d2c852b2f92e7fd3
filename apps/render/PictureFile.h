// SPDX-License-Identifier: MIT
#pragma once
/// @file A painted chart as a PNG, SVG or PDF file.

#include "apps/base/Result.h"

#include <QSize>
#include <QString>

#include <functional>

class QPainter;

namespace render {

/// Paints into a file whose suffix chooses the form; the file appears whole or not at all.
/// @param size  logical pixels.
/// @param dpr  device pixels per logical pixel; PNG only.
/// @return on failure one line that names the file and the reason.
base::Result<void> writePicture(const QString& path, const QSize& size, double dpr,
                                const std::function<void(QPainter&)>& paint);

} // namespace render
