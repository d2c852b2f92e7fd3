// SPDX-License-Identifier: MIT
#include "apps/base/FileNames.h"

#include <algorithm>

namespace base {

namespace {

constexpr ushort kByteMark = 0xDC00; // a byte that is no UTF-8 stands behind it

/// Length of the valid UTF-8 sequence that begins at a byte; 0 when none does.
int sequenceLength(const QByteArray& bytes, int begin)
{
    const auto lead = static_cast<uchar>(bytes[begin]);
    const int length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
    if (length == 0 || begin + length > bytes.size())
        return 0;
    const QByteArray sequence = bytes.mid(begin, length);
    return QString::fromUtf8(sequence).toUtf8() == sequence ? length : 0;
}

bool isMarkedByte(const QString& name, int place)
{
    const ushort unit = name[place].unicode();
    const bool inPair = place > 0 && name[place - 1].isHighSurrogate();
    return !inPair && unit >= kByteMark + 0x80 && unit <= kByteMark + 0xFF;
}

QString hexadecimal(ushort value, int digits)
{
    return QString::number(value, 16).rightJustified(digits, QLatin1Char('0'));
}

bool turnsDirection(ushort unit)
{
    return unit == 0x200E || unit == 0x200F || (unit >= 0x202A && unit <= 0x202E)
        || (unit >= 0x2066 && unit <= 0x2069);
}

} // namespace

QString nameFromBytes(const QByteArray& bytes)
{
    QString name;
    for (int begin = 0; begin < bytes.size();) {
        const int length = sequenceLength(bytes, begin);
        if (length == 0)
            name += QChar(static_cast<ushort>(kByteMark + static_cast<uchar>(bytes[begin])));
        else
            name += QString::fromUtf8(bytes.constData() + begin, length);
        begin += std::max(1, length);
    }
    return name;
}

QByteArray bytesOfName(const QString& name)
{
    QByteArray bytes;
    int written = 0;
    for (int place = 0; place < name.size(); ++place) {
        if (!isMarkedByte(name, place))
            continue;
        bytes += QStringView(name).mid(written, place - written).toUtf8();
        bytes += static_cast<char>(name[place].unicode() - kByteMark);
        written = place + 1;
    }
    return bytes + QStringView(name).mid(written).toUtf8();
}

QString printable(const QString& text)
{
    QString line;
    for (int place = 0; place < text.size(); ++place) {
        const ushort unit = text[place].unicode();
        if (isMarkedByte(text, place))
            line += QStringLiteral("\\x") + hexadecimal(static_cast<ushort>(unit - kByteMark), 2);
        else if (unit == '\n')
            line += QStringLiteral("\\n");
        else if (unit == '\t')
            line += QStringLiteral("\\t");
        else if (unit < 0x20 || (unit >= 0x7F && unit < 0xA0))
            line += QStringLiteral("\\x") + hexadecimal(unit, 2);
        else if (unit == 0x2028 || unit == 0x2029 || turnsDirection(unit))
            line += QStringLiteral("\\u") + hexadecimal(unit, 4);
        else
            line += text[place];
    }
    return line;
}

} // namespace base
