// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/xls/CompoundFile.h"

#include <QtEndian>

#include <algorithm>

namespace workbook {

namespace {

constexpr int kHeaderTableSectors = 109; // numbers of table sectors that the header itself holds
constexpr int kEntrySize = 128;
constexpr quint32 kLastNumber = 0xFFFFFFFA; // sector numbers from here on mean "none" or "end"
constexpr int kStreamType = 2, kRootType = 5;

template <class Number>
Number numberAt(const QByteArray& bytes, qint64 at)
{
    const bool isInside = at >= 0 && at + static_cast<qint64>(sizeof(Number)) <= bytes.size();
    return isInside ? qFromLittleEndian<Number>(bytes.constData() + at) : Number(0);
}

} // namespace

quint16 number16(const QByteArray& bytes, qint64 at)
{
    return numberAt<quint16>(bytes, at);
}

quint32 number32(const QByteArray& bytes, qint64 at)
{
    return numberAt<quint32>(bytes, at);
}

CompoundFile::CompoundFile(const QByteArray& bytes)
    : m_bytes(bytes)
{
    readHeader();
    if (!isSound())
        return;
    readTable();
    readDirectory();
}

void CompoundFile::readHeader()
{
    const int shift = number16(m_bytes, 30);
    m_smallShift = number16(m_bytes, 32);
    m_smallLimit = number32(m_bytes, 56);
    if ((shift == 9 || shift == 12) && m_smallShift > 0 && m_smallShift < shift)
        m_sectorShift = shift;
}

/// The last sector of a file may be short.
QByteArray CompoundFile::sector(quint32 number) const
{
    const qint64 from = (static_cast<qint64>(number) + 1) << m_sectorShift;
    if (from >= m_bytes.size())
        return QByteArray();
    const qint64 size = std::min<qint64>(qint64(1) << m_sectorShift, m_bytes.size() - from);
    return QByteArray::fromRawData(m_bytes.constData() + from, static_cast<int>(size));
}

/// The table of next sectors stands in sectors of its own: the first are named in the header, the others in a
/// chain of sectors whose last number names the next of the chain.
void CompoundFile::readTable()
{
    const int numbers = 1 << (m_sectorShift - 2); // in one sector
    std::vector<quint32> tableSectors;
    tableSectors.reserve(kHeaderTableSectors);
    for (int i = 0; i < kHeaderTableSectors; ++i)
        tableSectors.push_back(number32(m_bytes, 76 + qint64 { 4 } * i));
    quint32 further = number32(m_bytes, 68);
    for (qint64 left = m_bytes.size() >> m_sectorShift; further < kLastNumber && left > 0; --left) {
        const QByteArray list = sector(further);
        for (int i = 0; i < numbers - 1; ++i)
            tableSectors.push_back(number32(list, qint64 { 4 } * i));
        further = list.isEmpty() ? kLastNumber : number32(list, qint64 { 4 } * (numbers - 1));
    }
    const auto sectorCount = static_cast<std::size_t>(m_bytes.size() >> m_sectorShift);
    for (const quint32 number : tableSectors) {
        const QByteArray part = number < kLastNumber ? sector(number) : QByteArray();
        for (int i = 0; i < part.size() / 4 && m_next.size() < sectorCount; ++i)
            m_next.push_back(number32(part, qint64 { 4 } * i));
    }
}

QByteArray CompoundFile::chain(quint32 start, qint64 mostBytes) const
{
    QByteArray bytes;
    std::size_t left = m_next.size(); // a longer chain is a loop
    for (quint32 at = start; at < m_next.size() && left > 0 && bytes.size() < mostBytes; --left) {
        bytes += sector(at);
        at = m_next[at];
    }
    bytes.truncate(static_cast<int>(std::min<qint64>(bytes.size(), mostBytes)));
    return bytes;
}

QByteArray CompoundFile::smallChain(quint32 start, qint64 mostBytes) const
{
    QByteArray bytes;
    const qint64 count = m_smallNext.size() / 4;
    qint64 left = count;
    for (quint32 at = start; at < count && left > 0 && bytes.size() < mostBytes; --left) {
        bytes += m_smallSectors.mid(static_cast<int>(at) << m_smallShift, 1 << m_smallShift);
        at = number32(m_smallNext, 4 * qint64(at));
    }
    bytes.truncate(static_cast<int>(std::min<qint64>(bytes.size(), mostBytes)));
    return bytes;
}

void CompoundFile::readDirectory()
{
    const QByteArray directory = chain(number32(m_bytes, 48), m_bytes.size());
    for (int at = 0; at + kEntrySize <= directory.size(); at += kEntrySize) {
        const int type = static_cast<unsigned char>(directory[at + 66]);
        const quint32 start = number32(directory, at + 116), size = number32(directory, at + 120);
        if (type == kRootType && m_smallSectors.isEmpty()) {
            m_smallSectors = chain(start, size);
            m_smallNext = chain(number32(m_bytes, 60), m_bytes.size());
        } else if (type == kStreamType) {
            const int units = std::min<int>(number16(directory, at + 64), 64) / 2 - 1; // without the last NUL
            QByteArray name;
            for (int i = 0; i < units; ++i)
                name += static_cast<char>(number16(directory, at + 2 * i) & 0xFF);
            m_entries.push_back({ name.toLower(), start, size });
        }
    }
}

const CompoundFile::Entry* CompoundFile::find(const char* name) const
{
    const QByteArray sought = QByteArray(name).toLower();
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return entry.name == sought; });
    return found == m_entries.end() ? nullptr : &*found;
}

bool CompoundFile::hasStream(const char* name) const
{
    return find(name) != nullptr;
}

QByteArray CompoundFile::stream(const char* name, bool& isWhole) const
{
    const Entry* const entry = find(name);
    if (!entry) {
        isWhole = false;
        return QByteArray();
    }
    QByteArray bytes =
        entry->size < m_smallLimit ? smallChain(entry->start, entry->size) : chain(entry->start, entry->size);
    isWhole = static_cast<quint32>(bytes.size()) == entry->size;
    return bytes;
}

} // namespace workbook
