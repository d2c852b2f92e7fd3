// SPDX-License-Identifier: MIT
#pragma once
/// @file A basket for tests: records made in a line, rows read back as text.

#include "stocklist/CParserStockExeclTable.h"

#include "host/TC/CStockManager.h"
#include "host/WB/TableEvents.h"
#include "host/utils/CSingletonT.h"

#include <QSignalSpy>
#include <QTableView>

namespace test {

/// A record of a stock of the instrument database.
inline TC::ParserStockDetail stock(const char* code, double relative, double absolute = 0.0, int shares = 0)
{
    TC::ParserStockDetail record;
    record.instrument =
        utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(QString::fromLatin1(code));
    record.relativeWeight = relative;
    record.absoluteWeight = absolute;
    record.shareCount = shares;
    return record;
}

/// The table under test, with its protected parts open.
class BasketTable : public TC::CParserStockExeclTable
{
public:
    explicit BasketTable(QFlags<WB::EBaseTableMenuFlag> menu = {})
        : CParserStockExeclTable(1, nullptr, menu)
    {
    }
    using CParserStockExeclTable::copyData;
    using CParserStockExeclTable::exportData;

    void add(QVector<TC::ParserStockDetail> details, double minimum = 1.0) { addData(details, minimum); }

    /// Cells of a row apart by spaces.
    QString rowText(int index) const
    {
        QStringList cells;
        for (int id = 0; id < columnCount(); ++id)
            cells << cellText(rowID(index), id);
        return cells.join(QLatin1Char(' '));
    }
    /// One column of all rows, apart by spaces.
    QString columnText(int id) const
    {
        QStringList cells;
        for (int index = 0; index < rowCount(); ++index)
            cells << cellText(rowID(index), id);
        return cells.join(QLatin1Char(' '));
    }
    /// Both vectors of weights, as "1 2 | 0.5 0.5".
    QString weights()
    {
        QVector<float> relative, absolute;
        getWeightValue(relative, absolute);
        return joined(relative) + QStringLiteral(" | ") + joined(absolute);
    }
    QString shares() const
    {
        QList<int> amounts;
        getStockAmount(amounts);
        QStringList texts;
        for (const int amount : amounts)
            texts << QString::number(amount);
        return texts.join(QLatin1Char(' '));
    }
    bool edit(int row, int column, const char* text)
    {
        WB::TableCellEdit block { column, QString::fromUtf8(text) };
        return handleEvent(WB::ETableEvent_CellEdited, row, column, block.text, &block);
    }
    bool editInteger(int row, int value)
    {
        return handleEvent(WB::ETableEvent_IntegerEdited, row, 3, QString::number(value), &value);
    }
    QTableView* view() const { return findChild<QTableView*>(); }

private:
    static QString joined(const QVector<float>& numbers)
    {
        QStringList texts;
        for (const float number : numbers)
            texts << QString::number(double(number));
        return texts.join(QLatin1Char(' '));
    }
};

} // namespace test
