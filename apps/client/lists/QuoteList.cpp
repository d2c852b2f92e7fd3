// SPDX-License-Identifier: MIT
#include "apps/client/lists/QuoteList.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace client {

namespace {

constexpr int kRowHeight = 22; // pixels

} // namespace

QuoteList::QuoteList(QWidget* parent)
    : QTableView(parent)
{
    setModel(&m_model);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setFrameShape(QFrame::NoFrame);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    const int widths[QuoteModel::kColumns] = { 90, 130, 90, 90, 80, 110 };
    for (int column = 0; column < QuoteModel::kColumns; ++column)
        setColumnWidth(column, widths[column]);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    horizontalHeader()->setHighlightSections(false);
    setSortingEnabled(true);
    connect(this, &QTableView::doubleClicked, this, &QuoteList::openRow);
}

void QuoteList::setInstruments(const std::vector<ListedInstrument>& instruments)
{
    m_waiting = instruments;
    m_isDue = !isVisible();
    if (!m_isDue)
        m_model.setInstruments(m_waiting);
}

void QuoteList::showEvent(QShowEvent* event)
{
    QTableView::showEvent(event);
    if (m_isDue)
        m_model.setInstruments(m_waiting);
    m_isDue = false;
}

void QuoteList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        openRow(currentIndex());
    else
        QTableView::keyPressEvent(event);
}

void QuoteList::openRow(const QModelIndex& index)
{
    if (index.isValid())
        Q_EMIT sigOpen(m_model.pathOf(index.row()));
}

} // namespace client
