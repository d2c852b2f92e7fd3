// SPDX-License-Identifier: MIT
#pragma once
/// @file The dialog that brings an earlier version of the formulas back.

#include "apps/client/recovery/FormulaBackups.h"

#include <QDialog>

#include <functional>
#include <utility>
#include <vector>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

namespace client {

/// Lists the backups of the formulas, newest first, shows what differs from the live ones, and restores
/// the chosen version after a question. The present formulas are backed up before they are replaced.
class RestoreDialog : public QDialog
{
    Q_OBJECT

public:
    /// Why the dialog is shown.
    enum class Occasion {
        Menu,      ///< the user asked for it
        FailedRun, ///< the previous run of the client did not end in order
    };
    using Confirmation = std::function<bool(const QString& question)>;

    explicit RestoreDialog(Occasion occasion, QWidget* parent = nullptr);

    /// Who is asked before a restore; by default the user, in a message box.
    void setConfirmation(Confirmation confirmation) { m_confirm = std::move(confirmation); }

    /// Reads the backup folder anew.
    void refresh();

    /// Restores the chosen version if that is confirmed, and closes the dialog when it succeeded.
    void restoreChosen();

Q_SIGNALS:
    /// @param made  when the version was made, as a text.
    void restored(const QString& made);

private:
    const FormulaVersion* chosen() const;
    void showChosen();
    QString question(const FormulaVersion& version) const;

    Confirmation m_confirm;
    std::vector<FormulaVersion> m_versions;
    QTreeWidget* m_list = nullptr;
    QPlainTextEdit* m_preview = nullptr;
    QLabel* m_summary = nullptr;
    QPushButton* m_restore = nullptr;
};

} // namespace client
