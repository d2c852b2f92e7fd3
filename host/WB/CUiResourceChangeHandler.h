// SPDX-License-Identifier: MIT
#pragma once
/// @file Base of everything that must follow a change of the skin.

#include "host/HostExport.h"

namespace WB {

/// Hears of every change of the skin from construction to destruction. GUI thread only.
class INDICATORHOST_EXPORT CUiResourceChangeHandler
{
public:
    CUiResourceChangeHandler();
    virtual ~CUiResourceChangeHandler();
    CUiResourceChangeHandler(const CUiResourceChangeHandler&) = delete;
    CUiResourceChangeHandler& operator=(const CUiResourceChangeHandler&) = delete;

    /// The skin has changed; pointers that CUiResource gave before are void. Does nothing by default.
    virtual void uiResourceChanged();
};

} // namespace WB
