// SPDX-License-Identifier: MIT
#include "apps/client/access/ChartAccess.h"

#include "apps/client/access/SpokenValues.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/PlotWidget.h"
#include "apps/client/chart/TickView.h"

#include <QAccessibleWidget>

namespace client {

namespace {

/// A plot, or a whole chart by the plot of its prices.
class ChartAccess : public QAccessibleWidget
{
public:
    /// @param plot  whose values are told; may be null.
    ChartAccess(QWidget* widget, const PlotWidget* plot)
        : QAccessibleWidget(widget, QAccessible::Chart)
        , m_plot(plot)
    {
    }

    QString text(QAccessible::Text what) const override
    {
        if (m_plot && (what == QAccessible::Value || what == QAccessible::Description))
            return spokenValues(m_plot->content(), *m_plot->state());
        const QString own = QAccessibleWidget::text(what);
        return m_plot && what == QAccessible::Name && own.isEmpty() ? spokenName(m_plot->content()) : own;
    }

private:
    const PlotWidget* m_plot;
};

QAccessibleInterface* makeAccess(const QString&, QObject* object)
{
    if (auto* plot = qobject_cast<PlotWidget*>(object))
        return new ChartAccess(plot, plot);
    if (auto* chart = qobject_cast<ChartView*>(object))
        return new ChartAccess(chart, chart->panes().empty() ? nullptr : chart->panes().front()->plot());
    if (auto* ticks = qobject_cast<TickView*>(object))
        return new ChartAccess(ticks, ticks->findChild<PlotWidget*>());
    return nullptr;
}

} // namespace

void describeCharts()
{
    static const bool done = [] {
        QAccessible::installFactory(makeAccess);
        return true;
    }();
    static_cast<void>(done);
}

} // namespace client
