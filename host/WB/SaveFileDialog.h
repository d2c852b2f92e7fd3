// SPDX-License-Identifier: MIT
#pragma once
/// @file Asking the user for a file to write.

#include "host/HostExport.h"

#include <QString>

class QWidget;

namespace WB {

/// QFileDialog::getSaveFileName with the same arguments; the client may put its own dialog in its place. Runs
/// until the user answers.
/// @return the chosen path; empty when the user cancels.
INDICATORHOST_EXPORT QString getSaveFileName(QWidget* parent, const QString& title, const QString& folder,
                                             const QString& filter);

} // namespace WB
