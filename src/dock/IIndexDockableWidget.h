// SPDX-License-Identifier: MIT
#pragma once
/// @file Base of the library's dockable panels.

#include "host/WB/IDockableWidget.h"
#include "indicatorui_export.h"

namespace TC {

/// A dockable panel that takes its title from its identifier and that a pool can lend out and take back.
///
/// The pool calls acquire() when it lends the panel. To take it back it calls pendRelease() at once and
/// testDoPendRelease() later, when nothing uses the panel any more; acquire() in between cancels the
/// release. GUI thread only.
class INDICATORUI_EXPORT IIndexDockableWidget : public WB::IDockableWidget
{
    Q_OBJECT

public:
    /// @param opaque  handed to the docking system's base as it is.
    /// @param count  number shown behind the title from 1 on; see TC::indexTitle.
    /// @param panelId  identifier of the panel. The title is looked up here, once.
    /// @param parent  may be null.
    IIndexDockableWidget(bool opaque, int count, QString panelId, QWidget* parent);
    ~IIndexDockableWidget() override;

    /// Marks the panel as lent out and cancels a pending release.
    void acquire() override;
    /// Marks the panel as neither lent out nor to be released, takes it from its parent and hides it. The
    /// caller owns it afterwards.
    void release() override;
    /// True for "indexMainPanel" and "starryPanel".
    bool isSimpleHeaderTitle() override;
    /// What setCloseEnable said last; true at first.
    bool isCloseEnable() const override;

    /// Marks the panel as no longer lent out and asks for a release; does nothing else yet.
    void pendRelease();
    /// Calls release() when one was asked for.
    void testDoPendRelease();

    /// Whether the panel is lent out.
    bool isAcquired() const { return m_acquired; }
    /// What isCloseEnable() answers from now on.
    void setCloseEnable(bool enable) { m_closeEnable = enable; }

private:
    bool m_acquired = false;
    bool m_releasePending = false;
    bool m_closeEnable = true;
};

} // namespace TC
