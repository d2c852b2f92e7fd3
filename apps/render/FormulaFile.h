// SPDX-License-Identifier: MIT
#pragma once
/// @file Formulas in files of their own.

#include <QString>
#include <QStringList>

namespace render {

/// Reads a formula's text from a file in UTF-8, UTF-16 or GB18030 and makes it known under the file's base
/// name.
/// @param[out] name  that name.
/// @param[out] hints  one line "FILE:LINE:COLUMN: hint" each; may be null.
/// @return one line "FILE:LINE:COLUMN: reason" for each thing that is wrong; empty when the formula is known.
QStringList openFormulaFile(const QString& path, QString& name, QStringList* hints = nullptr);

} // namespace render
