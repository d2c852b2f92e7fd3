// SPDX-License-Identifier: MIT
#include "apps/client/docking/DockLook.h"

#include "apps/client/docking/Docks.h"

#include <QAbstractButton>
#include <QEvent>
#include <QFile>
#include <QMainWindow>
#include <QPointer>
#include <QSplitter>
#include <QTimer>
#include <QWindow>

#include <qtadvanceddocking/DockOverlay.h>

/// Resources of a static library are not found unless somebody names them.
static void loadDockPictures()
{
    Q_INIT_RESOURCE(docks);
}

namespace client {

namespace {

QString dockStyle()
{
    QFile file(QStringLiteral(":/docks/docks.qss"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What the window shows: the marks, or the place that a drop would take.
QRegion shownBy(const QWidget* window)
{
    if (const auto* overlay = qobject_cast<const ads::CDockOverlay*>(window)) {
        const bool takesDrop = overlay->visibleDropAreaUnderCursor() != ads::InvalidDockWidgetArea;
        return takesDrop ? overlay->dropOverlayRect() : QRect(); // the place of an earlier drop is kept
    }
    return window->childrenRegion();
}

/// The window alone is cut, not the widget, which would not be painted any more where it is cut.
void cut(const QWidget* window)
{
    if (!window->windowHandle())
        return;
    const QRegion shown = shownBy(window);
    const QRegion nothing(-2, -2, 1, 1); // an empty mask would show all
    window->windowHandle()->setMask(shown.isEmpty() ? nothing : shown);
}

} // namespace

ads::CDockManager* makeDockManager(QMainWindow* window)
{
    loadDockPictures();
    ads::CDockManager::setConfigFlag(ads::CDockManager::FloatingContainerForceQWidgetTitleBar);
    auto* manager = new ads::CDockManager(window);
    manager->setStyleSheet(manager->styleSheet() + dockStyle());
    new DropMarkMask(manager);
    return manager;
}

void simplifyHeader(ads::CDockWidget* dock)
{
    // The docking system shows and hides the button as tabs change, so it is made too small to be seen.
    if (auto* button = dock->tabWidget()->findChild<QAbstractButton*>(QStringLiteral("tabCloseButton")))
        button->setFixedSize(0, 0);
}

/// The library knows the splitters of a dock's own area alone, not the one between columns.
void setColumnWidths(ads::CDockManager* manager, const QList<ads::CDockWidget*>&, const QList<int>& widths)
{
    const auto splitters = manager->findChildren<QSplitter*>();
    for (QSplitter* splitter : splitters) {
        if (splitter->orientation() == Qt::Horizontal && splitter->count() == widths.size())
            splitter->setSizes(widths);
    }
}

QList<QWidget*> floatingWindows(const ads::CDockManager* manager)
{
    QList<QWidget*> windows;
    const auto containers = manager->findChildren<ads::CFloatingDockContainer*>();
    for (ads::CFloatingDockContainer* container : containers)
        windows.append(container);
    return windows;
}

DropMarkMask::DropMarkMask(ads::CDockManager* manager)
    : QObject(manager)
{
    const auto overlays = manager->findChildren<ads::CDockOverlay*>();
    for (ads::CDockOverlay* overlay : overlays)
        overlay->installEventFilter(this);
    const auto crosses = manager->findChildren<ads::CDockOverlayCross*>();
    for (ads::CDockOverlayCross* cross : crosses)
        cross->installEventFilter(this);
}

bool DropMarkMask::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::Paint) {
        // After the painting, which finds out what is shown.
        QPointer<QWidget> window(static_cast<QWidget*>(watched));
        QTimer::singleShot(0, this, [window] {
            if (window)
                cut(window);
        });
    }
    return QObject::eventFilter(watched, event);
}

} // namespace client
