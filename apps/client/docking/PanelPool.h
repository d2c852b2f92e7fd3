// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's store of panels.

#include "dock/IIndexDockableWidget.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <vector>

namespace client {

/// Lends panels out by identifier and takes them back for the next borrower.
///
/// A panel that is taken back stays where it is until the event loop runs again; only then is it released.
/// A borrower that wants it back before that (a dock closed and opened again by one restore) keeps it. The
/// pool owns every panel it made and must outlive the borrowers. GUI thread only.
class PanelPool : public QObject
{
    Q_OBJECT

public:
    using Maker = std::function<TC::IIndexDockableWidget*()>;

    explicit PanelPool(QObject* parent = nullptr);
    ~PanelPool() override;

    /// How panels of an identifier are made; replaces an earlier maker, panels made before stay.
    void setMaker(const QString& panelId, Maker maker);

    /// An idle panel of the identifier, or a new one, marked as lent out and without a parent. Null for an
    /// identifier without a maker and when the maker makes none.
    TC::IIndexDockableWidget* lend(const QString& panelId);

    /// Ends a loan: the panel is released when the event loop runs next. Panels of others are left alone.
    void takeBack(TC::IIndexDockableWidget* panel);

    /// Prolongs the loan of a panel, also of one that was taken back and is not released yet.
    void keep(TC::IIndexDockableWidget* panel);

    /// Carries out the releases that are due. A panel whose own release() puts it off stays due.
    void carryOutReleases();

    /// Panels made and still alive.
    int panelCount(const QString& panelId) const;
    int lentCount(const QString& panelId) const;

private:
    struct Entry
    {
        QPointer<TC::IIndexDockableWidget> panel;
        bool releaseDue = false;
    };

    Entry* entryOf(const TC::IIndexDockableWidget* panel);
    void forgetDeadPanels();

    QHash<QString, Maker> m_makers;
    std::vector<Entry> m_entries;
};

} // namespace client
