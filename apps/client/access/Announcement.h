// SPDX-License-Identifier: MIT
#pragma once
/// @file News for assistive technology.

class QWidget;

namespace client {

/// Tells that the widget's values are those of another bar now; nothing where nobody listens.
void announceValues(QWidget* widget);

} // namespace client
