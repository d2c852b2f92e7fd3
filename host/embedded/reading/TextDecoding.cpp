// SPDX-License-Identifier: MIT
#include "host/embedded/reading/TextDecoding.h"

#include "host/utils/TextCodec.h"

#include <algorithm>

namespace TC::embedded {

namespace {

/// Name of the UTF-16 that the NUL bytes speak for: the high bytes of digits and separators are NUL, so that
/// NULs gather on one side. Null when there are too few to tell, as a stray NUL is no encoding.
const char* encodingOfNulParity(const QByteArray& bytes)
{
    constexpr int sampleSize = 4096, fewestShare = 40;
    const int size = std::min<int>(bytes.size(), sampleSize);
    int counts[2] = { 0, 0 };
    for (int i = 0; i < size; ++i)
        counts[i % 2] += bytes[i] == '\0';
    if (counts[0] == counts[1] || std::max(counts[0], counts[1]) * fewestShare < size)
        return nullptr;
    return counts[0] > counts[1] ? "UTF-16BE" : "UTF-16LE";
}

QString decoded(const QByteArray& bytes, int from, const char* encoding, bool* isClean = nullptr)
{
    const QByteArray part = QByteArray::fromRawData(bytes.constData() + from, bytes.size() - from);
    const auto made = utils::decoded(part, encoding);
    if (isClean)
        *isClean = made && made->isClean;
    return made ? made->text : QString();
}

} // namespace

QString decodeText(const QByteArray& bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return decoded(bytes, 3, "UTF-8");
    if (bytes.startsWith("\xFF\xFE"))
        return decoded(bytes, 2, "UTF-16LE");
    if (bytes.startsWith("\xFE\xFF"))
        return decoded(bytes, 2, "UTF-16BE");
    if (const char* utf16 = encodingOfNulParity(bytes))
        return decoded(bytes, 0, utf16);
    bool isClean = false;
    const QString text = decoded(bytes, 0, "UTF-8", &isClean);
    return isClean ? text : decoded(bytes, 0, "GB18030");
}

bool splitLines(const QString& text, bool skipEmptyLines, QList<QString>& lines)
{
    lines.clear();
    const QChar* const end = text.constData() + text.size();
    for (const QChar* from = text.constData(); from != end;) {
        const QChar* to = from;
        while (to != end && *to != QLatin1Char('\n') && *to != QLatin1Char('\r'))
            ++to;
        if (to != from || !skipEmptyLines)
            lines.append(QString(from, static_cast<int>(to - from)));
        if (lines.size() > kMostLines) {
            lines.clear();
            return false;
        }
        if (to != end)
            to += to + 1 != end && *to == QLatin1Char('\r') && to[1] == QLatin1Char('\n') ? 2 : 1;
        from = to;
    }
    return true;
}

} // namespace TC::embedded
