// SPDX-License-Identifier: MIT
#pragma once
/// @file Base of every widget that the docking system can hold.

#include "host/WB/CBaseWidget.h"

#include <QString>

namespace WB {

/// A widget with a panel identifier and a title for its dock tab. The virtual operations stand in the
/// order that the docking system calls them by; their defaults suit a panel that is never lent out.
class INDICATORHOST_EXPORT IDockableWidget : public CBaseWidget
{
    Q_OBJECT

public:
    /// @param opaque  true when the widget paints every pixel itself.
    /// @param panelId  identifier by which arrangements find the panel again; also the Qt object name.
    /// @param title  text of the dock tab; may be empty.
    /// @param dockOptions  options of the docking system; 0 for none.
    IDockableWidget(bool opaque, const QString& panelId, const QString& title, QWidget* parent,
                    int dockOptions);
    ~IDockableWidget() override;

    /// The panel was lent out. Does nothing by default.
    virtual void acquire();
    /// The panel was taken back. Does nothing by default.
    virtual void release();
    /// Whether the docking system shows its simple header above the panel; false by default.
    virtual bool isSimpleHeaderTitle();
    /// Whether the user may close the panel's dock tab; true by default.
    virtual bool isCloseEnable() const;

    /// By which arrangements find the panel again.
    const QString& panelId() const { return m_panelId; }
    /// Text of the dock tab.
    const QString& title() const { return m_title; }
    /// As they were given.
    int dockOptions() const { return m_dockOptions; }

private:
    QString m_panelId;
    QString m_title;
    int m_dockOptions = 0;
};

} // namespace WB
