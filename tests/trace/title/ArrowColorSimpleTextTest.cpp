// SPDX-License-Identifier: MIT
#include "title/CArrowColorSimpleText.h"

#include "tests/support/Legend.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <climits>

using TC::CArrowColorSimpleText;

namespace {

constexpr int kTopLeft = Qt::AlignLeft | Qt::AlignTop;

/// Pieces that start at y 0 have their baseline at the font's ascent, which Qt 6 leaves unrounded.
qreal ascent()
{
    return QFontMetricsF(test::font(12)).ascent();
}

QString textLine(int x, int y, const char* text, const char* rest)
{
    return QStringLiteral("text %1,%2 \"%3\" %4")
        .arg(x)
        .arg(y + ascent(), 0, 'g', 12)
        .arg(QString::fromUtf8(text), QString::fromUtf8(rest));
}

QStringList drawn(const CArrowColorSimpleText& text, int x, int y, int width, bool underline = false,
                  bool bold = false)
{
    return test::traceOf(
        [&](QPainter& painter) { text.drawText(&painter, x, y, width, 16, kTopLeft, underline, bold); });
}

int w(const char* text)
{
    return test::widthOf(QString::fromUtf8(text));
}

CArrowColorSimpleText pieces(std::initializer_list<const char*> texts, int arrow = 0)
{
    CArrowColorSimpleText text;
    for (const char* one : texts)
        text.setTextColor(QString::fromUtf8(one), Qt::red, arrow);
    return text;
}

class ArrowColorTextPainting : public testing::Test
{
protected:
    void SetUp() override { test::setArrows(QSize(9, 10), QSize(7, 20)); }
};

} // namespace

TEST_F(ArrowColorTextPainting, PaintsNothingWithoutPieces)
{
    EXPECT_EQ(drawn(CArrowColorSimpleText(), 0, 0, 500), QStringList());
}

TEST_F(ArrowColorTextPainting, PaintsNothingWithoutAFont)
{
    CArrowColorSimpleText text(QStringLiteral("fnt_missing"));
    text.setTextColor(QStringLiteral("a"), Qt::red, 1);
    EXPECT_EQ(drawn(text, 0, 0, 500), QStringList());
}

TEST_F(ArrowColorTextPainting, AdvancesByArrowGapAndTextForEveryPiece)
{
    CArrowColorSimpleText text;
    text.setTextColor(QStringLiteral("ab"), QColor(255, 0, 0), 0);
    text.setTextColor(QStringLiteral("c"), QColor(0, 0, 255), 0);
    EXPECT_EQ(drawn(text, 5, 20, 500),
              QStringList({ textLine(5, 20, "ab", "#ff0000 12px"),
                            textLine(5 + w("ab") + 9 + 3, 20, "c", "#0000ff 12px") }));
}

TEST_F(ArrowColorTextPainting, PutsTheArrowBehindTheTextCentredInTheRow)
{
    CArrowColorSimpleText text;
    text.setTextColor(QStringLiteral("ab"), QColor(255, 0, 0), 1);
    text.setTextColor(QStringLiteral("c"), QColor(255, 0, 0), 2);
    const int second = 5 + w("ab") + 9 + 3;
    // up: (16 - 10) / 2 = 3; down is higher than the row: (16 - 20) / 2 = -2
    EXPECT_EQ(drawn(text, 5, 20, 500),
              QStringList({ textLine(5, 20, "ab", "#ff0000 12px"),
                            QStringLiteral("pixmap %1,23 9x10").arg(5 + w("ab")),
                            textLine(second, 20, "c", "#ff0000 12px"),
                            QStringLiteral("pixmap %1,18 7x20").arg(second + w("c")) }));
}

TEST_F(ArrowColorTextPainting, RoundsTheArrowsRowTowardZero)
{
    test::setArrows(QSize(9, 19), QSize(7, 20)); // (16 - 19) / 2 = -1
    const QStringList lines = drawn(pieces({ "a" }, 1), 0, 50, 500);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[1], QStringLiteral("pixmap %1,49 9x19").arg(w("a")));
}

TEST_F(ArrowColorTextPainting, UnknownArrowTypesHaveNoPicture)
{
    CArrowColorSimpleText text;
    text.setTextColor(QStringLiteral("a"), Qt::red, 3);
    text.setTextColor(QStringLiteral("b"), Qt::red, -1);
    EXPECT_EQ(drawn(text, 0, 0, 500).size(), 2);
}

TEST_F(ArrowColorTextPainting, AMissingPictureLeavesTextAndAdvance)
{
    CArrowColorSimpleText text;
    TC::embedded::removeSkinKey(QStringLiteral("ic_img_arrow_down"));
    text = CArrowColorSimpleText();
    text.setTextColor(QStringLiteral("a"), Qt::red, 2);
    text.setTextColor(QStringLiteral("b"), Qt::red, 2);
    EXPECT_EQ(drawn(text, 0, 0, 500),
              QStringList(
                  { textLine(0, 0, "a", "#ff0000 12px"), textLine(w("a") + 9 + 3, 0, "b", "#ff0000 12px") }));
}

TEST_F(ArrowColorTextPainting, StopsAtTheFirstPieceThatDoesNotFit)
{
    const CArrowColorSimpleText text = pieces({ "a", "wwwwwwwwwwwwww", "b" });
    EXPECT_EQ(drawn(text, 10, 0, w("a") + 9 + 3 + 40), QStringList(textLine(10, 0, "a", "#ff0000 12px")));
}

TEST_F(ArrowColorTextPainting, TheFirstPieceIsTestedAsWell)
{
    EXPECT_EQ(drawn(pieces({ "ab" }), 10, 0, w("ab") + 2), QStringList());
}

TEST_F(ArrowColorTextPainting, APieceFitsUpToTheEdgeIncludingTheGapButNotTheArrow)
{
    // 3 + width must not exceed the room; the arrow's 9 pixels are not asked for.
    EXPECT_EQ(drawn(pieces({ "ab" }, 1), 10, 0, w("ab") + 3).size(), 2);
    EXPECT_EQ(drawn(pieces({ "ab" }, 1), 10, 0, w("ab") + 2).size(), 0);
}

TEST_F(ArrowColorTextPainting, WrapsToTheNextRowOnePixelFurtherRight)
{
    CArrowColorSimpleText text = pieces({ "ab", "cd", "e" });
    text.setGraphType(false);
    const int room = w("ab") + 9 + 3 + 3; // "cd" does not fit behind "ab"
    EXPECT_EQ(drawn(text, 10, 5, room),
              QStringList({ textLine(10, 5, "ab", "#ff0000 12px"), textLine(11, 21, "cd", "#ff0000 12px"),
                            textLine(11, 37, "e", "#ff0000 12px") }));
}

TEST_F(ArrowColorTextPainting, AWrappedPieceWiderThanTheRowIsPaintedAllTheSame)
{
    CArrowColorSimpleText text = pieces({ "wwwwww", "b" });
    text.setGraphType(false);
    EXPECT_EQ(
        drawn(text, 10, 0, 20),
        QStringList({ textLine(11, 16, "wwwwww", "#ff0000 12px"), textLine(11, 32, "b", "#ff0000 12px") }));
}

TEST_F(ArrowColorTextPainting, UnderlineAndBoldChangeTheInkNotThePlaces)
{
    const QStringList texts = drawn(pieces({ "ab", "c" }), 0, 0, 500, true, true)
                                  .filter(QRegularExpression(QStringLiteral("^text")));
    ASSERT_EQ(texts.size(), 2); // the underlines are primitives of their own
    EXPECT_TRUE(texts[0].endsWith(QStringLiteral("12px bold underline")));
    EXPECT_TRUE(texts[1].startsWith(QStringLiteral("text %1,").arg(w("ab") + 9 + 3)));
}

TEST_F(ArrowColorTextPainting, AlignsEachTextInsideTheRow)
{
    const QStringList lines = test::traceOf([&](QPainter& painter) {
        pieces({ "ab" }).drawText(&painter, 10, 0, 500, 40, Qt::AlignLeft | Qt::AlignBottom, false, false);
    });
    const qreal descent = QFontMetricsF(test::font(12)).height() - ascent();
    EXPECT_EQ(lines,
              QStringList(QStringLiteral("text 10,%1 \"ab\" #ff0000 12px").arg(40 - descent, 0, 'g', 12)));
}

TEST_F(ArrowColorTextPainting, WildWidthsHoldNothingOrEverything)
{
    CArrowColorSimpleText text = pieces({ "a", "b", "c" }, 1);
    for (const int narrow : { INT_MIN, -1, 0 })
        EXPECT_EQ(drawn(text, 0, 0, narrow), QStringList()) << narrow;
    EXPECT_EQ(drawn(text, 0, 0, INT_MAX).size(), 6); // a text and an arrow each
    text.setGraphType(false);                        // wraps instead of stopping
    for (const int width : { INT_MIN, -1, 0, INT_MAX })
        EXPECT_EQ(drawn(text, 0, 0, width).size(), 6) << width;
}

TEST_F(ArrowColorTextPainting, WildPlacesHoldNoMoreThanEveryPiece)
{
    CArrowColorSimpleText text = pieces({ "a", "b", "c" }, 1);
    for (const bool stop : { true, false }) {
        text.setGraphType(stop);
        for (const int wild : { INT_MIN, -1, 0, INT_MAX })
            EXPECT_LE(drawn(text, wild, wild, wild).size(), 6) << wild;
    }
}

TEST_F(ArrowColorTextPainting, RightToLeftTextStaysInItsPlace)
{
    const CArrowColorSimpleText text = pieces({ "a", "\u05d0\u05d1", "b" });
    const QStringList lines = drawn(text, 0, 0, 5000);
    const int third = w("a") + w("\u05d0\u05d1") + 2 * (9 + 3);
    EXPECT_EQ(lines.last(), textLine(third, 0, "b", "#ff0000 12px"));
}
