#include "host/WB/CExcelReader.h"

#include "host/embedded/ReadingSetup.h"
#include "host/embedded/reading/SheetCells.h"
#include "host/embedded/reading/TextDecoding.h"
#include "host/embedded/reading/WorkbookFormats.h"

#include <QStringList>

#include <algorithm>
#include <atomic>

namespace {

bool s_excelAvailable = true;
std::atomic<int> s_readers { 0 };

/// The one sheet that is read, as the client numbers it.
constexpr int kFirstSheet = 1;

bool isText(const QString& text)
{
    constexpr int looked = 1024;
    const auto isControl = [](QChar c) {
        return c < QLatin1Char(' ') && c != QLatin1Char('\t') && c != QLatin1Char('\n')
            && c != QLatin1Char('\r');
    };
    return std::none_of(text.cbegin(), text.cbegin() + std::min(text.size(), looked), isControl);
}

/// Fills the cells by the kind that the first bytes show.
void readWorkbook(const QString& path, TC::embedded::SheetCells& cells)
{
    QByteArray bytes;
    if (!TC::embedded::readPlainFile(path, bytes))
        return;
    const bool isCompoundFile = bytes.startsWith("\xD0\xCF\x11\xE0");
    const bool isBareStream = bytes.startsWith(QByteArray::fromRawData("\x09\x08", 2))
        || bytes.startsWith(QByteArray::fromRawData("\x09\x04", 2))
        || bytes.startsWith(QByteArray::fromRawData("\x09\x02", 2))
        || bytes.startsWith(QByteArray::fromRawData("\x09\x00", 2));
    if (bytes.startsWith("PK\x03\x04"))
        TC::embedded::readXlsx(bytes, cells);
    else if (isCompoundFile || isBareStream)
        TC::embedded::readXls(path, cells);
    else
        TC::embedded::readTextSheet(bytes, cells);
}

} // namespace

namespace TC::embedded {

void readTextSheet(const QByteArray& bytes, SheetCells& cells)
{
    const QString text = decodeText(bytes);
    QList<QString> lines;
    if (!isText(text) || !splitLines(text, false, lines))
        return;
    for (int row = 0; row < lines.size(); ++row) {
        const QChar separator = QLatin1Char(lines[row].contains(QLatin1Char('\t')) ? '\t' : ',');
        const QStringList fields = lines[row].split(separator);
        for (int column = 0; column < fields.size(); ++column) {
            if (!fields[column].isEmpty())
                cells.setText(row, column, fields[column]);
        }
    }
}

void setExcelAvailable(bool available)
{
    s_excelAvailable = available;
}

int excelReaderCount()
{
    return s_readers;
}

} // namespace TC::embedded

namespace WB {

struct CExcelReader::Private
{
    bool isValid = false;
    TC::embedded::SheetCells cells;

    bool holds(int sheet) const { return sheet == kFirstSheet && !cells.isEmpty(); }
};

CExcelReader::CExcelReader(QObject* parent)
    : QObject(parent)
    , m_data(std::make_shared<Private>())
{
    ++s_readers;
}

CExcelReader::~CExcelReader()
{
    --s_readers;
}

bool CExcelReader::init(bool)
{
    m_data->isValid = s_excelAvailable;
    return m_data->isValid;
}

bool CExcelReader::isValid() const
{
    return m_data->isValid;
}

bool CExcelReader::open(const QString& path)
{
    close();
    if (!m_data->isValid)
        return false;
    readWorkbook(path, m_data->cells);
    m_data->cells.finish();
    return !m_data->cells.isEmpty();
}

int CExcelReader::getSheetStartRow(int sheet) const
{
    return m_data->holds(sheet) ? m_data->cells.firstRow() + 1 : 1;
}

int CExcelReader::getSheetRowCount(int sheet) const
{
    return m_data->holds(sheet) ? m_data->cells.lastRow() - m_data->cells.firstRow() + 1 : 0;
}

int CExcelReader::getSheetStartCol(int sheet) const
{
    return m_data->holds(sheet) ? m_data->cells.firstColumn() + 1 : 1;
}

int CExcelReader::getSheetColCount(int sheet) const
{
    return m_data->holds(sheet) ? m_data->cells.lastColumn() - m_data->cells.firstColumn() + 1 : 0;
}

QString CExcelReader::getData(int sheet, int row, int col, bool) const
{
    const bool isPlace = m_data->holds(sheet) && row >= 1 && col >= 1;
    return isPlace ? m_data->cells.text(row - 1, col - 1) : QString();
}

void CExcelReader::close()
{
    m_data->cells = TC::embedded::SheetCells();
}

void CExcelReader::exitExcel()
{
    close();
    m_data->isValid = false;
}

} // namespace WB
