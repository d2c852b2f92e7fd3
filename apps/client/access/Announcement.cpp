// SPDX-License-Identifier: MIT
#include "apps/client/access/Announcement.h"

#include <QAccessible>
#include <QWidget>

namespace client {

void announceValues(QWidget* widget)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent description(widget, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&description);
    const QAccessibleInterface* access = QAccessible::queryAccessibleInterface(widget);
    QAccessibleValueChangeEvent value(widget, access ? access->text(QAccessible::Value) : QString());
    QAccessible::updateAccessibility(&value);
}

} // namespace client
