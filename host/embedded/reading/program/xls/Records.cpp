// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/xls/Records.h"

#include "host/embedded/reading/program/xls/CompoundFile.h"

#include <algorithm>

namespace workbook {

bool Records::take(quint16& kind, QByteArray& bytes)
{
    constexpr int head = 4;
    const int length = number16(m_stream, m_at + 2);
    if (m_at < 0 || m_at + head + length > m_stream.size())
        return false;
    kind = number16(m_stream, m_at);
    bytes = QByteArray::fromRawData(m_stream.constData() + m_at + head, length);
    m_at += head + length;
    return true;
}

bool Records::next(Record& record)
{
    record.continued.clear();
    if (!take(record.kind, record.bytes))
        return false;
    quint16 kind = 0;
    QByteArray bytes;
    while (number16(m_stream, m_at) == Record::Continue && take(kind, bytes))
        record.continued.push_back(bytes);
    return true;
}

RecordReader::RecordReader(const Record& record)
    : m_parts { record.bytes }
{
    m_parts.insert(m_parts.end(), record.continued.begin(), record.continued.end());
    settle();
}

/// Leaves parts that are used up.
void RecordReader::settle()
{
    while (m_part < m_parts.size() && m_at >= m_parts[m_part].size()) {
        ++m_part;
        m_at = 0;
    }
}

quint8 RecordReader::byte()
{
    if (atEnd()) {
        m_isWhole = false;
        return 0;
    }
    const auto value = static_cast<quint8>(m_parts[m_part][m_at++]);
    settle();
    return value;
}

quint16 RecordReader::word()
{
    const quint16 low = byte();
    return static_cast<quint16>(low | byte() << 8);
}

quint32 RecordReader::doubleWord()
{
    const quint32 low = word();
    return low | static_cast<quint32>(word()) << 16;
}

quint64 RecordReader::longWord()
{
    const quint64 low = doubleWord();
    return low | static_cast<quint64>(doubleWord()) << 32;
}

void RecordReader::skip(qint64 count)
{
    while (count > 0 && !atEnd()) {
        const int step = static_cast<int>(std::min<qint64>(count, m_parts[m_part].size() - m_at));
        m_at += step;
        count -= step;
        settle();
    }
    m_isWhole = m_isWhole && count <= 0;
}

QString RecordReader::letters(int count, bool isWide)
{
    QString text;
    while (count > 0 && !atEnd()) {
        const std::size_t part = m_part;
        while (count > 0 && m_part == part) {
            text += QChar(isWide ? word() : byte());
            --count;
        }
        if (count > 0 && !atEnd())
            isWide = (byte() & 1) != 0; // the next part begins with its own flag
    }
    m_isWhole = m_isWhole && count <= 0;
    return text;
}

QString RecordReader::text(bool hasLongLength)
{
    constexpr int wide = 1, hasReading = 4, hasLooks = 8;
    const int count = hasLongLength ? word() : byte();
    const int flags = byte();
    const int looks = flags & hasLooks ? word() : 0;
    const quint32 reading = flags & hasReading ? doubleWord() : 0;
    QString text = letters(count, (flags & wide) != 0);
    skip(qint64(looks) * 4 + reading);
    return text;
}

QByteArray RecordReader::rest(int count)
{
    if (atEnd())
        return QByteArray();
    QByteArray bytes = m_parts[m_part].mid(m_at, count);
    m_isWhole = m_isWhole && bytes.size() == count;
    skip(bytes.size());
    return bytes;
}

} // namespace workbook
