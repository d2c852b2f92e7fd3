// SPDX-License-Identifier: MIT
#include "tests/faults/HostileFiles.h"

#include <QList>
#include <QString>

#include <random>

namespace test {

namespace {

using Random = std::mt19937;

/// A number below a limit, for places and counts.
int below(Random& random, int limit)
{
    return limit > 0 ? static_cast<int>(random() % static_cast<unsigned>(limit)) : 0;
}

template <typename Thing, std::size_t count>
const Thing& oneOf(Random& random, const Thing (&things)[count])
{
    return things[random() % count];
}

QByteArray changedBytes(QByteArray text, Random& random)
{
    static const char bytes[] = "0123456789,,,..--+eE:/T \t\r\n\"\\{}[]()<>#;nax\0\xFF\xE4\xBD\xED\xA0\x80";
    for (int times = 1 + below(random, 6); times > 0 && !text.isEmpty(); --times)
        text[below(random, text.size())] = bytes[random() % (sizeof bytes - 1)];
    return text;
}

QByteArray wildNumbers(QByteArray text, Random& random)
{
    static const char* const numbers[] = { "1e308",
                                           "-1e308",
                                           "1.7976931348623157e308",
                                           "4.9e-324",
                                           "1e-308",
                                           "-0",
                                           "nan",
                                           "inf",
                                           "1e999",
                                           "2147483648",
                                           "-9223372036854775809",
                                           "0x1p3",
                                           "1e1000000000",
                                           "00000000000000000000000000000000000000001",
                                           "" };
    for (int times = 1 + below(random, 8); times > 0; --times) {
        // A run of digits and points somewhere behind a place.
        int begin = below(random, text.size());
        const auto isDigit = [&](int place) {
            return (text[place] >= '0' && text[place] <= '9') || text[place] == '.';
        };
        while (begin < text.size() && !isDigit(begin))
            ++begin;
        int end = begin;
        while (end < text.size() && isDigit(end))
            ++end;
        text.replace(begin, end - begin, oneOf(random, numbers));
    }
    return text;
}

QByteArray movedLines(QByteArray text, Random& random)
{
    QList<QByteArray> lines = text.split('\n');
    for (int times = 1 + below(random, 5); times > 0; --times) {
        const int from = below(random, lines.size()), to = below(random, lines.size());
        switch (random() % 3) {
        case 0: lines.move(from, to); break;
        case 1: lines.insert(to, lines.at(from)); break;
        default: lines.removeAt(from);
        }
        if (lines.isEmpty())
            break;
    }
    return lines.join('\n');
}

QByteArray longRun(QByteArray text, Random& random)
{
    static const char* const runs[] = { ",",  "(", "[",    "{\"a\":", "A,", " ",  "-",  "9", "\xE4\xB8\xAD",
                                        "\n", ";", "NOT(", "IF(",     "\"", "\t", "//", "0." };
    static const int counts[] = { 100, 5'000, 70'000, 300'000 };
    const int times = oneOf(random, counts);
    return text.insert(below(random, text.size()), QByteArray(oneOf(random, runs)).repeated(times));
}

QByteArray otherEncoding(QByteArray text, Random& random)
{
    static const char* const separators[] = { ";", "\t", "\xEF\xBC\x8C" };
    const QString decoded = QString::fromUtf8(text);
    const auto* units = reinterpret_cast<const char*>(decoded.utf16());
    switch (random() % 4) {
    case 0: return "\xFF\xFE" + QByteArray(units, decoded.size() * 2);
    case 1: return "\xEF\xBB\xBF\xEF\xBB\xBF" + text;
    case 2: return text.replace('\n', '\r');
    default: return text.replace(',', oneOf(random, separators));
    }
}

QByteArray cutOff(QByteArray text, Random& random)
{
    return random() % 8 == 0 ? QByteArray() : text.left(below(random, text.size()));
}

QByteArray doubled(QByteArray text, Random& random)
{
    const int from = below(random, text.size()), length = below(random, 4'000);
    const QByteArray part = text.mid(from, length).repeated(1 + below(random, 20));
    return text.insert(below(random, text.size()), part);
}

} // namespace

QByteArray hostileFile(const QByteArray& sound, unsigned seed)
{
    QByteArray (*const kinds[])(QByteArray, Random&) = {
        changedBytes, wildNumbers, longRun, movedLines, otherEncoding, cutOff, doubled,
    };
    Random random(seed);
    QByteArray text = sound;
    for (int times = 1 + below(random, 4); times > 0; --times)
        text = oneOf(random, kinds)(text, random);
    return text;
}

} // namespace test
