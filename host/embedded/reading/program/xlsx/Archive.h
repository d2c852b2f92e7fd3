// SPDX-License-Identifier: MIT
#pragma once
/// @file The parts of a zip archive.

#include "host/embedded/reading/program/CellCollector.h"

#include <QByteArray>
#include <QHash>

#include <functional>
#include <memory>

struct zip;

namespace workbook {

/// An archive within its limits, read from memory. Part names have no leading "/", count without regard to
/// case, and may be written with "\".
class Archive
{
public:
    enum class End {
        Whole,   ///< all bytes came, and their checksum is right
        Missing, ///< no such part
        Damaged, ///< some bytes may have come
        Stopped, ///< the receiver wanted no more
    };
    /// Takes the next bytes of a part; false stops the reading.
    using Receiver = std::function<bool(const char* bytes, int size)>;

    /// @param bytes  must outlive the archive.
    explicit Archive(const QByteArray& bytes);
    ~Archive();

    /// Read, or why nothing can be read of the archive.
    Outcome outcome() const { return m_outcome; }
    /// The archive contradicts itself, though its parts may be sound.
    bool isSuspicious() const { return m_isSuspicious; }
    bool holds(const QByteArray& part) const { return m_parts.contains(part.toLower()); }

    End read(const QByteArray& part, const Receiver& receiver);

private:
    Outcome open(const QByteArray& bytes);
    Outcome listParts(qint64 fileSize);

    struct Discard
    {
        void operator()(zip* archive) const;
    };
    std::unique_ptr<zip, Discard> m_archive;
    QHash<QByteArray, quint64> m_parts;
    Outcome m_outcome = Outcome::Damaged;
    qint64 m_unpacked = 0; ///< bytes that came so far, of all parts
    bool m_isSuspicious = false;
};

} // namespace workbook
