// SPDX-License-Identifier: MIT
#include "title/internal/TextLine.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>

namespace TC::detail {

namespace {

/// Line ends, tabulators and marks of direction are replaced or not shown, where a text is painted.
bool isOrdinary(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) {
        return character == QLatin1Char(' ') || (character.isPrint() && !character.isSpace());
    });
}

bool isOrdinary(const QFont& font)
{
    return !font.underline() && !font.overline() && !font.strikeOut()
        && font.capitalization() == QFont::MixedCase && font.letterSpacing() == 0.0
        && font.wordSpacing() == 0.0;
}

} // namespace

TextLine::TextLine(const QString& text, const QFont& font)
{
    constexpr qreal endless = 0x01000000; // pixels; as drawText takes it
    if (!isOrdinary(text) || !isOrdinary(font))
        return;
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(endless);
    layout.endLayout();

    m_runs = layout.glyphRuns();
    m_width = line.naturalTextWidth();
    m_height = line.height();
    const bool isLeftToRight =
        std::none_of(m_runs.begin(), m_runs.end(), [](const QGlyphRun& run) { return run.isRightToLeft(); });
    m_isPlain = isLeftToRight && !m_runs.isEmpty() && line.horizontalAdvance() == m_width
        && QFontMetricsF(font).horizontalAdvance(text) == m_width;
}

} // namespace TC::detail
