// SPDX-License-Identifier: MIT
#pragma once
/// @file The window in which users write formulas of their own.

#include "apps/chart/OpenedBars.h"
#include "apps/client/editor/FormulaStore.h"
#include "apps/base/LatestJob.h"
#include "engine/language/Formula.h"

#include <QDialog>
#include <QMap>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableWidget;
class QTimer;

namespace client {

class FormulaPreview;
class FormulaText;

/// The user's formulas, the text of one of them, what is wrong with it, its parameters, and a picture. Texts
/// are looked at shortly after a key press, on another thread; a faulty one is saved as a draft, which nobody
/// computes. Every change of the file follows a backup and is made known to the formula manager.
class FormulaEditor : public QDialog
{
    Q_OBJECT

public:
    using Confirmation = std::function<bool(const QString& question)>;
    /// What a text may call, as it is at the moment. @param reader  name of the formula that the text is of.
    using Formulas = std::function<engine::FormulaLookup(const QString& reader)>;

    explicit FormulaEditor(QWidget* parent = nullptr);

    /// Who is asked before something is lost; by default the user, in a message box.
    void setConfirmation(Confirmation confirmation) { m_confirm = std::move(confirmation); }

    /// Where the formulas come from that texts call; by default those that the formula manager knows. The
    /// look-up is used on another thread.
    void setFormulas(Formulas formulas) { m_known = std::move(formulas); }

    /// Bars of the picture.
    void setBars(const chart::Instrument& instrument, const std::shared_ptr<const engine::BarSeries>& bars);

    /// Opens the user's formula of a name, or else a draft that begins as a copy of the built-in one.
    void edit(const QString& shownName);

    /// Shows what is wrong with the present text, now instead of shortly. @return whether it is free of
    /// faults.
    bool check();

    /// Whether what is shown is what is wrong with the present text.
    bool isChecked() const;

    /// Saves what is open; a faulty text as a draft. A failure is shown as well.
    base::Result<void> save();

    /// Closes the window, unless there is something unsaved that the user wants to keep.
    /// @return whether it is closed.
    bool leave();

    void startNew();
    void duplicateOpen();
    void removeOpen();

    void reject() override;

private:
    void buildControls();
    void setWords();
    void connectControls();
    /// Lists the formulas of the file anew; the one that is open stays open.
    void list();
    void showRow(int row);
    void showFormula(const OwnFormula& formula, const QString& stored);
    void startCheck();
    void take(const engine::FormulaReading& reading);
    void takeOpenedValues();
    bool mayLeave();
    void setModified(bool modified);
    void fillParameters();
    void takeParameter(int row);
    void preview();
    std::vector<double> values() const;
    OwnFormula present() const;
    /// Shows how a change of the file ended, and makes it known.
    base::Result<void> finish(const base::Result<void>& result, const QString& success);
    /// Whether the file still holds what was opened, and no formula that works gives way to a draft, or the
    /// user wants it replaced all the same.
    bool mayReplace(bool byDraft);

    FormulaStore m_store;
    Confirmation m_confirm;
    Formulas m_known;
    std::vector<OwnFormula> m_formulas;            ///< by row of the list
    QString m_stored;                              ///< name in the file of what is open; empty: not there yet
    OwnFormula m_opened;                           ///< as the file held it when it was opened or saved
    QString m_base;                                ///< of what is open
    std::shared_ptr<const engine::Formula> m_read; ///< of the present text; null when it is faulty
    QMap<QString, double> m_values;                ///< parameters that differ from their default, by name
    QVector<double> m_openedValues;                ///< of the parameters, until the text is first read
    QString m_seen;                                ///< the text when it last changed
    bool m_modified = false;

    QListWidget* m_list = nullptr;
    QPushButton *m_new = nullptr, *m_duplicate = nullptr, *m_remove = nullptr, *m_save = nullptr;
    QLineEdit *m_name = nullptr, *m_displayName = nullptr;
    FormulaText* m_text = nullptr;
    QListWidget* m_problems = nullptr;
    QTableWidget* m_parameters = nullptr;
    FormulaPreview* m_preview = nullptr;
    QLabel* m_state = nullptr;
    QTimer* m_pause = nullptr; ///< between a key press and the look at the text
    base::LatestJob m_checker; ///< last: it ends before what it shows
};

} // namespace client
