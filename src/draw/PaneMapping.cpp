#include "draw/PaneMapping.h"

#include "draw/internal/BarLayout.h"

namespace TC {

SlotLayout lineSlots(const QRect& rect, int startIndex, int endIndex, int barCount, int xOffset,
                     bool fullWidth, bool alignByIndex)
{
    const detail::BarWindow bars { startIndex, endIndex, barCount, fullWidth };
    return alignByIndex ? detail::alignedByIndex(bars, rect) : detail::rightAligned(bars, rect, xOffset);
}

} // namespace TC
