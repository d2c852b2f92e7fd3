// SPDX-License-Identifier: MIT
#include "apps/client/docking/plain/PlainDocks.h"

#include <QEvent>

#include <algorithm>
#include <functional>

namespace ads {

namespace {

Qt::DockWidgetArea sideOf(DockWidgetArea area)
{
    switch (area) {
    case LeftDockWidgetArea: return Qt::LeftDockWidgetArea;
    case TopDockWidgetArea: return Qt::TopDockWidgetArea;
    case BottomDockWidgetArea: return Qt::BottomDockWidgetArea;
    default: return Qt::RightDockWidgetArea;
    }
}

QList<CDockWidget*> tabsOf(CDockWidget* dock)
{
    QList<CDockWidget*> tabs { dock };
    const auto* manager = qobject_cast<const CDockManager*>(dock->parentWidget());
    if (!manager)
        return tabs;
    const QList<QDockWidget*> others = manager->tabifiedDockWidgets(dock);
    for (QDockWidget* other : others)
        tabs.append(static_cast<CDockWidget*>(other)); // a manager has no other docks
    return tabs;
}

} // namespace

int CDockAreaWidget::dockWidgetsCount() const
{
    return static_cast<int>(tabsOf(m_dock).size());
}

CDockWidget::CDockWidget(const QString& title)
    : QDockWidget(title)
{
}

void CDockWidget::setFeature(DockWidgetFeature feature, bool on)
{
    setFeatures(on ? features() | feature : features() & ~DockWidgetFeatures(feature));
}

CDockAreaWidget* CDockWidget::dockAreaWidget()
{
    const QList<CDockWidget*> tabs = tabsOf(this);
    CDockWidget* const first = *std::min_element(tabs.begin(), tabs.end(), std::less<>());
    return &first->m_area;
}

bool CDockWidget::event(QEvent* event)
{
    const bool taken = QDockWidget::event(event);
    const bool isToggle = event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent;
    if (isToggle && m_isOpen == isHidden()) {
        m_isOpen = !isHidden();
        Q_EMIT viewToggled(m_isOpen);
    }
    return taken;
}

CDockManager::CDockManager(QMainWindow* window)
{
    setWindowFlags(Qt::Widget); // a window of its own otherwise
    setDockNestingEnabled(true);
    window->setCentralWidget(this);
}

void CDockManager::addDockWidget(DockWidgetArea area, CDockWidget* dock, const CDockAreaWidget* beside)
{
    if (!beside || area == LeftDockWidgetArea || area == TopDockWidgetArea)
        QMainWindow::addDockWidget(sideOf(area), dock);
    else if (area == CenterDockWidgetArea)
        tabifyDockWidget(beside->dock(), dock);
    else
        splitDockWidget(beside->dock(), dock, area == BottomDockWidgetArea ? Qt::Vertical : Qt::Horizontal);
    if (beside && area == BottomDockWidgetArea)
        m_below.insert(beside->dock(), dock);
}

void CDockManager::removeDockWidget(CDockWidget* dock)
{
    QMainWindow::removeDockWidget(dock);
    m_below.remove(dock);
    dock->setParent(nullptr);
}

CDockWidget* CDockManager::findDockWidget(const QString& name) const
{
    return findChild<CDockWidget*>(name, Qt::FindDirectChildrenOnly);
}

void CDockManager::setSplitterSizes(const CDockAreaWidget* area, const QList<int>& heights)
{
    const QList<CDockWidget*> tabs = tabsOf(area->dock());
    for (CDockWidget* tab : tabs) { // any of them may have been alone when the dock was put below
        if (CDockWidget* below = m_below.value(tab))
            resizeDocks({ tab, below }, heights, Qt::Vertical);
    }
}

bool CDockManager::restoreState(const QByteArray& state, int version)
{
    Q_EMIT restoringState();
    return QMainWindow::restoreState(state, version);
}

} // namespace ads
