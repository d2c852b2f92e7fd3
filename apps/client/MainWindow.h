// SPDX-License-Identifier: MIT
#pragma once
/// @file The reference client's window.

#include "apps/base/Result.h"
#include "apps/client/ApplicationLook.h"
#include "apps/client/ComparedIndex.h"
#include "apps/client/OneClient.h"
#include "apps/client/PlainTexts.h"
#include "apps/client/chart/FormulaSource.h"
#include "apps/client/chart/PaneData.h"
#include "apps/client/docking/DockArrangement.h"
#include "apps/client/docking/PanelPool.h"
#include "apps/client/recovery/RestoreDialog.h"
#include "apps/client/session/SessionKeeper.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>

class QLabel;
class QMenu;

namespace chart {
struct OpenedBars;
}

namespace client {

class BarsOpening;
class BasketPanel;
class ChartPane;
class ChartView;
class FollowedFile;
class FormulaEditor;
class FormulaList;
class InstrumentList;
class InstrumentSearch;
class MessageList;
class QuoteList;
class Replay;
class ShortcutSheet;
class TickView;

/// Chart, ticks, basket, instruments, formulas and messages as dock panels, with menus. GUI thread only.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @param language  of offeredLanguages(); empty: that of the last run.
    explicit MainWindow(const QString& language = QString());
    ~MainWindow() override;

    /// Opens a bars file. A failure is shown as well. A large file is read while the window goes on; what it
    /// was opened for is done once its bars stand, and the answer is good meanwhile.
    base::Result<void> openBars(const QString& path) { return openBars(path, {}); }
    base::Result<void> openBars(const QString& path, const std::function<void()>& then);
    /// Whether a large file is being read.
    bool isOpening() const;
    /// Opens a trades file on the tick page; as openBars.
    base::Result<void> openTicks(const QString& path);
    /// Lays the prices of a bars file over the chart; as openBars.
    base::Result<void> overlayBars(const QString& path,
                                   PaneData::OverlayScale scale = PaneData::OverlayScale::Together);
    void clearOverlays();
    /// Chooses the bars file that INDEXC and its like read, and keeps it for later runs; as openBars.
    base::Result<void> compareWith(const QString& path);
    void compareWithNothing();
    /// Opens a file of bars or trades that another program appends to, and shows each new row at once; as
    /// openBars.
    base::Result<void> follow(const QString& path);
    /// Lets the bars of the chart, or the trades of the tick page, come again from those in view on.
    void replayBars();
    void replayTicks();

    /// Writes the chart's page, or one pane of it, into a file whose suffix names its form: .svg, .pdf, or
    /// PNG with so many device pixels per pixel; as openBars.
    base::Result<void> savePicture(const QString& path, int factor, ChartPane* only = nullptr);
    /// Puts it on the clipboard, as sharp as the screen.
    void copyPicture(ChartPane* only = nullptr);

    /// Shows invented trades and accounts in the main legend, or none.
    void setDemoAccount(bool on);

    /// Loads a skin by its name or file. A failure is shown.
    void chooseSkin(const QString& nameOrPath);
    /// Shows rises in green and falls in red, whatever the skin, or as the skin has them.
    void setGreenUp(bool on);

    ChartView* chart() { return m_chart; }
    TickView* ticks() { return m_ticks; }
    BasketPanel* basket() { return m_basket; }
    DockArrangement* docks() { return &m_docks; }

public Q_SLOTS:
    void slotShowMessage(const QString& text);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    /// Takes the last session's choices that need no data: skin, parameters, panes.
    void takeChoices();
    /// Opens what the last session showed, unless other bars are open already.
    void reopen();
    /// Shows as many bars as the last session did, as far behind the newest one.
    void showLastRange();
    /// Lays over the chart what the last session did.
    void overlayLast();
    void reopenTicks();
    void showParameters(const QString& formula);
    /// Gives a built-in formula other parameters wherever it is shown.
    void setParameters(const QString& formula, const QVector<double>& values);
    /// What the window shows now.
    Session session() const;
    /// Shows bars that were read from a file.
    void showBars(const chart::OpenedBars& opened, const QString& path);
    /// The window's title names the instrument.
    void nameInstrument();
    void chooseBars();
    void chooseTicks();

    void buildPanels();
    void buildFileMenu();
    void buildViewMenu();
    void addLanguages(QMenu* menu);
    QString skinWords(const QString& name) const;
    void buildOverlayMenu();
    void buildToolsMenu();
    void buildLiveMenu();
    void buildHelpMenu();
    /// @param periods  the menu of periods.
    void buildToolBar(QMenu* periods);
    void buildPanelKeys(QMenu* menu);
    void goToPanel(int step);
    void showShortcuts();
    void buildOutputMenu(QMenu* menu);
    /// Ctrl+V goes to the panel that is in front, wherever the focus is.
    void pasteIntoRaised();
    void choosePicture(ChartPane* only);
    void previewPrint();
    /// Others are shown from now on: no file is followed, nothing replayed.
    void stopLive();
    void leaveFollowed();
    void takeBars(const chart::OpenedBars& opened, bool anew);
    void takeTicks(const chart::OpenedTicks& opened, bool anew);
    void raisePanel(const QString& id, QWidget* content);
    void refreshDemoAccount();
    /// Lets the formulas read the index that is chosen now, and the status line name it.
    void followIndex();
    void nameIndex();
    /// Shows a failure and hands it on.
    base::Failure told(const base::Failure& failure);
    /// Restores the arrangement, mends what the previous run left unfinished, starts the mark of a running
    /// client, and offers a restore of the formulas when the previous run did not end in order.
    void startRun();
    /// Shows a message where there is one.
    void tell(const QString& text);
    /// Titles of the panels, in the chosen language.
    void namePanels();
    /// Says what is wrong with the file of the user's formulas, if anything.
    void tellFormulaProblems(const QStringList& problems);
    void reloadFormulas();
    void backUp();
    void showRestoreDialog(RestoreDialog::Occasion occasion);
    /// @param formula  what to open by its display name; empty: what the editor shows anyway.
    void showFormulaEditor(const QString& formula);
    /// The formulas have changed: lists and panes follow.
    void followFormulas();

    PlainTexts m_plainTexts;
    ApplicationLook m_look; ///< first: widgets are made in its colours
    OneClient m_oneClient;
    FormulaSource m_source;
    PanelPool m_pool;
    DockArrangement m_docks;
    ChartView* m_chart = nullptr;
    TickView* m_ticks = nullptr;
    BasketPanel* m_basket = nullptr;
    InstrumentList* m_instruments = nullptr;
    InstrumentSearch* m_search = nullptr;
    QuoteList* m_quotes = nullptr;
    FormulaList* m_formulas = nullptr;
    MessageList* m_messages = nullptr;
    std::unique_ptr<FollowedFile> m_followed; ///< null without one
    Replay* m_replay = nullptr;
    QPointer<FormulaEditor> m_editor;    ///< while it is open
    QPointer<ShortcutSheet> m_shortcuts; ///< likewise
    ComparedIndex m_index;
    BarsOpening* m_opening = nullptr; ///< in the status line
    QMenu* m_viewMenu = nullptr;
    QLabel* m_indexName = nullptr; ///< in the status line; hidden without an index
    Session m_last;                ///< the session before this one
    SessionKeeper m_keeper;
    QString m_barsPath, m_ticksPath;             ///< of what is open
    QString m_skin;                              ///< as it was chosen: a name or a path
    QMap<QString, QVector<double>> m_parameters; ///< that the user changed
    bool m_isGreenUp = false;
    bool m_demoAccount = false;
    bool m_restored = false;
};

} // namespace client
