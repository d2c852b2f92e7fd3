// SPDX-License-Identifier: MIT
#pragma once
/// @file What instruments stand at.

#include "apps/client/lists/InstrumentList.h"
#include "engine/series/BarSeries.h"

#include <QAbstractTableModel>
#include <QFutureWatcher>
#include <QTimer>

#include <vector>

namespace client {

/// The last price of an instrument with its change over the close before; NaN where it is not known.
struct Quote
{
    double last, change, percent, volume;
    int decimals = 2; ///< of prices
};

/// One row per instrument. Figures come from the ends of the files, read in the background; rows stand at
/// once. GUI thread only.
class QuoteModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum EColumn { EColumn_Key, EColumn_Name, EColumn_Last, EColumn_Change, EColumn_Percent, EColumn_Volume };
    static constexpr int kColumns = 6;

    explicit QuoteModel(QObject* parent = nullptr);
    ~QuoteModel() override;

    /// Replaces the rows and begins to read their figures.
    void setInstruments(const std::vector<ListedInstrument>& instruments);
    /// Takes the figures of one instrument from its bars.
    void setBars(const QString& path, const engine::BarSeries& bars);
    /// The file of a row.
    QString pathOf(int row) const { return m_rows[static_cast<std::size_t>(row)].instrument.path; }
    /// Whether figures are still being read.
    bool isReading() const { return m_reading.isRunning(); }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// Instruments without the figure stand last in either order. @param column  -1: as they are listed.
    void sort(int column, Qt::SortOrder order) override;

private:
    struct Row
    {
        ListedInstrument instrument;
        std::size_t listed; ///< place in the list
        Quote quote;
    };

    QString textOf(const Row& row, int column) const;
    bool isBefore(const Row& one, const Row& other) const;
    void takeRead(int begin, int end);
    /// Sorts and shows what has come, once for all of it.
    void showLater();

    std::vector<Row> m_rows;
    std::vector<std::size_t> m_places; ///< row of each listed instrument
    QFutureWatcher<Quote> m_reading;
    QTimer m_later;
    int m_column = -1;
    Qt::SortOrder m_order = Qt::AscendingOrder;
};

} // namespace client
