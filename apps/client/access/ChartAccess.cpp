// SPDX-License-Identifier: MIT
#include "apps/client/access/ChartAccess.h"

#include "apps/client/access/SpokenValues.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/PlotWidget.h"
#include "apps/client/chart/TickView.h"

#include <QAccessibleWidget>

namespace client {

namespace {

/// The plot whose values a widget tells: itself, or that of a chart's prices. Null while there is none.
const PlotWidget* plotOf(const QWidget* widget)
{
    if (const auto* chart = qobject_cast<const ChartView*>(widget))
        return chart->panes().empty() ? nullptr : chart->panes().front()->plot();
    const auto* plot = qobject_cast<const PlotWidget*>(widget);
    return plot ? plot : widget->findChild<PlotWidget*>();
}

/// A plot or a whole chart.
class ChartAccess : public QAccessibleWidget
{
public:
    explicit ChartAccess(QWidget* widget)
        : QAccessibleWidget(widget, QAccessible::Chart)
    {
    }

    QString text(QAccessible::Text what) const override
    {
        const PlotWidget* plot = plotOf(widget());
        if (plot && (what == QAccessible::Value || what == QAccessible::Description))
            return spokenValues(plot->content(), *plot->state());
        const QString own = QAccessibleWidget::text(what);
        return plot && what == QAccessible::Name && own.isEmpty() ? spokenName(plot->content()) : own;
    }
};

QAccessibleInterface* makeAccess(const QString&, QObject* object)
{
    const bool isChart = qobject_cast<PlotWidget*>(object) || qobject_cast<ChartView*>(object)
        || qobject_cast<TickView*>(object);
    return isChart ? new ChartAccess(static_cast<QWidget*>(object)) : nullptr;
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
