// SPDX-License-Identifier: MIT
#include "title/internal/TextShapes.h"

#include "host/WB/CSimpleText.h"
#include "tests/support/TestFont.h"

#include <gtest/gtest.h>

using TC::detail::forgetTexts;
using TC::detail::textWidth;

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
