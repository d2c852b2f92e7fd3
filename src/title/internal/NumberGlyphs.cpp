// SPDX-License-Identifier: MIT
#include "title/internal/NumberGlyphs.h"

#include "title/internal/PaintedPixels.h"
#include "title/internal/TextLine.h"

#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace TC::detail {

namespace {

constexpr char kCharacters[] = "0123456789.- ";
constexpr int kCount = sizeof(kCharacters) - 1;

/// A text in which every row of three characters occurs once.
QString everyThree()
{
    std::vector<bool> seen(std::size_t { kCount } * kCount * kCount);
    int before = 0, last = 0;
    QString text(2, QLatin1Char(kCharacters[0]));
    // Taking the highest character that makes a new row never gets stuck before all rows are taken.
    for (int next = kCount - 1; next >= 0;) {
        const std::size_t row = (std::size_t { kCount } * before + last) * kCount + next;
        if (seen[row]) {
            --next;
            continue;
        }
        seen[row] = true;
        text += QLatin1Char(kCharacters[next]);
        before = std::exchange(last, next);
        next = kCount - 1;
    }
    return text;
}

/// A line's glyphs and their places, as many of these, in one list each.
struct LineGlyphs
{
    explicit LineGlyphs(const TextLine& line)
    {
        for (const QGlyphRun& run : line.runs()) {
            glyphs += run.glyphIndexes();
            positions += run.positions();
        }
    }
    /// Whether each character of a text has its glyph.
    bool isOneEach(const QString& text) const { return glyphs.size() == text.size(); }

    QVector<quint32> glyphs;
    QVector<QPointF> positions;
};

} // namespace

int numberIndex(QChar character)
{
    const ushort code = character.unicode();
    switch (code) {
    case '.': return 10;
    case '-': return 11;
    case ' ': return 12;
    default: return code >= '0' && code <= '9' ? code - '0' : -1;
    }
}

int NumberGlyphs::pairOf(QChar character, QChar next)
{
    return numberIndex(character) * kCount + numberIndex(next);
}

NumberGlyphs::NumberGlyphs(const QFont& font, const QString& letter)
{
    if (!readSingles(font, letter) || !readSteps(font, letter))
        m_glyphs.clear();
    else
        readPixels();
}

/// Each character right behind the letter, at the end of a text.
bool NumberGlyphs::readSingles(const QFont& font, const QString& letter)
{
    for (const char character : std::string_view(kCharacters)) {
        const QString text = letter + QLatin1Char(character);
        const TextLine line(text, font);
        const LineGlyphs all(line);
        if (!line.isPlain() || !all.isOneEach(text))
            return false;
        if (m_glyphs.isEmpty())
            m_rawFont = line.runs().last().rawFont();
        if (line.runs().last().rawFont() != m_rawFont)
            return false;
        m_glyphs += all.glyphs.last();
        m_ink |= m_rawFont.boundingRect(all.glyphs.last());
        m_lastSteps += line.width() - all.positions.last().x();
    }
    return true;
}

/// All glyphs on the same place: together they touch what any of them touches.
void NumberGlyphs::readPixels()
{
    QGlyphRun run;
    run.setRawFont(m_rawFont);
    run.setGlyphIndexes(m_glyphs);
    run.setPositions(QVector<QPointF>(m_glyphs.size()));
    m_pixels = paintedPixels({ run }, m_ink);
}

/// Answers whether neighbours alone decide the steps. All glyphs are of the font that those behind the letter
/// are of.
bool NumberGlyphs::readSteps(const QFont& font, const QString& letter)
{
    const QString text = letter + everyThree();
    const TextLine line(text, font);
    const LineGlyphs all(line);
    if (!line.isPlain() || !all.isOneEach(text))
        return false;

    m_steps.fill(std::nan(""), kCount * kCount);
    for (int at = letter.size(); at < text.size(); ++at) {
        const QChar character = text.at(at);
        if (all.glyphs.at(at) != glyph(character) || all.positions.at(at).y() != all.positions.last().y())
            return false;
        const bool isLast = at + 1 == text.size();
        const qreal end = isLast ? line.width() : all.positions.at(at + 1).x();
        qreal& known =
            isLast ? m_lastSteps[numberIndex(character)] : m_steps[pairOf(character, text.at(at + 1))];
        const qreal step = end - all.positions.at(at).x();
        if (std::isnan(known))
            known = step;
        if (known != step)
            return false;
    }
    return true;
}

} // namespace TC::detail
