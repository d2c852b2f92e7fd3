// SPDX-License-Identifier: MIT
#include "apps/client/chart/ChartMenus.h"

#include "apps/chart/BarPeriod.h"
#include "apps/chart/LongerBars.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/DateJump.h"

#include <QActionGroup>
#include <QMenuBar>

namespace client {

namespace {

QAction* addChoice(QMenu* menu, QActionGroup* group, const QString& text)
{
    QAction* action = menu->addAction(text);
    action->setCheckable(true);
    group->addAction(action);
    return action;
}

/// The periods that the opened bars can be shown in; the empty key stands for their own.
QStringList possiblePeriods(const ChartState& state)
{
    QStringList keys { QString() };
    const ChartState::Bars& bars = state.source();
    const TC::EFormulaPeriod own = chart::barPeriod(bars ? bars->timeMs : std::vector<std::int64_t>());
    for (const chart::OfferedPeriod& period : chart::offeredPeriods()) {
        if (period.period > own)
            keys << period.key;
    }
    return keys;
}

void chooseNextPeriod(ChartState* state)
{
    const QStringList keys = possiblePeriods(*state);
    state->setPeriod(keys.at((keys.indexOf(state->chosenPeriod()) + 1) % keys.size()));
}

/// Checks the chosen period and disables those that cannot be made.
void followPeriod(const ChartState& state, const QList<QAction*>& actions)
{
    const QStringList possible = possiblePeriods(state);
    const QString chosen = possible.contains(state.chosenPeriod()) ? state.chosenPeriod() : QString();
    for (QAction* action : actions) {
        const QString key = action->data().toString();
        action->setEnabled(possible.contains(key));
        action->setChecked(key == chosen);
    }
}

void addMargins(QMenu* menu, ChartState* state)
{
    QMenu* margins = menu->addMenu(QStringLiteral("右侧留白"));
    auto* group = new QActionGroup(margins);
    for (int slotCount : { 0, 5, 10, 20, 40 }) {
        QAction* action = addChoice(
            margins, group, slotCount == 0 ? QStringLiteral("无") : QStringLiteral("%1 根").arg(slotCount));
        QObject::connect(action, &QAction::triggered, state, [=] { state->setMargin(slotCount); });
        QObject::connect(margins, &QMenu::aboutToShow, action,
                         [=] { action->setChecked(state->margin() == slotCount); });
    }
}

void addAxisKinds(QMenu* menu, ChartState* state)
{
    using chart::AxisKind;
    const std::pair<AxisKind, QString> kinds[] = {
        { AxisKind::Linear, QStringLiteral("普通坐标") },
        { AxisKind::Logarithmic, QStringLiteral("对数坐标") },
        { AxisKind::Percent, QStringLiteral("百分比坐标") },
        { AxisKind::Indexed, QStringLiteral("指数坐标（起点为100）") },
    };
    QMenu* axes = menu->addMenu(QStringLiteral("价格坐标"));
    auto* group = new QActionGroup(axes);
    int key = Qt::Key_1;
    for (const auto& [kind, text] : kinds) {
        QAction* action = addChoice(axes, group, text);
        action->setShortcut(Qt::CTRL + Qt::ALT + key++);
        action->setChecked(kind == state->axisKind());
        QObject::connect(action, &QAction::triggered, state,
                         [state, kind = kind] { state->setAxisKind(kind); });
        QObject::connect(state, &ChartState::sigAxisChanged, action,
                         [=, kind = kind] { action->setChecked(kind == state->axisKind()); });
    }
}

void addMagnet(QMenu* menu, ChartState* state)
{
    QAction* action = menu->addAction(QStringLiteral("十字光标吸附收盘价"));
    action->setCheckable(true);
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+M")));
    QObject::connect(action, &QAction::triggered, state, &ChartState::setMagnetic);
    QObject::connect(menu, &QMenu::aboutToShow, action, [=] { action->setChecked(state->isMagnetic()); });
}

} // namespace

void addPeriodMenu(QMenuBar* bar, ChartView* chart)
{
    ChartState* state = chart->state();
    QMenu* menu = bar->addMenu(QStringLiteral("周期(&P)"));
    auto* group = new QActionGroup(menu);
    const auto add = [&](const QString& text, const QString& key) {
        QAction* action = addChoice(menu, group, text);
        action->setData(key);
        QObject::connect(action, &QAction::triggered, state, [state, key] { state->setPeriod(key); });
        return action;
    };
    add(QStringLiteral("原始周期"), QString())->setShortcut(QKeySequence(QStringLiteral("Ctrl+0")));
    menu->addSeparator();
    int key = Qt::Key_1;
    for (const chart::OfferedPeriod& period : chart::offeredPeriods())
        add(period.title, period.key)->setShortcut(Qt::CTRL + key++);
    menu->addSeparator();
    menu->addAction(
        QStringLiteral("下一周期"), state, [state] { chooseNextPeriod(state); }, Qt::Key_F8);
    const auto follow = [state, group] { followPeriod(*state, group->actions()); };
    QObject::connect(state, &ChartState::sigBarsChanged, group, follow);
    follow();
}

void addChartMenu(QMenuBar* bar, ChartView* chart)
{
    QMenu* menu = bar->addMenu(QStringLiteral("图表(&C)"));
    addAxisKinds(menu, chart->state());
    addMargins(menu, chart->state());
    menu->addSeparator();
    addMagnet(menu, chart->state());
    menu->addAction(
        QStringLiteral("跳转到日期…"), chart,
        [chart] {
            auto* dialog = new DateJump(chart->state(), chart);
            dialog->setAttribute(Qt::WA_DeleteOnClose);
            dialog->open();
        },
        QKeySequence(QStringLiteral("Ctrl+G")));
}

} // namespace client
