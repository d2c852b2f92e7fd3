// SPDX-License-Identifier: MIT
#include "apps/client/docking/PanelPool.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace client {

PanelPool::PanelPool(QObject* parent)
    : QObject(parent)
{
}

PanelPool::~PanelPool()
{
    for (const Entry& entry : m_entries)
        delete entry.panel.data();
}

void PanelPool::setMaker(const QString& panelId, Maker maker)
{
    m_makers[panelId] = std::move(maker);
}

TC::IIndexDockableWidget* PanelPool::lend(const QString& panelId)
{
    carryOutReleases();
    forgetDeadPanels();
    for (const Entry& entry : m_entries) {
        TC::IIndexDockableWidget* panel = entry.panel;
        if (panel->panelId() == panelId && !panel->isAcquired() && !entry.releaseDue) {
            panel->acquire();
            return panel;
        }
    }
    const Maker maker = m_makers.value(panelId);
    TC::IIndexDockableWidget* made = maker ? maker() : nullptr;
    if (made) {
        m_entries.push_back({ made, false });
        made->acquire();
    }
    return made;
}

void PanelPool::takeBack(TC::IIndexDockableWidget* panel)
{
    Entry* entry = entryOf(panel);
    if (!entry || !panel->isAcquired())
        return;
    panel->pendRelease();
    entry->releaseDue = true;
    QTimer::singleShot(0, this, &PanelPool::carryOutReleases);
}

void PanelPool::keep(TC::IIndexDockableWidget* panel)
{
    if (Entry* entry = entryOf(panel)) {
        panel->acquire();
        entry->releaseDue = false;
    }
}

void PanelPool::carryOutReleases()
{
    // A panel's release may run code of the client, which may come back to the pool: nothing of m_entries
    // is held over the call.
    std::vector<QPointer<TC::IIndexDockableWidget>> due;
    for (const Entry& entry : m_entries) {
        if (entry.releaseDue && entry.panel)
            due.push_back(entry.panel);
    }
    for (const QPointer<TC::IIndexDockableWidget>& panel : due) {
        if (panel)
            panel->testDoPendRelease();
        if (!panel || panel->isAcquired() || panel->parentWidget())
            continue;
        if (Entry* entry = entryOf(panel))
            entry->releaseDue = false;
    }
}

int PanelPool::panelCount(const QString& panelId) const
{
    return static_cast<int>(std::count_if(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
        return entry.panel && entry.panel->panelId() == panelId;
    }));
}

int PanelPool::lentCount(const QString& panelId) const
{
    return static_cast<int>(std::count_if(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
        return entry.panel && entry.panel->panelId() == panelId && entry.panel->isAcquired();
    }));
}

PanelPool::Entry* PanelPool::entryOf(const TC::IIndexDockableWidget* panel)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return panel && entry.panel == panel; });
    return found == m_entries.end() ? nullptr : &*found;
}

void PanelPool::forgetDeadPanels()
{
    m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                   [](const Entry& entry) { return entry.panel.isNull(); }),
                    m_entries.end());
}

} // namespace client
