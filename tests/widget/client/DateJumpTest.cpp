// SPDX-License-Identifier: MIT
/// @file The jump to a typed date.

#include "apps/client/chart/DateJump.h"
#include "tests/widget/client/ClientWindow.h"

#include <QDateTime>
#include <QLabel>
#include <QLineEdit>

using test::ClientWindow;

namespace {

std::int64_t at(int year, int month, int day, int hour = 0, int minute = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute)).toMSecsSinceEpoch();
}

std::int64_t fromOf(const char* text)
{
    const auto date = client::readDate(QString::fromLatin1(text));
    return date ? date->fromMs : -1;
}

} // namespace

TEST(ReadDate, TakesTheFormsThatPeopleType)
{
    for (const char* text : { "2024-01-15", "20240115", "2024/1/15", "2024.01.15", " 2024-1-15 " })
        EXPECT_EQ(fromOf(text), at(2024, 1, 15)) << text;
    EXPECT_EQ(fromOf("2024-03"), at(2024, 3, 1));
    EXPECT_EQ(fromOf("202403"), at(2024, 3, 1));
    EXPECT_EQ(fromOf("2024"), at(2024, 1, 1));
    EXPECT_EQ(fromOf("2024-01-15 10:30"), at(2024, 1, 15, 10, 30));
    EXPECT_EQ(client::readDate(QStringLiteral("2024-02"))->untilMs, at(2024, 3, 1));
}

TEST(ReadDate, RefusesWhatIsNoDate)
{
    for (const char* text :
         { "", "abc", "2024-13-01", "2024-02-30", "20", "2024-01-15 25:00", "2024-01 10:30" })
        EXPECT_FALSE(client::readDate(QString::fromLatin1(text))) << text;
}

TEST(BarAtDate, TakesTheNearestBar)
{
    const std::vector<std::int64_t> times { at(2024, 1, 5), at(2024, 1, 8), at(2024, 1, 9, 9, 31),
                                            at(2024, 1, 9, 15, 0), at(2024, 1, 12) };
    const auto barOf = [&](const char* text) {
        return client::barAtDate(times, *client::readDate(QString::fromLatin1(text))).value_or(-1);
    };
    EXPECT_EQ(barOf("2024-01-05"), 0);
    EXPECT_EQ(barOf("2024-01-06"), 0);
    EXPECT_EQ(barOf("2024-01-07"), 1);
    EXPECT_EQ(barOf("2024-01-09"), 2) << "the first bar of the day";
    EXPECT_EQ(barOf("2024-01-12"), 4);
    EXPECT_EQ(barOf("2024-01"), 0);
    EXPECT_EQ(barOf("2024-01-04"), -1);
    EXPECT_EQ(barOf("2024-01-13"), -1);
}

TEST_F(ClientWindow, JumpsToATypedDateAndSaysWhereThereIsNone)
{
    openShare();
    client::ChartState* state = chart()->state();
    entry(QStringLiteral("跳转到日期…"))->trigger();
    auto* dialog = chart()->findChild<client::DateJump*>();
    ASSERT_NE(dialog, nullptr);
    auto* field = dialog->findChild<QLineEdit*>();
    const auto fault = [&] { return dialog->findChild<QLabel*>()->text(); };

    field->setText(QStringLiteral("1995-01-01"));
    dialog->accept();
    EXPECT_TRUE(fault().contains(QStringLiteral("2003-01-06"))) << fault().toStdString();
    EXPECT_TRUE(dialog->isVisible());
    field->setText(QStringLiteral("yesterday"));
    dialog->accept();
    EXPECT_TRUE(fault().contains(QStringLiteral("不是日期")));
    EXPECT_EQ(state->last(), state->barTotal() - 1) << "the chart stays";

    field->setText(QStringLiteral("2011-04-30")); // a Saturday before a holiday
    dialog->accept();
    EXPECT_FALSE(dialog->isVisible());
    const int bar = state->crosshairBar();
    EXPECT_EQ(state->bars()->timeMs[static_cast<std::size_t>(bar)], at(2011, 4, 28));
    EXPECT_NEAR(bar - state->first(), (state->last() - state->first()) / 2.0, 4.5);
}
