// SPDX-License-Identifier: MIT
#include "title/internal/TextShapes.h"

#include "host/WB/CSimpleText.h"
#include "tests/support/TestFont.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>

#include <gtest/gtest.h>

#include <climits>
#include <functional>

using TC::detail::forgetTexts;
using TC::detail::inkStaysIn;
using TC::detail::isWithin;
using TC::detail::paintLine;
using TC::detail::textWidth;

namespace {

using Setting = std::function<void(QPainter&)>;

const QColor kBackground(20, 23, 28);

QImage painted(const Setting& setting, const QFont& font, const Setting& paint)
{
    QImage image(260, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(kBackground);
    QPainter painter(&image);
    painter.setPen(Qt::yellow);
    setting(painter);
    painter.setFont(font);
    paint(painter);
    painter.end();
    return image;
}

/// Paints a text twice, so that the second time all is known of it. @return whether it stands as Qt puts it.
bool isAsQtPaints(const Setting& setting, const QFont& font, const QRect& place, int alignment,
                  const QString& text)
{
    const QImage expected = painted(setting, font, [&](QPainter& painter) {
        painter.drawText(place, alignment | Qt::TextDontClip | Qt::TextSingleLine, text);
    });
    bool isEqual = true;
    for (int time = 0; time < 2; ++time)
        isEqual &= expected == painted(setting, font, [&](QPainter& painter) {
                       paintLine(&painter, place, alignment, text, font);
                   });
    return isEqual;
}

const Setting kPlain = [](QPainter&) {};
const QRect kPlace(10, 8, 200, 30);

std::vector<QFont> fonts()
{
    std::vector<QFont> all { test::font(12), test::font(16), test::font(60) };
    all.insert(all.end(), 6, test::font(13));
    all[3].setUnderline(true);
    all[4].setOverline(true);
    all[5].setStrikeOut(true);
    all[6].setCapitalization(QFont::AllUppercase);
    all[7].setLetterSpacing(QFont::AbsoluteSpacing, 1.5);
    all[8].setWordSpacing(3.0);
    all.push_back(test::font(12));
    all.back().setPointSizeF(9.5);
    return all;
}

} // namespace

TEST(TextWidth, IsTheMeasuredOneInEveryFontHoweverManyTextsWereAskedFor)
{
    forgetTexts();
    for (int round = 0; round < 2; ++round) {
        for (int size = 8; size < 16; ++size) { // more fonts than are kept
            const QFont font = test::font(size);
            for (int number = 0; number < 2500; number += round == 0 ? 1 : 7) { // more texts than are kept
                const QString text = QStringLiteral("MA%1: %2").arg(number).arg(number * 37);
                ASSERT_EQ(textWidth(text, font), WB::CSimpleText::getSize(text, font).width())
                    << text.toStdString() << " at " << size;
            }
        }
    }
    EXPECT_EQ(textWidth(QString(), test::font(12)), 0);
}

TEST(PaintLine, PutsEveryTextWhereQtPutsItInEveryFont)
{
    const QStringList texts { QStringLiteral("MA5: 12.34"),
                              QStringLiteral("收盘 1,234.50"),
                              QStringLiteral("成交量(5,10) -1.2 -.5 00"),
                              QStringLiteral("a\tb"),
                              QStringLiteral("line\nline"),
                              QStringLiteral(" "),
                              QString(),
                              QStringLiteral("7"),
                              QStringLiteral("e\u0301 12.00"),
                              QStringLiteral("\u05E9\u05DC\u05D5\u05DD 12.00"),
                              QStringLiteral("\u0391\u03B2 12.00"),
                              QString(600, QLatin1Char('1')) };
    forgetTexts();
    for (const QFont& font : fonts()) {
        for (const QString& text : texts) {
            for (const int alignment :
                 { Qt::AlignLeft | Qt::AlignVCenter, Qt::AlignHCenter | Qt::AlignVCenter,
                   Qt::AlignLeft | Qt::AlignTop, Qt::AlignRight | Qt::AlignVCenter })
                EXPECT_TRUE(isAsQtPaints(kPlain, font, kPlace, alignment, text))
                    << text.left(20).toStdString() << " in " << font.toString().toStdString() << " "
                    << alignment;
        }
    }
}

TEST(PaintLine, PutsNumbersWhereQtPutsThemInFontsThatSetThemByWhatStandsAround)
{
    const char* const ways[] = {
        "Joined",
        "Turned",
        "Raised",
        "Spread",
        "LetterJoins",
        "LetterTurnsFirst",
        "LetterTurnsSecond",
        "LetterRaisesSecond",
        "LetterSpreadsSecond",
        "WithoutHyphen",
        "Reaching",
    };
    const char* const texts[] = {
        "A12 -9001",  "2.50 -1.00",  "M01.001", "M0.001",        "M00 12.00100",
        "M2.5 -1--2", "M: 1001.001", "--1",     "\u6536 12.001",
    };
    forgetTexts();
    for (const char* way : ways) {
        const QFont font = test::unusualFont(QLatin1String(way), 16);
        for (const char* text : texts)
            EXPECT_TRUE(
                isAsQtPaints(kPlain, font, kPlace, Qt::AlignLeft | Qt::AlignVCenter, QString::fromUtf8(text)))
                << text << " in " << way;
    }
}

TEST(PaintLine, PutsTextsWhereQtPutsThemInEverySettingOfThePainter)
{
    QLinearGradient gradient(0, 0, 200, 0);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, Qt::blue);
    const std::pair<const char*, Setting> settings[] = {
        { "scaled", [](QPainter& painter) { painter.scale(2, 2); } },
        { "stretched", [](QPainter& painter) { painter.scale(2, 1); } },
        { "shrunk", [](QPainter& painter) { painter.scale(0.5, 0.5); } },
        { "scaled by a fraction", [](QPainter& painter) { painter.scale(1.5, 1.5); } },
        { "moved", [](QPainter& painter) { painter.translate(-7, 3); } },
        { "moved by a fraction", [](QPainter& painter) { painter.translate(0.5, 0.0); } },
        { "moved down by a fraction", [](QPainter& painter) { painter.translate(0.0, 0.25); } },
        { "turned", [](QPainter& painter) { painter.rotate(10); } },
        { "right to left", [](QPainter& painter) { painter.setLayoutDirection(Qt::RightToLeft); } },
        { "without a pen", [](QPainter& painter) { painter.setPen(Qt::NoPen); } },
        { "with a gradient", [&](QPainter& painter) { painter.setPen(QPen(QBrush(gradient), 1)); } },
        { "half transparent", [](QPainter& painter) { painter.setOpacity(0.5); } },
        { "in a transparent colour", [](QPainter& painter) { painter.setPen(QColor(255, 0, 0, 80)); } },
        { "without smooth texts",
          [](QPainter& painter) { painter.setRenderHint(QPainter::TextAntialiasing, false); } },
        { "with smooth lines", [](QPainter& painter) { painter.setRenderHint(QPainter::Antialiasing); } },
        { "clipped", [](QPainter& painter) { painter.setClipRect(30, 10, 40, 12); } },
        { "over another colour", [](QPainter& painter) { painter.fillRect(40, 0, 50, 60, Qt::darkGreen); } },
        { "added", [](QPainter& painter) { painter.setCompositionMode(QPainter::CompositionMode_Plus); } },
    };
    forgetTexts();
    for (const auto& [name, setting] : settings) {
        for (const QRect& place :
             { kPlace, QRect(11, 9, 201, 31), QRect(-30, -5, 90, 20), QRect(0, 0, 0, 0),
               QRect(250, 50, 40, 20), QRect(200'000, 8, 50, 20), QRect(10, -200'000, 50, 20),
               QRect(10, 8, 200'000, 20), QRect(10, 8, 50, 200'000) }) {
            for (const int alignment :
                 { Qt::AlignLeft | Qt::AlignVCenter, Qt::AlignHCenter | Qt::AlignVCenter })
                EXPECT_TRUE(
                    isAsQtPaints(setting, test::font(12), place, alignment, QStringLiteral("收盘: 1,234.50")))
                    << name << " at " << place.x() << "," << place.y() << " " << alignment;
        }
    }
}

TEST(PaintLine, PutsMoreGlyphsAndColoursWhereQtPutsThemThanAreKept)
{
    forgetTexts();
    for (int letter = 0; letter < 700; ++letter)
        ASSERT_TRUE(isAsQtPaints(kPlain, test::font(12), kPlace, Qt::AlignLeft | Qt::AlignVCenter,
                                 QString(QChar(0x4E00 + letter)) + QStringLiteral("12")))
            << letter;
    for (int shade = 0; shade < 60; ++shade)
        ASSERT_TRUE(isAsQtPaints([&](QPainter& painter) { painter.setPen(QColor(200, 4 * shade, 90)); },
                                 test::font(12), kPlace, Qt::AlignLeft | Qt::AlignVCenter,
                                 QStringLiteral("12.5")))
            << shade;
}

TEST(InkStaysIn, IsNotCertainOfTextsAndPlacesThatQtAloneKnows)
{
    QImage image(10, 10, QImage::Format_RGB32);
    QPainter painter(&image);
    const QRect everywhere(-1'000'000, -1'000'000, 2'000'000, 2'000'000);
    EXPECT_TRUE(inkStaysIn(everywhere, painter, kPlace, Qt::AlignLeft, QStringLiteral("1"), test::font(12)));
    for (const int far : { 200'000, INT_MIN })
        EXPECT_FALSE(inkStaysIn(everywhere, painter, QRect(far, 0, 5, 5), Qt::AlignLeft, QStringLiteral("1"),
                                test::font(12)))
            << far;
    EXPECT_FALSE(
        inkStaysIn(everywhere, painter, kPlace, Qt::AlignLeft, QStringLiteral("a\tb"), test::font(12)));
}

TEST(IsWithin, AsksWhetherAPlainTextIsNoWiderThanItsRoom)
{
    const QString text = QStringLiteral("MA5: 12.00");
    const int width = textWidth(text, test::font(12));
    EXPECT_TRUE(isWithin(width + 1, text, test::font(12)));
    EXPECT_FALSE(isWithin(width - 1, text, test::font(12)));
    EXPECT_FALSE(isWithin(10'000, QStringLiteral("a\tb"), test::font(12)))
        << "Qt alone knows what that shows";
}
