// SPDX-License-Identifier: MIT
#include "dock/IIndexDockableWidget.h"

#include "dock/IndexTitle.h"

namespace TC {

IIndexDockableWidget::IIndexDockableWidget(bool opaque, int count, QString panelId, QWidget* parent)
    : WB::IDockableWidget(opaque, panelId, indexTitle(panelId, count), parent, 0)
{
}

IIndexDockableWidget::~IIndexDockableWidget() = default;

void IIndexDockableWidget::acquire()
{
    m_acquired = true;
    m_releasePending = false;
}

void IIndexDockableWidget::release()
{
    m_acquired = false;
    m_releasePending = false;
    setParent(nullptr);
    hide();
}

bool IIndexDockableWidget::isSimpleHeaderTitle()
{
    return panelId() == QLatin1String("indexMainPanel") || panelId() == QLatin1String("starryPanel");
}

bool IIndexDockableWidget::isCloseEnable() const
{
    return m_closeEnable;
}

void IIndexDockableWidget::pendRelease()
{
    m_acquired = false;
    m_releasePending = true;
}

void IIndexDockableWidget::testDoPendRelease()
{
    // Deliberate: the flag is left to release(). A panel whose own release does not call this class's keeps
    // its release pending.
    if (m_releasePending)
        release();
}

} // namespace TC
