// SPDX-License-Identifier: MIT
#pragma once
/// @file How a font sets numbers, learnt once from Qt's own layout.

#include <QFont>
#include <QRawFont>
#include <QRectF>
#include <QString>
#include <QVector>

#include <optional>

namespace TC::detail {

/// Which of the characters that stand in numbers it is: a digit, a sign, a point or a blank; -1 for any
/// other.
int numberIndex(QChar character);

inline bool isNumberCharacter(QChar character)
{
    return numberIndex(character) >= 0;
}

/// Glyphs and steps of the characters of numbers, behind a text of some script. A number can be put together
/// from them where the font sets every such character in the same glyph whatever stands around it, and as far
/// behind the character before as those two alone say (kerning). That is found out by laying out a text that
/// holds every row of three of them. Behind another script a font may choose other glyphs.
class NumberGlyphs
{
public:
    /// @param letter  of the script; empty for a number without letters before it.
    NumberGlyphs(const QFont& font, const QString& letter);

    /// False where the font sets numbers in another way; nothing else may be asked for then.
    bool areKnown() const { return !m_glyphs.isEmpty(); }
    quint32 glyph(QChar character) const { return m_glyphs.at(numberIndex(character)); }
    /// Pixels from a character to the next one.
    qreal step(QChar character, QChar next) const { return m_steps.at(pairOf(character, next)); }
    /// Pixels from a text's last character to its end.
    qreal lastStep(QChar character) const { return m_lastSteps.at(numberIndex(character)); }
    /// Holds the outline of each glyph, from its place.
    const QRectF& ink() const { return m_ink; }
    /// The pixels that paintedPixels finds of all glyphs, from their place.
    const std::optional<QRect>& pixels() const { return m_pixels; }
    /// The font of all glyphs.
    const QRawFont& rawFont() const { return m_rawFont; }

private:
    static int pairOf(QChar character, QChar next);
    bool readSingles(const QFont& font, const QString& letter);
    void readPixels();
    bool readSteps(const QFont& font, const QString& letter);

    QVector<quint32> m_glyphs;
    QVector<qreal> m_steps, m_lastSteps;
    QRectF m_ink;
    std::optional<QRect> m_pixels;
    QRawFont m_rawFont;
};

} // namespace TC::detail
