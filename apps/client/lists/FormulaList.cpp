// SPDX-License-Identifier: MIT
#include "apps/client/lists/FormulaList.h"

#include "host/TC/CFormulaOperateManager.h"
#include "host/embedded/FormulaSetup.h"
#include "host/utils/CSingletonT.h"

#include <QMenu>

namespace client {

FormulaList::FormulaList(QWidget* parent)
    : QListWidget(parent)
{
    connect(this, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { Q_EMIT sigShowRequested(item->data(Qt::UserRole).toString()); });
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
        if (const QListWidgetItem* item = itemAt(place))
            showMenu(item->data(Qt::UserRole).toString(), mapToGlobal(place));
    });
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

void FormulaList::showMenu(const QString& formula, const QPoint& place)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("添加到图表"), this, [this, formula] { Q_EMIT sigShowRequested(formula); });
    menu->addAction(tr("在新窗格中显示"), this, [this, formula] { Q_EMIT sigPaneRequested(formula); });
    menu->addAction(tr("编辑…"), this, [this, formula] { Q_EMIT sigEditRequested(formula); });
    menu->popup(place);
}

} // namespace client
