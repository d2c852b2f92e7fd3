// SPDX-License-Identifier: MIT
#include "apps/client/access/SpokenValues.h"

#include "apps/chart/TimeMarks.h"
#include "apps/client/chart/ChartState.h"
#include "draw/CDrawStyle.h"
#include "host/TC/UiParams.h"
#include "title/ArrowColorTextData.h"

#include <QStringList>

namespace client {

QString spokenValues(const chart::PaneContent& pane, const ChartState& state)
{
    const int bar = state.crosshairBar() >= 0 ? state.crosshairBar() : state.last();
    if (bar < 0 || bar >= state.barTotal())
        return QString();
    QStringList said { chart::timeText(state.bars()->timeMs, bar) };
    ChartState::Instrument instrument = state.instrument();
    QList<ChartState::Instrument> none;
    for (const chart::PaneFormula& formula : pane.formulas) {
        if (formula.overlaid || !formula.records)
            continue;
        const auto pieces = TC::CDrawStyle::getTitleTextData(formula.key, *formula.records, bar, instrument,
                                                             none, pane.showsPrices, nullptr);
        for (const auto& piece : pieces)
            said << piece.second.text.trimmed();
    }
    said.removeAll(QString());
    return said.join(QStringLiteral(", "));
}

QString spokenName(const chart::PaneContent& pane)
{
    QStringList names;
    for (const chart::PaneFormula& formula : pane.formulas) {
        if (!formula.overlaid)
            names << formula.key.formulaName;
    }
    return names.join(QStringLiteral(", "));
}

} // namespace client
