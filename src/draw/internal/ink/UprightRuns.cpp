#include "draw/internal/ink/UprightRuns.h"

#include <algorithm>

namespace TC::detail {

void UprightRuns::store()
{
    constexpr int fewest = 4, shortest = 4; // below, sweeping costs more than it saves
    const auto count = static_cast<std::size_t>(m_count);
    m_count = 0;
    if (count == 0)
        return;
    const int top = *std::max_element(m_tops.begin(), m_tops.begin() + count);
    const int bottom = *std::min_element(m_bottoms.begin(), m_bottoms.begin() + count);
    const bool sweeps = count >= fewest && static_cast<long long>(bottom) - top >= shortest;
    if (sweeps)
        m_surface.fillRows(m_left, top, bottom, m_words.data(), static_cast<int>(count));
    for (std::size_t i = 0; i < count; ++i) {
        const int x = m_left + static_cast<int>(i);
        if (!sweeps) {
            m_surface.fill(x, m_tops[i], x, m_bottoms[i], m_words[i]);
            continue;
        }
        if (m_tops[i] < top)
            m_surface.fill(x, m_tops[i], x, top - 1, m_words[i]);
        if (m_bottoms[i] > bottom)
            m_surface.fill(x, bottom + 1, x, m_bottoms[i], m_words[i]);
    }
}

} // namespace TC::detail
