// SPDX-License-Identifier: MIT
#pragma once
/// @file Places that hold a mark already.

#include <QPoint>

#include <array>
#include <climits>

namespace TC::detail {

/// Remembers where marks of one kind stand that hide what lies beneath, so that none is stored twice on one
/// place: many bars share a pixel column, and their marks its rows.
class PaintedPlaces
{
public:
    PaintedPlaces() { m_places.fill(QPoint(INT_MIN, INT_MIN)); }

    /// Whether a place is not known to hold a mark; from now on it is, until another one takes its entry.
    bool isNew(const QPoint& place)
    {
        QPoint& known = m_places[static_cast<unsigned>(place.y()) % m_places.size()];
        if (known == place)
            return false;
        known = place;
        return true;
    }

private:
    std::array<QPoint, 1024> m_places; ///< by row
};

} // namespace TC::detail
