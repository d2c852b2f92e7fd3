// SPDX-License-Identifier: MIT
#include "host/embedded/text/JsonPlaces.h"

#include "tests/support/QtsOwnLeaks.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

using TC::embedded::JsonPlaces;
using TC::embedded::TextPlaces;

std::string placeOf(const QByteArray& json, const QStringList& path)
{
    return JsonPlaces(json).placeOf(path).toStdString();
}

QStringList path(const char* joined)
{
    return QString::fromLatin1(joined).split(QLatin1Char('/'));
}

/// "LINE:COLUMN" the plain way.
std::string countedPlace(const QByteArray& text, int offset)
{
    const QByteArray before = text.left(offset);
    const int column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    return std::to_string(before.count('\n') + 1) + ":" + std::to_string(column);
}

TEST(TextPlaces, AreThoseOfACountFromTheStart)
{
    QByteArray text;
    while (text.size() < 5 * TextPlaces::kStride)
        text += "ab\n 中文 \xF0\x9F\x98\x80 longer text without an end of its line é";
    const TextPlaces places(text);
    for (int offset = 0; offset <= text.size(); ++offset) {
        const bool begins =
            offset == text.size() || (static_cast<unsigned char>(text.at(offset)) & 0xC0) != 0x80;
        if (begins) {
            ASSERT_EQ(places.placeAt(offset).toStdString(), countedPlace(text, offset)) << offset;
        }
    }
}

TEST(TextPlaces, OutsideTheTextAreThoseOfItsEnds)
{
    EXPECT_EQ(TextPlaces("ab\nc").placeAt(-5), QStringLiteral("1:1"));
    EXPECT_EQ(TextPlaces("ab\nc").placeAt(500), QStringLiteral("2:2"));
    EXPECT_EQ(TextPlaces("").placeAt(0), QStringLiteral("1:1"));
    EXPECT_EQ(TextPlaces("\xEF\xBB\xBF").placeAt(0), QStringLiteral("1:1"));
    EXPECT_EQ(TextPlaces("\xEF\xBB\xBFx{").placeAt(4), QStringLiteral("1:2"));
}

TEST(JsonPlaces, FollowsKeysAndPositions)
{
    const QByteArray json = "{\"a\": [1, {\"b/c\": 2,\n \"0\": [[], 3]}], \"a b\": \"}\"}";
    EXPECT_EQ(placeOf(json, {}), "1:1");
    EXPECT_EQ(placeOf(json, path("a")), "1:7");
    EXPECT_EQ(placeOf(json, path("a/0")), "1:8");
    EXPECT_EQ(placeOf(json, { QStringLiteral("a"), QStringLiteral("1"), QStringLiteral("b/c") }), "1:19");
    EXPECT_EQ(placeOf(json, path("a/1/0/1")), "2:12");
    EXPECT_EQ(placeOf(json, path("a b")), "2:25");
    EXPECT_EQ(JsonPlaces(json).keyPlaceOf(path("a b")), QStringLiteral("2:18"));
    EXPECT_EQ(JsonPlaces(json).keyPlaceOf(path("a/1")), QStringLiteral("1:11"));
}

TEST(JsonPlaces, APathThatLeadsNowhereGivesTheNearestValueAround)
{
    EXPECT_EQ(placeOf("{\"a\": [1]}", path("a/7/b")), "1:7");
    EXPECT_EQ(placeOf("{\"a\": [1]}", path("b")), "1:1");
    EXPECT_EQ(placeOf("{\"a\": [1]}", path("a/-1")), "1:7");
}

TEST(JsonPlaces, OfARepeatedKeyTheLastCounts)
{
    const test::QtsOwnLeaks uncounted;
    const QByteArray json = R"({"a": {"x": 1}, "a": {"y": 2}})";
    ASSERT_EQ(QJsonDocument::fromJson(json).object().value(QStringLiteral("a")).toObject().size(), 1);
    EXPECT_EQ(placeOf(json, path("a/y")), "1:28");
    EXPECT_EQ(placeOf(json, path("a/x")), "1:22");
}

TEST(JsonPlaces, ThousandsOfPlacesCostNoMoreThanAStrideEach)
{
    constexpr int values = 20'000;
    QByteArray json = "["; // on one line: its columns are counted as well
    for (int value = 0; value < values; ++value)
        json += "\"some text of fifty characters to be walked over\",";
    json += "0]";
    const JsonPlaces places(json);
    EXPECT_EQ(places.walkedBytes(), json.size()) << "making them walks the text once";
    for (int value = 0; value < values; ++value)
        places.placeOf({ QString::number(value) });
    EXPECT_LE(places.walkedBytes(), json.size() + qint64 { values } * 2 * TextPlaces::kStride);
    EXPECT_EQ(places.placeOf({ QString::number(values) }).toStdString(),
              "1:" + std::to_string(json.size() - 1));
}

} // namespace
