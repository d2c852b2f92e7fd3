// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/xls/XlsSheet.h"

#include <cstring>

namespace workbook {

namespace {

double doubleOf(quint64 bits)
{
    double number;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

/// A number packed into 30 bits: a whole number or the upper part of a double, perhaps in hundredths.
double unpacked(quint32 packed)
{
    constexpr quint32 isInHundredths = 1, isWhole = 2;
    const double number =
        packed & isWhole ? static_cast<qint32>(packed) >> 2 : doubleOf(quint64(packed & ~quint32(3)) << 32);
    return packed & isInHundredths ? number / 100.0 : number;
}

QString errorText(int code)
{
    switch (code) {
    case 0x00: return QStringLiteral("#NULL!");
    case 0x07: return QStringLiteral("#DIV/0!");
    case 0x0F: return QStringLiteral("#VALUE!");
    case 0x17: return QStringLiteral("#REF!");
    case 0x1D: return QStringLiteral("#NAME?");
    case 0x24: return QStringLiteral("#NUM!");
    default: return QStringLiteral("#N/A");
    }
}

/// Turns the records of one sheet into cells.
class Sheet
{
public:
    Sheet(const XlsBook& book, CellCollector& cells)
        : m_book(book)
        , m_cells(cells)
    {
    }
    void take(const Record& record);

private:
    /// Place and style, with which every record of a cell begins.
    struct Head
    {
        int row, column, style;
    };
    static Head head(RecordReader& reader);

    void setNumber(const Head& at, double number);
    void setBoolOrError(const Head& at, int value, bool isError);
    void takeNumber(RecordReader& reader);
    void takePacked(RecordReader& reader, int count);
    void takeShared(RecordReader& reader);
    void takeLabel(RecordReader& reader);
    void takeBoolOrError(RecordReader& reader);
    void takeFormula(RecordReader& reader);
    void takeStringResult(RecordReader& reader);

    const XlsBook& m_book;
    CellCollector& m_cells;
    Head m_awaited { -1, -1, 0 }; ///< the formula whose text is to come
};

Sheet::Head Sheet::head(RecordReader& reader)
{
    const int row = reader.word(), column = reader.word(), style = reader.word();
    return { row, column, style };
}

void Sheet::setNumber(const Head& at, double number)
{
    const QString date = dateText(number, m_book.kind(at.style), m_book.is1904);
    if (date.isEmpty())
        m_cells.setNumber(at.row, at.column, number);
    else
        m_cells.setText(at.row, at.column, date);
}

void Sheet::setBoolOrError(const Head& at, int value, bool isError)
{
    if (isError)
        m_cells.setText(at.row, at.column, errorText(value));
    else
        m_cells.setBool(at.row, at.column, value != 0);
}

void Sheet::takeNumber(RecordReader& reader)
{
    const Head at = head(reader);
    const double number = doubleOf(reader.longWord());
    if (reader.isWhole())
        setNumber(at, number);
}

/// Numbers side by side: style and number in turn.
void Sheet::takePacked(RecordReader& reader, int count)
{
    const int row = reader.word();
    for (int column = reader.word(); count > 0; --count, ++column) {
        const int style = reader.word();
        const double number = unpacked(reader.doubleWord());
        if (reader.isWhole())
            setNumber({ row, column, style }, number);
    }
}

void Sheet::takeShared(RecordReader& reader)
{
    const Head at = head(reader);
    const quint32 index = reader.doubleWord();
    if (reader.isWhole())
        m_cells.setShared(at.row, at.column, index);
}

void Sheet::takeLabel(RecordReader& reader)
{
    const Head at = head(reader);
    const QString text = m_book.text(reader, true);
    if (reader.isWhole())
        m_cells.setText(at.row, at.column, text);
}

void Sheet::takeBoolOrError(RecordReader& reader)
{
    const Head at = head(reader);
    const int value = reader.byte();
    const bool isError = reader.byte() != 0;
    if (reader.isWhole())
        setBoolOrError(at, value, isError);
}

/// The result of a formula is a number, or what six bytes say ahead of a mark.
void Sheet::takeFormula(RecordReader& reader)
{
    enum { Text = 0, Bool = 1, Error = 2 }; // any other: an empty text
    constexpr quint64 mark = 0xFFFF;
    const Head at = head(reader);
    const quint64 result = reader.longWord();
    if (!reader.isWhole())
        return;
    const int kind = static_cast<int>(result & 0xFF), value = static_cast<int>(result >> 16 & 0xFF);
    if (result >> 48 != mark)
        setNumber(at, doubleOf(result));
    else if (kind == Bool || kind == Error)
        setBoolOrError(at, value, kind == Error);
    else if (kind == Text)
        m_awaited = at;
}

void Sheet::takeStringResult(RecordReader& reader)
{
    const QString text = m_book.text(reader, true);
    if (m_awaited.row >= 0 && reader.isWhole())
        m_cells.setText(m_awaited.row, m_awaited.column, text);
    m_awaited.row = -1;
}

void Sheet::take(const Record& record)
{
    constexpr int packedHead = 6, packedSize = 6; // bytes: row, first and last column; style and number
    RecordReader reader(record);
    switch (record.kind) {
    case Record::Number: takeNumber(reader); break;
    case Record::Rk: takePacked(reader, 1); break;
    case Record::MulRk: takePacked(reader, (record.bytes.size() - packedHead) / packedSize); break;
    case Record::LabelShared: takeShared(reader); break;
    case Record::Label:
    case Record::RString: takeLabel(reader); break;
    case Record::BoolOrError: takeBoolOrError(reader); break;
    case Record::Formula: takeFormula(reader); break;
    case Record::StringResult: takeStringResult(reader); break;
    default: return;
    }
    if (!reader.isWhole())
        m_cells.noteLoss();
}

} // namespace

void readXlsSheet(const QByteArray& stream, qint64 from, const XlsBook& book, CellCollector& cells)
{
    Records records(stream, from);
    Record record;
    if (!records.next(record) || record.kind != Record::Begin) {
        cells.noteLoss();
        return;
    }
    Sheet sheet(book, cells);
    int depth = 1; // charts within the sheet have a beginning and an end of their own
    while (depth > 0 && !cells.isRefused() && records.next(record)) {
        if (record.kind == Record::Begin)
            ++depth;
        else if (record.kind == Record::End)
            --depth;
        else if (depth == 1)
            sheet.take(record);
    }
    if (depth > 0)
        cells.noteLoss();
}

} // namespace workbook
