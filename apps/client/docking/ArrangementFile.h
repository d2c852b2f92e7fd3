// SPDX-License-Identifier: MIT
#pragma once
/// @file The file in which arrangements of panels are kept.

#include "apps/base/Result.h"

#include <QByteArray>
#include <QMap>
#include <QString>

namespace client {

/// Content of an arrangement file: JSON with the states of the docking system in base64, each beside its
/// checksum, so that a damaged state never reaches the docking system.
struct ArrangementFile
{
    QByteArray last; ///< the arrangement in use when the client ended
    QMap<QString, QByteArray> named;
    QByteArray window; ///< place and size of the main window then; empty in files of older clients

    /// Reads a file whole: one state that is damaged fails all.
    static base::Result<ArrangementFile> read(const QString& path);

    /// Writes a file; an existing one is replaced only when the new one is complete.
    base::Result<void> write(const QString& path) const;
};

/// Checksum of a state, as the file keeps it.
QString checksumOf(const QByteArray& state);

} // namespace client
