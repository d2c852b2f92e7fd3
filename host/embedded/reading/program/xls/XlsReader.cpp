// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/CellDates.h"
#include "host/embedded/reading/program/Readers.h"
#include "host/embedded/reading/program/xls/CompoundFile.h"
#include "host/embedded/reading/program/xls/XlsSheet.h"

namespace workbook {

namespace {

constexpr quint16 kWorkbookGlobals = 0x0005;
constexpr int kCellSheet = 0; // of the kinds of sheets

/// Takes what stands ahead of the sheets. @return where the first sheet begins; -1 when there is none.
qint64 readGlobals(const QByteArray& stream, XlsBook& book, CellCollector& cells)
{
    Records records(stream, 0);
    Record record;
    qint64 sheet = -1;
    while (records.next(record) && record.kind != Record::End) {
        RecordReader reader(record);
        switch (record.kind) {
        case Record::FilePass: cells.refuse(Outcome::Protected); return -1;
        case Record::CodePage: book.codePage = reader.word(); break;
        case Record::DateMode: book.is1904 = reader.word() == 1; break;
        case Record::Format: book.addFormat(reader); break;
        case Record::Xf:
            reader.skip(2); // the font
            book.formatOfStyle.push_back(reader.word());
            break;
        case Record::BoundSheet: {
            const quint32 position = reader.doubleWord();
            reader.skip(1); // whether it is shown
            if (sheet < 0 && reader.byte() == kCellSheet)
                sheet = position;
            break;
        }
        case Record::SharedTexts: book.addSharedTexts(reader, cells); break;
        default: break;
        }
    }
    if (record.kind != Record::End)
        cells.noteLoss();
    return sheet;
}

} // namespace

void readXls(const QByteArray& bytes, CellCollector& cells)
{
    const CompoundFile file(bytes);
    if (file.hasStream("EncryptedPackage")) {
        cells.refuse(Outcome::Protected);
        return;
    }
    const char* const name = file.hasStream("Workbook") ? "Workbook" : "Book";
    if (!file.isSound() || !file.hasStream(name)) {
        cells.refuse(Outcome::Damaged);
        return;
    }
    bool isWhole = false;
    const QByteArray stream = file.stream(name, isWhole);
    if (!isWhole)
        cells.noteLoss();

    Record first;
    if (!Records(stream, 0).next(first) || first.kind != Record::Begin
        || number16(first.bytes, 2) != kWorkbookGlobals) {
        cells.refuse(first.kind != Record::Begin && (first.kind & 0xFF) == (Record::Begin & 0xFF)
                         ? Outcome::OtherKind // Excel 4 and before
                         : Outcome::Damaged);
        return;
    }
    XlsBook book;
    book.isUnicode = number16(first.bytes, 0) >= 0x0600;
    const qint64 sheet = readGlobals(stream, book, cells);
    if (sheet >= 0)
        readXlsSheet(stream, sheet, book, cells);
}

} // namespace workbook
