// SPDX-License-Identifier: MIT
#pragma once
/// @file What the embedded host answers for the user of a table.

#include "host/HostExport.h"

#include <QString>

namespace TC::embedded {

/// Lets WB::getSaveFileName give this answer without a dialog, as if the user had chosen it; an empty text
/// means that the user cancels.
INDICATORHOST_EXPORT void setSaveDialogAnswer(const QString& path);

/// Brings the dialog back and forgets the last request.
INDICATORHOST_EXPORT void clearSaveDialogAnswer();

/// What a save dialog was asked to show.
struct SaveDialogRequest
{
    QString title;  ///< of the dialog
    QString folder; ///< where it begins
    QString filter; ///< as QFileDialog takes it
    QString answer; ///< the chosen path; empty when the user cancelled
};

/// The last request since clearSaveDialogAnswer(); empty texts when there was none.
INDICATORHOST_EXPORT SaveDialogRequest lastSaveDialogRequest();

} // namespace TC::embedded
