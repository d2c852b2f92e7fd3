// SPDX-License-Identifier: MIT
#include "tests/support/Workbooks.h"

#include "host/WB/CExcelReader.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QStringList>

#include <xlsxwriter.h>
#include <zip.h>

namespace test {

namespace {

void writeCell(lxw_worksheet* sheet, lxw_row_t row, lxw_col_t column, const QVariant& value)
{
    const QByteArray text = value.toString().toUtf8();
    if (!value.isValid())
        return;
    if (value.userType() != QMetaType::QString)
        worksheet_write_number(sheet, row, column, value.toDouble(), nullptr);
    else if (text.startsWith('='))
        worksheet_write_formula_num(sheet, row, column, text.constData(), nullptr, 7.0);
    else
        worksheet_write_string(sheet, row, column, text.constData(), nullptr);
}

/// Adds a file or buffer to an archive that exists or is made.
void addEntry(zip_t* archive, const QString& name, zip_source_t* source)
{
    zip_file_add(archive, name.toUtf8().constData(), source, ZIP_FL_OVERWRITE | ZIP_FL_ENC_UTF_8);
}

zip_t* openArchive(const QString& path)
{
    return zip_open(QFile::encodeName(path).constData(), ZIP_CREATE, nullptr);
}

} // namespace

QString writeXlsx(const QString& path, const Rows& rows, int firstRow, int firstColumn)
{
    lxw_workbook* book = workbook_new(QFile::encodeName(path).constData());
    lxw_worksheet* sheet = workbook_add_worksheet(book, "first");
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < rows[row].size(); ++column)
            writeCell(sheet, static_cast<lxw_row_t>(firstRow + row),
                      static_cast<lxw_col_t>(firstColumn + column), rows[row][column]);
    }
    lxw_worksheet* second = workbook_add_worksheet(book, "second");
    worksheet_write_string(second, 0, 0, "600036", nullptr);
    workbook_close(book);
    return path;
}

QString writeXls(const QString& path, const Rows& rows, const QString& kind)
{
    QJsonArray json;
    for (const QVariantList& row : rows)
        json.append(QJsonArray::fromVariantList(row));
    QProcess python;
    python.start(QStringLiteral("/usr/bin/python3"),
                 { QStringLiteral(TEST_SUPPORT_DIR "/make_xls.py"), kind, path });
    python.write(QJsonDocument(json).toJson());
    python.closeWriteChannel();
    const bool made = python.waitForFinished(60'000) && python.exitCode() == 0;
    if (!made)
        qWarning("%s", python.readAllStandardError().constData());
    return made ? path : QString();
}

QString writeZipBomb(const QString& path, int unpackedMiB)
{
    const QString zeros = path + QStringLiteral(".zeros");
    QFile file(zeros); // sparse: takes no room on the disk
    if (!file.open(QIODevice::WriteOnly) || !file.resize(qint64(unpackedMiB) * 1024 * 1024))
        return QString();
    file.close();
    zip_t* archive = openArchive(path);
    addEntry(archive, QStringLiteral("xl/worksheets/sheet1.xml"),
             zip_source_file(archive, QFile::encodeName(zeros).constData(), 0, -1));
    zip_close(archive);
    QFile::remove(zeros);
    return path;
}

QString addEmptyEntries(const QString& workbook, int count)
{
    zip_t* archive = openArchive(workbook);
    for (int i = 0; i < count; ++i)
        addEntry(archive, QStringLiteral("empty%1").arg(i), zip_source_buffer(archive, nullptr, 0, 0));
    zip_close(archive);
    return workbook;
}

QString replacePart(const QString& workbook, const QString& part, const QByteArray& bytes)
{
    zip_t* archive = openArchive(workbook);
    addEntry(archive, part,
             zip_source_buffer(archive, bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0));
    zip_close(archive);
    return workbook;
}

Parts soundParts(const QByteArray& rows, const QByteArray& texts, const QByteArray& styles)
{
    const QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    const QByteArray main = " xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
    const QByteArray ways = "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/"
                            "relationships\">";
    const QByteArray types = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
    const auto way = [&](const QByteArray& id, const QByteArray& kind, const QByteArray& target) {
        return "<Relationship Id=\"" + id + "\" Type=\"" + types + "/" + kind + "\" Target=\"" + target
            + "\"/>";
    };
    return {
        { "_rels/.rels", head + ways + way("r1", "officeDocument", "xl/workbook.xml") + "</Relationships>" },
        { "xl/_rels/workbook.xml.rels",
          head + ways + way("r1", "worksheet", "worksheets/sheet1.xml")
              + way("r2", "sharedStrings", "sharedStrings.xml") + way("r3", "styles", "styles.xml")
              + "</Relationships>" },
        { "xl/workbook.xml",
          head + "<workbook" + main + " xmlns:r=\"" + types
              + "\"><workbookPr/><sheets><sheet name=\"1\" sheetId=\"1\" r:id=\"r1\"/></sheets></workbook>" },
        { "xl/worksheets/sheet1.xml",
          head + "<worksheet" + main + "><sheetData>" + rows + "</sheetData></worksheet>" },
        { "xl/sharedStrings.xml", head + "<sst" + main + ">" + texts + "</sst>" },
        { "xl/styles.xml", head + "<styleSheet" + main + ">" + styles + "</styleSheet>" },
    };
}

QString writeParts(const QString& path, const Parts& parts)
{
    QFile::remove(path);
    zip_t* archive = openArchive(path);
    for (auto part = parts.begin(); part != parts.end(); ++part)
        addEntry(archive, QString::fromUtf8(part.key()),
                 zip_source_buffer(archive, part->constData(), static_cast<zip_uint64_t>(part->size()), 0));
    zip_close(archive);
    return path;
}

QString sheetText(const WB::CExcelReader& reader)
{
    QStringList rows;
    for (int r = 0; r < reader.getSheetRowCount(1); ++r) {
        QStringList cells;
        for (int c = 0; c < reader.getSheetColCount(1); ++c)
            cells << reader.getData(1, reader.getSheetStartRow(1) + r, reader.getSheetStartCol(1) + c, true);
        rows << cells.join(QLatin1Char('|'));
    }
    return rows.join(QLatin1Char('/'));
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

} // namespace test
