// SPDX-License-Identifier: MIT
#pragma once
/// @file Stands in for the docking library where there is none: the part of its interface that the client
/// uses, over Qt's own docks. Names and meanings are the library's.

#include <QDockWidget>
#include <QHash>
#include <QList>
#include <QMainWindow>
#include <QPointer>

namespace ads {

enum DockWidgetArea {
    LeftDockWidgetArea,
    RightDockWidgetArea,
    TopDockWidgetArea,
    BottomDockWidgetArea,
    CenterDockWidgetArea
};

class CDockWidget;

/// Docks that share one place as tabs.
class CDockAreaWidget
{
public:
    explicit CDockAreaWidget(CDockWidget* dock)
        : m_dock(dock)
    {
    }
    /// One of the docks.
    CDockWidget* dock() const { return m_dock; }
    int dockWidgetsCount() const;

private:
    CDockWidget* m_dock;
};

/// A dock; Qt's docks have one header, which is tab and title.
class CDockWidget : public QDockWidget
{
    Q_OBJECT

public:
    enum eInsertMode { ForceNoScrollArea };

    explicit CDockWidget(const QString& title);

    void setWidget(QWidget* widget, eInsertMode = ForceNoScrollArea) { QDockWidget::setWidget(widget); }
    void setFeature(DockWidgetFeature feature, bool on);
    /// The area of the dock's tabs, the same for each of them; it lives as long as one of them. Tabs
    /// know one another once they are laid out.
    CDockAreaWidget* dockAreaWidget();
    CDockWidget* tabWidget() { return this; }
    QString text() const { return windowTitle(); }
    void setAsCurrentTab() { raise(); }
    /// Opens or closes the dock.
    void toggleView(bool open) { setVisible(open); }
    void closeDockWidget() { hide(); }
    bool isClosed() const { return isHidden(); }
    void setFloating() { QDockWidget::setFloating(true); }
    bool isInFloatingContainer() const { return isFloating(); }

Q_SIGNALS:
    /// The dock was opened or closed; being covered by another tab is neither.
    void viewToggled(bool open);

protected:
    bool event(QEvent* event) override;

private:
    CDockAreaWidget m_area { this };
    bool m_isOpen = false;
};

/// The docks of a window.
class CDockManager : public QMainWindow
{
    Q_OBJECT

public:
    /// @param window  gets the docks as its central widget and owns them.
    explicit CDockManager(QMainWindow* window);

    /// @param beside  the area that is split, or joined by a tab; null for the sides of the window.
    void addDockWidget(DockWidgetArea area, CDockWidget* dock, const CDockAreaWidget* beside = nullptr);
    /// The caller owns the dock from then on.
    void removeDockWidget(CDockWidget* dock);
    CDockWidget* findDockWidget(const QString& name) const;
    /// Heights of an area and of the dock below it, in pixels; larger or smaller windows keep their ratio.
    void setSplitterSizes(const CDockAreaWidget* area, const QList<int>& heights);
    bool restoreState(const QByteArray& state, int version);

Q_SIGNALS:
    /// A state is about to be restored.
    void restoringState();

private:
    QHash<const CDockWidget*, QPointer<CDockWidget>> m_below; ///< of a dock what was put below it
};

} // namespace ads
