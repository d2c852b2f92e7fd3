// SPDX-License-Identifier: MIT
#include "host/WB/CStandardTable.h"

#include "host/WB/CLineEdit.h"
#include "host/WB/PlainText.h"
#include "host/embedded/table/TableColors.h"
#include "host/embedded/table/TableContents.h"
#include "host/embedded/table/TableStatusLine.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QWidgetAction>

namespace WB {

struct CStandardTable::Extras
{
    TC::embedded::TableStatusLine* statusLine = nullptr;
    QMap<int, QString> filters;
    int sortColumn = -1;
    Qt::SortOrder sortOrder = Qt::AscendingOrder;
};

namespace {

bool isShown(const IBaseTable& table, int row, int filterColumn, const QString& text)
{
    if (filterColumn != CStandardTable::kAnyColumn)
        return table.cellText(row, filterColumn).contains(text);
    for (int id = 0; id < table.columnCount(); ++id) {
        if (table.cellText(row, id).contains(text))
            return true;
    }
    return false;
}

} // namespace

CStandardTable::CStandardTable(int tableId, QWidget* parent, QFlags<EBaseTableMenuFlag> menu)
    : CBaseNormalTable(tableId, parent, menu)
    , m_extras(std::make_shared<Extras>())
{
    QHeaderView* header = m_contents->view->horizontalHeader();
    m_extras->statusLine = new TC::embedded::TableStatusLine(header, this);
    m_contents->layout->addWidget(m_extras->statusLine);
    connect(m_contents->view->horizontalScrollBar(), SIGNAL(valueChanged(int)), m_extras->statusLine,
            SLOT(update()));
    connect(header, SIGNAL(sectionClicked(int)), this, SLOT(slotHeaderClicked(int)));
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, SIGNAL(customContextMenuRequested(QPoint)), this, SLOT(slotHeaderMenu(QPoint)));
    CStandardTable::uiResourceChanged();
}

CStandardTable::~CStandardTable() = default;

void CStandardTable::setStatText(int column, const QString& text)
{
    m_extras->statusLine->setText(column, text);
}

QString CStandardTable::statText(int column) const
{
    return m_extras->statusLine->text(column);
}

void CStandardTable::setColumnFilter(int column, const QString& text)
{
    if (text.isEmpty())
        m_extras->filters.remove(column);
    else
        m_extras->filters[column] = text;
    if (auto* marked = m_contents->model.column(column)) {
        marked->isMarked = !text.isEmpty();
        m_contents->model.columnChanged(column);
    }
    filterColumn();
}

const QMap<int, QString>& CStandardTable::columnFilters() const
{
    return m_extras->filters;
}

void CStandardTable::sortByColumn(int column, Qt::SortOrder order)
{
    m_extras->sortColumn = m_contents->model.column(column) ? column : -1;
    m_extras->sortOrder = order;
    QHeaderView* header = m_contents->view->horizontalHeader();
    header->setSortIndicatorShown(m_extras->sortColumn >= 0);
    header->setSortIndicator(m_extras->sortColumn, order);
    m_contents->model.sortBy(m_extras->sortColumn, order);
}

void CStandardTable::setSorting(int column, Qt::SortOrder order)
{
    m_extras->sortColumn = column;
    m_extras->sortOrder = order;
    filterColumn();
}

int CStandardTable::getSortColumnID() const
{
    return m_extras->sortColumn;
}

Qt::SortOrder CStandardTable::getSortOrder() const
{
    return m_extras->sortOrder;
}

void CStandardTable::filterColumn()
{
    sortByColumn(getSortColumnID(), getSortOrder());
    for (int place = 0; place < rowCount(); ++place) {
        bool shown = true;
        for (auto filter = m_extras->filters.cbegin(); filter != m_extras->filters.cend(); ++filter)
            shown = shown && isShown(*this, rowID(place), filter.key(), filter.value());
        m_contents->view->setRowHidden(place, !shown);
    }
}

void CStandardTable::uiResourceChanged()
{
    CBaseNormalTable::uiResourceChanged();
    const TC::embedded::TableColors colors(palette());
    m_extras->statusLine->setColors(colors.header, colors.text, colors.border);
}

void CStandardTable::slotHeaderClicked(int column)
{
    if (getSortColumnID() != column)
        setSorting(column, Qt::AscendingOrder);
    else if (getSortOrder() == Qt::AscendingOrder)
        setSorting(column, Qt::DescendingOrder);
    else
        setSorting(-1, Qt::AscendingOrder);
}

void CStandardTable::slotHeaderMenu(const QPoint& position)
{
    QHeaderView* header = m_contents->view->horizontalHeader();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const int clicked = header->logicalIndexAt(position);
    if (m_contents->flags.testFlag(EBaseTableMenu_Filter) && clicked >= 0) {
        auto* field = new CLineEdit(menu);
        field->setPlaceholderText(QStringLiteral("筛选“%1”").arg(columnHeader(clicked)));
        field->setText(m_extras->filters.value(clicked));
        field->setClearButtonEnabled(true);
        connect(field, &QLineEdit::textChanged, this,
                [this, clicked](const QString& text) { setColumnFilter(clicked, text); });
        auto* holder = new QWidgetAction(menu);
        holder->setDefaultWidget(field);
        menu->addAction(holder);
    }
    if (m_contents->flags.testFlag(EBaseTableMenu_Columns)) {
        for (int id = 0; id < columnCount(); ++id) {
            QAction* shown = menu->addAction(plainLabel(columnHeader(id)));
            shown->setCheckable(true);
            shown->setChecked(columnVisible(id));
            connect(shown, &QAction::toggled, this, [this, id](bool on) { setColumnVisible(id, on); });
        }
    }
    if (menu->isEmpty())
        delete menu;
    else
        menu->popup(header->viewport()->mapToGlobal(position));
}

} // namespace WB
