// SPDX-License-Identifier: MIT
#include "apps/client/docking/Panel.h"

#include <QVBoxLayout>

namespace client {

Panel::Panel(const QString& panelId, QWidget* content)
    : TC::IIndexDockableWidget(false, 0, panelId, nullptr)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    setFocusProxy(content);
}

} // namespace client
