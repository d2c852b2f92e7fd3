// SPDX-License-Identifier: MIT
#include "draw/PaneMapping.h"

#include "draw/internal/BarLayout.h"

namespace TC {

using namespace detail;

SlotLayout lineSlots(const QRect& rect, int startIndex, int endIndex, int barCount, int xOffset,
                     bool fullWidth, bool alignByIndex)
{
    const BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    return alignByIndex ? alignedByIndex(bars, rect) : rightAligned(bars, rect, xOffset);
}

} // namespace TC
