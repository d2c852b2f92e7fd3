// SPDX-License-Identifier: MIT
#include "host/WB/IDockableWidget.h"

namespace WB {

IDockableWidget::IDockableWidget(bool opaque, const QString& panelId, const QString& title, QWidget* parent,
                                 int dockOptions)
    : CBaseWidget(panelId, opaque, parent)
    , m_panelId(panelId)
    , m_title(title)
    , m_dockOptions(dockOptions)
{
}

IDockableWidget::~IDockableWidget() = default;

void IDockableWidget::acquire() { }

void IDockableWidget::release() { }

bool IDockableWidget::isSimpleHeaderTitle()
{
    return false;
}

bool IDockableWidget::isCloseEnable() const
{
    return true;
}

} // namespace WB
