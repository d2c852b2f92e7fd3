// SPDX-License-Identifier: MIT
#pragma once
/// @file Real workbooks and archives for tests.

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

namespace WB {
class CExcelReader;
}

namespace test {

/// Cells of a sheet row by row. An invalid variant leaves a cell empty, numbers become numbers, texts that
/// begin with "=" formulas.
using Rows = QList<QVariantList>;

/// Writes an .xlsx whose first sheet holds the rows from the given cell on (counted from 0), and whose second
/// sheet holds the code 600036. @return `path`.
QString writeXlsx(const QString& path, const Rows& rows, int firstRow = 0, int firstColumn = 0);

/// Writes an .xls. @param kind  "plain", "password" or "encrypted", see make_xls.py. @return `path`, empty on
/// failure.
QString writeXls(const QString& path, const Rows& rows, const QString& kind = QStringLiteral("plain"));

/// Writes a zip archive that packs `unpackedMiB` of zeros in an entry "xl/worksheets/sheet1.xml". @return
/// `path`.
QString writeZipBomb(const QString& path, int unpackedMiB);

/// Writes a zip archive of empty entries beside those of a workbook. @return `path`.
QString addEmptyEntries(const QString& workbook, int count);

/// Replaces a part of a workbook by other bytes. @return `path`.
QString replacePart(const QString& workbook, const QString& part, const QByteArray& bytes);

/// Parts of a workbook by their names.
using Parts = QMap<QByteArray, QByteArray>;

/// The parts of a sound workbook with one sheet. @param rows  the inside of its sheetData; texts  that of its
/// shared texts; styles  that of its styles.
Parts soundParts(const QByteArray& rows, const QByteArray& texts = QByteArray(),
                 const QByteArray& styles = QByteArray());

/// Writes parts into an archive. @return `path`.
QString writeParts(const QString& path, const Parts& parts);

/// The whole sheet of a reader: cells apart by "|", rows by "/".
QString sheetText(const WB::CExcelReader& reader);

/// The bytes of a file; and a file of the bytes. @return `path`.
QByteArray bytesOf(const QString& path);
QString writeFile(const QString& path, const QByteArray& bytes);

} // namespace test
