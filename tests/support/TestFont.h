// SPDX-License-Identifier: MIT
#pragma once
/// @file The bundled font of all tests.

#include <QFont>

namespace test {

/// A font of the bundled family, so that text is as wide on every machine.
QFont font(int pixelSize);

/// A font as wide and high as that, of which nothing is seen.
QFont blankFont(int pixelSize);

/// A font that sets numbers in a way of its own; tests/data/fonts/make_unusual.py says which ways there are.
QFont unusualFont(const QString& way, int pixelSize);

} // namespace test
