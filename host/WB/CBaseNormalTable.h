// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's table: rows, columns, cells, editing, selection, keys.

#include "host/WB/EBaseTableMenuFlag.h"
#include "host/WB/IBaseTable.h"

#include <memory>

class QMenu;

namespace WB {

/// A table in a view of its own. The delete key sends event 58; a committed edit sends event 52, or 88 where
/// the column's editor checks whole numbers. Edits that leave the shown text as it was send nothing. Every
/// key passes keyPressEvent first, also while the inner view has the focus.
class INDICATORHOST_EXPORT CBaseNormalTable : public IBaseTable
{
    Q_OBJECT

public:
    /// As for IBaseTable; `menu` says which entries the menus have at first.
    CBaseNormalTable(int tableId, QWidget* parent, QFlags<EBaseTableMenuFlag> menu);
    ~CBaseNormalTable() override;

    void setColumnCount(int count) override;
    int columnCount() const override;
    int columnID(int index) const override;
    void setColumnHeader(int id, const QString& header) override;
    QString columnHeader(int id) const override;
    void setColumnWidth(int id, int pixels) override;
    void setColumnVisible(int id, bool visible) override;
    bool columnVisible(int id) const override;
    void setColumnEditable(int id, bool editable) override;
    void setColumnEditor(int id, QWidget* editor) override;
    /// Moves a column from one place to another; its id stays.
    void moveColumn(int fromIndex, int toIndex);

    void clearRows() override;
    QVector<int> setRowCount(int count) override;
    int rowCount() const override;
    int rowID(int index) const override;

    void setCellText(int row, int column, const QString& text) override;
    void setCellNumber(int row, int column, double value, int precision, FormatNumberFlags flags) override;
    void setCellInteger(int row, int column, int value, int width, FormatNumberFlags flags) override;
    void setCellEditable(int row, int column, bool editable) override;
    bool cellEditable(int row, int column) const override;
    QString cellText(int row, int column) const override;

    std::set<int> selectedRows() const override;
    void selectRows(const std::set<int>& rows) override;

    /// Fixes the height of the header.
    void setHeaderHeight(int pixels);
    /// Fixes the height of every row.
    void setRowHeight(int pixels);
    /// The menu of the cells; entries added to it stay.
    QMenu* contextMenu() const;

    /// Sends the event on along the chain of deliverers.
    bool handleEvent(int id, int row, int col, QString text, void* data) override;

    void uiResourceChanged() override;

protected:
    /// Sees every key first; the delete key sends event 58.
    void keyPressEvent(QKeyEvent* event) override;

private:
    friend class CStandardTable; // adds to the same contents
    struct Contents;
    std::shared_ptr<Contents> m_contents; ///< the host's own; never shared, but no host must define it
};

} // namespace WB
