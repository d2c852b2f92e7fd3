// SPDX-License-Identifier: MIT
#include "title/internal/LegendFlow.h"

#include "draw/internal/Pens.h"
#include "title/internal/Pictures.h"
#include "title/internal/TextShapes.h"

namespace TC::detail {

namespace {

/// The pen that wraps at the area's right edge.
class FlowPen
{
public:
    explicit FlowPen(const QRect& area)
        : m_area(area)
        , m_x(area.left())
        , m_y(area.top())
    {
    }

    /// Moves to the next row when `needed` pixels do not fit behind the pen but fit into a row.
    void makeRoom(long long needed)
    {
        if (m_x > m_area.left() && needed > room() && needed <= m_area.width()) {
            m_x = m_area.left();
            m_y += kLegendRowHeight;
        }
    }
    long long room() const { return m_area.right() + 1LL - m_x; }
    bool isBelow() const { return m_y + kLegendRowHeight > m_area.bottom() + 1LL; }
    QPoint position() const
    {
        return QPoint(toPixel(static_cast<double>(m_x)), toPixel(static_cast<double>(m_y)));
    }
    void advance(long long pixels) { m_x += pixels; }

private:
    QRect m_area;
    long long m_x, m_y;
};

/// Pixels that show of a piece: its text and the arrow behind it.
int inkWidth(const ArrowColorTextData& piece)
{
    return textWidth(piece.text, WB::skinFont(kTitleFont)) + arrowSize(piece.arrowType).width();
}

/// Places the pieces of one object; `follower` pixels must fit behind its first piece.
void flowObject(const CArrowColorSimpleText& object, int follower, FlowPen& pen, QVector<FlowPiece>& placed)
{
    const QVector<ArrowColorTextData> pieces = object.getTextColor();
    for (const ArrowColorTextData& piece : pieces) {
        CArrowColorSimpleText single(QString::fromLatin1(kTitleFont));
        single.setTextColor(piece.text, piece.color, piece.arrowType);
        const int ink = inkWidth(piece);
        pen.makeRoom(follower > 0 ? single.getWidth() + static_cast<long long>(kLegendGap) + follower : ink);
        pen.makeRoom(ink);
        if (pen.isBelow())
            return;
        if (ink <= pen.room()) {
            placed.append({ single, pen.position() });
            pen.advance(single.getWidth());
        }
    }
    pen.advance(kLegendGap);
}

} // namespace

int legendWidth(const LegendRows& rows)
{
    const auto ignore = [](const CArrowColorSimpleText&, int, int) {};
    return forEachObject(rows.second, forEachObject(rows.first, 0, 0, ignore), 0, ignore);
}

QVector<FlowPiece> flowPieces(const LegendRows& rows, const QRect& area)
{
    QVector<FlowPiece> placed;
    FlowPen pen(area);
    for (const CArrowColorSimpleText& object : rows.first)
        flowObject(object, 0, pen, placed);
    // The second row alternates headings and values.
    for (int i = 0; i < rows.second.size() && !pen.isBelow(); ++i) {
        const bool isHeading = i % 2 == 0 && i + 1 < rows.second.size();
        const auto values = isHeading ? rows.second.at(i + 1).getTextColor() : QVector<ArrowColorTextData>();
        flowObject(rows.second.at(i), values.isEmpty() ? 0 : inkWidth(values.first()), pen, placed);
    }
    return placed;
}

} // namespace TC::detail
