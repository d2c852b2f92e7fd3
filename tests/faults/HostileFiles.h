// SPDX-License-Identifier: MIT
#pragma once
/// @file Text files that nobody sound would write, made from sound ones by a seed.

#include <QByteArray>

namespace test {

/// A sound file with one to four kinds of damage: bytes changed, rows moved, doubled or cut, numbers at the
/// ends of what a number can be, lines and nestings without measure, other encodings, nothing at all. The
/// same seed makes the same file.
QByteArray hostileFile(const QByteArray& sound, unsigned seed);

} // namespace test
