// SPDX-License-Identifier: MIT
#pragma once
/// @file The client's widgets in the colours of the skin.

#include "host/WB/CUiResourceChangeHandler.h"

namespace client {

/// Keeps the application's palette, and the library's palette of output colours, in step with the skin.
class ApplicationLook : public WB::CUiResourceChangeHandler
{
public:
    ApplicationLook();

    void uiResourceChanged() override;
};

} // namespace client
