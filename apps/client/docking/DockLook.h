// SPDX-License-Identifier: MIT
#pragma once
/// @file How docks look in the client.

#include <QObject>

class QMainWindow;

namespace ads {
class CDockManager;
}

namespace client {

/// Makes the docking area of a window. Frames and buttons follow the skin.
///
/// Floating windows get title bars of their own. Dragged by the title bar that a window manager draws, they
/// would show their drop marks under some window managers only, and could not be docked again under others.
ads::CDockManager* makeDockManager(QMainWindow* window);

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
