// SPDX-License-Identifier: MIT
#include "title/CArrowColorSimpleText.h"

#include "draw/internal/Numbers.h"
#include "host/WB/CUiResource.h"
#include "host/utils/CSingletonT.h"
#include "title/internal/Pictures.h"
#include "title/internal/TextShapes.h"

#include <QPainter>

namespace TC {

using namespace detail;

CArrowColorSimpleText::CArrowColorSimpleText()
    : CSimpleText(QString(), QStringLiteral("clr_default"), QStringLiteral("fnt_default"))
{
    readPictures();
}

CArrowColorSimpleText::CArrowColorSimpleText(const QString& fontKey)
{
    // The pieces bring their own colours, so that no default colour is looked up here.
    m_font = utils::CSingletonT<WB::CUiResource>::instance()->getFont(fontKey);
    readPictures();
}

CArrowColorSimpleText::~CArrowColorSimpleText() = default;

void CArrowColorSimpleText::readPictures()
{
    m_upArrow = WB::skinPicture(kArrowUpPicture);
    m_downArrow = WB::skinPicture(kArrowDownPicture);
    m_arrowWidth = logicalSize(m_upArrow).width();
}

ArrowColorTextData CArrowColorSimpleText::buildTextColor(const QString& text, const QColor& color,
                                                         int arrowType)
{
    ArrowColorTextData piece;
    piece.text = text;
    piece.color = color;
    piece.arrowType = arrowType;
    return piece;
}

void CArrowColorSimpleText::setTextColor(const QString& text, const QColor& color, int arrowType)
{
    if (!text.isEmpty())
        m_textColorMap[m_textColorMap.size()] = buildTextColor(text, color, arrowType);
}

void CArrowColorSimpleText::setTextColor(CArrowColorSimpleText& other)
{
    const QVector<ArrowColorTextData> pieces = other.getTextColor(); // a copy: `other` may be this object
    for (const ArrowColorTextData& piece : pieces)
        setTextColor(piece.text, piece.color, piece.arrowType);
}

QVector<ArrowColorTextData> CArrowColorSimpleText::getTextColor() const
{
    QVector<ArrowColorTextData> pieces;
    pieces.reserve(m_textColorMap.size());
    for (const ArrowColorTextData& piece : m_textColorMap)
        pieces.append(piece);
    return pieces;
}

void CArrowColorSimpleText::setGraphType(bool stopAtEdge)
{
    m_graphType = stopAtEdge;
}

int CArrowColorSimpleText::textWidth(const QString& text) const
{
    return detail::textWidth(text, m_font ? *m_font : QFont());
}

int CArrowColorSimpleText::getWidth() const
{
    // Deliberate: every piece has room for an arrow, whether it shows one or not, and the gap behind the
    // last piece counts: values that gain or lose their arrow do not move their neighbours.
    long long width = 0;
    for (const ArrowColorTextData& piece : m_textColorMap)
        width += static_cast<long long>(m_arrowWidth) + textWidth(piece.text) + m_spacing;
    return saturatedSum(0, width);
}

const QPixmap* CArrowColorSimpleText::arrowOf(const ArrowColorTextData& piece) const
{
    switch (piece.arrowType) {
    case 1: return m_upArrow;
    case 2: return m_downArrow;
    default: return nullptr;
    }
}

QVector<QRect> CArrowColorSimpleText::placeTexts(int x, int y, int width, int lineHeight) const
{
    const long long rightEdge = static_cast<long long>(x) + width;
    long long penX = x, penY = y;
    QVector<QRect> places;
    places.reserve(m_textColorMap.size());
    for (const ArrowColorTextData& piece : m_textColorMap) {
        // Deliberate: measured without underline and bold, and the arrow may stand past the edge.
        const int textWide = textWidth(piece.text);
        if (m_spacing + textWide + penX > rightEdge) {
            if (m_graphType)
                break;
            // Deliberate: a wrapped row starts one pixel to the right of the first, and what is wider
            // than a row is not tested again.
            penY += lineHeight;
            penX = x + 1LL;
        }
        places.append(paintableRect(penX, penY, textWide, lineHeight));
        penX += static_cast<long long>(m_arrowWidth) + m_spacing + textWide;
    }
    return places;
}

void CArrowColorSimpleText::drawText(QPainter* painter, int x, int y, int width, int lineHeight, int flags,
                                     bool underline, bool bold) const
{
    if (!m_font)
        return;
    QFont font(*m_font);
    if (underline)
        font.setUnderline(true);
    if (bold)
        font.setBold(true);
    drawPieces(painter, placeTexts(x, y, width, lineHeight), flags, font, nullptr);
}

void CArrowColorSimpleText::drawWhole(QPainter* painter, int x, int y, int width, int lineHeight,
                                      const QRect& area) const
{
    if (m_font)
        drawPieces(painter, placeTexts(x, y, width, lineHeight), Qt::AlignCenter, *m_font, &area);
}

void CArrowColorSimpleText::drawPieces(QPainter* painter, const QVector<QRect>& places, int flags,
                                       const QFont& font, const QRect* area) const
{
    painter->setFont(font);
    auto next = m_textColorMap.begin();
    for (const QRect& place : places) {
        const ArrowColorTextData& piece = *next++;
        const QPixmap* arrow = arrowOf(piece);
        const QSize size = logicalSize(arrow);
        if (area && !area->contains(place.adjusted(0, 0, size.width(), 0)))
            continue;
        painter->setPen(QPen(piece.color));
        // Rows are lower than the line of some fonts: unclipped, no accent or descender is shaved off.
        paintLine(painter, place, flags, piece.text, font);
        if (arrow)
            painter->drawPixmap(place.x() + place.width(), place.y() + (place.height() - size.height()) / 2,
                                size.width(), size.height(), *arrow);
    }
}

} // namespace TC
