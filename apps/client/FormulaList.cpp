#include "apps/client/FormulaList.h"

#include "engine/Formulas.h"

namespace client {

FormulaList::FormulaList(QWidget* parent)
    : QListWidget(parent)
{
    connect(this, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { Q_EMIT sigPaneRequested(item->data(Qt::UserRole).toString()); });
    reload();
}

void FormulaList::reload()
{
    clear();
    for (const engine::FormulaDescription& formula : engine::builtInFormulas()) {
        QStringList parameters;
        for (const engine::Parameter& parameter : formula.parameters)
            parameters << QString::number(parameter.value);
        const QString name = QString::fromStdString(formula.name);
        auto* item = new QListWidgetItem(
            parameters.isEmpty() ? name
                                 : QStringLiteral("%1 (%2)").arg(name, parameters.join(QStringLiteral(", "))),
            this);
        item->setData(Qt::UserRole, name);
    }
}

} // namespace client
