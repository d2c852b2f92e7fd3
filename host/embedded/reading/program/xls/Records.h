// SPDX-License-Identifier: MIT
#pragma once
/// @file The records of an old workbook.

#include <QByteArray>
#include <QString>

#include <vector>

namespace workbook {

/// One record: its kind and its bytes, with those of the records that continue it.
struct Record
{
    enum Kind : quint16 {
        Formula = 0x0006,
        End = 0x000A,
        DateMode = 0x0022,
        FilePass = 0x002F,
        Continue = 0x003C,
        CodePage = 0x0042,
        BoundSheet = 0x0085,
        MulRk = 0x00BD,
        RString = 0x00D6,
        Xf = 0x00E0,
        SharedTexts = 0x00FC,
        LabelShared = 0x00FD,
        Number = 0x0203,
        Label = 0x0204,
        BoolOrError = 0x0205,
        StringResult = 0x0207,
        Rk = 0x027E,
        Format = 0x041E,
        Begin = 0x0809,
    };
    quint16 kind = 0;
    QByteArray bytes;
    std::vector<QByteArray> continued;
};

/// Walks over the records of a stream.
class Records
{
public:
    /// @param stream  must outlive the walk and the records.
    Records(const QByteArray& stream, qint64 from)
        : m_stream(stream)
        , m_at(from)
    {
    }
    /// @return false at the end of the stream, also when a record goes beyond it.
    bool next(Record& record);

private:
    bool take(quint16& kind, QByteArray& bytes);

    const QByteArray& m_stream;
    qint64 m_at;
};

/// Reads the texts and numbers of a record one after the other, over the borders to the records that continue
/// it. Past the end everything reads as 0, and isWhole() turns false.
class RecordReader
{
public:
    explicit RecordReader(const Record& record);

    bool isWhole() const { return m_isWhole; }
    bool atEnd() const { return m_part >= m_parts.size(); }
    quint8 byte();
    quint16 word();
    quint32 doubleWord();
    quint64 longWord();
    void skip(qint64 count);
    /// `count` letters of one byte (Latin-1) or two; behind a border a new flag says which.
    QString letters(int count, bool isWide);
    /// A text with its flags, and with a length of 8 or 16 bits ahead of it; looks and readings are passed
    /// over.
    QString text(bool hasLongLength);
    /// What is left of the record itself.
    QByteArray rest(int count);

private:
    void settle();

    std::vector<QByteArray> m_parts;
    std::size_t m_part = 0;
    int m_at = 0;
    bool m_isWhole = true;
};

} // namespace workbook
