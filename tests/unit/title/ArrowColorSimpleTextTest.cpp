// SPDX-License-Identifier: MIT
#include "title/CArrowColorSimpleText.h"

#include "tests/support/Legend.h"
#include "tests/support/Trace.h"

#include <gtest/gtest.h>

using TC::CArrowColorSimpleText;

namespace {

QStringList textsOf(const CArrowColorSimpleText& text)
{
    QStringList texts;
    for (const TC::ArrowColorTextData& piece : text.getTextColor())
        texts << piece.text;
    return texts;
}

} // namespace

TEST(ArrowColorText, APieceStartsEmptyWithoutColourAndArrow)
{
    const TC::ArrowColorTextData piece;
    EXPECT_TRUE(piece.text.isEmpty());
    EXPECT_FALSE(piece.color.isValid());
    EXPECT_EQ(piece.arrowType, 0);
}

TEST(ArrowColorText, AppendsPiecesInOrder)
{
    CArrowColorSimpleText text;
    text.setTextColor(QStringLiteral("b"), Qt::red, 1);
    text.setTextColor(QStringLiteral("a"), Qt::green, 2);
    const QVector<TC::ArrowColorTextData> pieces = text.getTextColor();
    ASSERT_EQ(pieces.size(), 2);
    EXPECT_EQ(pieces[0].text, QStringLiteral("b"));
    EXPECT_EQ(pieces[0].color, QColor(Qt::red));
    EXPECT_EQ(pieces[0].arrowType, 1);
    EXPECT_EQ(pieces[1].text, QStringLiteral("a"));
    EXPECT_EQ(pieces[1].arrowType, 2);
}

TEST(ArrowColorText, IgnoresAnEmptyText)
{
    CArrowColorSimpleText text;
    text.setTextColor(QString(), Qt::red, 1);
    text.setTextColor(QStringLiteral("a"), Qt::red, 0);
    text.setTextColor(QStringLiteral(""), Qt::red, 0);
    text.setTextColor(QStringLiteral("b"), Qt::red, 0);
    EXPECT_EQ(textsOf(text), QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
}

TEST(ArrowColorText, AppendsAnotherTextsPieces)
{
    CArrowColorSimpleText text, other;
    text.setTextColor(QStringLiteral("a"), Qt::red, 0);
    other.setTextColor(QStringLiteral("b"), Qt::red, 0);
    other.setTextColor(QStringLiteral("c"), Qt::red, 0);
    text.setTextColor(other);
    EXPECT_EQ(textsOf(text), QStringList({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") }));
}

TEST(ArrowColorText, AppendsItselfOnce)
{
    CArrowColorSimpleText text;
    text.setTextColor(QStringLiteral("a"), Qt::red, 0);
    text.setTextColor(QStringLiteral("b"), Qt::red, 0);
    text.setTextColor(text);
    EXPECT_EQ(textsOf(text).join(QString()), QStringLiteral("abab"));
}

TEST(ArrowColorText, IsZeroWideWithoutPieces)
{
    EXPECT_EQ(CArrowColorSimpleText().getWidth(), 0);
}

TEST(ArrowColorText, CountsArrowAndGapForEveryPieceOfItsWidth)
{
    test::setArrows(QSize(9, 11), QSize(30, 11));
    CArrowColorSimpleText text;
    text.setTextColor(QStringLiteral("abc"), Qt::red, 0);
    text.setTextColor(QStringLiteral("de"), Qt::red, 1);
    text.setTextColor(QStringLiteral("f"), Qt::red, 2);
    const int texts = test::widthOf(QStringLiteral("abc")) + test::widthOf(QStringLiteral("de"))
        + test::widthOf(QStringLiteral("f"));
    EXPECT_EQ(text.getWidth(), texts + 3 * 9 + 3 * 3); // the arrow up's width, the last gap included
}

TEST(ArrowColorText, CountsALogicalPixelOfADensePictureOnce)
{
    QPixmap dense(27, 33);
    dense.setDevicePixelRatio(3.0); // 9 x 11 on the widget
    TC::embedded::setPixmap(QStringLiteral("ic_img_arrow_up"), dense);
    CArrowColorSimpleText text;
    text.setTextColor(QStringLiteral("a"), Qt::red, 0);
    EXPECT_EQ(text.getWidth(), test::widthOf(QStringLiteral("a")) + 9 + 3);
}

TEST(ArrowColorText, ReadsTheArrowWidthAtConstruction)
{
    test::setArrows(QSize(9, 11), QSize(9, 11));
    CArrowColorSimpleText text;
    text.setTextColor(QStringLiteral("a"), Qt::red, 0);
    test::setArrows(QSize(20, 11), QSize(9, 11));
    EXPECT_EQ(text.getWidth(), test::widthOf(QStringLiteral("a")) + 9 + 3);
}

TEST(ArrowColorText, TakesDefaultColourAndFontFromTheSkin)
{
    TC::embedded::setColor(QStringLiteral("clr_default"), QColor(1, 2, 3));
    TC::embedded::setFont(QStringLiteral("fnt_default"), test::font(17));
    const CArrowColorSimpleText text;
    ASSERT_TRUE(text.color() && text.font());
    EXPECT_EQ(*text.color(), QColor(1, 2, 3));
    EXPECT_EQ(text.font()->pixelSize(), 17);
}

TEST(ArrowColorText, WithAFontKeyHasNoDefaultColour)
{
    TC::embedded::setFont(QStringLiteral("fnt_other"), test::font(19));
    const CArrowColorSimpleText text(QStringLiteral("fnt_other"));
    EXPECT_EQ(text.color(), nullptr);
    ASSERT_TRUE(text.font());
    EXPECT_EQ(text.font()->pixelSize(), 19);
}

TEST(ArrowColorText, CopiesOwnTheirPieces)
{
    CArrowColorSimpleText text;
    text.setTextColor(QStringLiteral("a"), Qt::red, 0);
    CArrowColorSimpleText copy(text);
    copy.setTextColor(QStringLiteral("b"), Qt::red, 0);
    EXPECT_EQ(textsOf(text), QStringList(QStringLiteral("a")));
    text = copy;
    EXPECT_EQ(textsOf(text).size(), 2);
}

TEST(ArrowColorText, SurvivesASkinWithoutAnything)
{
    TC::embedded::clearSkin();
    CArrowColorSimpleText text;
    text.setTextColor(QStringLiteral("a"), Qt::red, 1);
    EXPECT_EQ(text.getWidth(), WB::CSimpleText::getSize(QStringLiteral("a"), QFont()).width() + 3);
}

TEST(SimpleText, MeasuresWithTheDefaultFontWhereAKeyNamesNone)
{
    QFont large = test::font(40);
    EXPECT_EQ(WB::CSimpleText::getSize(QStringLiteral("abc"), QStringLiteral("clr_stock_index")),
              WB::CSimpleText::getSize(QStringLiteral("abc"), QFont()));
    TC::embedded::setFont(QStringLiteral("fnt_large"), large);
    EXPECT_EQ(WB::CSimpleText::getSize(QStringLiteral("abc"), QStringLiteral("fnt_large")),
              WB::CSimpleText::getSize(QStringLiteral("abc"), large));
}
