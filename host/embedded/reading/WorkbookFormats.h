#pragma once
/// @file One reader per kind of workbook. Each fills `cells` with the first sheet; on a file that it refuses
/// it leaves them empty. None throws.

#include "host/embedded/reading/SheetCells.h"

#include <QByteArray>

namespace TC::embedded {

/// An Office Open XML workbook from its bytes.
void readXlsx(const QByteArray& bytes, SheetCells& cells);

/// An Excel 97 to 2003 workbook from its file.
void readXls(const QString& path, SheetCells& cells);

/// Text with one row a line, cells apart by tabs, or by commas in a line without a tab.
void readTextSheet(const QByteArray& bytes, SheetCells& cells);

} // namespace TC::embedded
