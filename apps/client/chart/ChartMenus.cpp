// SPDX-License-Identifier: MIT
#include "apps/client/chart/ChartMenus.h"

#include "apps/chart/BarPeriod.h"
#include "apps/chart/LongerBars.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/chart/DateJump.h"
#include "apps/client/language/Language.h"

#include <QActionGroup>
#include <QMenuBar>

namespace client {

namespace {

/// @param words  says the action's text in the chosen language.
template <typename Words>
QAction* addChoice(QMenu* menu, QActionGroup* group, Words words)
{
    QAction* action = worded(menu->addAction(QString()), words);
    action->setCheckable(true);
    group->addAction(action);
    return action;
}

/// The library's names of the periods, for the catalogue.
[[maybe_unused]] const char* const kPeriodNames[] = {
    QT_TRANSLATE_NOOP("client::ChartView", "5分钟"),  QT_TRANSLATE_NOOP("client::ChartView", "15分钟"),
    QT_TRANSLATE_NOOP("client::ChartView", "30分钟"), QT_TRANSLATE_NOOP("client::ChartView", "60分钟"),
    QT_TRANSLATE_NOOP("client::ChartView", "日线"),   QT_TRANSLATE_NOOP("client::ChartView", "周线"),
    QT_TRANSLATE_NOOP("client::ChartView", "月线"),   QT_TRANSLATE_NOOP("client::ChartView", "季线"),
    QT_TRANSLATE_NOOP("client::ChartView", "年线")
};

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
    QMenu* margins = titled(menu->addMenu(QString()), [] { return ChartView::tr("右侧留白"); });
    auto* group = new QActionGroup(margins);
    for (int slotCount : { 0, 5, 10, 20, 40 }) {
        QAction* action = addChoice(margins, group, [slotCount] {
            return slotCount == 0 ? ChartView::tr("无") : ChartView::tr("%1 根").arg(slotCount);
        });
        QObject::connect(action, &QAction::triggered, state, [=] { state->setMargin(slotCount); });
        QObject::connect(margins, &QMenu::aboutToShow, action,
                         [=] { action->setChecked(state->margin() == slotCount); });
    }
}

void addAxisKinds(QMenu* menu, ChartState* state)
{
    using chart::AxisKind;
    const std::pair<AxisKind, QString (*)()> kinds[] = {
        { AxisKind::Linear, [] { return ChartView::tr("普通坐标"); } },
        { AxisKind::Logarithmic, [] { return ChartView::tr("对数坐标"); } },
        { AxisKind::Percent, [] { return ChartView::tr("百分比坐标"); } },
        { AxisKind::Indexed, [] { return ChartView::tr("指数坐标（起点为100）"); } },
    };
    QMenu* axes = titled(menu->addMenu(QString()), [] { return ChartView::tr("价格坐标"); });
    auto* group = new QActionGroup(axes);
    int number = 1;
    for (const auto& [kind, words] : kinds) {
        QAction* action = addChoice(axes, group, words);
        action->setShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+%1").arg(number++)));
        action->setChecked(kind == state->axisKind());
        QObject::connect(action, &QAction::triggered, state,
                         [state, kind = kind] { state->setAxisKind(kind); });
        QObject::connect(state, &ChartState::sigAxisChanged, action,
                         [=, kind = kind] { action->setChecked(kind == state->axisKind()); });
    }
}

void addMagnet(QMenu* menu, ChartState* state)
{
    QAction* action = worded(menu->addAction(QString()), [] { return ChartView::tr("十字光标吸附收盘价"); });
    action->setCheckable(true);
    action->setObjectName(QStringLiteral("magnet"));
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+M")));
    QObject::connect(action, &QAction::triggered, state, &ChartState::setMagnetic);
    QObject::connect(state, &ChartState::sigAxisChanged, action,
                     [=] { action->setChecked(state->isMagnetic()); });
}

/// What keys do on the chart, for those who look for it.
void addMoves(QMenu* menu, const ChartView* chart)
{
    QMenu* moves = titled(menu->addMenu(QString()), [] { return ChartView::tr("移动与缩放"); });
    moves->addActions(chart->actions());
}

} // namespace

QMenu* addPeriodMenu(QMenuBar* bar, ChartView* chart)
{
    ChartState* state = chart->state();
    QMenu* menu = titled(bar->addMenu(QString()), [] { return ChartView::tr("周期(&P)"); });
    auto* group = new QActionGroup(menu);
    const auto add = [&](auto words, const QString& key) {
        QAction* action = addChoice(menu, group, words);
        action->setData(key);
        QObject::connect(action, &QAction::triggered, state, [state, key] { state->setPeriod(key); });
        return action;
    };
    add([] { return ChartView::tr("原始周期"); }, QString())
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+0")));
    menu->addSeparator();
    int number = 1;
    for (const chart::OfferedPeriod& period : chart::offeredPeriods())
        add([period] { return ChartView::tr(period.title.toUtf8()); }, period.key)
            ->setShortcut(QKeySequence(QStringLiteral("Ctrl+%1").arg(number++)));
    menu->addSeparator();
    worded(menu->addAction(
               QString(), state, [state] { chooseNextPeriod(state); }, Qt::Key_F8),
           [] { return ChartView::tr("下一周期"); });
    const auto follow = [state, group] { followPeriod(*state, group->actions()); };
    QObject::connect(state, &ChartState::sigBarsChanged, group, follow);
    follow();
    return menu;
}

void addChartMenu(QMenuBar* bar, ChartView* chart)
{
    QMenu* menu = titled(bar->addMenu(QString()), [] { return ChartView::tr("图表(&C)"); });
    addAxisKinds(menu, chart->state());
    addMargins(menu, chart->state());
    menu->addSeparator();
    addMoves(menu, chart);
    addMagnet(menu, chart->state());
    QAction* jump = menu->addAction(
        QString(), chart,
        [chart] {
            auto* dialog = new DateJump(chart->state(), chart);
            dialog->setAttribute(Qt::WA_DeleteOnClose);
            dialog->open();
        },
        QKeySequence(QStringLiteral("Ctrl+G")));
    worded(jump, [] { return ChartView::tr("跳转到日期…"); })->setObjectName(QStringLiteral("goToDate"));
}

} // namespace client
