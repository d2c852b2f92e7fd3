// SPDX-License-Identifier: MIT
#include "title/internal/TextShapes.h"

#include "title/internal/TextLine.h"

#include "host/WB/CSimpleText.h"
#include "tests/support/Seeds.h"
#include "tests/support/TestFont.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <random>

using TC::detail::inkStaysIn;
using TC::detail::paintLine;
using TC::detail::textWidth;

namespace {

/// Texts as legends hold them, and stranger ones; fonts, colours, clips and scales.
class RandomLine
{
public:
    explicit RandomLine(unsigned seed)
        : m_random(seed)
    {
    }

    int pick(int lowest, int highest)
    {
        return std::uniform_int_distribution<int>(lowest, highest)(m_random);
    }
    bool flag(int oneIn = 2) { return pick(1, oneIn) == 1; }

    QString text()
    {
        static const QString labels[] = {
            QStringLiteral("OUT0: "),
            QStringLiteral("收: "),
            QStringLiteral("MA5:"),
            QString(),
            QStringLiteral("涨("),
            QStringLiteral("振幅 "),
            QStringLiteral("AVTo1f"),
            QStringLiteral("-"),
            QStringLiteral("مرحبا "),
            QStringLiteral("é\u0301ffi "),
            QStringLiteral("a\tb\n"),
            QStringLiteral("Объём "),
            QStringLiteral("成交量: 12.5万 "),
            QStringLiteral("[A 1/2] "),
        };
        QString text = labels[pick(0, 13)];
        if (flag(12))
            text += QString(pick(1, 40), QLatin1Char('x'));
        text += number();
        static const char* const ends[] = { "", " ", "%", ")", " ]", "  ", "x" };
        return text + (flag() ? QStringLiteral(" ") : QLatin1String(ends[pick(0, 6)]));
    }
    QFont font()
    {
        QFont font = flag(3) ? QFont() : test::font(12);
        if (flag(3))
            font.setFamily(QStringLiteral("Noto Sans CJK SC"));
        font.setPixelSize(flag() ? 12 : pick(6, 40));
        font.setBold(flag(4));
        font.setItalic(flag(8));
        font.setUnderline(flag(12));
        font.setKerning(!flag(6));
        if (flag(12))
            font.setLetterSpacing(QFont::AbsoluteSpacing, 1.5);
        if (flag(12))
            font.setStretch(120);
        if (flag(12))
            font.setCapitalization(QFont::AllUppercase);
        if (flag(3))
            font.setHintingPreference(static_cast<QFont::HintingPreference>(pick(0, 3)));
        return font;
    }
    QColor color() { return QColor(pick(0, 255), pick(0, 255), pick(0, 255), flag(4) ? pick(0, 255) : 255); }

private:
    QString number()
    {
        QString digits;
        static const QString some = QStringLiteral("0123456789.- ");
        switch (pick(0, 2)) {
        case 0: return QString::number(pick(-500000, 500000) / 100.0, 'f', pick(0, 4));
        case 1: return QString::number(pick(-99, 99));
        default:
            for (int count = pick(0, 14); count > 0; --count)
                digits += some.at(pick(0, some.size() - 1));
            return digits;
        }
    }

    std::mt19937 m_random;
};

/// What `paint` draws on a noisy picture of a pane with a clip and a scale.
template <class Paint>
QImage painted(unsigned seed, Paint paint)
{
    RandomLine random(seed);
    static const double ratios[] = { 1.0, 1.0, 2.0, 1.25, 1.5, 3.0 };
    static const QImage::Format formats[] = { QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied,
                                              QImage::Format_ARGB32, QImage::Format_RGB16 };
    const double ratio = ratios[random.pick(0, 5)];
    QImage image(QSize(220, 60) * ratio, formats[random.pick(0, 3)]);
    image.setDevicePixelRatio(ratio);
    image.fill(random.color());
    QPainter painter(&image);
    if (random.flag())
        painter.fillRect(random.pick(0, 200), 0, 30, 60, random.color());
    switch (random.pick(0, 3)) {
    case 0: painter.setClipRect(random.pick(0, 50), random.pick(0, 20), 100, 20); break;
    case 1: painter.setClipRegion(QRegion(10, 0, 60, 33) + QRegion(90, 8, 80, 40)); break;
    default: break;
    }
    if (random.flag(10))
        painter.translate(random.pick(0, 9) / 3.0, random.pick(0, 9) / 4.0);
    if (random.flag(10))
        painter.rotate(random.pick(-40, 40));
    if (random.flag(10))
        painter.setOpacity(0.4);
    painter.setRenderHint(QPainter::Antialiasing, random.flag(4));
    painter.setLayoutDirection(random.flag(8)      ? Qt::RightToLeft
                                   : random.flag() ? Qt::LeftToRight
                                                   : Qt::LayoutDirectionAuto);
    paint(painter);
    painter.end();
    return image;
}

} // namespace

TEST(PaintLine, PaintsThePixelsOfDrawText)
{
    for (const unsigned seed : test::seedsFor("paint_line", 3000)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RandomLine random(seed + 77);
        const QFont font = random.font();
        const QColor color = random.color();
        const bool isCentred = random.flag();
        QStringList texts;
        for (int count = random.pick(1, 4); count > 0; --count)
            texts << random.text();
        const int x = random.pick(-30, 120), y = random.pick(-5, 40);

        const auto draw = [&](auto line) {
            return painted(seed, [&](QPainter& painter) {
                painter.setFont(font);
                painter.setPen(color);
                int left = x;
                for (const QString& text : texts) {
                    const int width = isCentred ? WB::CSimpleText::getSize(text, font).width() : 90;
                    const int middle = isCentred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter;
                    line(painter, QRect(left, y, width, 16), middle, text);
                    left += 40;
                }
            });
        };
        const auto plainLine = [](QPainter& painter, const QRect& place, int alignment, const QString& text) {
            painter.drawText(place, alignment | Qt::TextDontClip | Qt::TextSingleLine, text);
        };
        draw(plainLine); // Qt paints some large glyphs otherwise the first time, before it has kept them
        const QImage plain = draw(plainLine);
        const auto ourLine = [&](QPainter& painter, const QRect& place, int alignment, const QString& text) {
            paintLine(&painter, place, alignment, text, font);
        };
        ASSERT_EQ(draw(ourLine), plain)
            << texts.join(QLatin1Char('|')).toStdString() << " in " << font.toString().toStdString();
        ASSERT_EQ(draw(ourLine), plain) << "the second time, from known pixels";
        for (const QString& text : texts)
            ASSERT_EQ(textWidth(text, font), WB::CSimpleText::getSize(text, font).width())
                << text.toStdString();
    }
}

TEST(PaintLine, LeavesATextToTheEngineWhereGlyphsOfTwoFontsTouch)
{
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(6);
    const TC::detail::TextLine touching(QStringLiteral("e\u0301\u0301"), font);
    if (touching.runs().size() < 2)
        GTEST_SKIP() << "one font holds the letter and its accent";
    EXPECT_FALSE(touching.isPlain());
}

TEST(PaintLine, StaysInsideTheRoomThatItIsSaidToStayIn)
{
    int inside = 0;
    for (const unsigned seed : test::seedsFor("ink_stays", 1000)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RandomLine random(seed);
        const QFont font = random.font();
        const QString text = random.text();
        QImage image(400, 60, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setFont(font);
        const int width = WB::CSimpleText::getSize(text, font).width();
        const QRect place(random.pick(20, 40), random.pick(0, 20), width + random.pick(0, 1), 16);
        const QRect room = place.adjusted(random.pick(-3, 1), random.pick(-3, 1), random.pick(-1, 3), 2);
        if (!inkStaysIn(room, painter, place, Qt::AlignCenter, text, font))
            continue;
        ++inside;
        paintLine(&painter, place, Qt::AlignCenter, text, font);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(room, Qt::transparent);
        painter.end();
        QImage empty(image.size(), image.format());
        empty.fill(Qt::transparent);
        ASSERT_EQ(image, empty) << text.toStdString() << " in " << font.toString().toStdString();
    }
    EXPECT_GT(inside, 100);
}
