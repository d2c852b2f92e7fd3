// SPDX-License-Identifier: MIT
#include "draw/internal/ink/ThinLine.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace TC::detail {

namespace {

constexpr int kOne = 64; ///< a pixel in 1/64
constexpr int kHalf = 32;
constexpr int kEdge = -1;         ///< pixels: segments are cut a little beyond the device
constexpr int kNowhere = INT_MIN; ///< column of the last pixel where there is none
constexpr int kAligned = 1 << 14; ///< slope of 1/4 in 1/65536

/// Quotient in 1/65536, truncated toward zero.
int slopeOf(int across, int along)
{
    return std::abs(across) <= 0x7fff ? across * 65536 / along
                                      : static_cast<int>(static_cast<long long>(across) * 65536 / along);
}

/// A place in 1/64 of a pixel.
int fixedPlace(double place)
{
    return static_cast<int>(place * kOne);
}

} // namespace

ThinLine::ThinLine(const Surface& surface, quint32 word)
    : m_surface(surface)
    , m_runs(surface)
    , m_word(word)
    , m_offset(surface.offset())
    , m_right(surface.deviceSize().width() + 1)
    , m_bottom(surface.deviceSize().height() + 1)
    , m_uncut(QRect(QPoint(), surface.deviceSize()).adjusted(kEdge, kEdge, 1, 1).translated(-m_offset))
{
}

ThinLine::~ThinLine()
{
    storeRun();
    m_runs.store();
}

void ThinLine::draw(const QPoint* points, int count)
{
    if (count < 2)
        return;
    m_last = QPoint(kNowhere, kNowhere);
    const bool isClosed = points[0] == points[count - 1];
    if (isClosed)
        remember(points[count - 2], points[count - 1]);
    for (int i = 1; i < count; ++i)
        stroke(points[i - 1], points[i], !isClosed && i == 1, !isClosed && i == count - 1);
}

/// Cuts a segment along its first coordinate; false when nothing remains.
bool ThinLine::cut(double& a1, double& b1, double& a2, double& b2, double lowest, double highest)
{
    if (a1 < lowest || a1 > highest) {
        const double edge = a1 < lowest ? lowest : highest;
        if (a1 < lowest ? a2 <= lowest : a2 >= highest)
            return false;
        b1 += (b2 - b1) / (a2 - a1) * (edge - a1);
        a1 = edge;
    }
    if (a2 < lowest || a2 > highest) {
        const double edge = a2 < lowest ? lowest : highest;
        m_last.setX(kNowhere);
        b2 += (b2 - b1) / (a2 - a1) * (edge - a2);
        a2 = edge;
    }
    return true;
}

/// False when the segment lies outside the device.
bool ThinLine::toDevice(const QPoint& from, const QPoint& to, Segment& segment)
{
    const auto place = [](int coordinate, int move) { return (coordinate + move) * kOne; };
    if (isUncut(from) && isUncut(to)) {
        segment = { place(from.x(), m_offset.x()), place(from.y(), m_offset.y()), place(to.x(), m_offset.x()),
                    place(to.y(), m_offset.y()) };
        return true;
    }
    const double dx = m_offset.x(), dy = m_offset.y();
    double x1 = from.x() + dx, y1 = from.y() + dy, x2 = to.x() + dx, y2 = to.y() + dy;
    if (cut(x1, y1, x2, y2, kEdge, m_right) && cut(y1, x1, y2, x2, kEdge, m_bottom)) {
        segment = { fixedPlace(x1), fixedPlace(y1), fixedPlace(x2), fixedPlace(y2) };
        return true;
    }
    m_last.setX(kNowhere);
    return false;
}

/// False when the segment reaches no pixel.
/// @param joins  the segment turns back on the one before it, whose last pixel it then has to paint.
bool ThinLine::stepsOf(const Segment& segment, bool capBegin, bool capEnd, bool joins, Steps& steps) const
{
    const auto [x1, y1, x2, y2] = segment;
    steps.isSteep = std::abs(x2 - x1) < std::abs(y2 - y1);
    int begin = steps.isSteep ? y1 : x1, end = steps.isSteep ? y2 : x2;
    int across = steps.isSteep ? x1 : y1, acrossEnd = steps.isSteep ? x2 : y2;
    if (begin == end)
        return false;
    steps.isBackward = begin > end;
    steps.direction = steps.isSteep ? (steps.isBackward ? Up : Down) : (steps.isBackward ? Left : Right);
    if (steps.isBackward) {
        std::swap(begin, end);
        std::swap(across, acrossEnd);
        std::swap(capBegin, capEnd);
    }
    if (joins) {
        const unsigned opposite = m_direction ^ (steps.isSteep ? Down | Up : Right | Left);
        if (opposite == steps.direction)
            (steps.isBackward ? capEnd : capBegin) = true;
    }
    steps.slope = across == acrossEnd ? 0 : slopeOf(acrossEnd - across, end - begin);
    steps.across = across * 1024;
    if (capBegin) {
        begin -= kHalf;
        steps.across -= steps.slope >> 1;
    }
    if (capEnd)
        end += kHalf;
    steps.first = (begin + kHalf) >> 6;
    steps.end = (end + kHalf) >> 6;
    // A cap must not reach back over the pixel where the line already ended.
    if (capBegin && (steps.isSteep ? m_last.y() : m_last.x()) == steps.first + 1)
        ++steps.first;
    const int round = steps.slope > 0 ? kHalf : 0;
    steps.across += ((steps.first * kOne + round - begin) * steps.slope) >> 6;
    return steps.first != steps.end;
}

QPoint ThinLine::pixel(const Steps& steps, int place)
{
    const int across = (steps.across + (place - steps.first) * steps.slope) >> 16;
    return steps.isSteep ? QPoint(across, place) : QPoint(place, across);
}

void ThinLine::remember(const QPoint& from, const QPoint& to)
{
    Segment segment {};
    Steps steps {};
    const bool isVisible = toDevice(from, to, segment);
    m_last = QPoint(kNowhere, kNowhere);
    if (!isVisible || !stepsOf(segment, false, false, false, steps))
        return;
    m_last = pixel(steps, steps.isBackward ? steps.first : steps.end - 1);
    m_direction = steps.direction;
    m_isAligned = std::abs(steps.slope) < kAligned;
}

void ThinLine::stroke(const QPoint& from, const QPoint& to, bool capBegin, bool capEnd)
{
    Segment segment {};
    Steps steps {};
    if (!toDevice(from, to, segment) || !stepsOf(segment, capBegin, capEnd, true, steps))
        return;

    const QPoint low = pixel(steps, steps.first), high = pixel(steps, steps.end - 1);
    const QPoint first = steps.isBackward ? high : low;
    const bool isAligned = std::abs(steps.slope) < kAligned;
    if (m_last.x() != kNowhere) {
        const QPoint gap = m_last - first;
        const bool isCorner = isAligned && m_isAligned && gap.x() != 0 && gap.y() != 0;
        const bool isHole = std::abs(gap.x()) > 1 || std::abs(gap.y()) > 1;
        int move = 0; // of the end that joins the line so far
        if (gap.isNull())
            move = 1; // painted already
        else if (m_direction != steps.direction && (isCorner || isHole))
            move = -1; // one more pixel closes the hole
        if (steps.isBackward) {
            steps.end -= move;
        } else {
            steps.first += move;
            steps.across += move * steps.slope;
        }
    }
    m_direction = steps.direction;
    m_isAligned = isAligned;
    m_last = steps.isBackward ? low : high;
    steps.end = std::max(steps.end, steps.first + 1); // never less than one pixel
    plot(steps);
}

void ThinLine::plot(const Steps& steps)
{
    constexpr int slanted =
        65536 / 8; // runs of fewer than eight pixels: finding them costs more than they save
    if (std::abs(steps.slope) > slanted
        && m_surface.storeSlope(steps.first, steps.end, steps.across, steps.slope, steps.isSteep, m_word))
        return;
    if (steps.isSteep) {
        plotSteep(steps);
        return;
    }
    const int dx = m_offset.x(), dy = m_offset.y();
    int across = steps.across;
    for (int x = steps.first; x < steps.end;) {
        const int row = across >> 16, begin = x;
        do {
            ++x;
            across += steps.slope;
        } while (x < steps.end && across >> 16 == row);
        if (begin + 1 == x)
            run(begin, row, row);
        else
            m_surface.fill(begin - dx, row - dy, x - 1 - dx, row - dy, m_word);
    }
}

void ThinLine::plotSteep(const Steps& steps)
{
    if (steps.slope == 0) {
        run(steps.across >> 16, steps.first, steps.end - 1);
        return;
    }
    int across = steps.across;
    for (int y = steps.first; y < steps.end;) {
        const int column = across >> 16, begin = y;
        // The pixels that are left on this column, counted at once.
        const int room = steps.slope > 0 ? (column + 1) * 65536 - across + steps.slope - 1
                                         : across - column * 65536 - steps.slope;
        const int length = std::min(room / std::abs(steps.slope), steps.end - y);
        y += length;
        across += length * steps.slope;
        run(column, begin, y - 1);
    }
}

void ThinLine::run(int x, int top, int bottom)
{
    if (x == m_runX && top <= m_runBottom + 1 && bottom >= m_runTop - 1) {
        m_runTop = std::min(m_runTop, top);
        m_runBottom = std::max(m_runBottom, bottom);
        return;
    }
    storeRun();
    m_runX = x;
    m_runTop = top;
    m_runBottom = bottom;
}

void ThinLine::storeRun()
{
    if (m_runTop > m_runBottom)
        return;
    m_runs.add(m_runX - m_offset.x(), m_runTop - m_offset.y(), m_runBottom - m_offset.y(), m_word);
}

} // namespace TC::detail
