// SPDX-License-Identifier: MIT
#pragma once
/// @file A line as a list of points, and its way onto a painter.

#include <QPainterPath>
#include <QPen>
#include <QPoint>

#include <vector>

class QPainter;

namespace TC::detail {

/// Pieces of a line in pixels.
class Polyline
{
public:
    /// The next point starts a new piece.
    void lift() { m_isDown = false; }

    /// A point on the spot of the one before adds nothing to a piece.
    void to(const QPoint& point)
    {
        if (!m_isDown) {
            if (m_points.size() == m_starts.back() + 1)
                m_points.pop_back(); // a piece of a single point has no ink
            if (m_points.size() != m_starts.back())
                m_starts.push_back(m_points.size());
        } else if (m_points.back() == point) {
            return;
        }
        m_points.push_back(point);
        m_isDown = true;
    }

    /// Without a segment there is nothing to stroke.
    bool isEmpty() const { return m_points.size() < 2; }
    QPoint first() const { return m_points.front(); }
    QPoint last() const { return m_points.back(); }
    QPainterPath path() const;

    /// Visits (points, count) of every piece.
    template <class Visit>
    void forEachPiece(Visit visit) const
    {
        for (std::size_t i = 0; i < m_starts.size(); ++i) {
            const std::size_t end = i + 1 < m_starts.size() ? m_starts[i + 1] : m_points.size();
            visit(m_points.data() + m_starts[i], static_cast<int>(end - m_starts[i]));
        }
    }

private:
    std::vector<QPoint> m_points;
    std::vector<std::size_t> m_starts { 0 };
    bool m_isDown = false;
};

/// Which points of a line that share a pixel column suffice for every pixel of its stroke.
enum class KeptPoints {
    All,
    Turns, ///< the column's first two, its lowest, its highest and its last three
    Reach, ///< the column's first, its lowest, its highest and its last
};

/// Points may be left out on the raster engine, of solid lines without smoothing; lines of one device pixel
/// also ask that ink hides what lies beneath. Narrow lines carry the direction of the pen around corners and
/// wider ones show the joints of steps, so that only lines two pixels wide come out with the reach alone.
KeptPoints keptPoints(QPainter& painter, const QPen& pen);

/// Strokes a line. Opaque lines of one pixel are stored into the surface where there is one.
void strokeLine(QPainter* painter, const Polyline& line, const QPen& pen);

} // namespace TC::detail
