// SPDX-License-Identifier: MIT
#include "host/embedded/table/TableView.h"

#include "host/WB/CLineEdit.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace TC::embedded {

TableView::TableView(QWidget* table)
    : QTableView(table)
{
}

void TableView::keyPressEvent(QKeyEvent* event)
{
    QCoreApplication::sendEvent(parentWidget(), event); // which offers it to the widgets around as well
    event->accept();
}

TableDelegate::TableDelegate(TableModel& model, QWidget* table, std::function<void(int, int, QString)> commit)
    : QStyledItemDelegate(table)
    , m_model(model)
    , m_table(table)
    , m_commit(std::move(commit))
{
}

void TableDelegate::setEditor(int column, QLineEdit* editor)
{
    m_editors[column] = editor;
    editor->setParent(m_table);
    editor->hide();
}

QWidget* TableDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const
{
    QLineEdit* own = m_editors.value(index.column());
    if (!own)
        return new WB::CLineEdit(parent);
    own->setParent(parent);
    own->setModified(false);
    return own;
}

void TableDelegate::destroyEditor(QWidget* editor, const QModelIndex&) const
{
    for (QLineEdit* own : m_editors) {
        if (own == editor) {
            own->hide();
            own->setParent(m_table); // the view's viewport may go before the table does
            return;
        }
    }
    editor->deleteLater();
}

void TableDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (line->isModified())
        return; // a change of the cell does not overwrite what the user is typing
    line->setText(index.data(Qt::EditRole).toString());
    line->selectAll();
}

void TableDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const
{
    const auto* line = qobject_cast<QLineEdit*>(editor);
    if (line->hasAcceptableInput() && line->text() != index.data(Qt::EditRole).toString())
        m_commit(m_model.idAt(index.row()), index.column(), line->text());
}

} // namespace TC::embedded
