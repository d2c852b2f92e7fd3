// SPDX-License-Identifier: MIT
#pragma once
/// @file The view of a table and the editing of its cells.

#include "host/embedded/table/TableModel.h"

#include <QStyledItemDelegate>
#include <QTableView>

#include <functional>

class QLineEdit;

namespace TC::embedded {

/// Gives every key to the table that it stands in; the table gives back what the view shall do.
class TableView : public QTableView
{
    Q_OBJECT

public:
    explicit TableView(QWidget* table);
    /// The view's own answer to a key.
    void doKey(QKeyEvent* event) { QTableView::keyPressEvent(event); }
    bool isEditing() const { return state() == EditingState; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

/// Edits cells in line edits: a column's own one, or a new one for each edit.
class TableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// @param commit  takes row id, column id and the new text.
    TableDelegate(TableModel& model, QWidget* table, std::function<void(int, int, QString)> commit);

    void setEditor(int column, QLineEdit* editor);
    QLineEdit* editor(int column) const { return m_editors.value(column); }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

private:
    TableModel& m_model;
    QWidget* m_table;
    std::function<void(int, int, QString)> m_commit;
    QMap<int, QLineEdit*> m_editors;
};

} // namespace TC::embedded
