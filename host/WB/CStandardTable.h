// SPDX-License-Identifier: MIT
#pragma once
/// @file A table with sorting, column filters and a status line.

#include "host/WB/CBaseNormalTable.h"

#include <QMap>

namespace WB {

/// A click on a header sorts by the column, a second one turns the order, a third one ends the sorting. The
/// status line below the rows shows one text under each column.
class INDICATORHOST_EXPORT CStandardTable : public CBaseNormalTable
{
    Q_OBJECT

public:
    static constexpr int kAnyColumn = -1; ///< filter id: the text may stand in any filtered column

    /// As for CBaseNormalTable.
    CStandardTable(int tableId, QWidget* parent, QFlags<EBaseTableMenuFlag> menu);
    ~CStandardTable() override;

    /// The text under a column in the status line; empty when there is none.
    void setStatText(int column, const QString& text);
    /// The text that setStatText set; empty when there is none.
    QString statText(int column) const;

    /// Sets the filter text of a column, or of any column, and refilters; an empty text removes the filter.
    void setColumnFilter(int column, const QString& text);
    /// Filter texts by column id, without empty ones.
    const QMap<int, QString>& columnFilters() const;

    /// Sorts the rows by a column's shown values, numbers by size; equal ones keep the order in which they
    /// were made, in both directions. @param column  -1 returns to that order.
    void sortByColumn(int column, Qt::SortOrder order);
    /// Sets what the table is sorted by and refilters.
    void setSorting(int column, Qt::SortOrder order);
    int getSortColumnID() const; ///< -1: not sorted
    /// Meaningless while nothing is sorted.
    Qt::SortOrder getSortOrder() const;

    /// Applies filters and sorting to the rows. By default rows hide whose shown texts lack a filter's text.
    virtual void filterColumn();

    void uiResourceChanged() override;

private Q_SLOTS:
    void slotHeaderClicked(int column);
    void slotHeaderMenu(const QPoint& position);

private:
    struct Extras;
    std::shared_ptr<Extras> m_extras; ///< as the contents of the base
};

} // namespace WB
