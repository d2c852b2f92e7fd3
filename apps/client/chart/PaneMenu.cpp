// SPDX-License-Identifier: MIT
#include "apps/client/chart/PaneMenu.h"

#include "apps/client/PlainTexts.h"
#include "engine/language/Formula.h"

#include <QMenu>

namespace client {

namespace {

bool hasOwnParameters(const QString& formula)
{
    const auto recipe = TC::embedded::resolveFormula(formula);
    return recipe && !recipe->base.isEmpty() && !recipe->formula->parameters().empty();
}

void addFormulaMenu(QMenu* menu, ChartPane* pane, const QString& formula, int place, int count)
{
    QMenu* one = menu->addMenu(menuText(formula));
    const auto act = [one, pane](const QString& text, auto what) { return one->addAction(text, pane, what); };
    act(QStringLiteral("参数…"), [pane, formula] {
        Q_EMIT pane->sigParametersRequested(formula);
    })->setEnabled(hasOwnParameters(formula));
    act(QStringLiteral("上移"), [pane, place] {
        pane->data()->moveFormula(place, place - 1);
    })->setEnabled(place > 0);
    act(QStringLiteral("下移"), [pane, place] {
        pane->data()->moveFormula(place, place + 1);
    })->setEnabled(place + 1 < count);
    act(QStringLiteral("移除"), [pane, formula] {
        pane->removeFormula(formula);
    })->setEnabled(!pane->isMain() || count > 1);
    one->addSeparator();
    act(QStringLiteral("导出…"), [pane, formula] { Q_EMIT pane->sigExportRequested(formula, false); });
    act(QStringLiteral("复制"), [pane, formula] { Q_EMIT pane->sigExportRequested(formula, true); });
}

} // namespace

QMenu* makePaneMenu(ChartPane* pane)
{
    auto* menu = new QMenu(pane);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QList<QString> formulas = pane->data()->getFormulas();
    for (int place = 0; place < formulas.size(); ++place)
        addFormulaMenu(menu, pane, formulas.at(place), place, formulas.size());
    menu->addSeparator();
    menu->addAction(QStringLiteral("导出全部指标…"), pane,
                    [pane] { Q_EMIT pane->sigExportRequested(QString(), false); });
    menu->addAction(QStringLiteral("复制全部指标"), pane,
                    [pane] { Q_EMIT pane->sigExportRequested(QString(), true); });
    menu->addAction(QStringLiteral("导出窗格图片…"), pane,
                    [pane] { Q_EMIT pane->sigPictureRequested(false); });
    menu->addAction(QStringLiteral("复制窗格图片"), pane, [pane] { Q_EMIT pane->sigPictureRequested(true); });
    menu->addSeparator();
    menu->addAction(QStringLiteral("最大化 / 还原"), pane, &ChartPane::sigMaximizeRequested);
    if (!pane->isMain())
        menu->addAction(QStringLiteral("关闭窗格"), pane, &ChartPane::sigCloseRequested);
    return menu;
}

} // namespace client
