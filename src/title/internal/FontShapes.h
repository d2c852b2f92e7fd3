// SPDX-License-Identifier: MIT
#pragma once
/// @file Texts of one font, as the glyphs they are made of.

#include "title/internal/NumberGlyphs.h"
#include "title/internal/RecentTexts.h"

#include <QGlyphRun>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QVector>

#include <array>
#include <map>
#include <optional>

namespace TC::detail {

/// A text's glyphs in one line.
struct TextShape
{
    int width = 0;               ///< advance in pixels, rounded as WB::CSimpleText::getSize rounds it
    qreal exactWidth = 0.0;      ///< advance in pixels
    qreal height = 0.0;          ///< of the line in pixels
    QRectF ink;                  ///< holds every glyph's outline, from the line's top left corner
    std::optional<QRect> pixels; ///< that paintedPixels finds
    QList<QGlyphRun> runs;       ///< from the line's top left corner; empty: Qt must paint the text itself
};

/// Shapes of one font's texts. A text that ends in a number is cut behind the second character of the number:
/// the head before the cut is laid out once and kept, the rest is appended glyph by glyph.
class FontShapes
{
public:
    explicit FontShapes(const QFont& font);

    bool isOf(const QFont& font) const { return m_font == font; }

    int width(const QString& text);
    /// Valid until a few other texts were asked for.
    const TextShape& shape(const QString& text);

private:
    struct Head
    {
        TextShape shape;
        /// How the number goes on behind the head's last two characters; null where that is not known.
        const NumberGlyphs* numbers = nullptr;
        QVector<quint32> glyphs;    ///< of the last run
        QVector<QPointF> positions; ///< of the last run
    };

    /// A text asked for. Who asks again with the same text, not with an equal one, is known by its place in
    /// memory, which nobody else takes while it is kept here.
    struct Asked
    {
        QString text;
        TextShape shape;
        QVector<quint32> glyphs;    ///< of the last run
        QVector<QPointF> positions; ///< of the last run
    };

    const Head& head(const QString& text, int length);
    Head makeHead(const QString& text);
    const NumberGlyphs* numbersBehind(const QString& text);
    /// Puts a text together from its head and the rest of its number.
    static void extend(const Head& head, const QString& text, int length, Asked& asked);

    QFont m_font;
    std::map<QChar::Script, NumberGlyphs> m_numbers; ///< by the script that stands before the number
    RecentTexts<Head> m_heads;
    std::array<Asked, 32> m_asked; ///< by turns
    std::size_t m_next = 0;
};

} // namespace TC::detail
