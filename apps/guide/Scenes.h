// SPDX-License-Identifier: MIT
#pragma once
/// @file What the user guide shows.

#include <QImage>

#include <vector>

namespace guide {

class Stage;

/// One picture: how the client comes to show it, each time in a new window.
struct Scene
{
    const char* name; ///< of the picture's file, without suffix
    QImage (*take)(Stage& stage);
};

/// In the order of the guide.
const std::vector<Scene>& scenes();

} // namespace guide
