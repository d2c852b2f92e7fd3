// SPDX-License-Identifier: MIT
#pragma once
/// @file One reader per kind of file. Each fills `cells` with the first sheet, or refuses them with a reason.

#include "host/embedded/reading/program/CellCollector.h"

#include <QByteArray>

namespace workbook {

/// Chooses the reader by the first bytes; the file's name does not matter.
void readAnyKind(const QByteArray& bytes, CellCollector& cells);

/// An Office Open XML workbook, transitional or strict.
void readXlsx(const QByteArray& bytes, CellCollector& cells);

/// An Excel 5 to 2003 workbook in its compound file.
void readXls(const QByteArray& bytes, CellCollector& cells);

/// Text with one row a line, cells apart by tabs, or by commas in a line without a tab.
void readTextSheet(const QByteArray& bytes, CellCollector& cells);

} // namespace workbook
