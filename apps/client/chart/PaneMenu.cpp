// SPDX-License-Identifier: MIT
#include "apps/client/chart/PaneMenu.h"

#include "apps/chart/ValueMarks.h"
#include "apps/client/PlainTexts.h"
#include "apps/client/chart/PlotWidget.h"
#include "engine/language/Formula.h"
#include "host/TC/Instruments.h"

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
    act(ChartPane::tr("参数…"), [pane, formula] {
        Q_EMIT pane->sigParametersRequested(formula);
    })->setEnabled(hasOwnParameters(formula));
    act(ChartPane::tr("上移"), [pane, place] {
        pane->data()->moveFormula(place, place - 1);
    })->setEnabled(place > 0);
    act(ChartPane::tr("下移"), [pane, place] {
        pane->data()->moveFormula(place, place + 1);
    })->setEnabled(place + 1 < count);
    act(ChartPane::tr("移除"), [pane, formula] {
        pane->removeFormula(formula);
    })->setEnabled(!pane->isMain() || count > 1);
    one->addSeparator();
    act(ChartPane::tr("导出…"), [pane, formula] { Q_EMIT pane->sigExportRequested(formula, false); });
    act(ChartPane::tr("复制"), [pane, formula] { Q_EMIT pane->sigExportRequested(formula, true); });
}

void addOverlayMenus(QMenu* menu, ChartPane* pane)
{
    using Scale = PaneData::OverlayScale;
    const std::pair<Scale, QString> scales[] = { { Scale::Together, ChartPane::tr("起点对齐") },
                                                 { Scale::Same, ChartPane::tr("同一坐标") },
                                                 { Scale::Own, ChartPane::tr("独立坐标") } };
    const std::vector<PaneData::Overlay>& overlays = pane->data()->overlays();
    for (std::size_t index = 0; index < overlays.size(); ++index) {
        QMenu* one = menu->addMenu(
            menuText(ChartPane::tr("叠加 %1").arg(TC::getDetailQsName(overlays[index].instrument))));
        for (const auto& [scale, text] : scales) {
            QAction* action = one->addAction(
                text, pane, [pane, index, scale = scale] { pane->setOverlayScale(index, scale); });
            action->setCheckable(true);
            action->setChecked(scale == overlays[index].scale);
        }
        one->addSeparator();
        one->addAction(ChartPane::tr("移除"), pane, [pane, index] { pane->removeOverlay(index); });
    }
}

void addPriceLineEntries(QMenu* menu, ChartPane* pane, int row)
{
    ChartState* state = pane->state();
    const auto textOf = [&](double price) { return chart::valueText(price, pane->data()->content(), 0.0); };
    if (const std::optional<double> line = pane->plot()->priceLineAt(row)) {
        menu->addAction(ChartPane::tr("删除价位线 %1").arg(textOf(*line)), state,
                        [state, price = *line] { state->removePriceLine(price); });
    } else if (const std::optional<double> price = pane->plot()->priceAt(row)) {
        menu->addAction(ChartPane::tr("画价位线 %1").arg(textOf(*price)), state,
                        [state, price = *price] { state->addPriceLine(price); });
    }
    if (!state->priceLines().empty())
        menu->addAction(ChartPane::tr("删除全部价位线"), state, &ChartState::clearPriceLines);
    menu->addSeparator();
}

} // namespace

QMenu* makePaneMenu(ChartPane* pane, const std::optional<int>& row)
{
    auto* menu = new QMenu(pane);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (row && pane->isMain())
        addPriceLineEntries(menu, pane, *row);
    const QList<QString> formulas = pane->data()->getFormulas();
    for (int place = 0; place < formulas.size(); ++place)
        addFormulaMenu(menu, pane, formulas.at(place), place, formulas.size());
    addOverlayMenus(menu, pane);
    menu->addSeparator();
    menu->addAction(ChartPane::tr("导出全部指标…"), pane,
                    [pane] { Q_EMIT pane->sigExportRequested(QString(), false); });
    menu->addAction(ChartPane::tr("复制全部指标"), pane,
                    [pane] { Q_EMIT pane->sigExportRequested(QString(), true); });
    menu->addAction(ChartPane::tr("导出窗格图片…"), pane,
                    [pane] { Q_EMIT pane->sigPictureRequested(false); });
    menu->addAction(ChartPane::tr("复制窗格图片"), pane, [pane] { Q_EMIT pane->sigPictureRequested(true); });
    menu->addSeparator();
    menu->addAction(ChartPane::tr("最大化 / 还原"), pane, &ChartPane::sigMaximizeRequested);
    if (!pane->isMain())
        menu->addAction(ChartPane::tr("关闭窗格"), pane, &ChartPane::sigCloseRequested);
    return menu;
}

} // namespace client
