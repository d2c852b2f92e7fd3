// SPDX-License-Identifier: MIT
#pragma once
/// @file A solid line of one pixel, pixel for pixel as the raster engine's aliased pen draws it.

#include "draw/internal/ink/Surface.h"
#include "draw/internal/ink/UprightRuns.h"

#include <QPoint>
#include <QRect>

namespace TC::detail {

/// Stores the pixels of polylines. The engine decides on each segment's first pixel by what the segment
/// before left behind (last pixel, direction, slope), so that corners have neither holes nor doubled pixels;
/// this class carries the same memory from point to point and comes to the same pixels. Runs of pixels that
/// meet on one column are gathered and stored once.
class ThinLine
{
public:
    ThinLine(const Surface& surface, quint32 word);
    ~ThinLine();
    ThinLine(const ThinLine&) = delete;
    ThinLine& operator=(const ThinLine&) = delete;

    /// One piece of a line, in painter coordinates; neighbouring points differ. A single point has no pixel.
    void draw(const QPoint* points, int count);

private:
    enum Direction : unsigned { Down = 1, Up = 2, Right = 4, Left = 8 };

    /// A segment along its longer axis in fixed point: places in 1/64, the shorter axis in 1/65536 of a
    /// pixel.
    struct Steps
    {
        int first, end;    ///< whole pixels on the long axis, end exclusive
        int across, slope; ///< of the first pixel on the short axis, and change per pixel
        bool isSteep;      ///< the long axis runs down
        bool isBackward;   ///< walked from `end` to `first`
        Direction direction;
    };

    /// A segment cut to the device, device coordinates in 1/64 of a pixel.
    struct Segment
    {
        int x1, y1, x2, y2;
    };

    void stroke(const QPoint& from, const QPoint& to, bool capBegin, bool capEnd);
    /// Remembers a segment as if it had been drawn: the one that leads to the start of a closed piece.
    void remember(const QPoint& from, const QPoint& to);
    bool toDevice(const QPoint& from, const QPoint& to, Segment& segment);
    /// Whether segments between such points need no cut.
    bool isUncut(const QPoint& point) const
    {
        return point.x() >= m_uncut.left() && point.x() <= m_uncut.right() && point.y() >= m_uncut.top()
            && point.y() <= m_uncut.bottom();
    }
    bool cut(double& a1, double& b1, double& a2, double& b2, double lowest, double highest);
    bool stepsOf(const Segment& segment, bool capBegin, bool capEnd, bool joins, Steps& steps) const;
    static QPoint pixel(const Steps& steps, int place);
    void plot(const Steps& steps);
    void plotSteep(const Steps& steps);
    void run(int x, int top, int bottom);
    void storeRun();

    Surface m_surface;
    UprightRuns m_runs;
    quint32 m_word;
    QPoint m_offset;          ///< from painter to device coordinates
    double m_right, m_bottom; ///< device edges that segments are cut at
    QRect m_uncut;            ///< painter coordinates between those edges

    QPoint
        m_last; ///< last pixel on the way; its column is INT_MIN at the start and behind what left the device
    Direction m_direction = Right;
    bool m_isAligned = false; ///< slope below 1/4

    int m_runX = 0, m_runTop = 1, m_runBottom = 0; ///< gathered, device coordinates; empty at first
};

} // namespace TC::detail
