// SPDX-License-Identifier: MIT
#pragma once
/// @file A workbook of records: what all sheets share, and the cells of a sheet.

#include "host/embedded/reading/program/CellCollector.h"
#include "host/embedded/reading/program/CellDates.h"
#include "host/embedded/reading/program/xls/Records.h"

#include <QHash>

namespace workbook {

/// What stands ahead of the sheets.
struct XlsBook
{
    bool isUnicode = true; ///< Excel 97 and after; before, texts are bytes in the code page
    bool is1904 = false;
    int codePage = 1252;
    QHash<int, DateKind> formats; ///< those of this workbook, by their id
    std::vector<int> formatOfStyle;

    void addFormat(RecordReader& reader);
    void addSharedTexts(RecordReader& reader, CellCollector& cells) const;
    /// A text with its length ahead of it.
    QString text(RecordReader& reader, bool hasLongLength) const;
    DateKind kind(int style) const;
};

/// Takes the cells of the sheet that begins at a byte of the stream.
void readXlsSheet(const QByteArray& stream, qint64 from, const XlsBook& book, CellCollector& cells);

} // namespace workbook
