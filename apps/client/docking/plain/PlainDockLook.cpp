// SPDX-License-Identifier: MIT
#include "apps/client/docking/DockLook.h"
#include "apps/client/docking/plain/PlainDocks.h"

namespace client {

ads::CDockManager* makeDockManager(QMainWindow* window)
{
    return new ads::CDockManager(window);
}

/// Its close button goes with the right to close the dock, which is the panel's to give.
void simplifyHeader(ads::CDockWidget*) { }

void setColumnWidths(ads::CDockManager* manager, const QList<ads::CDockWidget*>& docks,
                     const QList<int>& widths)
{
    manager->resizeDocks({ docks.begin(), docks.end() }, widths, Qt::Horizontal);
}

/// Docks that float are windows themselves, and die with nothing else.
QList<QWidget*> floatingWindows(const ads::CDockManager*)
{
    return {};
}

} // namespace client
