// SPDX-License-Identifier: MIT
#include "title/internal/FontShapes.h"

#include "host/WB/CSimpleText.h"
#include "title/internal/PaintedPixels.h"
#include "title/internal/TextLine.h"

#include <algorithm>

namespace TC::detail {

namespace {

constexpr int kNumberStart = 2;   ///< characters of a number that are laid out with what stands before it
constexpr int kLongestText = 500; ///< characters; longer texts are measured and painted by Qt alone

/// The whole text where it does not end in a number that is worth a cut.
int headLength(const QString& text)
{
    if (text.size() > kLongestText)
        return text.size();
    int length = text.size();
    while (length > 0 && isNumberCharacter(text.at(length - 1)))
        --length;
    return std::min<int>(length + kNumberStart, text.size());
}

/// The last letter of a text, whose script the number behind it is set in; empty when there is none.
QString lastLetter(const QString& text)
{
    for (int at = text.size() - 1; at >= 0; --at) {
        if (text.at(at).script() > QChar::Script_Common)
            return text.mid(at, 1);
    }
    return {};
}

/// A run's own bounding rectangle is that of its line.
QRectF inkOf(const QList<QGlyphRun>& runs)
{
    QRectF ink;
    for (const QGlyphRun& run : runs) {
        const QVector<quint32> glyphs = run.glyphIndexes();
        const QVector<QPointF> positions = run.positions();
        for (int at = 0; at < std::min(glyphs.size(), positions.size()); ++at)
            ink |= run.rawFont().boundingRect(glyphs.at(at)).translated(positions.at(at));
    }
    return ink;
}

} // namespace

FontShapes::FontShapes(const QFont& font)
    : m_font(font)
{
}

int FontShapes::width(const QString& text)
{
    return shape(text).width;
}

const TextShape& FontShapes::shape(const QString& text)
{
    const bool ownsItsMemory = text.capacity() > 0; // else the same place may hold another text
    for (const Asked& asked : m_asked) {
        if (ownsItsMemory && asked.text.constData() == text.constData() && asked.text.size() == text.size())
            return asked.shape;
    }
    m_next = (m_next + 1) % m_asked.size();
    Asked& asked = m_asked[m_next];
    asked.text = ownsItsMemory ? text : QString();
    const int length = headLength(text);
    const Head& start = head(text, length);
    if (length == text.size())
        asked.shape = start.shape;
    else if (!start.numbers)
        asked.shape = head(text, text.size()).shape;
    else
        extend(start, text, length, asked);
    return asked.shape;
}

const FontShapes::Head& FontShapes::head(const QString& text, int length)
{
    return m_heads.value(QString::fromRawData(text.constData(), length),
                         [this](const QString& start) { return makeHead(start); });
}

FontShapes::Head FontShapes::makeHead(const QString& text)
{
    Head head;
    head.shape.width = WB::CSimpleText::getSize(text, m_font).width();
    if (text.size() > kLongestText)
        return head;
    const TextLine line(text, m_font);
    if (!line.isPlain() || qRound(line.width()) != head.shape.width)
        return head;
    head.shape.exactWidth = line.width();
    head.shape.height = line.height();
    head.shape.runs = line.runs();
    head.shape.ink = inkOf(line.runs());
    head.shape.pixels = paintedPixels(line.runs(), head.shape.ink);
    head.glyphs = line.runs().last().glyphIndexes();
    head.positions = line.runs().last().positions();

    const int last = head.glyphs.size() - 1;
    if (text.size() < kNumberStart || last < 1)
        return head;
    const QChar first = text.at(text.size() - 2), second = text.at(text.size() - 1);
    if (!isNumberCharacter(first) || !isNumberCharacter(second))
        return head;
    const NumberGlyphs* numbers = numbersBehind(text);
    if (numbers && head.glyphs.at(last - 1) == numbers->glyph(first)
        && head.glyphs.at(last) == numbers->glyph(second)
        && head.positions.at(last - 1) + QPointF(numbers->step(first, second), 0.0) == head.positions.at(last)
        && head.positions.at(last).x() + numbers->lastStep(second) == line.width())
        head.numbers = numbers;
    return head;
}

/// The glyphs of a number that goes on behind a text; null where they are not known.
const NumberGlyphs* FontShapes::numbersBehind(const QString& text)
{
    const QString letter = lastLetter(text);
    const QChar::Script script = letter.isEmpty() ? QChar::Script_Common : letter.at(0).script();
    if (script != QChar::Script_Common && script != QChar::Script_Latin && script != QChar::Script_Han)
        return nullptr;
    auto known = m_numbers.find(script);
    if (known == m_numbers.end())
        known = m_numbers.emplace(script, NumberGlyphs(m_font, letter)).first;
    return known->second.areKnown() ? &known->second : nullptr;
}

void FontShapes::extend(const Head& head, const QString& text, int length, Asked& asked)
{
    const NumberGlyphs& numbers = *head.numbers;
    const int known = head.glyphs.size();
    asked.glyphs.resize(known + text.size() - length);
    asked.positions.resize(asked.glyphs.size());
    std::copy(head.glyphs.begin(), head.glyphs.end(), asked.glyphs.begin());
    std::copy(head.positions.begin(), head.positions.end(), asked.positions.begin());
    QPointF position = head.positions.last(), lastInk = position;
    for (int at = length; at < text.size(); ++at) {
        position.rx() += numbers.step(text.at(at - 1), text.at(at));
        asked.glyphs[known + at - length] = numbers.glyph(text.at(at));
        asked.positions[known + at - length] = position;
        if (text.at(at) != QLatin1Char(' '))
            lastInk = position;
    }
    TextShape& shape = asked.shape;
    shape = head.shape;
    shape.exactWidth = position.x() + numbers.lastStep(text.at(text.size() - 1));
    shape.width = qRound(shape.exactWidth);
    shape.ink |= numbers.ink().translated(head.positions.last()) | numbers.ink().translated(lastInk);
    if (!numbers.pixels())
        shape.pixels.reset();
    if (shape.pixels) {
        // Places between two pixels may be moved to either by the fraction that the corner brings along.
        const QRectF pixels = *numbers.pixels();
        *shape.pixels |= pixels.translated(head.positions.last()).toAlignedRect()
            | pixels.translated(lastInk).toAlignedRect();
    }
    shape.runs.last().setRawData(asked.glyphs.constData(), asked.positions.constData(), asked.glyphs.size());
}

} // namespace TC::detail
