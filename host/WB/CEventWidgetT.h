// SPDX-License-Identifier: MIT
#pragma once
/// @file A widget class that is a link of the event chain as well.

#include "host/WB/CEventDeliverer.h"

#include <QWidget>

namespace WB {

/// `Widget` with a deliverer whose parent link is the nearest parent widget that is one, unless
/// another parent link was set.
template <class Widget>
class CEventWidgetT : public Widget, public CEventDeliverer
{
public:
    /// A widget below `parent`, as every QWidget takes it.
    explicit CEventWidgetT(QWidget* parent = nullptr)
        : Widget(parent)
    {
    }

    /// The link that was set, else the nearest parent widget that is one.
    CEventDeliverer* parentDeliverer() const override
    {
        if (CEventDeliverer* chosen = CEventDeliverer::parentDeliverer())
            return chosen;
        for (QWidget* widget = this->parentWidget(); widget; widget = widget->parentWidget()) {
            if (auto* deliverer = dynamic_cast<CEventDeliverer*>(widget))
                return deliverer;
        }
        return nullptr;
    }
};

} // namespace WB
