// SPDX-License-Identifier: MIT
#pragma once
/// @file Where keys go.

class QWidget;

namespace client {

/// From a paint event: a frame at the widget's edge while it has the focus, else nothing.
void paintFocusFrame(QWidget* widget);

} // namespace client
