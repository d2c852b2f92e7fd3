// SPDX-License-Identifier: MIT
#include "apps/client/recovery/LineDiff.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using client::DiffLine;

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// "=a -b +c ~": same, removed, added, gap.
QString shown(const std::vector<DiffLine>& lines)
{
    QStringList parts;
    for (const DiffLine& line : lines)
        parts << QStringLiteral("=-+~").at(line.kind) + line.text;
    return parts.join(QLatin1Char(' '));
}

QString diff(const char* before, const char* after)
{
    return shown(client::lineDiff(words(before), words(after)));
}

TEST(LineDiff, EqualTextsDifferInNothing)
{
    EXPECT_EQ(diff("a b c", "a b c"), QStringLiteral("=a =b =c"));
    EXPECT_EQ(diff("", ""), QString());
}

TEST(LineDiff, ShowsChangesBetweenEqualHeadAndTail)
{
    EXPECT_EQ(diff("a b c", "a x c"), QStringLiteral("=a -b +x =c"));
}

TEST(LineDiff, ShowsInsertionsAndRemovalsAtBothEnds)
{
    EXPECT_EQ(diff("a b", "x a b"), QStringLiteral("+x =a =b"));
    EXPECT_EQ(diff("a b", "a"), QStringLiteral("=a -b"));
    EXPECT_EQ(diff("", "a"), QStringLiteral("+a"));
    EXPECT_EQ(diff("a", ""), QStringLiteral("-a"));
}

TEST(LineDiff, RepeatedLinesAreNotSharedByHeadAndTail)
{
    EXPECT_EQ(diff("a a", "a a a"), QStringLiteral("=a =a +a"));
    EXPECT_EQ(diff("a a a", "a a"), QStringLiteral("=a =a -a"));
}

TEST(LineDiff, FindsTheCommonLinesInTheMiddle)
{
    EXPECT_EQ(diff("1 b 2 d", "3 b 4 d 5"), QStringLiteral("-1 +3 =b -2 +4 =d +5"));
}

TEST(LineDiff, VeryLongDifferencesAreRemovedAndAddedAsAWhole)
{
    QStringList before, after;
    for (int line = 0; line < 3000; ++line) {
        before << QStringLiteral("b%1").arg(line);
        after << QStringLiteral("a%1").arg(line);
    }
    const auto lines = client::lineDiff(before, after);
    ASSERT_EQ(lines.size(), 6000u);
    EXPECT_EQ(lines.front(), (DiffLine { DiffLine::Removed, QStringLiteral("b0") }));
    EXPECT_EQ(lines.back(), (DiffLine { DiffLine::Added, QStringLiteral("a2999") }));
}

TEST(LineDiff, LeadsFromOneTextToTheOther)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        QStringList texts[2];
        for (QStringList& text : texts) {
            for (auto length = random() % 12; length > 0; --length)
                text << QString(QLatin1Char(static_cast<char>('a' + random() % 4)));
        }
        QStringList before, after;
        for (const DiffLine& line : client::lineDiff(texts[0], texts[1])) {
            if (line.kind != DiffLine::Added)
                before << line.text;
            if (line.kind != DiffLine::Removed)
                after << line.text;
        }
        EXPECT_EQ(before, texts[0]);
        EXPECT_EQ(after, texts[1]);
    }
}

TEST(AroundChanges, KeepsTheContextAndMarksWhatIsLeftOut)
{
    const auto lines = client::lineDiff(words("1 2 3 4 5 6 7 8 9"), words("1 2 3 4 x 6 7 8 9"));
    EXPECT_EQ(shown(client::aroundChanges(lines, 1)), QStringLiteral("~ =4 -5 +x =6 ~"));
    EXPECT_EQ(shown(client::aroundChanges(lines, 4)), shown(lines));
    EXPECT_EQ(shown(client::aroundChanges(lines, 0)), QStringLiteral("~ -5 +x ~"));
}

TEST(AroundChanges, IsEmptyWithoutAChange)
{
    EXPECT_TRUE(client::aroundChanges(client::lineDiff(words("a b"), words("a b")), 3).empty());
}

} // namespace
