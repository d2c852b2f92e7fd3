// SPDX-License-Identifier: MIT
#include "title/internal/LegendClip.h"

#include "draw/internal/Numbers.h"
#include "draw/internal/Pens.h"
#include "title/internal/Pictures.h"
#include "title/internal/TextShapes.h"
#include "title/internal/TradeSummary.h"

namespace TC::detail {

namespace {

constexpr int kDescent = 2; ///< pixels of ink below a row of text

/// Collects the pieces that lie inside an area.
class PieceCollector
{
public:
    PieceCollector(const QPainter& painter, const QRect& area)
        : m_painter(painter)
        , m_area(area)
    {
    }

    /// @param arrow  behind the text; belongs to it.
    void add(const ArrowColorTextData& piece, const QRect& place, const QSize& arrow, const QFont& font)
    {
        const QRect room = addRoom(place, arrow.width());
        if (room.isEmpty())
            return;
        if (arrow.height() > place.height()
            || !inkStaysIn(room, m_painter, place, Qt::AlignCenter, piece.text, font))
            m_clip.isNeeded = true;
    }
    /// A text of the trade summary, which is painted without regard to its ink.
    void addSummary(const QRect& place)
    {
        addRoom(place, 0);
        m_clip.isNeeded = true;
    }
    const LegendClip& clip() const { return m_clip; }

private:
    /// The room that a piece may ink; empty when it does not show.
    QRect addRoom(const QRect& text, int behind)
    {
        const QRect whole = text.adjusted(0, 0, behind, 0);
        if (whole.isEmpty() || !m_area.contains(whole))
            return {};
        // Ink may stand out of a text's advance at either side, and under the row.
        m_clip.pieces.append(whole.adjusted(-1, 0, 1, kDescent));
        return m_clip.pieces.last();
    }

    const QPainter& m_painter;
    QRect m_area;
    LegendClip m_clip;
};

} // namespace

QRegion LegendClip::region() const
{
    QRegion all;
    for (const QRect& piece : pieces)
        all += piece;
    return all;
}

LegendClip wholePieces(const QPainter& painter, const QRect& area, const LegendRows& rows,
                       const LegendOrigin& origin, int width, const QVector<ArrowColorTextData>& summary)
{
    PieceCollector whole(painter, area);
    const QFont font = WB::skinFont(kTitleFont);
    const auto addRow = [&](const QList<CArrowColorSimpleText>& row, int rowX, int y, bool stopAtEdge) {
        const auto addObject = [&](const CArrowColorSimpleText& object, int x, int room) {
            const QVector<QRect> places = object.placeTexts(x, y, room, kLegendRowHeight);
            const QVector<ArrowColorTextData> pieces = object.getTextColor();
            for (int piece = 0; piece < places.size(); ++piece)
                whole.add(pieces.at(piece), places.at(piece), arrowSize(pieces.at(piece).arrowType), font);
        };
        return forEachObject(row, rowX, width, addObject, stopAtEdge);
    };
    int x = addRow(rows.first, origin.firstX, 0, false);
    for (const ArrowColorTextData& text : summary) {
        const int step = summaryTextWidth(text.text);
        whole.addSummary(paintableRect(x, kSummaryTop, step, kLegendRowHeight));
        x = saturatedSum(x, step);
    }
    addRow(rows.second, origin.secondX, origin.secondY, origin.hasSummary);
    return whole.clip();
}

} // namespace TC::detail
