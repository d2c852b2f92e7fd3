// SPDX-License-Identifier: MIT
#include "apps/guide/Scenes.h"

#include "apps/client/PanelIds.h"
#include "apps/client/basket/BasketPanel.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/PaneMenu.h"
#include "apps/client/chart/PlotWidget.h"
#include "apps/client/editor/FormulaEditor.h"
#include "apps/client/lists/FormulaList.h"
#include "apps/client/lists/QuoteList.h"
#include "apps/client/recovery/FormulaBackups.h"
#include "apps/guide/Stage.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <memory>

namespace guide {

namespace {

constexpr const char* kIndex = "bars/SH000001.csv";
constexpr const char* kShare = "bars/SH600030.csv";

/// A dialog that a menu's entry opens.
QDialog* dialogBehind(Stage& stage, const char* entry)
{
    stage.choose(entry);
    QDialog* open = nullptr;
    stage.await("a dialog", [&open] {
        const QWidgetList shown = QApplication::topLevelWidgets();
        for (QWidget* widget : shown) {
            if (widget->isVisible() && qobject_cast<QDialog*>(widget))
                open = qobject_cast<QDialog*>(widget);
        }
        return open != nullptr;
    });
    return open;
}

QImage emptyWindow(Stage& stage)
{
    return stage.picture();
}

QImage firstChart(Stage& stage)
{
    stage.openBars(kIndex);
    stage.point(0, QPoint(520, 150));
    return stage.picture();
}

QImage search(Stage& stage)
{
    stage.openBars(kIndex);
    Q_EMIT stage.chart()->sigSearchRequested(QStringLiteral("ZX"));
    return stage.picture();
}

QImage quotes(Stage& stage)
{
    stage.openBars(kIndex);
    stage.raise(client::kQuotePanel);
    auto* quotes = stage.window().findChild<client::QuoteList*>();
    stage.await("the quotes", [quotes] { return !quotes->quotes()->isReading(); });
    Stage::settle();
    return stage.picture();
}

QImage formulas(Stage& stage)
{
    stage.openBars(kShare);
    stage.chart()->showFormula(QStringLiteral("BOLL"));
    stage.chart()->showFormula(QStringLiteral("KDJ"));
    stage.awaitResults();
    stage.chart()->state()->show(2000, 2119);
    Stage::settle();
    client::ChartPane* pane = stage.chart()->panes().front();
    QMenu* menu = client::makePaneMenu(pane, 150);
    menu->popup(pane->plot()->mapToGlobal(QPoint(300, 60)));
    Stage::settle();
    menu->setActiveAction(menu->actions().at(3));
    return stage.picture();
}

QImage parameters(Stage& stage)
{
    stage.openBars(kShare);
    Q_EMIT stage.chart()->sigParametersRequested(QStringLiteral("MACD"));
    Stage::settle();
    return stage.picture();
}

/// Puts formulas of the user's own in place, as the editor would, and backs them up.
void keepFormulas(Stage& stage, const char* text)
{
    QDir().mkpath(QFileInfo(client::liveFormulasPath()).path());
    QFile file(client::liveFormulasPath());
    if (file.open(QIODevice::WriteOnly))
        file.write(QStringLiteral(R"({"formulas": [{"name": "CHANNEL", "source": "%1"}]})")
                       .arg(QString::fromUtf8(text))
                       .toUtf8());
    file.close();
    stage.choose("重新载入公式");
    static_cast<void>(client::backUpFormulas());
}

QImage editor(Stage& stage)
{
    stage.openBars(kShare);
    keepFormulas(stage,
                 "MAIN; PARAM N(20,2,250);\\nUPPER:HHV(HIGH,N),COLORRED;\\nLOWER:LLV(LOW,N),COLORGREEN;"
                 "\\nMIDDLE:(UPPER+LOWER)/2;");
    Q_EMIT stage.window().findChild<client::FormulaList*>()->sigEditRequested(QStringLiteral("CHANNEL"));
    auto* editor = stage.window().findChild<client::FormulaEditor*>();
    stage.await("the checked text", [editor] { return editor->isChecked(); });
    Stage::settle();
    return stage.picture(editor);
}

QImage weeks(Stage& stage)
{
    stage.openBars(kShare);
    stage.chart()->state()->setPeriod(QStringLiteral("WEEK"));
    stage.chart()->state()->setAxisKind(chart::AxisKind::Logarithmic);
    stage.awaitResults();
    return stage.picture(stage.chart());
}

QImage overlay(Stage& stage)
{
    stage.openBars(kShare);
    static_cast<void>(stage.window().overlayBars(stage.sample(kIndex)));
    stage.chart()->state()->setAxisKind(chart::AxisKind::Percent);
    stage.awaitResults();
    return stage.picture(stage.chart());
}

QImage measure(Stage& stage)
{
    stage.openBars(kShare);
    client::ChartState* state = stage.chart()->state();
    const engine::BarSeries& bars = *state->bars();
    state->addPriceLine(bars.close.at(bars.size() - 60));
    stage.drag(0, QPoint(300, 260), QPoint(620, 90), Qt::ShiftModifier);
    return stage.picture(stage.chart());
}

QImage dateJump(Stage& stage)
{
    stage.openBars(kShare);
    QDialog* jump = dialogBehind(stage, "跳转到日期…");
    jump->findChild<QLineEdit*>()->setText(QStringLiteral("2015-06"));
    return stage.picture();
}

QImage trades(Stage& stage)
{
    static_cast<void>(stage.window().openTicks(stage.sample("ticks/VALE3-2025-04-07.csv")));
    stage.raise(client::kTickPanel);
    return stage.picture();
}

QImage basket(Stage& stage)
{
    stage.openBars(kIndex);
    stage.raise(client::kBasketPanel);
    const QTemporaryDir folder;
    QFile list(folder.filePath(QStringLiteral("basket.csv")));
    if (list.open(QIODevice::WriteOnly))
        list.write(
            QStringLiteral("代码,名称,相对权重,绝对权重(%),股数\n600030,中信证券,4,,\n600036,招商银行,3,,\n"
                           "600519,贵州茅台,3,,\n000001,平安银行,2,,\n999999,不存在,1,,\n")
                .toUtf8());
    list.close();
    client::BasketPanel* basket = stage.window().basket();
    const auto isRead = std::make_shared<bool>(false); // the connection outlives this scene
    QObject::connect(basket, &client::BasketPanel::sigImportEnded, basket, [isRead] { *isRead = true; });
    basket->importFile(list.fileName());
    stage.await("the import", [isRead] { return *isRead; });
    basket->findChild<QComboBox*>()->setCurrentIndex(0); // equal weights
    return stage.picture();
}

QImage restore(Stage& stage)
{
    keepFormulas(stage, "MAIN; FAST:MA(CLOSE,5);");
    keepFormulas(stage, "MAIN; FAST:MA(CLOSE,5); SLOW:MA(CLOSE,20);");
    keepFormulas(stage, "MAIN; FAST:MA(CLOSE,10); SLOW:MA(CLOSE,30);");
    QDialog* dialog = dialogBehind(stage, "恢复公式…");
    auto* versions = dialog->findChild<QTreeWidget*>();
    versions->setCurrentItem(versions->topLevelItem(2));
    Stage::settle();
    return stage.picture(dialog);
}

QImage replay(Stage& stage)
{
    stage.openBars(kShare);
    stage.chart()->state()->show(1500, 1620);
    stage.window().replayBars();
    Stage::settle();
    return stage.picture();
}

QImage keys(Stage& stage)
{
    stage.openBars(kIndex);
    dialogBehind(stage, "快捷键…");
    return stage.picture();
}

QImage light(Stage& stage)
{
    stage.window().chooseSkin(QStringLiteral("light"));
    stage.openBars(kShare);
    stage.point(0, QPoint(430, 120));
    return stage.picture();
}

} // namespace

const std::vector<Scene>& scenes()
{
    static const std::vector<Scene> all {
        { "empty", emptyWindow }, { "first-chart", firstChart }, { "search", search }, { "quotes", quotes },
        { "formulas", formulas }, { "parameters", parameters },  { "editor", editor }, { "weeks", weeks },
        { "overlay", overlay },   { "measure", measure },        { "date", dateJump }, { "trades", trades },
        { "basket", basket },     { "restore", restore },        { "replay", replay }, { "light", light },
        { "keys", keys },
    };
    return all;
}

} // namespace guide
