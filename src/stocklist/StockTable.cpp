// SPDX-License-Identifier: MIT
/// @file The rows of the basket: filling, filtering, editing, removing.

#include "stocklist/CParserStockExeclTable.h"

#include "host/TC/CStockManager.h"
#include "host/TC/Instruments.h"
#include "host/TC/Pinyin.h"
#include "host/WB/CIntValidator.h"
#include "host/WB/CLineEdit.h"
#include "host/WB/CUiResource.h"
#include "host/WB/TableEvents.h"
#include "host/WB/TextConversion.h"
#include "host/ttservice/CInstrumentDetail.h"
#include "host/utils/CSingletonT.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>

#include <cmath>

namespace TC {

namespace {

enum EStockColumn {
    EStockColumn_Market,
    EStockColumn_Code,
    EStockColumn_Name,
    EStockColumn_Relative,
    EStockColumn_Absolute,
    EStockColumn_Shares,
    EStockColumn_Count
};

/// The power of ten that brings a smallest weight to 1 or more. A minimum of zero asks for none, and one that
/// is negative or not a number could never get there: both give 1.
double wholeNumberFactor(double minimum)
{
    constexpr double tolerance = 1e-5;
    double factor = 1.0;
    while (minimum > tolerance && minimum < 1.0 && std::abs(minimum - 1.0) > tolerance) {
        minimum *= 10.0;
        factor *= 10.0;
    }
    return factor;
}

QString marketOf(const ParserStockDetail& stock)
{
    return stock.instrument ? WB::sToQs(stock.instrument->market) : QString();
}

QString codeOf(const ParserStockDetail& stock)
{
    return stock.instrument ? WB::sToQs(stock.instrument->code) : QString();
}

bool passes(const QString& text, const QString& filter)
{
    return text.indexOf(filter, 0, Qt::CaseSensitive) >= 0 || isInByPy(text, filter);
}

} // namespace

CParserStockExeclTable::CParserStockExeclTable(int tableId, QWidget* parent,
                                               QFlags<WB::EBaseTableMenuFlag> menu)
    : WB::CStandardTable(tableId, parent, menu)
{
    createUi();
}

CParserStockExeclTable::~CParserStockExeclTable() = default;

void CParserStockExeclTable::createUi()
{
    struct Column
    {
        QString header;
        int width;
    };
    const Column columns[] = { { QStringLiteral("市场"), 45 },        { QStringLiteral("代码"), 70 },
                               { QStringLiteral("名称"), 80 },        { QStringLiteral("相对权重"), 65 },
                               { QStringLiteral("绝对权重(%)"), 70 }, { QStringLiteral("股数"), 70 } };
    setColumnCount(EStockColumn_Count);
    for (int id = 0; id < EStockColumn_Count; ++id) {
        setColumnHeader(id, columns[id].header);
        setColumnWidth(id, columns[id].width);
        setColumnEditable(id, id == EStockColumn_Shares);
    }
    auto* editor = new WB::CLineEdit(this);
    editor->setValidator(new WB::CIntValidator(1, m_spinMaximum, editor));
    setColumnEditor(EStockColumn_Relative, editor);

    setMinimumSize(450, 120);
    setHeaderHeight(21);
    setRowHeight(20);
    uiResourceChanged();

    QMenu* menu = contextMenu();
    connect(menu->addAction(QStringLiteral("导出数据")), SIGNAL(triggered()), this, SLOT(slotExportData()));
    connect(menu->addAction(QStringLiteral("复制数据")), SIGNAL(triggered()), this, SLOT(slotCopyData()));
    connect(menu->addAction(QStringLiteral("粘贴")), SIGNAL(triggered(bool)), this,
            SIGNAL(sigPasteTable(bool)));
}

void CParserStockExeclTable::uiResourceChanged()
{
    WB::CStandardTable::uiResourceChanged();
    if (const QFont* font =
            utils::CSingletonT<WB::CUiResource>::instance()->getFont(QStringLiteral("fnt_graph_axis_text")))
        setFont(*font);
}

void CParserStockExeclTable::addData(QVector<ParserStockDetail>& details, double minRelativeWeight)
{
    for (const ParserStockDetail& detail : std::as_const(details)) {
        const QString key = detail.key();
        if (!m_stocks.contains(key))
            m_stocks.insert(key, detail);
    }
    reCalc();
    // Deliberate: the rows are filled once more, scaled, unfiltered and unsorted. The scaling touches this
    // copy alone, so that the next refill shows the stored weights again.
    QVector<ParserStockDetail> shown(m_stocks.cbegin(), m_stocks.cend());
    fillDetail(shown, minRelativeWeight);
}

void CParserStockExeclTable::fillDetail(QVector<ParserStockDetail>& details, double minRelativeWeight)
{
    m_rows.clear();
    clearRows();
    const double factor = wholeNumberFactor(minRelativeWeight);
    for (ParserStockDetail& detail : details)
        detail.relativeWeight *= factor;

    const QVector<int> ids = setRowCount(details.size());
    for (int i = 0; i < details.size(); ++i) {
        const ParserStockDetail& detail = std::as_const(details)[i];
        const int row = ids[i];
        if (detail.instrument)
            m_rows[qnStockKey(detail.instrument->market, detail.instrument->code)] = row;
        setCellText(row, EStockColumn_Market, marketOf(detail));
        setCellText(row, EStockColumn_Code, codeOf(detail));
        setCellText(row, EStockColumn_Name, getDetailQsName(detail.instrument));
        setCellNumber(row, EStockColumn_Relative, detail.relativeWeight, 0, {});
        setCellEditable(row, EStockColumn_Relative, !m_readOnly);
        setCellNumber(row, EStockColumn_Absolute, detail.absoluteWeight * 100.0, 0, {});
        setCellInteger(row, EStockColumn_Shares, detail.shareCount, 0, {});
    }
}

bool CParserStockExeclTable::passesFilters(const ParserStockDetail& stock) const
{
    const QString texts[] = { marketOf(stock), codeOf(stock), getDetailQsName(stock.instrument) };
    const auto& filters = columnFilters();
    for (auto filter = filters.cbegin(); filter != filters.cend(); ++filter) {
        const QString& text = filter.value();
        const bool isOwn = filter.key() >= EStockColumn_Market && filter.key() <= EStockColumn_Name;
        const bool found = isOwn ? passes(texts[filter.key()], text)
                                 : passes(texts[0], text) || passes(texts[1], text) || passes(texts[2], text);
        if (!found)
            return false;
    }
    return true;
}

void CParserStockExeclTable::filterColumn()
{
    QVector<ParserStockDetail> shown;
    for (const ParserStockDetail& stock : std::as_const(m_stocks)) {
        if (passesFilters(stock))
            shown.append(stock);
    }
    fillDetail(shown, 1.0);
    sortByColumn(getSortColumnID(), getSortOrder());
}

ParserStockDetail* CParserStockExeclTable::stockOfRow(int row)
{
    const QString key = m_rows.key(row);
    const auto stock = m_stocks.find(key);
    return key.isEmpty() || stock == m_stocks.end() ? nullptr : &stock.value();
}

bool CParserStockExeclTable::handleEvent(int id, int row, int col, QString text, void* block)
{
    ParserStockDetail* stock = nullptr;
    switch (id) {
    case WB::ETableEvent_CellEdited:
        stock = stockOfRow(row);
        if (const auto* edit = static_cast<const WB::TableCellEdit*>(block); edit && stock) {
            // Deliberate: the percentage is stored as it stands, so that an entered 25 shows as 2500.
            if (edit->column == EStockColumn_Absolute)
                stock->absoluteWeight = edit->text.toDouble();
            else if (edit->column == EStockColumn_Shares)
                stock->shareCount = edit->text.toInt();
            reCalc();
            Q_EMIT sigChange();
        }
        return true;
    case WB::ETableEvent_Delete:
        removeSelectRows(selectedRows());
        Q_EMIT sigChange();
        return true;
    case WB::ETableEvent_IntegerEdited:
        stock = m_importing ? nullptr : stockOfRow(row);
        if (const auto* value = static_cast<const int*>(block); value && stock) {
            stock->relativeWeight = *value;
            reCalc();
            Q_EMIT sigChange();
        }
        return true;
    default: return WB::CStandardTable::handleEvent(id, row, col, text, block);
    }
}

void CParserStockExeclTable::removeSelectRows(std::set<int> rows)
{
    const auto* manager = utils::CSingletonT<CStockManager>::instance();
    for (const int row : rows) {
        const auto instrument = manager->getInstrumentDetail(cellText(row, EStockColumn_Market),
                                                             cellText(row, EStockColumn_Code));
        if (!instrument)
            continue;
        const QString key = getDetailQsKey(instrument);
        m_stocks.remove(key);
        m_rows.remove(key);
    }
    reCalc();
}

void CParserStockExeclTable::clearAll()
{
    clearRows();
    m_stocks.clear();
    m_rows.clear();
}

void CParserStockExeclTable::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    setColumnEditable(EStockColumn_Shares, !readOnly);
}

void CParserStockExeclTable::setWeightType(int type)
{
    constexpr int absoluteAsEntered = 4;
    m_weightType = type;
    setColumnEditable(EStockColumn_Absolute, type == absoluteAsEntered);
}

void CParserStockExeclTable::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers() == Qt::ControlModifier && event->key() == Qt::Key_V)
        Q_EMIT sigPasteTable(true);
    WB::CStandardTable::keyPressEvent(event);
}

} // namespace TC
