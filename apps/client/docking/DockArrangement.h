// SPDX-License-Identifier: MIT
#pragma once
/// @file Where the client's panels stand.

#include "apps/base/Result.h"
#include "apps/client/docking/Docks.h"
#include "apps/client/docking/PanelPool.h"

#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <vector>

class QMainWindow;

namespace client {

struct ArrangementFile;

/// Docks the panels of a pool in a window and keeps arrangements of them in a file.
///
/// Order of use: addPanel() for every panel, rememberDefault(), show the window, restore() once; save() at
/// the end. A panel is borrowed while its dock is open and goes back to the pool when the dock is closed.
/// Reasons of failures are for the user. GUI thread only.
class DockArrangement : public QObject
{
    Q_OBJECT

public:
    /// @param window  gets the docking area as its central widget and owns it.
    /// @param pool  must outlive this object.
    DockArrangement(QMainWindow* window, PanelPool& pool);
    ~DockArrangement() override;

    /// Adds a dock named by the panel identifier, with the panel's title on its tab.
    /// @param area  side of the window, or with `beside` side of that dock; the centre makes a tab of it.
    /// @return null when the pool has no such panel or the identifier is docked already.
    ads::CDockWidget* addPanel(const QString& panelId, ads::DockWidgetArea area,
                               ads::CDockWidget* beside = nullptr);
    /// Removes the dock for good and takes its panel back.
    void removePanel(const QString& panelId);

    ads::CDockWidget* dock(const QString& panelId) const;
    /// The panel that stands in a dock now; null while the dock is closed and without a dock.
    TC::IIndexDockableWidget* panel(const QString& panelId) const;
    ads::CDockManager* manager() const { return m_manager; }

    /// Makes the present arrangement the default one.
    void rememberDefault();
    void applyDefault();

    /// The file that holds the last arrangement, with the window's place, and the named ones, in the
    /// configuration folder.
    static QString filePath();
    /// Writes the file; the one before stays whole until the new one is complete.
    base::Result<void> save();
    /// Saves when docks or window stand otherwise than when they were last saved; a failure waits for save().
    void saveChange();
    /// Brings back the arrangement of the last save(). Without a file the default one is applied. With a
    /// damaged file too, which is a failure; the damaged one is kept with ".damaged" behind its name. The
    /// same becomes of an arrangement that ended the program while it was applied.
    /// @param mayWrite  false for a client beside another one: nothing is written from then on, save() does
    ///        nothing and store() and forget() are refused.
    base::Result<void> restore(bool mayWrite = true);

    /// Names of the stored arrangements in alphabetical order.
    QStringList names() const { return m_named.keys(); }
    /// Stores the present arrangement under a name, replacing one of that name, and saves the file.
    base::Result<void> store(const QString& name);
    /// Applies a stored arrangement. With an unknown name or a damaged one nothing changes.
    base::Result<void> apply(const QString& name);
    base::Result<void> forget(const QString& name);

private:
    void borrow(ads::CDockWidget* dock);
    void giveBack(ads::CDockWidget* dock);
    void finishDeletions();
    bool applyState(const QByteArray& state);
    /// Applies a state of the file: the docking system may not survive one that somebody made up.
    bool applyWatched(const QByteArray& state);
    base::Result<ArrangementFile> readFile();
    base::Failure applyDefaultBecause(const QString& reason);
    bool leaveOutFatal(ArrangementFile& file);

    PanelPool& m_pool;
    QPointer<ads::CDockManager> m_manager;
    std::vector<QPointer<ads::CDockWidget>> m_removed; ///< to be deleted when the event loop runs
    QByteArray m_saved;                                ///< what save() wrote last
    QByteArray m_default;
    QMap<QString, QByteArray> m_named;
    bool m_mayWrite = true;
};

} // namespace client
