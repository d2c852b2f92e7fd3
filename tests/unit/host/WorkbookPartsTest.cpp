// SPDX-License-Identifier: MIT
#include "host/WB/CExcelReader.h"
#include "host/embedded/ReadingSetup.h"
#include "tests/support/Workbooks.h"
#include "host/utils/TextCodec.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using TC::embedded::lastWorkbookReport;
using TC::embedded::WorkbookOutcome;
using test::Parts;
using test::soundParts;

namespace {

const QByteArray kTransitional = "http://schemas.openxmlformats.org/";

/// Workbooks put together by hand, one peculiarity each.
class WorkbookParts : public testing::Test
{
protected:
    void SetUp() override { m_reader.init(false); }

    QString sheetOf(const Parts& parts)
    {
        m_reader.open(test::writeParts(m_folder.filePath(QStringLiteral("a.xlsx")), parts));
        return test::sheetText(m_reader);
    }
    QString sheetOf(const QByteArray& rows, const QByteArray& texts = QByteArray(),
                    const QByteArray& styles = QByteArray())
    {
        return sheetOf(soundParts(rows, texts, styles));
    }
    bool isSound() const { return !lastWorkbookReport().mayBeIncomplete; }

    QTemporaryDir m_folder;
    WB::CExcelReader m_reader;
};

/// Styles whose n-th cell format has the n-th of the format codes.
QByteArray stylesOf(const QList<QByteArray>& codes)
{
    QByteArray formats, cells;
    for (int i = 0; i < codes.size(); ++i) {
        const QByteArray id = QByteArray::number(164 + i);
        formats += "<numFmt numFmtId=\"" + id + "\" formatCode=\"" + codes[i] + "\"/>";
        cells += "<xf numFmtId=\"" + id + "\"/>";
    }
    return "<numFmts>" + formats + "</numFmts><cellStyleXfs><xf numFmtId=\"14\"/></cellStyleXfs><cellXfs>"
        + cells + "</cellXfs>";
}

} // namespace

TEST_F(WorkbookParts, InlineTextsAndTextResultsKeepTheirColumns)
{
    EXPECT_EQ(sheetOf("<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>600000</t></is></c>"
                      "<c r=\"B1\" t=\"str\"><v>a &amp; b</v></c><c r=\"C1\"><v>2</v></c></row>"),
              QStringLiteral("600000|a & b|2"));
    EXPECT_TRUE(isSound());
}

TEST_F(WorkbookParts, RunsOfATextAreJoinedAndReadingsOfItLeftOut)
{
    const QByteArray rich = "<r><rPr><b/></rPr><t>平</t></r><r><t xml:space=\"preserve\">安 </t></r>"
                            "<rPh sb=\"0\" eb=\"1\"><t>ping</t></rPh><phoneticPr fontId=\"1\"/>";
    EXPECT_EQ(sheetOf("<row><c t=\"s\"><v>0</v></c><c t=\"inlineStr\"><is>" + rich
                          + "</is></c><c t=\"s\"><v>1</v></c></row>",
                      "<si>" + rich + "</si>\n<si><t>x</t><rPh><r><t>y</t></r></rPh></si>"),
              QStringLiteral("平安 |平安 |x"));
}

TEST_F(WorkbookParts, AnEmptySharedTextIsAnEmptyCell)
{
    EXPECT_EQ(sheetOf("<row><c t=\"s\"><v>0</v></c><c t=\"s\"><v>1</v></c><c t=\"s\"><v>2</v></c>"
                      "<c t=\"s\"><v>3</v></c></row>",
                      "<si><t>500</t></si><si><t></t></si><si/><si><t>600</t></si>"),
              QStringLiteral("500|||600"));
    EXPECT_TRUE(isSound());
}

TEST_F(WorkbookParts, FormulasGiveTheirStoredResultsOrNothing)
{
    EXPECT_EQ(
        sheetOf("<row><c><v>1</v></c><c><f>A1</f></c><c><f>A1</f><v></v></c><c t=\"str\"><f>A1</f><v/></c>"
                "<c><f t=\"shared\" si=\"0\" ref=\"A1:B2\">A1+1</f><v>2</v></c>"
                "<c><f t=\"array\" ref=\"A1:B2\">A1:B2*2</f><v>3</v></c>"
                "<c cm=\"1\"><f t=\"array\" ref=\"G1\">_xlfn.UNIQUE(A1)</f><v>4</v></c>"
                "<c t=\"b\"><f>1=1</f><v>1</v></c><c t=\"e\"><f>1/0</f><v>#DIV/0!</v></c></row>"),
        QStringLiteral("1||||2|3|4|TRUE|#DIV/0!"));
    EXPECT_TRUE(isSound());
}

TEST_F(WorkbookParts, NumbersAreTakenAsTheyAreWritten)
{
    EXPECT_EQ(sheetOf("<row><c t=\"n\"><v> 1.0 </v></c><c><v>2.5E-1</v></c><c><v>+3</v></c>"
                      "<c><v>0.33000000000000002</v></c><c><v>1E2</v></c></row>"),
              QStringLiteral("1|0.25|3|0.33|100"));
    EXPECT_TRUE(isSound());
}

TEST_F(WorkbookParts, WhatIsNoNumberIsLeftOutAndTold)
{
    for (const char* text : { "nan", "inf", "-inf", "1e999", "12x", "1,5", "0x10" }) {
        EXPECT_EQ(sheetOf("<row><c><v>7</v></c><c><v>" + QByteArray(text) + "</v></c></row>"),
                  QStringLiteral("7"))
            << text;
        EXPECT_FALSE(isSound()) << text;
    }
}

TEST_F(WorkbookParts, DatesAreTheNumbersWhoseStyleShowsADate)
{
    const QByteArray styles =
        stylesOf({ "yyyy\\-mm\\-dd", "General", "[h]:mm:ss", "h:mm AM/PM", "0.00E+00", "[Red]0;[Blue]-0",
                   "&quot;d&quot;000000", "yyyy&quot;年&quot;m&quot;月&quot;", "[$-804]m/d h:mm", "0_d",
                   "mmm", "[&gt;=1]0" });
    QByteArray row = "<row>";
    for (int style = 0; style < 12; ++style)
        row += "<c s=\"" + QByteArray::number(style) + "\"><v>45360.5</v></c>";
    EXPECT_EQ(
        sheetOf(row + "</row>", QByteArray(), styles),
        QStringLiteral("2024-03-09|45360.5|1088652:00:00|1088652:00:00|45360.5|45360.5|45360.5|2024-03-09|"
                       "2024-03-09 12:00:00|45360.5|2024-03-09|45360.5"));
}

TEST_F(WorkbookParts, DatesCountTheDayThatNeverWasAndEndWithTheYear9999)
{
    const QByteArray styles = stylesOf({ "yyyy-mm-dd", "yyyy-mm-dd hh:mm:ss" });
    EXPECT_EQ(sheetOf("<row><c s=\"0\"><v>1</v></c><c s=\"0\"><v>59</v></c><c s=\"0\"><v>60</v></c>"
                      "<c s=\"0\"><v>61</v></c><c s=\"0\"><v>2958465</v></c><c s=\"0\"><v>2958466</v></c>"
                      "<c s=\"0\"><v>-1</v></c><c s=\"1\"><v>45360.9999999</v></c></row>",
                      QByteArray(), styles),
              QStringLiteral("1900-01-01|1900-02-28|1900-02-29|1900-03-01|9999-12-31|2958466|-1|"
                             "2024-03-10 00:00:00"));
}

TEST_F(WorkbookParts, DatesOf1904CountFromItsFirstDay)
{
    Parts parts =
        soundParts("<row><c s=\"1\"><v>0</v></c><c s=\"1\"><v>43898</v></c><c t=\"d\">"
                   "<v>2024-03-09T00:00:00Z</v></c><c t=\"d\"><v>2024-03-09T15:30:15.000</v></c></row>",
                   QByteArray(), stylesOf({ "General", "d/m/yy" }));
    parts["xl/workbook.xml"].replace("<workbookPr/>", "<workbookPr date1904=\"true\"/>");
    EXPECT_EQ(sheetOf(parts), QStringLiteral("1904-01-01|2024-03-09|2024-03-09|2024-03-09 15:30:15"));
}

TEST_F(WorkbookParts, HiddenRowsAndMergedCellsAreReadLikeOthers)
{
    Parts parts = soundParts(
        "<row r=\"1\" hidden=\"1\"><c r=\"A1\"><v>1</v></c></row>"
        "<row r=\"2\"><c r=\"A2\"><v>2</v></c><c r=\"B2\" s=\"0\"/><c r=\"C2\"><v>3</v></c></row>");
    QByteArray& sheet = parts["xl/worksheets/sheet1.xml"];
    sheet.replace("<sheetData>", "<cols><col min=\"1\" max=\"1\" hidden=\"1\"/></cols><sheetData>");
    sheet.replace("</worksheet>", "<mergeCells><mergeCell ref=\"A2:B2\"/></mergeCells></worksheet>");
    EXPECT_EQ(sheetOf(parts), QStringLiteral("1||/2||3"));
}

TEST_F(WorkbookParts, TheStrictFormIsReadLikeTheTransitionalOne)
{
    Parts parts = soundParts("<row><c t=\"s\"><v>0</v></c><c><v>2</v></c></row>", "<si><t>x</t></si>");
    for (QByteArray& part : parts) {
        part.replace(kTransitional + "officeDocument/2006/relationships",
                     "http://purl.oclc.org/ooxml/"
                     "officeDocument/relationships");
        part.replace(kTransitional + "spreadsheetml/2006/main",
                     "http://purl.oclc.org/ooxml/spreadsheetml/main");
    }
    EXPECT_EQ(sheetOf(parts), QStringLiteral("x|2"));
    EXPECT_TRUE(isSound());
}

TEST_F(WorkbookParts, PrefixesOfElementsDoNotMatter)
{
    Parts parts = soundParts("<row><c t=\"s\"><v>0</v></c></row>", "<si><t>x</t></si>");
    for (const char* name : { "xl/workbook.xml", "xl/worksheets/sheet1.xml", "xl/sharedStrings.xml" }) {
        parts[name].replace(" xmlns=", " xmlns:x=").replace("</", "\x01").replace("<?", "\x02");
        parts[name].replace("<", "<x:").replace("\x01", "</x:").replace("\x02", "<?");
    }
    EXPECT_EQ(sheetOf(parts), QStringLiteral("x"));
}

TEST_F(WorkbookParts, TargetsAreFoundHoweverTheyAreWritten)
{
    const Parts sound = soundParts("<row><c><v>1</v></c></row>");
    for (const char* target :
         { "/xl/worksheets/sheet1.xml", "../xl/worksheets/sheet1.xml", "./worksheets//sheet1.xml",
           "worksheets/../worksheets/sheet1.xml", "Worksheets/Sheet1.xml", "worksheets%2Fsheet1.xml",
           "worksheets\\sheet1.xml", "../../../xl/worksheets/sheet1.xml" }) {
        Parts parts = sound;
        parts["xl/_rels/workbook.xml.rels"].replace("worksheets/sheet1.xml", target);
        EXPECT_EQ(sheetOf(parts), QStringLiteral("1")) << target;
        EXPECT_TRUE(isSound()) << target;
    }
}

TEST_F(WorkbookParts, TheFirstSheetOfCellsIsFoundByItsRelationship)
{
    Parts parts = soundParts("<row><c><v>1</v></c></row>");
    parts["xl/second.xml"] = QByteArray(parts["xl/worksheets/sheet1.xml"]).replace("<v>1", "<v>2");
    parts["xl/_rels/workbook.xml.rels"].replace(
        "</Relationships>",
        "<Relationship Id=\"c\" Type=\"x/chartsheet\" Target=\"chart.xml\"/><Relationship "
        "Id=\"second\" Type=\"x/worksheet\" Target=\"second.xml\"/></Relationships>");
    parts["xl/workbook.xml"].replace("<sheets>",
                                     "<sheets><sheet r:id=\"c\"/><sheet sheetId=\"9\" state=\"hidden\" "
                                     "r:id=\"second\"/>");
    EXPECT_EQ(sheetOf(parts), QStringLiteral("2"));
}

TEST_F(WorkbookParts, EscapedCharactersAreResolved)
{
    EXPECT_EQ(
        sheetOf("<row><c t=\"str\"><v>a_x000A_b</v></c><c t=\"inlineStr\"><is><t>_x005F_x000A__x</t></is></c>"
                "<c t=\"str\"><v>_x12_ _xZZZZ_ _x</v></c></row>"),
        QStringLiteral("a\nb|_x000A__x|_x12_ _xZZZZ_ _x"));
}

TEST_F(WorkbookParts, RowsAndCellsWithoutPlacesFollowOneAnother)
{
    EXPECT_EQ(
        sheetOf(
            "<row><c><v>1</v></c><c r=\"D1\"><v>2</v></c><c><v>3</v></c></row><row r=\"4\"><c><v>4</v></c>"
            "</row><row><c><v>5</v></c></row>"),
        QStringLiteral("1|||2|3/||||/||||/4||||/5||||"));
}

TEST_F(WorkbookParts, TextsInOtherEncodingsOfXmlAreRead)
{
    Parts parts = soundParts("<row><c t=\"str\"><v>代码</v></c></row>");
    QByteArray& sheet = parts["xl/worksheets/sheet1.xml"];
    const QString text = QString::fromUtf8(sheet).replace(QLatin1String("UTF-8"), QLatin1String("UTF-16"));
    sheet = "\xFF\xFE" + utils::encoded(text, "UTF-16LE").value();
    EXPECT_EQ(sheetOf(parts), QStringLiteral("代码"));
}

TEST_F(WorkbookParts, TextsOfExcel95AreReadInTheirCodePage)
{
    QByteArray bytes = test::bytesOf(QStringLiteral(TEST_DATA_DIR "/workbooks/gnumeric_95.xls"));
    ASSERT_EQ(bytes.count(QByteArray("\x42\x00\x02\x00\xE4\x04", 6)), 1); // the record of the code page 1252
    bytes.replace(QByteArray("\x42\x00\x02\x00\xE4\x04", 6), QByteArray("\x42\x00\x02\x00\xA8\x03", 6));
    bytes.replace("????", utils::encoded(QStringLiteral("浦发"), "GBK").value());
    m_reader.open(test::writeFile(m_folder.filePath(QStringLiteral("a.xls")), bytes));
    EXPECT_EQ(m_reader.getData(1, 2, 2, true), QStringLiteral("浦发"));
}

TEST_F(WorkbookParts, ErrorsInCellsOfAnXlsAreReadAsExcelShowsThem)
{
    const QByteArray bytes = test::bytesOf(QStringLiteral(TEST_DATA_DIR "/workbooks/sheetjs.xls"));
    const QByteArray cell("\x05\x02\x08\x00\x04\x00\x01\x00\x10\x00\x2A\x01", 12); // B5 holds the error 0x2A
    ASSERT_EQ(bytes.count(cell), 1);
    const std::pair<char, const char*> errors[] = { { 0x00, "#NULL!" },  { 0x07, "#DIV/0!" },
                                                    { 0x0F, "#VALUE!" }, { 0x17, "#REF!" },
                                                    { 0x1D, "#NAME?" },  { 0x24, "#NUM!" },
                                                    { 0x2A, "#N/A" } };
    for (const auto& [code, text] : errors) {
        QByteArray changed = bytes;
        changed[bytes.indexOf(cell) + 10] = code;
        m_reader.open(test::writeFile(m_folder.filePath(QStringLiteral("a.xls")), changed));
        EXPECT_EQ(m_reader.getData(1, 5, 2, true), QString::fromUtf8(text));
    }
}
