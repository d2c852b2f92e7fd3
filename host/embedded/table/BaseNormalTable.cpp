// SPDX-License-Identifier: MIT
#include "host/WB/CBaseNormalTable.h"

#include "host/WB/CIntValidator.h"
#include "host/WB/CLineEdit.h"
#include "host/WB/TableEvents.h"
#include "host/embedded/table/TableColors.h"
#include "host/embedded/table/TableContents.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

namespace WB {

CLineEdit::CLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setFrame(false);
}

CIntValidator::CIntValidator(int bottom, int top, QObject* parent)
    : QIntValidator(bottom, top, parent)
{
}

IBaseTable::IBaseTable(int tableId, QWidget* parent)
    : CBaseWidget(QStringLiteral("table%1").arg(tableId), false, parent)
{
}

namespace {

void setUpView(TC::embedded::TableView& view)
{
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    view.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                         | QAbstractItemView::AnyKeyPressed);
    view.setAlternatingRowColors(true);
    view.setWordWrap(false);
    view.setFrameShape(QFrame::NoFrame);
    view.setContextMenuPolicy(Qt::CustomContextMenu);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setMinimumSectionSize(1);
    view.horizontalHeader()->setHighlightSections(false);
    view.horizontalHeader()->setSectionsMovable(true);
    view.horizontalHeader()->setSectionsClickable(true);
    view.horizontalHeader()->setMinimumSectionSize(20);
}

} // namespace

CBaseNormalTable::CBaseNormalTable(int tableId, QWidget* parent, QFlags<EBaseTableMenuFlag> menu)
    : IBaseTable(tableId, parent)
    , m_contents(std::make_shared<Contents>())
{
    Contents& d = *m_contents;
    d.flags = menu;
    d.view = new TC::embedded::TableView(this);
    d.view->setModel(&d.model);
    d.delegate = new TC::embedded::TableDelegate(d.model, this, [this](int row, int column, QString text) {
        const QLineEdit* editor = m_contents->delegate->editor(column);
        if (editor && qobject_cast<const CIntValidator*>(editor->validator())) {
            int value = text.toInt();
            handleEvent(ETableEvent_IntegerEdited, row, column, text, &value);
        } else {
            TableCellEdit edit { column, text };
            handleEvent(ETableEvent_CellEdited, row, column, text, &edit);
        }
    });
    d.view->setItemDelegate(d.delegate);
    d.header = new TC::embedded::TableHeader(d.view);
    d.view->setHorizontalHeader(d.header);
    setUpView(*d.view);
    setFocusProxy(d.view);

    d.menu = new QMenu(this);
    if (menu.testFlag(EBaseTableMenu_Delete))
        d.menu->addAction(QStringLiteral("删除"), this,
                          [this] { handleEvent(ETableEvent_Delete, -1, -1, QString(), nullptr); });
    connect(d.view, &QWidget::customContextMenuRequested, this, [this](const QPoint& position) {
        m_contents->menu->popup(m_contents->view->viewport()->mapToGlobal(position));
    });

    d.layout = new QVBoxLayout(this);
    d.layout->setContentsMargins(0, 0, 0, 0);
    d.layout->setSpacing(0);
    d.layout->addWidget(d.view);
    CBaseNormalTable::uiResourceChanged();
}

CBaseNormalTable::~CBaseNormalTable()
{
    delete m_contents->view; // before the model that it shows
}

void CBaseNormalTable::setColumnCount(int count)
{
    m_contents->model.setColumns(count);
}

int CBaseNormalTable::columnCount() const
{
    return m_contents->model.columnCount();
}

int CBaseNormalTable::columnID(int index) const
{
    return m_contents->view->horizontalHeader()->logicalIndex(index);
}

void CBaseNormalTable::setColumnHeader(int id, const QString& header)
{
    if (auto* column = m_contents->model.column(id)) {
        column->header = header;
        m_contents->model.columnChanged(id);
    }
}

QString CBaseNormalTable::columnHeader(int id) const
{
    const auto* column = std::as_const(m_contents->model).column(id);
    return column ? column->header : QString();
}

void CBaseNormalTable::setColumnWidth(int id, int pixels)
{
    if (m_contents->model.column(id))
        m_contents->view->setColumnWidth(id, pixels);
}

void CBaseNormalTable::setColumnVisible(int id, bool visible)
{
    if (m_contents->model.column(id))
        m_contents->view->setColumnHidden(id, !visible);
}

bool CBaseNormalTable::columnVisible(int id) const
{
    return m_contents->model.column(id) && !m_contents->view->isColumnHidden(id);
}

void CBaseNormalTable::setColumnEditable(int id, bool editable)
{
    if (auto* column = m_contents->model.column(id))
        column->isEditable = editable;
}

void CBaseNormalTable::setColumnEditor(int id, QWidget* editor)
{
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (line && m_contents->model.column(id))
        m_contents->delegate->setEditor(id, line);
}

void CBaseNormalTable::moveColumn(int fromIndex, int toIndex)
{
    const int count = columnCount();
    if (fromIndex >= 0 && fromIndex < count && toIndex >= 0 && toIndex < count)
        m_contents->view->horizontalHeader()->moveSection(fromIndex, toIndex);
}

void CBaseNormalTable::clearRows()
{
    const QModelIndex current = m_contents->view->currentIndex();
    if (current.isValid())
        m_contents->cursor = QPoint(current.column(), current.row());
    if (m_contents->model.rowCount() > 0)
        m_contents->scroll = m_contents->view->verticalScrollBar()->value();
    m_contents->model.setRows(0);
}

QVector<int> CBaseNormalTable::setRowCount(int count)
{
    Contents& d = *m_contents;
    d.model.setRows(count);
    // A refill leaves the user where he was.
    if (d.cursor.y() >= 0 && d.model.rowCount() > 0) {
        const QModelIndex place =
            d.model.index(qMin(d.cursor.y(), d.model.rowCount() - 1), qMax(0, d.cursor.x()));
        d.view->selectionModel()->setCurrentIndex(place, QItemSelectionModel::NoUpdate);
        d.view->verticalScrollBar()->setValue(d.scroll);
    }
    QVector<int> ids;
    ids.reserve(d.model.rowCount());
    for (int row = 0; row < d.model.rowCount(); ++row)
        ids.append(d.model.firstId() + row);
    return ids;
}

int CBaseNormalTable::rowCount() const
{
    return m_contents->model.rowCount();
}

int CBaseNormalTable::rowID(int index) const
{
    return m_contents->model.idAt(index);
}

void CBaseNormalTable::setCellText(int row, int column, const QString& text)
{
    m_contents->model.change(row, column, text, false);
}

void CBaseNormalTable::setCellNumber(int row, int column, double value, int precision,
                                     FormatNumberFlags flags)
{
    m_contents->model.change(
        row, column, formatDoubleNumber(value, precision, flags, false, QStringLiteral("非法值")), true);
}

void CBaseNormalTable::setCellInteger(int row, int column, int value, int width, FormatNumberFlags flags)
{
    m_contents->model.change(row, column, formatIntNumber(value, width, flags), true);
}

void CBaseNormalTable::setCellEditable(int row, int column, bool editable)
{
    m_contents->model.setEditable(row, column, editable);
}

bool CBaseNormalTable::cellEditable(int row, int column) const
{
    const auto* cell = m_contents->model.cell(row, column);
    return cell && (cell->isEditable || m_contents->model.column(column)->isEditable);
}

QString CBaseNormalTable::cellText(int row, int column) const
{
    const auto* cell = m_contents->model.cell(row, column);
    return cell ? cell->text : QString();
}

std::set<int> CBaseNormalTable::selectedRows() const
{
    std::set<int> rows;
    const QModelIndexList selected = m_contents->view->selectionModel()->selectedRows();
    for (const QModelIndex& index : selected)
        rows.insert(m_contents->model.idAt(index.row()));
    return rows;
}

void CBaseNormalTable::selectRows(const std::set<int>& rows)
{
    QItemSelectionModel* selection = m_contents->view->selectionModel();
    selection->clearSelection();
    for (const int row : rows) {
        const QModelIndex index = m_contents->model.index(m_contents->model.placeOf(row), 0);
        selection->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
}

void CBaseNormalTable::setHeaderHeight(int pixels)
{
    m_contents->view->horizontalHeader()->setFixedHeight(pixels);
}

void CBaseNormalTable::setRowHeight(int pixels)
{
    m_contents->view->verticalHeader()->setDefaultSectionSize(pixels);
}

QMenu* CBaseNormalTable::contextMenu() const
{
    return m_contents->menu;
}

bool CBaseNormalTable::handleEvent(int id, int, int, QString text, void* block)
{
    return deliverEvent(id, text, block);
}

void CBaseNormalTable::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier
        && !m_contents->view->isEditing())
        handleEvent(ETableEvent_Delete, -1, -1, QString(), nullptr);
    else
        m_contents->view->doKey(event);
}

void CBaseNormalTable::uiResourceChanged()
{
    const TC::embedded::TableColors colors(palette());
    m_contents->view->setPalette(colors.applied(palette()));
    m_contents->header->setColors(colors);
    m_contents->model.setMarkColor(colors.mark);
    CBaseWidget::uiResourceChanged();
}

} // namespace WB
