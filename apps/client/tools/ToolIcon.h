// SPDX-License-Identifier: MIT
#pragma once
/// @file The icons of the toolbar: line drawings in the colour of the skin's texts.

#include <QIcon>

namespace client {

/// @param name  of a drawing among the resources, without folder and suffix; one that does not exist draws
///        nothing. The icon is as sharp as the screen and follows the palette.
QIcon toolIcon(const char* name);

} // namespace client
