#include "title/internal/LegendClip.h"

#include "draw/internal/Numbers.h"
#include "title/internal/Pictures.h"
#include "title/internal/TradeSummary.h"

namespace TC::detail {

namespace {

constexpr int kDescent = 2; ///< pixels of ink below a row of text

/// Grows a region by the rectangles that lie inside an area.
class WholeRects
{
public:
    explicit WholeRects(const QRect& area)
        : m_area(area)
    {
    }

    /// @param behind  pixels behind the text that belong to it: its arrow.
    void add(const QRect& text, int behind)
    {
        const QRect whole = text.adjusted(0, 0, behind, 0);
        if (whole.isEmpty() || !isInside(whole))
            return;
        // Ink may stand out of a text's advance at either side, and under the row.
        m_region += whole.adjusted(-1, 0, 1, kDescent);
    }
    const QRegion& region() const { return m_region; }

private:
    bool isInside(const QRect& whole) const
    {
        return whole.left() >= m_area.left() && whole.right() <= m_area.right() && whole.top() >= m_area.top()
            && whole.bottom() <= m_area.bottom();
    }

    QRect m_area;
    QRegion m_region;
};

} // namespace

QRegion wholePieces(const QRect& area, const LegendRows& rows, const LegendOrigin& origin, int width,
                    const QVector<ArrowColorTextData>& summary)
{
    WholeRects whole(area);
    const auto addRow = [&](const QList<CArrowColorSimpleText>& row, int rowX, int y, bool stopAtEdge) {
        const auto addObject = [&](const CArrowColorSimpleText& object, int x, int room) {
            const QVector<QRect> places = object.placeTexts(x, y, room, kLegendRowHeight);
            const QVector<ArrowColorTextData> pieces = object.getTextColor();
            for (int piece = 0; piece < places.size(); ++piece)
                whole.add(places.at(piece), arrowWidth(pieces.at(piece).arrowType));
        };
        return forEachObject(row, rowX, width, addObject, stopAtEdge);
    };
    int x = addRow(rows.first, origin.firstX, 0, false);
    for (const ArrowColorTextData& text : summary) {
        const int step = summaryTextWidth(text.text);
        whole.add(paintableRect(x, kSummaryTop, step, kLegendRowHeight), 0);
        x = saturatedSum(x, step);
    }
    addRow(rows.second, origin.secondX, origin.secondY, origin.hasSummary);
    return whole.region();
}

} // namespace TC::detail
