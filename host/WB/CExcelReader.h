// SPDX-License-Identifier: MIT
#pragma once
/// @file Cells of Excel workbooks.

#include "host/HostExport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace WB {

/// Reads the first sheet of a workbook: .xlsx, .xls (5 to 2003), and the common .xls that is really text
/// with tabs or commas. The content decides, not the file name. Sheets, rows and columns count from 1.
///
/// Refused, leaving the reader empty: encrypted and password-protected workbooks, files above 64 MiB,
/// archives of more than 1,000 entries or 256 MiB unpacked, more than 2 million cells, files of no known
/// kind. A damaged workbook gives the cells before the damage, or none. Never throws. The embedded host reads
/// in a program of its own, and tells by TC::embedded::lastWorkbookReport() what came of it.
///
/// Numbers come as plain text without a format: 1 for a cell shown as 000001, 0.25, no ".0" behind an
/// integral number. Numbers shown as dates come as 2024-03-09, 2024-03-09 15:30:15 or 15:30:15, truths as
/// TRUE and FALSE, errors as `#N/A`. Formula cells give their stored result, or nothing when none is stored.
class INDICATORHOST_EXPORT CExcelReader : public QObject
{
    Q_OBJECT

public:
    /// A reader that is not ready yet; see init().
    explicit CExcelReader(QObject* parent = nullptr);
    ~CExcelReader() override;

    /// Makes the reader ready. @param visible  kept for the client: there is no window to show.
    bool init(bool visible);
    /// True from a successful init() to exitExcel().
    bool isValid() const;

    /// Reads a workbook in place of the one before. @return whether it holds at least one cell.
    bool open(const QString& path);

    /// First row that holds a cell; 1 when the sheet is empty or is not sheet 1.
    int getSheetStartRow(int sheet) const;
    /// Rows from the first to the last that hold a cell; 0 when the sheet is empty or is not sheet 1.
    int getSheetRowCount(int sheet) const;
    /// First column that holds a cell; 1 when the sheet is empty or is not sheet 1.
    int getSheetStartCol(int sheet) const;
    /// Columns from the first to the last that hold a cell; 0 when the sheet is empty or is not sheet 1.
    int getSheetColCount(int sheet) const;

    /// Text of a cell; empty for an empty cell or a place outside the sheet.
    /// @param plain  kept for the client: cells always come as plain values, without their number format.
    QString getData(int sheet, int row, int col, bool plain) const;

    /// Forgets the workbook.
    void close();
    /// Ends the reader; init() makes it ready again.
    void exitExcel();

private:
    struct Private;
    std::shared_ptr<Private> m_data; ///< the host's own; never shared, but no host must define it
};

} // namespace WB
