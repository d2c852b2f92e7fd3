// SPDX-License-Identifier: MIT
#include "title/internal/TextLine.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <vector>

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

/// The glyphs' outlines, widened by what may take them onto one more pixel: a quarter of one along the row,
/// where the engine rounds places, hinting and whole pixels above and below.
std::vector<QRectF> outlines(const QGlyphRun& run)
{
    constexpr qreal besides = 0.75, above = 1.0; // pixels
    const QVector<quint32> glyphs = run.glyphIndexes();
    const QVector<QPointF> positions = run.positions();
    std::vector<QRectF> found;
    for (int at = 0; at < std::min(glyphs.size(), positions.size()); ++at) {
        const QRectF outline = run.rawFont().boundingRect(glyphs.at(at));
        if (!outline.isEmpty())
            found.push_back(outline.translated(positions.at(at)).adjusted(-besides, -above, besides, above));
    }
    return found;
}

/// Qt tells the runs of several fonts in any order, and blends them one after the other.
bool mayBeReordered(const QList<QGlyphRun>& runs)
{
    std::vector<QRectF> before;
    for (int at = 0; runs.size() > 1 && at < runs.size(); ++at) {
        const std::vector<QRectF> own = outlines(runs.at(at));
        for (const QRectF& outline : own) {
            if (std::any_of(before.begin(), before.end(),
                            [&](const QRectF& other) { return outline.intersects(other); }))
                return false;
        }
        before.insert(before.end(), own.begin(), own.end());
    }
    return true;
}

/// The run that goes farthest to the right becomes the last.
bool endsBefore(const QGlyphRun& left, const QGlyphRun& right)
{
    const QVector<QPointF> some = left.positions(), others = right.positions();
    return some.value(some.size() - 1).x() < others.value(others.size() - 1).x();
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
    std::sort(m_runs.begin(), m_runs.end(), endsBefore);
    m_width = line.naturalTextWidth();
    m_height = line.ascent() + line.descent(); // as drawText centres it; height() rounds it up
    const bool isLeftToRight =
        std::none_of(m_runs.begin(), m_runs.end(), [](const QGlyphRun& run) { return run.isRightToLeft(); });
    m_isPlain = isLeftToRight && !m_runs.isEmpty() && line.horizontalAdvance() == m_width
        && QFontMetricsF(font).horizontalAdvance(text) == m_width && mayBeReordered(m_runs);
}

} // namespace TC::detail
