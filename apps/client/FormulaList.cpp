#include "apps/client/FormulaList.h"

#include "host/TC/CFormulaOperateManager.h"
#include "host/embedded/FormulaSetup.h"
#include "host/utils/CSingletonT.h"

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
    const auto* manager = utils::CSingletonT<TC::CFormulaOperateManager>::instance();
    const QStringList names = TC::embedded::formulaNames();
    for (const QString& name : names) {
        if (!TC::embedded::resolveFormula(name))
            continue; // nothing computes it from bars
        QStringList parameters;
        const QVector<double> numbers = manager->getFormula(name)->numberParams;
        for (double number : numbers)
            parameters << QString::number(number);
        const QString shown = parameters.isEmpty()
            ? name
            : QStringLiteral("%1 (%2)").arg(name, parameters.join(QStringLiteral(", ")));
        auto* item = new QListWidgetItem(shown, this);
        item->setData(Qt::UserRole, name);
    }
}

} // namespace client
