// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/Readers.h"
#include "host/embedded/reading/program/xlsx/Relationships.h"
#include "host/embedded/reading/program/xlsx/SharedTexts.h"
#include "host/embedded/reading/program/xlsx/SheetPart.h"

namespace workbook {

namespace {

/// Receives the part of the workbook: its sheets in their order, and the first day of its dates.
struct WorkbookPart : XmlReceiver
{
    void startElement(std::string_view name, const XmlAttributes& attributes) override
    {
        if (depth == 0)
            isWorkbook = name == "workbook";
        else if (depth == 1 && name == "workbookPr")
            is1904 = attributes.value("date1904") == "1" || attributes.value("date1904") == "true";
        else if (depth == 2 && name == "sheet")
            sheets.emplace_back(attributes.prefixedValue("id"));
        ++depth;
    }
    void endElement() override { --depth; }

    int depth = 0;
    bool isWorkbook = false, is1904 = false;
    std::vector<std::string> sheets; ///< ids of their relationships
};

/// What an archive of no Office Open XML parts is, or a workbook with binary ones.
Outcome otherKind(const Archive& archive)
{
    if (archive.holds("xl/workbook.bin") || archive.holds("content.xml"))
        return Outcome::OtherKind;
    for (const char* part : { "[Content_Types].xml", "_rels/.rels", "xl/workbook.xml" }) {
        if (archive.holds(part))
            return Outcome::Read;
    }
    return Outcome::UnknownKind;
}

/// The part of the first sheet that holds cells; sheets of charts alone are passed over. Empty, with a loss
/// noted or not, when there is none.
QByteArray firstSheet(const WorkbookPart& book, const Relationships& ways, CellCollector& cells)
{
    for (const std::string& id : book.sheets) {
        const Relationship* const way = ways.withId(id);
        if (!way || way->target.isEmpty()) {
            cells.noteLoss(); // what follows is not the first sheet
            return QByteArray();
        }
        if (way->kind == "worksheet")
            return way->target;
    }
    if (book.sheets.empty())
        cells.noteLoss();
    return QByteArray();
}

/// Reads a part that a workbook may lack; a damaged one is a loss.
void readIfPresent(Archive& archive, const Relationships& ways, std::string_view kind, XmlReceiver& receiver,
                   CellCollector& cells)
{
    const Relationship* const way = ways.ofKind(kind);
    if (way && readXml(archive, way->target, receiver) != Archive::End::Whole)
        cells.noteLoss();
}

void readParts(Archive& archive, CellCollector& cells)
{
    const Relationships root(archive, QByteArray());
    const Relationship* const way = root.ofKind("officeDocument");
    WorkbookPart book;
    const Archive::End bookEnd = way ? readXml(archive, way->target, book) : Archive::End::Missing;
    if (!book.isWorkbook) {
        cells.refuse(bookEnd == Archive::End::Whole ? Outcome::OtherKind : Outcome::Damaged);
        return;
    }
    if (bookEnd != Archive::End::Whole)
        cells.noteLoss();
    const Relationships ways(archive, way->target);
    if (root.isDamaged() || ways.isDamaged())
        cells.noteLoss();
    const QByteArray sheet = firstSheet(book, ways, cells);
    if (sheet.isEmpty())
        return;

    SharedTexts texts(cells);
    readIfPresent(archive, ways, "sharedStrings", texts, cells);
    CellStyles styles;
    readIfPresent(archive, ways, "styles", styles, cells);
    SheetPart part(styles, book.is1904, cells);
    const Archive::End end = readXml(archive, sheet, part);
    if ((end != Archive::End::Whole && end != Archive::End::Stopped) || !part.hasSheet())
        cells.noteLoss();
}

} // namespace

void readXlsx(const QByteArray& bytes, CellCollector& cells)
{
    Archive archive(bytes);
    if (archive.outcome() != Outcome::Read) {
        cells.refuse(archive.outcome());
        return;
    }
    if (const Outcome other = otherKind(archive); other != Outcome::Read) {
        cells.refuse(other);
        return;
    }
    if (archive.isSuspicious())
        cells.noteLoss();
    readParts(archive, cells);
}

} // namespace workbook
