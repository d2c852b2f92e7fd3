// SPDX-License-Identifier: MIT
#pragma once
/// @file Which pixels glyphs touch.

#include <QGlyphRun>
#include <QList>
#include <QRect>
#include <QRectF>

#include <optional>

namespace TC::detail {

/// The pixels that glyphs touch on the raster engine, painted pixel by pixel, from the whole pixel of the
/// corner that their positions count from, whatever fraction of a pixel the corner stands at.
/// @param outlines  that hold every glyph, from the corner.
/// @return an empty rectangle where there is no ink; nothing where ink may lie outside of what was looked at.
std::optional<QRect> paintedPixels(const QList<QGlyphRun>& runs, const QRectF& outlines);

} // namespace TC::detail
