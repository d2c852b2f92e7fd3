// SPDX-License-Identifier: MIT
#include "tests/widget/stocklist/BasketTable.h"

#include "host/embedded/EmbeddedHost.h"
#include "tests/support/Trace.h"
#include "tests/support/Workbooks.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using test::BasketTable;

namespace {

/// Types a text into a cell of the shown window, as a user does.
void typeInto(BasketTable& table, int place, int column, const char* text)
{
    QTableView* view = table.view();
    view->setCurrentIndex(view->model()->index(place, column));
    QTest::keyClicks(view, QString::fromUtf8(text).left(1)); // any key opens the editor
    auto* editor = view->viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    QTest::keyClicks(editor, QString::fromUtf8(text).mid(1));
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
}

/// Clicks into a header.
void clickHeader(BasketTable& table, int column)
{
    QHeaderView* header = table.view()->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(column) + 10, header->height() / 2));
}

} // namespace

TEST(BasketJourney, ImportEditSortFilterDeleteReweighCopyExportAndReadBack)
{
    const QTemporaryDir folder;
    const QString workbook =
        test::writeXls(folder.filePath(QStringLiteral("basket.xls")),
                       { { QStringLiteral("代码"), QStringLiteral("名称"), QStringLiteral("相对权重"),
                           QStringLiteral("绝对权重(%)"), QStringLiteral("股数") },
                         { 1, QStringLiteral("平安银行"), 0.5, QVariant(), 250 },
                         { QStringLiteral("600000"), QStringLiteral("浦发银行"), 1.5, QVariant(), 1999 },
                         { QStringLiteral("600036"), QStringLiteral("招商银行"), 3, QVariant(), 99 },
                         { QStringLiteral("999999"), QStringLiteral("unknown"), 9, QVariant(), 100 } });
    BasketTable table;
    table.show();
    QSignalSpy changed(&table, SIGNAL(sigChange()));

    // Import: 0.5 is the smallest weight, so that all show times 10.
    QVector<TC::ParserStockDetail> details;
    double minimum = 100.0;
    TC::CParserStockExeclTable::parserExcel(workbook, details, minimum);
    EXPECT_EQ(minimum, 0.5);
    table.addData(details, minimum);
    EXPECT_EQ(table.rowText(0), QStringLiteral("SH 600000 浦发银行 15 30 1900"));
    EXPECT_EQ(table.rowText(1), QStringLiteral("SH 600036 招商银行 30 60 0"));
    EXPECT_EQ(table.rowText(2), QStringLiteral("SZ 000001 平安银行 5 10 200"));
    EXPECT_EQ(table.statText(4), QStringLiteral("100.0%"));

    // Edit: a relative weight and a share count, through the cells' own editors.
    typeInto(table, 0, 3, "7");
    typeInto(table, 1, 5, "500");
    EXPECT_EQ(changed.size(), 2);
    EXPECT_EQ(table.columnText(5), QStringLiteral("1900 500 200"));
    EXPECT_EQ(table.columnText(4), QStringLiteral("67 29 5")); // 7, 3 and 0.5 of 10.5

    // Sort by shares, then filter by initials.
    clickHeader(table, 5);
    EXPECT_EQ(table.columnText(5), QStringLiteral("200 500 1900"));
    clickHeader(table, 5);
    EXPECT_EQ(table.columnText(5), QStringLiteral("1900 500 200"));
    table.setColumnFilter(2, QStringLiteral("zsyh"));
    EXPECT_EQ(table.columnText(1), QStringLiteral("600036"));
    table.setColumnFilter(2, QString());

    // Delete the last row by key.
    table.selectRows({ table.rowID(2) });
    QTest::keyClick(table.view(), Qt::Key_Delete);
    EXPECT_EQ(table.columnText(1), QStringLiteral("600000 600036"));
    EXPECT_EQ(changed.size(), 3);

    // Another rule: by shares, 1900 and 500 of 2400.
    table.setWeightType(5);
    table.reCalc();
    EXPECT_EQ(table.rowText(0), QStringLiteral("SH 600000 浦发银行 19 79 1900"));
    EXPECT_EQ(table.weights(), QStringLiteral("19 5 | 0.791667 0.208333"));

    // Copy and export the same rows.
    table.copyData();
    const QString copy = QApplication::clipboard()->text();
    EXPECT_EQ(copy.split(QLatin1Char('\n'))[1], QStringLiteral("SH\t600000\t浦发银行\t19\t79\t1900"));
    const QString file = folder.filePath(QStringLiteral("out.csv"));
    TC::embedded::setSaveDialogAnswer(file);
    EXPECT_TRUE(table.exportData());
    EXPECT_EQ(test::bytesOf(file).count('\n'), 3);

    // Read back: an export begins with the market, so nothing comes in; codes alone do.
    details.clear();
    TC::CParserStockExeclTable::parserCvs(file, details, minimum);
    EXPECT_TRUE(details.isEmpty());
    table.clearAll();
    QApplication::clipboard()->setText(QStringLiteral("600000\t浦发银行\n000001\n"));
    table.parserPaste(details, minimum);
    table.addData(details, 1.0);
    EXPECT_EQ(table.columnText(1), QStringLiteral("600000 000001"));
}

TEST(BasketJourney, TenThousandStocksAreShownWithoutWaiting)
{
    QVector<ttservice::CInstrumentDetail> instruments;
    for (int i = 0; i < 10'000; ++i) {
        ttservice::CInstrumentDetail instrument;
        instrument.market = "SZ";
        instrument.code = QString::number(100'000 + i).toStdString();
        instrument.name = "银行";
        instrument.kind = "stock";
        instruments.append(instrument);
    }
    TC::embedded::setInstruments(instruments);
    BasketTable table;
    table.show();
    QVector<TC::ParserStockDetail> details;
    for (int i = 0; i < 10'000; ++i)
        details.append(test::stock(QByteArray::number(100'000 + i).constData(), i + 1.0));
    table.addData(details, 1.0);
    table.setSorting(3, Qt::DescendingOrder);
    EXPECT_EQ(table.cellText(table.rowID(0), 1), QStringLiteral("109999"));
    table.setColumnFilter(2, QStringLiteral("yh"));
    EXPECT_EQ(table.rowCount(), 10'000);
    table.grab();
}
