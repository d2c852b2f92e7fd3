// SPDX-License-Identifier: MIT
#include "host/WB/CExcelReader.h"

#include "host/embedded/ReadingSetup.h"
#include "host/embedded/reading/TextDecoding.h"
#include "host/embedded/reading/WorkbookProgram.h"

#include <QFile>
#include <QFileInfo>

#include <atomic>

namespace TC::embedded {

namespace {

std::atomic<bool> s_excelAvailable { true };
std::atomic<int> s_readers { 0 };
thread_local WorkbookReport s_lastReport;

/// Refuses what no reader should be started for.
WorkbookReport readWorkbook(const QString& path, SheetCells& cells)
{
    const QFileInfo info(path);
    if (!info.isFile()) {
        const QString reason = info.exists() ? QStringLiteral("不是普通文件") : QStringLiteral("文件不存在");
        return { WorkbookOutcome::CannotOpen, false, reason };
    }
    if (info.size() == 0)
        return { WorkbookOutcome::EmptyFile, false, QString() };
    if (info.size() > kLargestFile)
        return { WorkbookOutcome::FileTooLarge, false, QString() };
    if (QFile file(path); !file.open(QIODevice::ReadOnly))
        return { WorkbookOutcome::CannotOpen, false, file.errorString() };
    return readInProgram(path, cells);
}

} // namespace

WorkbookReport lastWorkbookReport()
{
    return s_lastReport;
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

namespace {

/// The one sheet that is read, as the client numbers it.
constexpr int kFirstSheet = 1;

} // namespace

struct CExcelReader::Private
{
    bool isValid = false;
    TC::embedded::SheetCells cells;

    bool holds(int sheet) const { return sheet == kFirstSheet && !cells.isEmpty(); }
};

CExcelReader::CExcelReader(QObject* parent)
    : QObject(parent)
    , m_data(std::make_unique<Private>())
{
    ++TC::embedded::s_readers;
}

CExcelReader::~CExcelReader()
{
    --TC::embedded::s_readers;
}

bool CExcelReader::init(bool)
{
    m_data->isValid = TC::embedded::s_excelAvailable;
    TC::embedded::s_lastReport = {};
    return m_data->isValid;
}

bool CExcelReader::isValid() const
{
    return m_data->isValid;
}

bool CExcelReader::open(const QString& path)
{
    close();
    TC::embedded::s_lastReport = {};
    if (m_data->isValid)
        TC::embedded::s_lastReport = TC::embedded::readWorkbook(path, m_data->cells);
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
