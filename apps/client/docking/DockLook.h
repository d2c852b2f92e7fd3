// SPDX-License-Identifier: MIT
#pragma once
/// @file How docks look in the client.

#include <QList>
#include <QObject>

class QMainWindow;
class QWidget;

namespace ads {
class CDockManager;
class CDockWidget;
} // namespace ads

namespace client {

/// Makes the docking area of a window. Frames and buttons follow the skin.
///
/// Floating windows get title bars of their own. Dragged by the title bar that a window manager draws, they
/// would show their drop marks under some window managers only, and could not be docked again under others.
ads::CDockManager* makeDockManager(QMainWindow* window);

/// Leaves of the dock's header the bare title, without a button that closes it.
void simplifyHeader(ads::CDockWidget* dock);

/// Widths of two docks, each in a column of its own, in pixels.
void setColumnWidths(ads::CDockManager* manager, const QList<ads::CDockWidget*>& docks,
                     const QList<int>& widths);

/// The windows that docks float in.
QList<QWidget*> floatingWindows(const ads::CDockManager* manager);

/// Cuts the windows that show drop marks down to what they show. They are see-through, and cover the docks
/// with black where nothing blends windows: on remote desktops above all.
class DropMarkMask : public QObject
{
    Q_OBJECT

public:
    /// @param manager  becomes the parent.
    explicit DropMarkMask(ads::CDockManager* manager);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace client
