// SPDX-License-Identifier: MIT
#include "page/Page.h"

#include <QVBoxLayout>

namespace example {

Page::Page(const QString& instrument, const engine::BarSeries& bars)
{
    const QStringList contents[] = { { QStringLiteral("KLINE"), QStringLiteral("MA") },
                                     { QStringLiteral("VOL") },
                                     { QStringLiteral("MACD") } };
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    for (const QStringList& formulas : contents) {
        auto* pane = new Pane(instrument, bars, formulas);
        pane->onPointed = [this](int bar) { pointAt(bar); };
        layout->addWidget(pane, m_panes.empty() ? 3 : 1);
        m_panes.push_back(pane);
    }
}

void Page::pointAt(int bar)
{
    for (Pane* pane : m_panes)
        pane->pointAt(bar);
}

} // namespace example
