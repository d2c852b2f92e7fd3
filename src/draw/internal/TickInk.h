#pragma once
/// @file Ink of tick panes: the marks of a day's trades, many of which fall onto one pixel column.
///
/// Where ink hides what lies beneath pixel by pixel (see hidesBeneath), a mark that a later mark of its
/// column covers entirely is left out: no pixel changes, and a million trades cost what the pane can show.
/// Everywhere else every mark is painted at once, in the order of the trades.

#include <QColor>
#include <QPen>
#include <QRect>

#include <optional>
#include <vector>

class QPainter;

namespace TC::detail {

/// The pens of the two directions, looked up once and set only where the direction changes.
class DirectionPens
{
public:
    explicit DirectionPens(QPainter* painter);

    void use(bool rise);
    QColor fallColor() const { return m_fall.color(); }
    bool areOpaque() const { return m_rise.color().alpha() == 255 && m_fall.color().alpha() == 255; }

private:
    QPainter* m_painter;
    QPen m_rise, m_fall;
    std::optional<bool> m_inUse;
};

/// Crosses; one covers another on the same point.
class CrossInk
{
public:
    /// @param half  half a cross in pixels.
    CrossInk(QPainter* painter, const QRect& pane, int half);

    void add(int x, int row, bool rise);
    /// Paints what is held back; call it behind the last cross.
    void finish();

private:
    struct Cross
    {
        int row;
        bool rise;
    };

    void paint(int x, const Cross& cross);
    /// Number of the column's last cross on a row; null for rows that are not followed.
    std::size_t* lastOnRow(int row);

    QPainter* m_painter;
    DirectionPens m_pens;
    int m_half;
    bool m_leavesOut;
    int m_x = 0;                          ///< pixel column of `m_column`
    std::vector<Cross> m_column;          ///< held back
    int m_firstRow;                       ///< row of the first entry of `m_lastOnRow`
    std::vector<std::size_t> m_lastOnRow; ///< per row of the pane
};

/// Lines that stand on one row; one covers those of its column that reach no farther.
class StandingLineInk
{
public:
    /// @param pens  outlive the object.
    StandingLineInk(QPainter* painter, DirectionPens& pens, int baseRow);

    /// A line between `row` and the base row.
    void add(int x, int row, bool rise);
    /// Paints what is held back; call it behind the last line.
    void finish();

private:
    struct Line
    {
        int row;
        bool rise;
    };

    void paint(int x, const Line& line);
    bool covers(int row, int otherRow) const;

    QPainter* m_painter;
    DirectionPens& m_pens;
    int m_baseRow;
    bool m_leavesOut;
    int m_x = 0;                ///< pixel column of `m_column`
    std::vector<Line> m_column; ///< held back; none is covered by the next
};

} // namespace TC::detail
