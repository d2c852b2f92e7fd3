// SPDX-License-Identifier: MIT
#include "apps/client/basket/WeightTable.h"

#include "apps/client/language/Language.h"
#include "host/TC/CStockManager.h"
#include "host/WB/TableEvents.h"
#include "host/embedded/InstrumentSetup.h"
#include "host/utils/CSingletonT.h"

#include <algorithm>

namespace client {

namespace {

enum EColumn {
    EColumn_Market,
    EColumn_Code,
    EColumn_Name,
    EColumn_Relative,
    EColumn_Absolute,
    EColumn_Shares
};
enum ERule {
    ERule_FloatingValue = 2,
    ERule_TotalValue = 3,
    ERule_AbsoluteAsEntered = 4,
    ERule_AsEntered = 1
};

/// The figure that a rule rests on; 0 for a rule that needs none.
int figureOf(int rule)
{
    switch (rule) {
    case ERule_FloatingValue: return TC::embedded::kFreeFloatValueField;
    case ERule_TotalValue: return TC::embedded::kTotalMarketValueField;
    default: return 0;
    }
}

bool bringsWeight(const TC::ParserStockDetail& stock)
{
    constexpr double least = 1e-5; // as the readers tell a weight from none
    return stock.relativeWeight > least || stock.relativeWeight < -least;
}

} // namespace

WeightTable::WeightTable(QWidget* parent)
    : TC::CParserStockExeclTable(0, parent, {})
{
    followLanguage(this, [this] { rowCount() > 0 ? filterColumn() : markHeaders(false); });
}

bool WeightTable::isComputed(int rule)
{
    return rule != ERule_AsEntered && rule != ERule_AbsoluteAsEntered;
}

bool WeightTable::add(QVector<TC::ParserStockDetail> found, double minimum)
{
    const bool brings = std::any_of(found.cbegin(), found.cend(), bringsWeight);
    if (getAllStock().isEmpty())
        m_hasRelative = m_hasAbsolute = false;
    addData(found, minimum);
    markFigures(); // the rows were filled once more
    m_hasRelative = m_hasRelative || (brings && !isComputed(getWeightType()));
    return brings;
}

void WeightTable::chooseRule(int rule)
{
    setWeightType(rule);
    reCalc();
    m_hasRelative = m_hasRelative && !isComputed(rule);
    m_hasAbsolute = m_hasAbsolute && rule == ERule_AbsoluteAsEntered;
}

bool WeightTable::wouldOverwrite(int rule) const
{
    if (getAllStock().isEmpty())
        return false;
    return (m_hasRelative && isComputed(rule)) || (m_hasAbsolute && rule != ERule_AbsoluteAsEntered);
}

void WeightTable::filterColumn()
{
    TC::CParserStockExeclTable::filterColumn();
    markFigures();
}

void WeightTable::markFigures()
{
    const int figure = figureOf(getWeightType());
    const auto* stocks = utils::CSingletonT<TC::CStockManager>::instance();
    bool anySynthetic = false;
    for (int index = 0; index < rowCount(); ++index) {
        const int row = rowID(index);
        if (isComputed(getWeightType()))
            setCellEditable(row, EColumn_Relative, false);
        const auto instrument = figure == 0
            ? nullptr
            : stocks->getInstrumentDetail(cellText(row, EColumn_Market), cellText(row, EColumn_Code));
        if (!instrument)
            continue;
        const bool isKnown = instrument->getNumber(figure) > 0.0;
        const bool isSynthetic = isKnown && TC::embedded::isSyntheticFigure(*instrument, figure);
        anySynthetic = anySynthetic || isSynthetic;
        for (int column : { int(EColumn_Relative), int(EColumn_Absolute) }) {
            if (!isKnown)
                setCellText(row, column, tr("无市值数据"));
            else if (isSynthetic)
                setCellText(row, column, tr("虚构 ") + cellText(row, column));
        }
    }
    markHeaders(anySynthetic);
}

void WeightTable::markHeaders(bool synthetic)
{
    constexpr int plainWidth = 90, markedWidth = 130, padding = 8; // pixels: ten digits behind the mark
    const QString relative = synthetic ? tr("相对权重(虚构)") : tr("相对权重");
    if (columnHeader(EColumn_Relative) == relative && rowCount() > 0)
        return;
    setColumnHeader(EColumn_Market, tr("市场"));
    setColumnHeader(EColumn_Code, tr("代码"));
    setColumnHeader(EColumn_Name, tr("名称"));
    setColumnHeader(EColumn_Shares, tr("股数"));
    setColumnHeader(EColumn_Relative, relative);
    setColumnHeader(EColumn_Absolute, synthetic ? tr("绝对权重(%,虚构)") : tr("绝对权重(%)"));
    for (int column : { int(EColumn_Relative), int(EColumn_Absolute) }) {
        const int title = fontMetrics().horizontalAdvance(columnHeader(column)) + 2 * padding;
        setColumnWidth(column, std::max(synthetic ? markedWidth : plainWidth, title));
    }
}

bool WeightTable::handleEvent(int id, int row, int col, QString text, void* block)
{
    const auto* edit =
        id == WB::ETableEvent_CellEdited ? static_cast<const WB::TableCellEdit*>(block) : nullptr;
    m_hasRelative = m_hasRelative || id == WB::ETableEvent_IntegerEdited;
    m_hasAbsolute = m_hasAbsolute || (edit && edit->column == EColumn_Absolute);
    return TC::CParserStockExeclTable::handleEvent(id, row, col, text, block);
}

} // namespace client
