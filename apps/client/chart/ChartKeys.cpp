// SPDX-License-Identifier: MIT
#include "apps/client/chart/ChartKeys.h"

#include "apps/client/chart/ChartState.h"
#include "apps/client/chart/ChartView.h"
#include "apps/client/language/Language.h"

#include <QAction>
#include <QKeyEvent>

#include <algorithm>

namespace client {

namespace {

constexpr double kZoomStep = 1.25;
constexpr int kMoveShare = 10; // a move is this part of the shown bars

void pan(ChartState* state, int direction)
{
    state->pan(direction * std::max(1, (state->last() - state->first() + 1) / kMoveShare));
}

} // namespace

QAction* addKeyAction(QWidget* view, const std::function<QString()>& words, const QList<QKeySequence>& keys,
                      const std::function<void()>& run)
{
    QAction* action = worded(new QAction(view), words);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(action, &QAction::triggered, view, run);
    view->addAction(action);
    return action;
}

void addChartActions(QWidget* view, ChartState* state)
{
    const auto add = [view](const std::function<QString()>& words, const QList<QKeySequence>& keys,
                            const std::function<void()>& run) {
        return addKeyAction(view, words, keys, run);
    };
    add([] { return ChartView::tr("十字光标左移一根"); }, { Qt::Key_Left },
        [state] { state->stepCrosshair(-1); });
    add([] { return ChartView::tr("十字光标右移一根"); }, { Qt::Key_Right },
        [state] { state->stepCrosshair(1); });
    add([] { return ChartView::tr("向左移动"); }, { QStringLiteral("Ctrl+Left") },
        [state] { pan(state, -1); });
    add([] { return ChartView::tr("向右移动"); }, { QStringLiteral("Ctrl+Right") },
        [state] { pan(state, 1); });
    add([] { return ChartView::tr("最早"); }, { Qt::Key_Home }, [state] { state->showFirst(); });
    add([] { return ChartView::tr("最新"); }, { Qt::Key_End }, [state] { state->showLast(); })
        ->setObjectName(QStringLiteral("showNewest"));
    add([] { return ChartView::tr("放大"); }, { Qt::Key_Up, Qt::Key_Plus, Qt::Key_Equal },
        [state] { state->zoomAtCrosshair(1.0 / kZoomStep); })
        ->setObjectName(QStringLiteral("zoomIn"));
    add([] { return ChartView::tr("缩小"); }, { Qt::Key_Down, Qt::Key_Minus },
        [state] { state->zoomAtCrosshair(kZoomStep); })
        ->setObjectName(QStringLiteral("zoomOut"));
}

bool runKeyAction(const QWidget* view, const QKeyEvent* event)
{
    // Plus is typed with Shift on some keyboards, and on the keypad of all.
    const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier
        & ~(event->key() == Qt::Key_Plus ? Qt::ShiftModifier : Qt::NoModifier);
    const QKeySequence keys(static_cast<int>(held) + event->key());
    const QList<QAction*> actions = view->actions();
    for (QAction* action : actions) {
        if (action->isEnabled() && action->shortcuts().contains(keys)) {
            action->trigger();
            return true;
        }
    }
    return false;
}

} // namespace client
