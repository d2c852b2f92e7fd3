#include "host/embedded/reading/IsolatedReading.h"
#include "host/embedded/reading/WorkbookFormats.h"

#include <QFile>

#include <freexl.h>

#include <memory>

namespace TC::embedded {

namespace {

constexpr std::uint64_t kMostPlaces =
    20'000'000; // rows times columns of all sheets: the library holds them all

using OpenXls = int (*)(const char*, const void**);

/// An open workbook. The library wants every handle closed, also the one of a failed opening.
class XlsFile
{
public:
    XlsFile(const QString& path, OpenXls open)
    {
        m_isOpen = open(QFile::encodeName(path).constData(), &m_handle) == FREEXL_OK;
    }
    ~XlsFile()
    {
        if (m_handle)
            freexl_close(m_handle);
    }
    XlsFile(const XlsFile&) = delete;
    XlsFile& operator=(const XlsFile&) = delete;

    bool isOpen() const { return m_isOpen; }
    const void* handle() const { return m_handle; }
    unsigned info(unsigned short what) const
    {
        unsigned value = 0;
        return freexl_get_info(m_handle, what, &value) == FREEXL_OK ? value : 0;
    }

private:
    const void* m_handle = nullptr;
    bool m_isOpen = false;
};

/// Whether the workbook may be loaded: no password, and no more places than memory should hold.
bool isReasonableWorkbook(const QString& path)
{
    const XlsFile file(path, freexl_open_info);
    if (!file.isOpen() || file.info(FREEXL_BIFF_PASSWORD) == FREEXL_BIFF_OBFUSCATED)
        return false;
    std::uint64_t places = 0;
    const unsigned sheets = file.info(FREEXL_BIFF_SHEET_COUNT);
    for (unsigned i = 0; i < sheets && i <= 0xFFFF; ++i) {
        unsigned rows = 0;
        unsigned short columns = 0;
        if (freexl_select_active_worksheet(file.handle(), static_cast<unsigned short>(i)) == FREEXL_OK
            && freexl_worksheet_dimensions(file.handle(), &rows, &columns) == FREEXL_OK)
            places += std::uint64_t(rows) * columns;
    }
    return sheets > 0 && places <= kMostPlaces;
}

void takeCell(const FreeXL_CellValue& value, int row, int column, SheetCells& cells)
{
    switch (value.type) {
    case FREEXL_CELL_INT: cells.setNumber(row, column, value.value.int_value); break;
    case FREEXL_CELL_DOUBLE: cells.setNumber(row, column, value.value.double_value); break;
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME: cells.setText(row, column, QString::fromUtf8(value.value.text_value)); break;
    default: break;
    }
}

void readHere(const QString& path, SheetCells& cells)
{
    if (!isReasonableWorkbook(path))
        return;
    const XlsFile file(path, freexl_open);
    unsigned rows = 0;
    unsigned short columns = 0;
    if (!file.isOpen() || freexl_select_active_worksheet(file.handle(), 0) != FREEXL_OK
        || freexl_worksheet_dimensions(file.handle(), &rows, &columns) != FREEXL_OK)
        return;
    for (unsigned row = 0; row < rows && !cells.isRefused(); ++row) {
        for (unsigned short column = 0; column < columns; ++column) {
            FreeXL_CellValue value;
            if (freexl_get_cell_value(file.handle(), row, column, &value) == FREEXL_OK)
                takeCell(value, static_cast<int>(row), column, cells);
        }
    }
}

} // namespace

void readXls(const QString& path, SheetCells& cells)
{
    // The library can crash on damaged files.
    readIsolated([&](SheetCells& found) { readHere(path, found); }, cells);
}

} // namespace TC::embedded
