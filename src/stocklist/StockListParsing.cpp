// SPDX-License-Identifier: MIT
/// @file Stock lists from text files, the clipboard and workbooks.

#include "stocklist/CParserStockExeclTable.h"

#include "host/TC/CStockManager.h"
#include "host/TC/QReadFile.h"
#include "host/WB/CExcelReader.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/ttservice/StockTypeCenter.h"
#include "host/utils/CSingletonT.h"

#include <QApplication>
#include <QClipboard>

#include <cmath>

namespace TC {

namespace {

using Instrument = std::shared_ptr<ttservice::CInstrumentDetail>;

constexpr double kTolerance = 1e-5;
constexpr int kSheet = 1;

// Columns of a stock list.
constexpr int kCodeField = 0, kRelativeField = 2, kSharesField = 4;

/// Whether the instrument is of the one class that a basket admits.
bool isAdmitted(const Instrument& instrument)
{
    constexpr int admittedType = 100003;
    return instrument
        && utils::CSingletonT<ttservice::StockTypeCenter>::instance()->isTypedStock(
            admittedType, instrument->market, instrument->code);
}

/// Keeps the smaller value: a running minimum never rises, not even within a tolerance. One that is no number
/// gives way.
void lowerMinimum(double& minimum, double value)
{
    if (!(value >= minimum))
        minimum = value;
}

/// The first admitted instrument of any market that bears the code of a workbook cell; null when none does.
Instrument instrumentOfCell(QString code)
{
    constexpr int codeLength = 6; // a cell formatted 000000 holds 1 for 000001
    if (!code.isEmpty() && code.size() < codeLength)
        code = code.rightJustified(codeLength, QLatin1Char('0'));
    QVector<Instrument> candidates;
    utils::CSingletonT<CStockManager>::instance()->getMultiStockDetail(code, candidates);
    for (const Instrument& candidate : std::as_const(candidates)) {
        if (isAdmitted(candidate))
            return candidate;
    }
    return nullptr;
}

/// Shares in whole lots; a count that is not positive is none.
int wholeLots(int shares)
{
    constexpr int lot = 100;
    return shares < lot ? 0 : shares / lot * lot;
}

} // namespace

void CParserStockExeclTable::parserToStockDetail(QList<QString>& fields, QVector<ParserStockDetail>& out,
                                                 double& minRelativeWeight)
{
    if (fields.isEmpty())
        return;
    // Deliberate: the code is taken as it stands, without trimming or padding.
    ParserStockDetail record;
    record.instrument =
        utils::CSingletonT<CStockManager>::instance()->getInstrumentDetail(fields[kCodeField]);
    if (isAdmitted(record.instrument)) {
        // Deliberate: a recognised code ends the row. Weights and shares behind it are not read.
        out.append(record);
        return;
    }
    // Deliberate: a row without a stock (a header, say) gives no record but still counts for the minimum,
    // with a whole number: "0.5" and words count as 0.
    if (fields.size() > kRelativeField)
        lowerMinimum(minRelativeWeight, fields[kRelativeField].toInt());
}

void CParserStockExeclTable::parserCvs(QString path, QVector<ParserStockDetail>& out,
                                       double& minRelativeWeight)
{
    QList<QString> lines;
    QReadFile(path, lines, false);
    for (const QString& line : std::as_const(lines)) {
        QList<QString> fields = line.split(QLatin1Char(','), Qt::KeepEmptyParts, Qt::CaseSensitive);
        parserToStockDetail(fields, out, minRelativeWeight);
    }
}

void CParserStockExeclTable::parserPaste(QVector<ParserStockDetail>& out, double& minRelativeWeight)
{
    // Deliberate: "\r" stays. A row of a code alone with a Windows line end is not recognised.
    const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        QList<QString> fields = line.split(QLatin1Char('\t'));
        parserToStockDetail(fields, out, minRelativeWeight);
    }
}

void CParserStockExeclTable::parserExcel(QString path, QVector<ParserStockDetail>& out,
                                         double& minRelativeWeight)
{
    const auto release = [](WB::CExcelReader* reader) { reader->deleteLater(); };
    const std::unique_ptr<WB::CExcelReader, decltype(release)> reader(new WB::CExcelReader, release);
    reader->init(false);
    if (!reader->isValid())
        return;

    reader->open(path); // a workbook that does not open has no rows
    const int startRow = reader->getSheetStartRow(kSheet);
    const int rowCount = reader->getSheetRowCount(kSheet);
    const int startColumn = reader->getSheetStartCol(kSheet);
    const int columnCount = reader->getSheetColCount(kSheet);
    for (int row = startRow; row < startRow + rowCount; ++row) {
        const auto cell = [&](int field) { return reader->getData(kSheet, row, startColumn + field, true); };
        ParserStockDetail record;
        if (columnCount > kCodeField)
            record.instrument = instrumentOfCell(cell(kCodeField));
        // Deliberate: unlike a text row, a recognised row is read on, and one without a stock as well.
        if (columnCount > kRelativeField) {
            record.relativeWeight = cell(kRelativeField).toDouble();
            if (std::abs(record.relativeWeight) > kTolerance)
                lowerMinimum(minRelativeWeight, record.relativeWeight);
        }
        if (columnCount > kSharesField)
            record.shareCount = wholeLots(cell(kSharesField).toInt());
        if (record.instrument)
            out.append(record);
    }
    reader->close();
    reader->exitExcel();
}

} // namespace TC
