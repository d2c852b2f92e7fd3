// SPDX-License-Identifier: MIT
#pragma once
/// @file Skin colours that are easy to tell apart in a trace.

#include "host/embedded/EmbeddedHost.h"

#include <gtest/gtest.h>

namespace test {

/// Rising is #ff0000, falling #00ff00, the single stick colour #0000ff, the high and low labels #808080.
class PlainSkin : public testing::Test
{
protected:
    void SetUp() override
    {
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_rise"), QColor(255, 0, 0));
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_fall"), QColor(0, 255, 0));
        TC::embedded::setColor(QStringLiteral("ic_clr_realtime_colorstick"), QColor(0, 0, 255));
        TC::embedded::setColor(QStringLiteral("ic_clr_kline_highlow_line"), QColor(128, 128, 128));
    }
};

} // namespace test
