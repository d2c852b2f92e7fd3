// SPDX-License-Identifier: MIT
#include "apps/client/basket/ImportReport.h"

#include "host/TC/CStockManager.h"
#include "host/TC/QReadFile.h"
#include "host/WB/CExcelReader.h"
#include "host/embedded/ReadingSetup.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/ttservice/StockTypeCenter.h"
#include "host/utils/CSingletonT.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace client {

namespace {

/// Of this file, for the catalogue.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ImportReport)
};

constexpr int kAShare = 100003;
constexpr int kCodeLength = 6;
constexpr int kMostExamples = 5;

using Detail = TC::CStockManager::Detail;

bool isAShare(const Detail& instrument)
{
    return utils::CSingletonT<ttservice::StockTypeCenter>::instance()->isTypedStock(
        kAShare, instrument->market, instrument->code);
}

QVector<Detail> candidates(const QString& code, bool workbook)
{
    const auto* stocks = utils::CSingletonT<TC::CStockManager>::instance();
    QVector<Detail> found;
    if (workbook)
        stocks->getMultiStockDetail(code.rightJustified(kCodeLength, QLatin1Char('0')), found);
    else if (const Detail instrument = stocks->getInstrumentDetail(code))
        found << instrument;
    return found;
}

/// Whether the first row of a list names its columns: it holds no code, and none has a code without a digit.
bool namesColumns(const QString& code)
{
    return !code.trimmed().isEmpty()
        && std::none_of(code.begin(), code.end(), [](QChar letter) { return letter.isDigit(); });
}

} // namespace

QString ImportReport::text(const QString& source) const
{
    QStringList skipped;
    if (empty > 0)
        skipped << Texts::tr("空行 %1").arg(empty);
    if (unknown > 0)
        skipped << Texts::tr("代码未知 %1").arg(unknown);
    if (otherKind > 0)
        skipped << Texts::tr("非A股 %1").arg(otherKind);
    QString line = Texts::tr("%1：读入 %2 行，识别 %3 行").arg(source).arg(rows).arg(recognised);
    if (!skipped.isEmpty())
        line += Texts::tr("，跳过 %1 行（%2）").arg(rows - recognised).arg(skipped.join(Texts::tr("，")));
    if (!examples.isEmpty())
        line += Texts::tr("，例如 %1").arg(examples.join(Texts::tr("、")));
    if (!trouble.isEmpty())
        line += Texts::tr("；%1").arg(trouble);
    return line;
}

ImportReport reportOn(const QVector<QString>& codes, bool workbook)
{
    ImportReport report;
    for (int row = 0; row < codes.size(); ++row) {
        const QString& code = codes.at(row);
        if (row == 0 && codes.size() > 1 && namesColumns(code))
            continue;
        ++report.rows;
        if (code.trimmed().isEmpty()) {
            ++report.empty;
            continue;
        }
        const QVector<Detail> found = candidates(code, workbook);
        if (std::any_of(found.begin(), found.end(), isAShare)) {
            ++report.recognised;
            continue;
        }
        ++(found.isEmpty() ? report.unknown : report.otherKind);
        if (report.examples.size() < kMostExamples)
            report.examples << code.simplified().left(20);
    }
    return report;
}

ImportReport reportOnFile(const QString& path, bool workbook)
{
    QVector<QString> codes;
    QString trouble;
    if (workbook) {
        WB::CExcelReader reader;
        reader.init(false);
        reader.open(path);
        trouble = TC::embedded::textOf(TC::embedded::lastWorkbookReport());
        const int row = reader.getSheetStartRow(1), column = reader.getSheetStartCol(1);
        for (int i = 0; i < reader.getSheetRowCount(1); ++i)
            codes << reader.getData(1, row + i, column, true);
    } else {
        QString file = path;
        QList<QString> lines;
        TC::QReadFile(file, lines, false);
        for (const QString& line : std::as_const(lines))
            codes << line.section(QLatin1Char(','), 0, 0);
    }
    ImportReport report = reportOn(codes, workbook);
    report.trouble = trouble;
    return report;
}

} // namespace client
