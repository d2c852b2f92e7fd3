// SPDX-License-Identifier: MIT
#pragma once
/// @file The formulas that can be drawn.

#include <QListWidget>

namespace client {

/// Names of the known formulas; a double click or the Enter key asks for a pane, a
/// context menu for the editor too.
class FormulaList : public QListWidget
{
    Q_OBJECT

public:
    explicit FormulaList(QWidget* parent = nullptr);

    /// Lists anew the formulas that can be computed from bars.
    void reload();

Q_SIGNALS:
    void sigPaneRequested(const QString& formula);
    void sigEditRequested(const QString& formula);

private:
    void showMenu(const QString& formula, const QPoint& place);
};

} // namespace client
