// SPDX-License-Identifier: MIT
#pragma once
/// @file A dock panel around any widget.

#include "dock/IIndexDockableWidget.h"

namespace client {

/// Shows one content widget, which it takes over.
class Panel : public TC::IIndexDockableWidget
{
    Q_OBJECT

public:
    /// @param panelId  chooses the title; see TC::indexTitle.
    Panel(const QString& panelId, QWidget* content);
};

} // namespace client
