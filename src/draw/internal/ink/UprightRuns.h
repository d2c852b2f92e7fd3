#pragma once
/// @file Upright runs of pixels on neighbouring columns, stored row by row.

#include "draw/internal/ink/Surface.h"

#include <array>

namespace TC::detail {

/// Holds runs back while each stands one column right of the one before, and stores the rows that all of them
/// share in one sweep each: going down a column touches a line of the cache for every pixel.
class UprightRuns
{
public:
    explicit UprightRuns(const Surface& surface)
        : m_surface(surface)
    {
    }

    /// A run of painter coordinates, both rows included, `top` not below `bottom`.
    void add(int x, int top, int bottom, quint32 word)
    {
        if (m_count == kMost || (m_count > 0 && x != m_left + m_count))
            store();
        if (m_count == 0)
            m_left = x;
        const auto place = static_cast<std::size_t>(m_count++);
        m_tops[place] = top;
        m_bottoms[place] = bottom;
        m_words[place] = word;
    }

    /// Stores what is held back; call it before anything else is painted, and at the end.
    void store();

private:
    static constexpr int kMost = 32;

    Surface m_surface;
    int m_count = 0;
    int m_left = 0; ///< column of the first run
    std::array<int, kMost> m_tops {}, m_bottoms {};
    std::array<quint32, kMost> m_words {};
};

} // namespace TC::detail
