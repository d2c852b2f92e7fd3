// SPDX-License-Identifier: MIT
#pragma once
/// @file Base of all the client's widgets.

#include "host/WB/CEventWidgetT.h"
#include "host/WB/CUiResourceChangeHandler.h"

namespace WB {

/// A named widget that sends host events and repaints when the skin changes.
class INDICATORHOST_EXPORT CBaseWidget : public CEventWidgetT<QWidget>, public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    /// @param name  becomes the Qt object name.
    /// @param opaque  true when the widget paints every pixel itself.
    CBaseWidget(const QString& name, bool opaque, QWidget* parent);
    ~CBaseWidget() override;

    void uiResourceChanged() override;

protected:
    /// Accepts the double click; unlike QWidget's own handler it does not turn it into a second press.
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

} // namespace WB
