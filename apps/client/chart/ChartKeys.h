// SPDX-License-Identifier: MIT
#pragma once
/// @file The keys that work a chart: actions of the view that has the focus.

#include <QKeySequence>
#include <QList>

#include <functional>

class QAction;
class QKeyEvent;
class QWidget;

namespace client {

class ChartState;

/// Gives a view an action whose keys work while the view itself has the focus.
/// @param words  the action's text in the chosen language.
QAction* addKeyAction(QWidget* view, const std::function<QString()>& words, const QList<QKeySequence>& keys,
                      const std::function<void()>& run);

/// Gives a view the actions that move the crosshair, zoom and move its chart.
void addChartActions(QWidget* view, ChartState* state);

/// Runs the action of the view that the keys stand for. @return whether there is one.
bool runKeyAction(const QWidget* view, const QKeyEvent* event);

} // namespace client
