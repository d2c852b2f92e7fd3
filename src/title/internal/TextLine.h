// SPDX-License-Identifier: MIT
#pragma once
/// @file One line of text as Qt lays it out.

#include <QFont>
#include <QGlyphRun>
#include <QList>
#include <QString>

namespace TC::detail {

/// The glyphs of a text laid out as QPainter::drawText does it in a single line.
class TextLine
{
public:
    TextLine(const QString& text, const QFont& font);

    /// Whether painting the runs is the same as painting the text: it runs from left to right, holds no
    /// character that drawText replaces, its font brings neither lines nor spacing of its own, and glyphs of
    /// different fonts do not touch.
    bool isPlain() const { return m_isPlain; }
    /// Positions in pixels from the line's top left corner; one run for each font, from left to right by its
    /// last glyph.
    const QList<QGlyphRun>& runs() const { return m_runs; }
    qreal width() const { return m_width; }
    qreal height() const { return m_height; }

private:
    QList<QGlyphRun> m_runs;
    qreal m_width = 0.0, m_height = 0.0;
    bool m_isPlain = false;
};

} // namespace TC::detail
