// SPDX-License-Identifier: MIT
#pragma once
/// @file A row of coloured legend pieces that measures and paints itself.

#include "host/WB/CSimpleText.h"
#include "indicatorui_export.h"
#include "title/ArrowColorTextData.h"

#include <QMap>
#include <QVector>

class QPixmap;

namespace TC {

/// Pieces of a legend line in order. A plain value: copies share the skin's colour, font and pictures,
/// which are void once the skin changes; make it where it is painted. GUI thread only.
class INDICATORUI_EXPORT CArrowColorSimpleText : public WB::CSimpleText
{
public:
    /// No pieces; the skin's default colour and font.
    CArrowColorSimpleText();
    /// No pieces; the skin's font of the given key (none where the skin lacks it), no colour.
    explicit CArrowColorSimpleText(const QString& fontKey);
    /// Copies the pieces.
    CArrowColorSimpleText(const CArrowColorSimpleText&) = default;
    /// As the copy.
    CArrowColorSimpleText& operator=(const CArrowColorSimpleText&) = default;
    ~CArrowColorSimpleText() override;

    /// A piece of the three values.
    static ArrowColorTextData buildTextColor(const QString& text, const QColor& color, int arrowType);

    /// Appends a piece; an empty text appends nothing.
    void setTextColor(const QString& text, const QColor& color, int arrowType);
    /// Appends every piece of `other` in its order; `other` may be this object.
    void setTextColor(CArrowColorSimpleText& other);
    /// The pieces in order.
    QVector<ArrowColorTextData> getTextColor() const;

    /// Width of all pieces in one row, in pixels: room for an arrow and the gap behind it is counted for
    /// every piece. Without a font the application's default font measures. 0 without pieces.
    int getWidth() const;

    /// true (the default): painting stops at the first piece past the right edge; false: it wraps.
    void setGraphType(bool stopAtEdge);

    /// Paints the pieces from (x, y) on; a piece that would end past x + width stops the painting, or
    /// starts the next row when the graph type is false. Paints nothing without a font; sets the painter's
    /// font and pen.
    /// @param flags  alignment of each text inside its own width and the row's height.
    void drawText(QPainter* painter, int x, int y, int width, int lineHeight, int flags, bool underline,
                  bool bold) const override;

    /// As drawText with centred texts and neither underline nor bold, but paints only what lies inside `area`
    /// altogether, text and arrow.
    void drawWhole(QPainter* painter, int x, int y, int width, int lineHeight, const QRect& area) const;

    /// Where drawText puts each text, in order and without the arrow behind it; ends where it stops.
    QVector<QRect> placeTexts(int x, int y, int width, int lineHeight) const;

private:
    void readPictures();
    /// @param places  of the first pieces; `area`: null for all, else only what lies inside it altogether.
    void drawPieces(QPainter* painter, const QVector<QRect>& places, int flags, const QFont& font,
                    const QRect* area) const;
    const QPixmap* arrowOf(const ArrowColorTextData& piece) const;
    int textWidth(const QString& text) const;

    const QPixmap* m_upArrow = nullptr;
    const QPixmap* m_downArrow = nullptr;
    QMap<int, ArrowColorTextData> m_textColorMap; ///< by order of insertion, from 0
    bool m_graphType = true;
    int m_spacing = 3;    ///< pixels between pieces
    int m_arrowWidth = 0; ///< pixels, of the arrow up
};

} // namespace TC
