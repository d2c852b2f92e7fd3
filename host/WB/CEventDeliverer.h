// SPDX-License-Identifier: MIT
#pragma once
/// @file Host events: how user actions leave a widget.

#include "host/HostExport.h"

#include <QString>

#include <vector>

namespace WB {

/// A link of the chain along which host events (an id, a text, a pointer) travel upward until a link
/// handles them. The parent link is not owned and may die first. GUI thread only.
class INDICATORHOST_EXPORT CEventDeliverer
{
public:
    /// A link below `parent`; null: a chain of its own.
    explicit CEventDeliverer(CEventDeliverer* parent = nullptr);
    virtual ~CEventDeliverer();
    CEventDeliverer(const CEventDeliverer&) = delete;
    CEventDeliverer& operator=(const CEventDeliverer&) = delete;

    /// Offers the event to this link, then to each parent, until one handles it.
    /// @return whether a link handled it.
    bool deliverEvent(int id, const QString& text, void* data = nullptr);

    /// One link's answer to an event: true ends its journey. The default handles nothing.
    virtual bool handleDeliveredEvent(int id, const QString& text, void* data);

    /// The next link upward; null at the top.
    virtual CEventDeliverer* parentDeliverer() const { return m_parent; }
    /// Hangs the link below another one; null takes it out.
    void setParentDeliverer(CEventDeliverer* parent);

private:
    CEventDeliverer* m_parent = nullptr;
    std::vector<CEventDeliverer*> m_children;
};

} // namespace WB
