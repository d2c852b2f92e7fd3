// SPDX-License-Identifier: MIT
#pragma once
/// @file The formulas that can be drawn.

#include <QListWidget>

namespace client {

/// Names of the known formulas; a double click or the Enter key shows
/// one on the chart; a context menu offers a pane of its own and the editor too.
class FormulaList : public QListWidget
{
    Q_OBJECT

public:
    explicit FormulaList(QWidget* parent = nullptr);

    /// Lists anew the formulas that can be computed from bars.
    void reload();

Q_SIGNALS:
    /// Where the formula belongs.
    void sigShowRequested(const QString& formula);
    /// In a pane of its own, whatever it is made for.
    void sigPaneRequested(const QString& formula);
    void sigEditRequested(const QString& formula);

private:
    void showMenu(const QString& formula, const QPoint& place);
};

} // namespace client
