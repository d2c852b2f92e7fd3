// SPDX-License-Identifier: MIT
#pragma once
/// @file The plain primitives of a painter call on a raster surface.

#include <QPainter>

#include <functional>

namespace test {

/// Runs `paint` on an engine that is not the raster engine, and so gets every plain primitive in its order,
/// and hands each one on to `target`, whose transform, clip and hints stand.
void paintPlainly(QPainter& target, const std::function<void(QPainter&)>& paint);

} // namespace test
