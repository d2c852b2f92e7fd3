// SPDX-License-Identifier: MIT
#include "apps/client/lists/QuoteModel.h"

#include "apps/base/FileNames.h"
#include "apps/chart/PriceTick.h"
#include "apps/client/language/Language.h"
#include "draw/CDrawStyle.h"
#include "engine/files/BarFile.h"
#include "host/TC/CStockManager.h"
#include "host/TC/Instruments.h"
#include "host/WB/NumberFormat.h"
#include "host/WB/SkinLookup.h"
#include "host/utils/CSingletonT.h"

#include <QtConcurrent>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace client {

namespace {

constexpr int kTogetherMs = 100; // figures that come within this time are shown together
constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

Quote quoteOf(const engine::BarSeries& bars, double priceTick)
{
    Quote quote { kUnknown, kUnknown, kUnknown, kUnknown };
    const std::size_t count = bars.size();
    if (count == 0)
        return quote;
    quote.decimals = TC::CDrawStyle::priceTick2Precision(
        priceTick > 0.0 ? priceTick : chart::inferredPriceTick(bars.close));
    quote.last = bars.close[count - 1];
    quote.volume = bars.volume[count - 1];
    if (count > 1) {
        quote.change = quote.last - bars.close[count - 2];
        quote.percent = quote.change / bars.close[count - 2];
    }
    return quote;
}

/// A file whose end is to be read, and the price tick of its instrument; 0 where that is not known.
struct Source
{
    std::string path;
    double priceTick;
};

Quote readQuote(const Source& source)
{
    std::string failure;
    const std::optional<engine::BarSeries> bars = engine::readLastBars(source.path, failure);
    return quoteOf(bars.value_or(engine::BarSeries()), source.priceTick);
}

double figureOf(const Quote& quote, int column)
{
    switch (column) {
    case QuoteModel::EColumn_Last: return quote.last;
    case QuoteModel::EColumn_Change: return quote.change;
    case QuoteModel::EColumn_Percent: return quote.percent;
    default: return quote.volume;
    }
}

} // namespace

QuoteModel::QuoteModel(QObject* parent)
    : QAbstractTableModel(parent)
{
    m_later.setSingleShot(true);
    m_later.setInterval(kTogetherMs);
    connect(&m_later, &QTimer::timeout, this, [this] {
        sort(m_column, m_order);
        if (!m_rows.empty())
            Q_EMIT dataChanged(index(0, EColumn_Last), index(rowCount() - 1, kColumns - 1));
    });
    followLanguage(this, [this] { Q_EMIT headerDataChanged(Qt::Horizontal, 0, kColumns - 1); });
    connect(&m_reading, &QFutureWatcher<Quote>::resultsReadyAt, this, &QuoteModel::takeRead);
}

QuoteModel::~QuoteModel()
{
    m_reading.cancel();
    m_reading.waitForFinished();
}

void QuoteModel::setInstruments(const std::vector<ListedInstrument>& instruments)
{
    m_reading.cancel();
    m_reading.waitForFinished();
    const auto* stocks = utils::CSingletonT<TC::CStockManager>::instance();
    QVector<Source> sources;
    sources.reserve(static_cast<int>(instruments.size()));
    beginResetModel();
    m_rows.clear();
    m_rows.reserve(instruments.size());
    for (const ListedInstrument& instrument : instruments) {
        m_rows.push_back({ instrument, m_rows.size(), quoteOf({}, 0.0) });
        sources.push_back({ base::bytesOfName(instrument.path).toStdString(),
                            TC::getDetailPriceTick(stocks->getInstrumentDetail(instrument.key)) });
    }
    m_places.resize(m_rows.size());
    std::iota(m_places.begin(), m_places.end(), std::size_t { 0 });
    endResetModel();
    m_reading.setFuture(QtConcurrent::mapped(sources, readQuote));
}

void QuoteModel::takeRead(int begin, int end)
{
    for (int listed = begin; listed < end; ++listed)
        m_rows[m_places[static_cast<std::size_t>(listed)]].quote = m_reading.resultAt(listed);
    showLater();
}

void QuoteModel::setBars(const QString& path, const engine::BarSeries& bars)
{
    for (Row& row : m_rows) {
        if (row.instrument.path != path)
            continue;
        const auto known =
            utils::CSingletonT<TC::CStockManager>::instance()->getInstrumentDetail(row.instrument.key);
        row.quote = quoteOf(bars, TC::getDetailPriceTick(known));
        showLater();
    }
}

void QuoteModel::showLater()
{
    if (!m_later.isActive())
        m_later.start();
}

int QuoteModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int QuoteModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QString QuoteModel::textOf(const Row& row, int column) const
{
    const Quote& quote = row.quote;
    const QString unknown = QStringLiteral("—");
    switch (column) {
    case EColumn_Key: return base::printable(row.instrument.key);
    case EColumn_Name: return row.instrument.name;
    case EColumn_Percent:
        return WB::formatDoubleNumber(quote.percent, 2, utils::EFormatNumber_Percent, false, unknown);
    case EColumn_Volume:
        return WB::formatDoubleNumber(quote.volume, 2, utils::EFormatNumber_Large, false, unknown);
    default: return WB::formatDoubleNumber(figureOf(quote, column), quote.decimals, {}, false, unknown);
    }
}

QVariant QuoteModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return QVariant();
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    const bool isText = index.column() <= EColumn_Name;
    if (role == Qt::DisplayRole)
        return textOf(row, index.column());
    if (role == Qt::TextAlignmentRole)
        return int((isText ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    const bool isColoured = !isText && index.column() != EColumn_Volume;
    if (role == Qt::ForegroundRole && isColoured && std::abs(row.quote.change) > 0.0)
        return WB::skinColor(row.quote.change > 0.0 ? "ic_clr_index_default_rise"
                                                    : "ic_clr_index_default_fall");
    return QVariant();
}

QVariant QuoteModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const QString headers[kColumns] = { tr("代码"), tr("名称"), tr("最新"),
                                        tr("涨跌"), tr("涨幅"), tr("成交量") };
    if (orientation == Qt::Vertical || section < 0 || section >= kColumns)
        return QVariant();
    if (role == Qt::TextAlignmentRole)
        return int((section <= EColumn_Name ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? QVariant(headers[section]) : QVariant();
}

bool QuoteModel::isBefore(const Row& one, const Row& other) const
{
    const bool isRising = m_order == Qt::AscendingOrder;
    if (m_column < 0)
        return one.listed < other.listed;
    if (m_column <= EColumn_Name) {
        const QString &a = m_column == EColumn_Key ? one.instrument.key : one.instrument.name,
                      &b = m_column == EColumn_Key ? other.instrument.key : other.instrument.name;
        return isRising ? a < b : b < a;
    }
    const double a = figureOf(one.quote, m_column), b = figureOf(other.quote, m_column);
    if (std::isnan(a) || std::isnan(b))
        return !std::isnan(a) && std::isnan(b);
    return isRising ? a < b : b < a;
}

void QuoteModel::sort(int column, Qt::SortOrder order)
{
    m_column = column;
    m_order = order;
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    std::vector<std::size_t> listed;
    listed.reserve(static_cast<std::size_t>(before.size()));
    for (const QModelIndex& index : before)
        listed.push_back(m_rows[static_cast<std::size_t>(index.row())].listed);
    std::stable_sort(m_rows.begin(), m_rows.end(),
                     [this](const Row& one, const Row& other) { return isBefore(one, other); });
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        m_places[m_rows[row].listed] = row;
    QModelIndexList after;
    for (int i = 0; i < before.size(); ++i)
        after << index(static_cast<int>(m_places[listed[static_cast<std::size_t>(i)]]), before[i].column());
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

} // namespace client
