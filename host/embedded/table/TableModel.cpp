// SPDX-License-Identifier: MIT
#include "host/embedded/table/TableModel.h"

#include <QMetaObject>

#include <algorithm>
#include <numeric>

namespace TC::embedded {

namespace {

/// Numbers by size, before them what is no number, texts among themselves by code point.
struct SortKey
{
    bool isNumber = false;
    double number = 0.0;
    QString text;

    friend bool operator<(const SortKey& a, const SortKey& b)
    {
        if (a.isNumber != b.isNumber)
            return b.isNumber;
        return a.isNumber ? a.number < b.number : a.text < b.text;
    }
};

SortKey keyOf(const TableModel::Cell& cell)
{
    SortKey key;
    key.text = cell.text;
    if (cell.isNumber)
        key.number = cell.text.toDouble(&key.isNumber);
    return key;
}

} // namespace

int TableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_shown.size();
}

int TableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_columns.size();
}

QVariant TableModel::data(const QModelIndex& index, int role) const
{
    const Cell* found = cell(idAt(index.row()), index.column());
    if (!found)
        return QVariant();
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return found->text;
    if (role == Qt::TextAlignmentRole)
        return int((found->isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return QVariant();
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const Column* found = column(section);
    if (orientation == Qt::Vertical || !found)
        return QVariant();
    if (role == Qt::DisplayRole)
        return found->header;
    if (role == Qt::ForegroundRole && found->isMarked && m_markColor.isValid())
        return m_markColor;
    return QVariant();
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags result = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const Column* its = column(index.column());
    const Cell* found = cell(idAt(index.row()), index.column());
    if (its && found && (its->isEditable || found->isEditable))
        result |= Qt::ItemIsEditable;
    return result;
}

void TableModel::setColumns(int count)
{
    beginResetModel();
    m_columns = QVector<Column>(std::max(0, count));
    m_cells.clear();
    m_shown.clear();
    m_places.clear();
    endResetModel();
}

TableModel::Column* TableModel::column(int id)
{
    return id >= 0 && id < m_columns.size() ? &m_columns[id] : nullptr;
}

const TableModel::Column* TableModel::column(int id) const
{
    return id >= 0 && id < m_columns.size() ? &m_columns[id] : nullptr;
}

void TableModel::columnChanged(int id)
{
    Q_EMIT headerDataChanged(Qt::Horizontal, id, id);
}

void TableModel::setRows(int count)
{
    constexpr int lastFirstId = 1'000'000'000;
    count = std::max(0, count);
    beginResetModel();
    m_firstId += m_shown.size();
    if (m_firstId > lastFirstId)
        m_firstId = 0;
    m_cells = QVector<Cell>(count * m_columns.size());
    m_shown.resize(count);
    std::iota(m_shown.begin(), m_shown.end(), 0);
    m_places = m_shown;
    endResetModel();
}

int TableModel::idAt(int place) const
{
    return place >= 0 && place < m_shown.size() ? m_firstId + m_shown[place] : -1;
}

int TableModel::placeOf(int id) const
{
    return id >= m_firstId && id - m_firstId < m_places.size() ? m_places[id - m_firstId] : -1;
}

const TableModel::Cell* TableModel::cell(int row, int column) const
{
    const bool isKnown = placeOf(row) >= 0 && column >= 0 && column < m_columns.size();
    return isKnown ? &m_cells[(row - m_firstId) * m_columns.size() + column] : nullptr;
}

TableModel::Cell* TableModel::cellAt(int row, int column)
{
    const bool isKnown = placeOf(row) >= 0 && column >= 0 && column < m_columns.size();
    return isKnown ? &m_cells[(row - m_firstId) * m_columns.size() + column] : nullptr;
}

void TableModel::change(int row, int column, const QString& text, bool isNumber)
{
    if (Cell* changed = cellAt(row, column)) {
        changed->text = text;
        changed->isNumber = isNumber;
        announceLater();
    }
}

void TableModel::setEditable(int row, int column, bool isEditable)
{
    if (Cell* changed = cellAt(row, column))
        changed->isEditable = isEditable;
}

void TableModel::announceLater()
{
    if (!m_isAnnounced)
        return;
    m_isAnnounced = false;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isAnnounced = true;
            if (!m_shown.isEmpty() && !m_columns.isEmpty())
                Q_EMIT dataChanged(index(0, 0), index(m_shown.size() - 1, m_columns.size() - 1));
        },
        Qt::QueuedConnection);
}

void TableModel::sortBy(int column, Qt::SortOrder order)
{
    Q_EMIT layoutAboutToBeChanged();
    std::iota(m_shown.begin(), m_shown.end(), 0);
    if (column >= 0 && column < m_columns.size()) {
        std::vector<SortKey> keys;
        keys.reserve(static_cast<std::size_t>(m_shown.size()));
        for (int row = 0; row < m_shown.size(); ++row)
            keys.push_back(keyOf(m_cells[row * m_columns.size() + column]));
        const auto key = [&](int row) -> const SortKey& { return keys[static_cast<std::size_t>(row)]; };
        std::stable_sort(m_shown.begin(), m_shown.end(), [&](int a, int b) {
            return order == Qt::AscendingOrder ? key(a) < key(b) : key(b) < key(a);
        });
    }
    for (int place = 0; place < m_shown.size(); ++place)
        m_places[m_shown[place]] = place;
    Q_EMIT layoutChanged();
}

} // namespace TC::embedded
