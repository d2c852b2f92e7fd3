// SPDX-License-Identifier: MIT
/// @file The basket as text: clipboard and files.

#include "stocklist/CParserStockExeclTable.h"

#include "host/WB/SaveFileDialog.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QTextStream>

namespace TC {

namespace {

using Table = WB::IBaseTable;

/// The visible headers but the first. The market has a field in the rows and none here.
QString headerLine(const Table& table, const QString& separator)
{
    QStringList headers;
    // Deliberate: from the second column on, so that rows have one field more than the header.
    for (int index = 1; index < table.columnCount(); ++index) {
        const int id = table.columnID(index);
        if (table.columnVisible(id))
            headers.append(table.columnHeader(id));
    }
    return headers.join(separator);
}

/// The visible cells of a row, market included.
QString separatedRow(const Table& table, int row, const QString& separator)
{
    QStringList cells;
    for (int index = 0; index < table.columnCount(); ++index) {
        const int id = table.columnID(index);
        if (table.columnVisible(id))
            cells.append(table.cellText(row, id));
    }
    return cells.join(separator);
}

/// A row of the ".txt" export. Deliberate: cells run together from the column with id 0 on, seen or not, and
/// have a tab in front before it; usually that column is the first one, and the row has no tab at all.
QString runTogetherRow(const Table& table, int row)
{
    QString line;
    bool runsTogether = false;
    for (int index = 0; index < table.columnCount(); ++index) {
        const int id = table.columnID(index);
        runsTogether = runsTogether || id == 0;
        if (!table.columnVisible(id))
            continue;
        if (index > 0 && !runsTogether)
            line += QLatin1Char('\t');
        line += table.cellText(row, id);
    }
    return line;
}

template <class RowText>
QString gridText(const Table& table, const QString& separator, RowText rowText)
{
    QString text = headerLine(table, separator) + QLatin1Char('\n');
    for (int index = 0; index < table.rowCount(); ++index)
        text += rowText(table.rowID(index)) + QLatin1Char('\n');
    return text;
}

/// The last four characters of a file's name.
QString suffixOf(const QString& path)
{
    // Deliberate: U+2F2F looks like a slash and is none. No path has it, so the whole path counts.
    constexpr ushort lookalikeSlash = 0x2F2F;
    return path.mid(path.lastIndexOf(QChar(lookalikeSlash)) + 1).right(4);
}

} // namespace

void CParserStockExeclTable::copyData()
{
    const QString tab = QStringLiteral("\t");
    QApplication::clipboard()->setText(
        gridText(*this, tab, [&](int row) { return separatedRow(*this, row, tab); }), QClipboard::Clipboard);
}

bool CParserStockExeclTable::exportData()
{
    const QString path = WB::getSaveFileName(this, QStringLiteral("导出数据"), QStringLiteral("."),
                                             QStringLiteral("Text files (*.txt);;Excel Files(*.csv)"));
    if (path.isEmpty())
        return false;
    const QString suffix = suffixOf(path), tab = QStringLiteral("\t"), comma = QStringLiteral(",");
    QString text;
    if (suffix == QStringLiteral(".txt"))
        text = gridText(*this, tab, [&](int row) { return runTogetherRow(*this, row); });
    else if (suffix == QStringLiteral(".csv"))
        text = gridText(*this, comma, [&](int row) { return separatedRow(*this, row, comma); });
    else
        return true; // Deliberate: no message; the client knows only whether the user cancelled
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        QTextStream stream(&file);
        stream << text;
        stream.flush();
        file.close();
    }
    return true;
}

void CParserStockExeclTable::slotCopyData()
{
    copyData();
}

void CParserStockExeclTable::slotExportData()
{
    exportData();
}

} // namespace TC
