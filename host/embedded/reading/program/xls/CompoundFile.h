// SPDX-License-Identifier: MIT
#pragma once
/// @file The streams of a compound file, the small file system in which old office programs keep their
/// documents.

#include <QByteArray>

#include <vector>

namespace workbook {

/// Little-endian numbers of a buffer; 0 past its end.
quint16 number16(const QByteArray& bytes, qint64 at);
quint32 number32(const QByteArray& bytes, qint64 at);

/// A compound file in memory. Chains of sectors that loop or leave the file end there.
class CompoundFile
{
public:
    /// @param bytes  must outlive the file.
    explicit CompoundFile(const QByteArray& bytes);

    bool isSound() const { return m_sectorShift != 0; }
    bool hasStream(const char* name) const;
    /// A stream's bytes; fewer than it states when sectors are missing.
    /// @param[out] isWhole  whether all are there.
    QByteArray stream(const char* name, bool& isWhole) const;

private:
    struct Entry
    {
        QByteArray name; ///< lower case, Latin-1
        quint32 start, size;
    };
    void readHeader();
    void readTable();
    void readDirectory();
    QByteArray sector(quint32 number) const;
    QByteArray chain(quint32 start, qint64 mostBytes) const;
    QByteArray smallChain(quint32 start, qint64 mostBytes) const;
    const Entry* find(const char* name) const;

    const QByteArray& m_bytes;
    int m_sectorShift = 0; ///< sectors have 2 to this power bytes; 0 for an unknown header
    int m_smallShift = 6;
    quint32 m_smallLimit = 4'096; ///< streams below this size stand in small sectors
    std::vector<quint32> m_next;  ///< for each sector the one behind it
    QByteArray m_smallNext;       ///< the same for small sectors, as bytes of the file
    QByteArray m_smallSectors;
    std::vector<Entry> m_entries;
};

} // namespace workbook
