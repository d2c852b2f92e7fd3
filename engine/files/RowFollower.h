// SPDX-License-Identifier: MIT
#pragma once
/// @file Rows of a file that another program appends to.

#include "engine/files/CsvReader.h"

#include <optional>
#include <string>

namespace engine {

/// Hands the complete rows of a growing file to a reader.
/// @tparam Reader  made of a CsvReader behind its header; readRow() takes in a row, series() is what it has,
///         dropBeyond() forgets what it took of a wrong row.
template <typename Reader>
class RowFollower
{
public:
    explicit RowFollower(const std::string& path)
        : m_csv(path)
    {
        m_csv.waitForLineEnds();
        if (m_csv.readHeader())
            m_reader.emplace(m_csv);
    }

    std::size_t read()
    {
        std::size_t rows = 0;
        while (m_reader && m_csv.nextRow()) {
            const std::size_t sound = m_reader->series().size();
            m_reader->readRow();
            if (m_csv.failed()) {
                m_reader->dropBeyond(sound);
                break;
            }
            ++rows;
        }
        return rows;
    }

    /// Null before a header that names all columns.
    const Reader* reader() const { return m_reader ? &*m_reader : nullptr; }
    const std::string& failure() const { return m_csv.failure(); }

private:
    CsvReader m_csv;
    std::optional<Reader> m_reader;
};

} // namespace engine
