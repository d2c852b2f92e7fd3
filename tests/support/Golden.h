// SPDX-License-Identifier: MIT
#pragma once
/// @file Pictures compared byte by byte with kept ones.

#include <QImage>
#include <QString>

#include <gtest/gtest.h>

namespace test {

/// Where kept pictures lie, and where the pictures of a difference go.
struct GoldenFolders
{
    QString references; ///< <name>.png
    QString results;    ///< <name>.expected.png, <name>.actual.png, <name>.difference.png
};

/// tests/golden of the source tree, golden/ of the build tree.
GoldenFolders goldenFolders();

/// An image as golden tests paint on it: ARGB32_Premultiplied, one opaque colour.
QImage goldenCanvas(int width, int height, const QColor& background);

/// Compares a picture with the kept one of that name; with Qt 6 with the one in the folder qt6, if it stands
/// there.
///
/// On a difference the expected picture, the actual one and their difference (black where they agree, white
/// where they do not) are left side by side among the results. Kept pictures are written only when the
/// environment variable INDICATORUI_UPDATE_GOLDEN is 1; whoever sets it looks at them before they are
/// committed.
testing::AssertionResult matchesGolden(const QString& name, const QImage& actual,
                                       const GoldenFolders& folders = goldenFolders());

} // namespace test
