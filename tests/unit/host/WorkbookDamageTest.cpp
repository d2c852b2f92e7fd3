// SPDX-License-Identifier: MIT
#include "host/WB/CExcelReader.h"
#include "host/embedded/ReadingSetup.h"
#include "tests/support/Seeds.h"
#include "tests/support/Workbooks.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

using TC::embedded::lastWorkbookReport;
using TC::embedded::WorkbookOutcome;
using test::Parts;
using test::soundParts;

namespace {

const QString kFolder = QStringLiteral(TEST_DATA_DIR "/workbooks/");
const QByteArray kRow = "<row><c><v>7</v></c></row>";

class WorkbookDamage : public testing::Test
{
protected:
    void SetUp() override { m_reader.init(false); }

    WorkbookOutcome outcomeOf(const QString& file)
    {
        QElapsedTimer timer;
        timer.start();
        m_reader.open(file);
        EXPECT_LT(timer.elapsed(), 20'000);
        return lastWorkbookReport().outcome;
    }
    WorkbookOutcome outcomeOf(const Parts& parts) { return outcomeOf(test::writeParts(newFile(), parts)); }
    WorkbookOutcome outcomeOf(const QByteArray& bytes)
    {
        return outcomeOf(test::writeFile(newFile(), bytes));
    }
    /// Read, with the word that something may be missing.
    void expectTold(const Parts& parts, const char* sheet)
    {
        EXPECT_EQ(outcomeOf(parts), WorkbookOutcome::Read);
        EXPECT_EQ(test::sheetText(m_reader).toStdString(), sheet);
        EXPECT_TRUE(lastWorkbookReport().mayBeIncomplete);
    }

    /// Never one that a program may still hold.
    QString newFile() { return m_folder.filePath(QString::number(++m_files) + QStringLiteral(".xlsx")); }

    QTemporaryDir m_folder;
    int m_files = 0;
    WB::CExcelReader m_reader;
};

/// One fault: the end cut off, bytes left out, or bits flipped.
QByteArray damaged(QByteArray bytes, unsigned seed)
{
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    switch (below(3)) {
    case 0: return bytes.left(below(bytes.size()));
    case 1: return bytes.remove(below(bytes.size()), 1 + below(200));
    default:
        for (int flips = 1 + below(30); flips > 0; --flips) {
            const int at = below(bytes.size());
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
        }
        return bytes;
    }
}

} // namespace

TEST_F(WorkbookDamage, NoDamagedXlsxLosesACellWithoutAWord)
{
    for (const char* name :
         { "openpyxl.xlsx", "exceljs_streaming.xlsx", "sheetjs.xlsx", "xlsxwriter.xlsx" }) {
        const QByteArray sound = test::bytesOf(kFolder + QString::fromUtf8(name));
        outcomeOf(sound);
        const QString sheet = test::sheetText(m_reader);
        for (const unsigned seed : test::seedsFor("damaged_xlsx", 40)) {
            const WorkbookOutcome outcome = outcomeOf(damaged(sound, seed));
            const bool isTold = outcome != WorkbookOutcome::Read || lastWorkbookReport().mayBeIncomplete;
            EXPECT_TRUE(isTold || test::sheetText(m_reader) == sheet) << name << " seed " << seed;
            EXPECT_NE(outcome, WorkbookOutcome::ProgramFailed) << name << " seed " << seed;
        }
    }
}

TEST_F(WorkbookDamage, NoDamagedXlsBringsItsReaderDown)
{
    for (const char* name : { "xlwt.xls", "sheetjs.xls", "gnumeric.xls", "gnumeric_95.xls" }) {
        const QByteArray sound = test::bytesOf(kFolder + QString::fromUtf8(name));
        for (const unsigned seed : test::seedsFor("damaged_xls", 40))
            EXPECT_NE(outcomeOf(damaged(sound, seed)), WorkbookOutcome::ProgramFailed)
                << name << " seed " << seed;
    }
}

TEST_F(WorkbookDamage, AnXlsWithBrokenRecordsGivesWhatIsSoundAndSaysSo)
{
    EXPECT_EQ(outcomeOf(kFolder + QStringLiteral("damaged.xls")), WorkbookOutcome::Read);
    EXPECT_GT(m_reader.getSheetRowCount(1), 100);
    EXPECT_TRUE(lastWorkbookReport().mayBeIncomplete);
}

TEST_F(WorkbookDamage, APartThatIsMissingOrCutIsTold)
{
    const Parts sound = soundParts("<row><c t=\"s\"><v>0</v></c><c><v>7</v></c></row>", "<si><t>x</t></si>");
    Parts parts = sound;
    parts.remove("xl/sharedStrings.xml");
    expectTold(parts, "7");
    parts = sound;
    parts["xl/sharedStrings.xml"].chop(3);
    expectTold(parts, "x|7");
    parts = sound;
    parts["xl/worksheets/sheet1.xml"].chop(30);
    expectTold(parts, "x|7");
    parts = sound;
    parts.remove("xl/styles.xml"); // dates would be numbers
    expectTold(parts, "x|7");
    for (const char* needed :
         { "xl/worksheets/sheet1.xml", "xl/workbook.xml", "_rels/.rels", "xl/_rels/workbook.xml.rels" }) {
        parts = sound;
        parts.remove(needed);
        EXPECT_EQ(outcomeOf(parts), WorkbookOutcome::Damaged) << needed;
    }
}

TEST_F(WorkbookDamage, CellsThatCannotBePlacedAreTold)
{
    for (const char* cell : { "<c r=\"XFE1\"><v>1</v></c>", "<c r=\"B0\"><v>1</v></c>",
                              "<c r=\"7\"><v>1</v></c>", "<c r=\"B1048577\"><v>1</v></c>",
                              "<c r=\"B1\" t=\"s\"><v>5</v></c>", "<c r=\"B1\" t=\"s\"><v>-1</v></c>" })
        expectTold(soundParts("<row><c r=\"A1\"><v>7</v></c>" + QByteArray(cell) + "</row>"), "7");
}

TEST_F(WorkbookDamage, ATextLongerThanACellIsCutAndTold)
{
    outcomeOf(soundParts("<row><c t=\"str\"><v>" + QByteArray(40'000, 'x') + "</v></c></row>"));
    EXPECT_EQ(m_reader.getData(1, 1, 1, true).size(), 32'767);
    EXPECT_TRUE(lastWorkbookReport().mayBeIncomplete);
}

TEST_F(WorkbookDamage, ADocumentTypeIsRefusedBeforeItsEntitiesGrow)
{
    Parts parts = soundParts("<row><c t=\"str\"><v>&b;</v></c></row>");
    parts["xl/worksheets/sheet1.xml"].replace(
        "<worksheet",
        "<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;\">"
        "<!ENTITY f SYSTEM \"file:///etc/hostname\">]><worksheet");
    EXPECT_EQ(outcomeOf(parts), WorkbookOutcome::Damaged);
}

TEST_F(WorkbookDamage, ElementsDeeperThanAnyWorkbookEndTheReading)
{
    Parts parts = soundParts(kRow + "<row><c>" + QByteArray("<x>").repeated(3'000'000));
    expectTold(parts, "7");
    parts = soundParts(kRow, "<si>" + QByteArray("<r>").repeated(1'000'000));
    expectTold(parts, "7");
}

TEST_F(WorkbookDamage, SharedTextsBeyondTheLimitRefuseTheWorkbook)
{
    const QByteArray text = "<si><t>" + QByteArray(32'000, 'x') + "</t></si>";
    EXPECT_EQ(outcomeOf(soundParts(kRow, text.repeated(900))), WorkbookOutcome::Read);
    EXPECT_EQ(outcomeOf(soundParts(kRow, text.repeated(1'100))), WorkbookOutcome::TooManyCells);
    EXPECT_EQ(outcomeOf(soundParts(kRow, QByteArray("<si/>").repeated(2'000'001))),
              WorkbookOutcome::TooManyCells);
    EXPECT_EQ(outcomeOf(soundParts(kRow, "<si><t>" + QByteArray(100'000'000, 'x') + "</t></si>")),
              WorkbookOutcome::Read); // cut, as no cell may be so long
}

TEST_F(WorkbookDamage, RelationshipsThatLeadInCirclesOrOutsideFindNoSheet)
{
    for (const char* target :
         { "workbook.xml", "_rels/workbook.xml.rels", "sharedStrings.xml", "", "/", "..",
           "../../../../etc/passwd", "file:///etc/passwd", "%", "%00", "\\\\host\\share" }) {
        Parts parts = soundParts(kRow);
        parts["xl/_rels/workbook.xml.rels"].replace("worksheets/sheet1.xml", target);
        EXPECT_EQ(outcomeOf(parts), WorkbookOutcome::Damaged) << target;
    }
    Parts parts = soundParts(kRow);
    parts["_rels/.rels"].replace("xl/workbook.xml", "_rels/.rels");
    EXPECT_EQ(outcomeOf(parts), WorkbookOutcome::OtherKind);
}

TEST_F(WorkbookDamage, AFirstSheetThatIsLostIsNotReplacedByTheSecond)
{
    Parts parts = soundParts(kRow);
    parts["xl/workbook.xml"].replace("<sheets>", "<sheets><sheet name=\"0\" sheetId=\"2\" r:id=\"r9\"/>");
    EXPECT_EQ(outcomeOf(parts), WorkbookOutcome::Damaged);
}

TEST_F(WorkbookDamage, WorkbooksOfOtherKindsAreNamedAsSuch)
{
    EXPECT_EQ(outcomeOf(Parts { { "mimetype", "x" }, { "content.xml", "<x/>" } }),
              WorkbookOutcome::OtherKind);
    EXPECT_EQ(outcomeOf(Parts { { "xl/workbook.bin", "x" } }), WorkbookOutcome::OtherKind);
    EXPECT_EQ(outcomeOf(Parts { { "readme.txt", "x" } }), WorkbookOutcome::UnknownKind);
    EXPECT_EQ(outcomeOf(QByteArray("\x09\x04\x06\x00\x00\x00\x10\x00\x00\x00", 10)),
              WorkbookOutcome::OtherKind);
    Parts document = soundParts(kRow);
    document["xl/workbook.xml"].replace("workbook", "document");
    EXPECT_EQ(outcomeOf(document), WorkbookOutcome::OtherKind);
}

TEST_F(WorkbookDamage, SectorsThatLeadInCirclesEnd)
{
    QByteArray bytes = test::bytesOf(kFolder + QStringLiteral("xlwt.xls"));
    const int shift = bytes[30];
    const int table = (bytes[76] + 1) << shift; // the first sector of the table of next sectors
    for (int sector = 0; sector < 20; ++sector) {
        QByteArray circling = bytes;
        circling.replace(table + 4 * sector, 4,
                         QByteArray("\x00\x00\x00\x00", 4).replace(0, 1, QByteArray(1, char(sector))));
        EXPECT_NE(outcomeOf(circling), WorkbookOutcome::ProgramFailed) << sector;
    }
}
