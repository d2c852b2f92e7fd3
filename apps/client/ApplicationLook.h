// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's widgets in the colours of the skin.

#include "apps/client/access/FocusOutline.h"
#include "host/WB/CUiResourceChangeHandler.h"

namespace client {

/// Keeps the application's palette, and the library's palette of output colours, in step with the skin; draws
/// a frame around what has the keyboard.
class ApplicationLook : public WB::CUiResourceChangeHandler
{
public:
    ApplicationLook();

    void uiResourceChanged() override;

private:
    FocusOutline m_focus;
};

} // namespace client
