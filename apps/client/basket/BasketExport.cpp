// SPDX-License-Identifier: MIT
#include "apps/client/basket/BasketExport.h"

#include "apps/base/FileNames.h"
#include "host/embedded/TableSetup.h"
#include "stocklist/CParserStockExeclTable.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace client {

namespace {

/// Of this file, for the catalogue.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(BasketExport)
};

constexpr qint64 kCoarsestStampMs = 2000; // file systems that count in two seconds

/// Whether the file was written since then and ends with the last of so many lines.
bool holdsLines(const QString& path, int count, const QDateTime& since)
{
    const QFileInfo info(path);
    if (!info.isFile() || !info.isWritable() || info.lastModified() < since.addMSecs(-kCoarsestStampMs))
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    return bytes.endsWith('\n') && bytes.count('\n') == count;
}

} // namespace

QString exportBasket(TC::CParserStockExeclTable& table)
{
    const QDateTime begin = QDateTime::currentDateTime();
    QMetaObject::invokeMethod(&table, "slotExportData", Qt::DirectConnection); // the entry's own way
    const QString path = TC::embedded::lastSaveDialogRequest().answer;
    if (path.isEmpty())
        return QString();
    const QString name = base::printable(path);
    if (!path.endsWith(QLatin1String(".txt")) && !path.endsWith(QLatin1String(".csv")))
        return Texts::tr("未导出：文件名要以 .txt 或 .csv 结尾（%1）").arg(name);
    const int lines = table.rowCount() + 1;
    return holdsLines(path, lines, begin) ? Texts::tr("已导出 %1 行到 %2").arg(table.rowCount()).arg(name)
                                          : Texts::tr("导出失败，文件不完整或未写入：%1").arg(name);
}

} // namespace client
