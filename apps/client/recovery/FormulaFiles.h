// SPDX-License-Identifier: MIT
#pragma once
/// @file The user's formulas and scripts as files: the two live ones, and both packed into one.

#include "apps/base/Result.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace client {

/// Content of both files at one moment; nothing where there is no such file.
struct FormulaFiles
{
    std::optional<QByteArray> formulas, scripts;

    bool operator==(const FormulaFiles& other) const
    {
        return formulas == other.formulas && scripts == other.scripts;
    }
    bool isEmpty() const { return !formulas && !scripts; }
};

QString liveFormulasPath();
QString liveScriptsPath();

/// Content of a file; nothing when there is none. A file that is there and cannot be read is a failure.
base::Result<std::optional<QByteArray>> readOptional(const QString& path);

/// The live files.
base::Result<FormulaFiles> readLiveFiles();

/// Puts the files that there are in place of the live ones, each whole or not at all; a live file without
/// a successor stays. Stops at the first that cannot be written.
base::Result<void> writeLiveFiles(const FormulaFiles& files);

/// Both files as one, with a checksum.
QByteArray packed(const FormulaFiles& files);
/// Nothing when the bytes are not what packed() made.
std::optional<FormulaFiles> unpacked(const QByteArray& bytes);

} // namespace client
