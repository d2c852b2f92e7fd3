#pragma once
/// @file Formulas in files of their own.

#include <QString>
#include <QStringList>

namespace render {

/// Reads a formula's text from a UTF-8 file and makes it known under the file's base name.
/// @param[out] name  that name.
/// @return one line "FILE:LINE:COLUMN: reason" for each thing that is wrong; empty when the formula is known.
QStringList openFormulaFile(const QString& path, QString& name);

} // namespace render
