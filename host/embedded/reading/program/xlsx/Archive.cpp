// SPDX-License-Identifier: MIT
#include "host/embedded/reading/program/xlsx/Archive.h"

#include <zip.h>

#include <array>

namespace workbook {

namespace {

constexpr zip_int64_t kMostEntries = 1'000;
constexpr qint64 kMostUnpacked = qint64 { 256 } << 20; // bytes

zip_t* openArchive(const QByteArray& bytes, int flags)
{
    zip_source_t* const source =
        zip_source_buffer_create(bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0, nullptr);
    zip_t* const archive = source ? zip_open_from_source(source, ZIP_RDONLY | flags, nullptr) : nullptr;
    if (source && !archive)
        zip_source_free(source);
    return archive;
}

} // namespace

void Archive::Discard::operator()(zip* archive) const
{
    zip_discard(archive);
}

Archive::Archive(const QByteArray& bytes)
    : m_outcome(open(bytes))
{
}

Archive::~Archive() = default;

Outcome Archive::open(const QByteArray& bytes)
{
    m_archive.reset(openArchive(bytes, ZIP_CHECKCONS));
    if (!m_archive) {
        m_isSuspicious = true;
        m_archive.reset(openArchive(bytes, 0));
    }
    return m_archive ? listParts(bytes.size()) : Outcome::Damaged;
}

/// Looks at the sizes that the archive states itself. The packed ones must fit the file as well: whoever
/// reads an entry makes room for them first.
Outcome Archive::listParts(qint64 fileSize)
{
    const zip_int64_t entries = zip_get_num_entries(m_archive.get(), 0);
    if (entries > kMostEntries)
        return Outcome::TooManyParts;
    constexpr zip_uint64_t needed = ZIP_STAT_NAME | ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE;
    zip_uint64_t unpacked = 0, packed = 0;
    for (zip_int64_t i = 0; i < entries; ++i) {
        zip_stat_t stat;
        if (zip_stat_index(m_archive.get(), static_cast<zip_uint64_t>(i), 0, &stat) != 0
            || (stat.valid & needed) != needed
            || stat.comp_size > static_cast<zip_uint64_t>(fileSize) - packed)
            return Outcome::Damaged;
        if (stat.size > static_cast<zip_uint64_t>(kMostUnpacked) - unpacked)
            return Outcome::UnpacksTooLarge;
        if ((stat.valid & ZIP_STAT_ENCRYPTION_METHOD) && stat.encryption_method != ZIP_EM_NONE)
            return Outcome::Protected;
        unpacked += stat.size;
        packed += stat.comp_size;
        const QByteArray name = QByteArray(stat.name).replace('\\', '/').toLower();
        if (m_parts.contains(name))
            m_isSuspicious = true; // which of the two is meant cannot be told
        m_parts.insert(name, static_cast<quint64>(i));
    }
    return Outcome::Read;
}

Archive::End Archive::read(const QByteArray& part, const Receiver& receiver)
{
    const auto found = m_parts.constFind(part.toLower());
    if (found == m_parts.constEnd())
        return End::Missing;
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(zip_fopen_index(m_archive.get(), *found, 0),
                                                                 zip_fclose);
    if (!file)
        return End::Damaged;
    std::array<char, std::size_t { 64 } << 10> buffer;
    for (;;) {
        const zip_int64_t size = zip_fread(file.get(), buffer.data(), buffer.size());
        m_unpacked += size;
        if (size < 0 || m_unpacked > kMostUnpacked)
            return End::Damaged;
        if (size == 0)
            return End::Whole;
        if (!receiver(buffer.data(), static_cast<int>(size)))
            return End::Stopped;
    }
}

} // namespace workbook
